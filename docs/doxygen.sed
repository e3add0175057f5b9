# What doxygen reads of a header: its INPUT_FILTER, for sed -E. No line comes or goes, so that places stay true.

# An element's name in a comment is no HTML; between backticks and at the end of a quoted text doxygen knows that.
:element
s/(\/\/\/.*[^`a-z\])(<[A-Za-z0-9]+>)([^"]|$)/\1\\\2\3/
t element

# That a template is compiled elsewhere is no declaration of something else.
/^extern template /{
    :declaration
    /;/!{
        N
        b declaration
    }
    s/[^\n]//g
}

# What the form of a declaration says is not said again in the headers.
s|^inline constexpr .* __(\w+)Num__ = .*;$|& ///< how many values \1 has|
s|^extern .* __(\w+)Names__\[.*;$|& ///< the names of \1's values, that of 0 first|
s/\((const \w+&|\w+&&)( other)?\)[ a-z]*= default;$/& \/\/\/< member by member/
s/^.* operator\W+\(.*return compare\(other\) .*$/& \/\/\/< in the order of compare()/
s/^.* operator!=\(.*return !\(\*this == other\).*$/& \/\/\/< the opposite of ==/
s/^.* operator\W+\(.*return a\.value_ .*$/& \/\/\/< compares the numbers/
