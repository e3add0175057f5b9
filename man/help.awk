# Turns the help of ipsec-policy, or of one of its commands, into mdoc(7). Which part of it is wanted is in `part`:
#
#     synopsis      how it is called
#     options       the list of its options
#     command       a section about the command, without its examples
#     exit_status   what the help says of it
#     examples      its examples, as they are typed

# What would not be copied as it is typed is written otherwise.
function escaped(line)
{
    gsub(/\\/, "\\e", line)
    gsub(/'/, "\\(aq", line)
    gsub(/~/, "\\(ti", line)
    gsub(/\^/, "\\(ha", line)
    while (match(line, /(^|[^[:alnum:]\\])-/)) # no hyphen: the first character of an option
        line = substr(line, 1, RSTART + RLENGTH - 2) "\\-" substr(line, RSTART + RLENGTH)
    return line
}

# A line of running text, in which no line begins as an instruction does.
function text(line)
{
    line = escaped(line)
    gsub(/\. /, ".\n", line) # each sentence begins a line
    return line ~ /^\./ ? "\\&" line : line
}

# A line that is shown as it stands.
function literal(line)
{
    line = escaped(line)
    gsub(/-/, "\\-", line)
    gsub(/\\\\-/, "\\-", line)
    return line ~ /^\./ ? "\\&" line : line
}

# The names of the arguments in a usage line behind the command's name, such as "[OPTION ...] FILE [KIND]".
function arguments(usage,    word, isOptional)
{
    while (usage != "") {
        isOptional = usage ~ /^\[/
        if (!match(usage, isOptional ? "^\\[[^]]*\\]" : "^[A-Z]+( ?\\.\\.\\.)?"))
            exit 1
        word = substr(usage, RSTART, RLENGTH)
        usage = substr(usage, RLENGTH + 1)
        sub(/^ +/, "", usage)
        gsub(/[][]/, "", word)
        sub(/ ?\.\.\.$/, " ...", word)
        print (isOptional ? ".Op Ar " : ".Ar ") word
    }
}

# The head of an item, such as "-o,--output OUT", "--backup[=NAME]", "FILE ... REQUIRED".
function item(head,    names, count, i, value, result)
{
    sub(/ REQUIRED$/, "", head)
    if (head !~ /^-/)
        return ".It Ar " head
    if (match(head, /[ [].*/)) {
        value = substr(head, RSTART)
        head = substr(head, 1, RSTART - 1)
    }
    count = split(head, names, ",")
    for (i = 1; i <= count; ++i)
        result = result (i > 1 ? " , " : " ") "Fl " (names[i] ~ /^--/ ? "\\-" substr(names[i], 3) : substr(names[i], 2))
    if (value ~ /^\[=/)
        result = result " Ns Op = Ns Ar " substr(value, 3, length(value) - 3)
    else if (value != "")
        result = result " Ar" value
    return ".It" result
}

# Ends the block of lines that are shown as they stand.
function endLiteral()
{
    if (isLiteral)
        print ".Ed"
    isLiteral = 0
}

function endList()
{
    if (isList)
        print ".El"
    isList = 0
}

# A line of the text behind the options: paragraphs, and what is indented in them.
function detail(line)
{
    if (line == "") {
        endLiteral()
        isNewParagraph = 1
    } else if (line ~ /^  /) {
        if (!isLiteral)
            print ".Bd -literal"
        isLiteral = 1
        print literal(substr(line, 3))
    } else {
        endLiteral()
        if (isNewParagraph)
            print ".Pp"
        isNewParagraph = 0
        print text(line)
    }
}

NR == 1 { summary = $0; next }

/^Usage: / {
    usage = $0
    sub(/^Usage: ipsec-policy /, "", usage)
    if (command != "")
        sub(/^[a-z]+ /, "", usage)
    if (part == "synopsis") {
        print ".Nm"
        print ".Cm " command
        arguments(usage)
    } else if (part == "command") {
        print ".Ss " command
        print text(summary)
        print ".Pp"
        print ".Nm"
        print ".Cm " command
        arguments(usage)
    }
    section = "usage"
    next
}

/^(Arguments|Options|Commands):$/ {
    section = $0
    if (part == "command" || (part == "options" && section == "Options:")) {
        endList()
        print ".Bl -tag -width Ds"
        isList = 1
    }
    next
}

/^Examples:$/ { section = "examples"; next }

section == "examples" {
    if (part == "examples")
        print literal(substr($0, 3))
    next
}

section ~ /:$/ && NF == 0 { next }

# An item, whose head may be too long for its column: then its text follows in the next line.
section ~ /:$/ && /^ / {
    if (part != "command" && (part != "options" || section != "Options:"))
        next
    hasText = substr($0, 24, 1) == " "
    if ($0 ~ /^  [^ ]/) {
        head = hasText ? substr($0, 1, 24) : $0
        gsub(/^ +| +$/, "", head)
        print item(head)
    }
    if (hasText)
        print text(substr($0, 25))
    next
}

# The rest is details.
section != "details" {
    if (part == "command" || part == "options")
        endList()
    section = "details"
    isNewParagraph = 1
}

part == "command" { detail($0) }

/^Exit status: / { isExitStatus = 1 }

part == "exit_status" && isExitStatus {
    sub(/^Exit status: /, "")
    print text($0)
}

END {
    endLiteral()
    if (isList)
        endList()
}
