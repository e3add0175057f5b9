# Completes the arguments of ipsec-policy in bash. All that can be offered is known to the program itself; here is only
# what bash wants to have it like (docs/completion.md).

# Leaves the words of the line up to the cursor in `words`, as they are typed, but without redirections. bash has them
# in pieces, as it ends words at '=' and ':' too. Fails if the last word is the file of a redirection.
_ipsec_policy_words()
{
    local line=${COMP_LINE:0:COMP_POINT} operator='^[0-9&]*[<>]+[&|]?$' isFile= piece i
    words=()
    for ((i = 0; i <= COMP_CWORD; ++i)); do
        piece=${COMP_WORDS[i]}
        ((i < COMP_CWORD)) || piece=${line#"${line%%[![:blank:]]*}"} # what is behind the cursor does not count
        if [[ $piece =~ $operator ]]; then
            isFile=yes
            # What stands right before it is a descriptor's number.
            [[ $line == [[:blank:]]* || ! ${words[-1]} =~ ^[0-9]+$ ]] || unset 'words[-1]'
        elif [[ -n $isFile ]]; then
            ((i == COMP_CWORD)) || isFile=
        elif ((${#words[@]} == 0)) || [[ -z $line || $line == [[:blank:]]* ]]; then
            words+=("$piece")
        else
            words[-1]+=$piece
        fi
        line=${line#"${line%%[![:blank:]]*}"}
        line=${line#"$piece"}
    done
    [[ -z $isFile ]]
}

# Leaves in `start` how much of the word, as it is typed, stays when bash puts a candidate in its place: all up to an
# open quote, or else up to the last character that ends words.
_ipsec_policy_start()
{
    local word=$1 quote= i character
    start=
    for ((i = 0; i < ${#word}; ++i)); do
        character=${word:i:1}
        if [[ $character == \\ && $quote != \' ]]; then
            ((++i))
        elif [[ -n $quote ]]; then
            [[ $character != "$quote" ]] || quote=
        elif [[ $character == [\'\"] ]]; then
            quote=$character start=${word:0:i+1}
        elif [[ $COMP_WORDBREAKS == *"$character"* ]]; then
            start=${word:0:i+1}
        fi
    done
    [[ -z $quote ]] || start=${start%?} # the quote is not in the candidates
}

_ipsec_policy()
{
    local words start line
    COMPREPLY=()
    _ipsec_policy_words || { compopt -o bashdefault -o default; return; }
    _ipsec_policy_start "${words[-1]}"
    while IFS= read -r line; do
        line=${line%%$'\t'*}
        if [[ $line == :files ]]; then
            compopt -o bashdefault -o default
        elif [[ $line == "$start"* ]]; then
            COMPREPLY+=("${line#"$start"}")
        fi
    done < <("${1/#\~\//$HOME/}" __complete "${words[@]:1}" 2>/dev/null)
    [[ ${COMPREPLY[0]-} != *= ]] || compopt -o nospace
}

complete -F _ipsec_policy ipsec-policy
