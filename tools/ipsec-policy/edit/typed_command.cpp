#include "typed_command.h"

#include "edit_words.h"
#include "text.h"

#include <cstddef>

TypedCommand readTypedCommand(std::string_view text)
{
    TypedCommand typed;
    for (std::size_t at = 0; (at = text.find_first_not_of(BLANKS, at)) != std::string_view::npos;) {
        typed.last = text.substr(at);
        try {
            const std::size_t end = findUnquoted(text, BLANKS, at);
            if (end == std::string_view::npos)
                return typed;
            typed.before.push_back(text.substr(at, end - at));
            at = end;
        } catch (const Failure&) { // a quote is not closed
            return typed;
        }
    }
    typed.last = {};
    return typed;
}

std::optional<std::string> continuedWord(std::string_view typed, const std::string& name)
{
    const std::string meant = unquoted(typed); // which asks for no end of a quote
    if (name.compare(0, meant.size(), meant) != 0)
        return std::nullopt;
    std::string rest = name.substr(meant.size());
    const char  open = openQuoteIn(typed);
    if (open == '\'' && rest.find('\'') == std::string::npos && printable(rest) == rest)
        return std::string(typed) + rest + open; // there are no escapes in it
    if (!rest.empty())
        rest = quotedWord(rest);
    if (open == '"') {
        if (rest.empty() || rest.front() != open)
            rest += open;
        else
            rest.erase(0, 1);
    } else if (open == '\'') {
        rest.insert(0, 1, open);
    }
    return std::string(typed) + rest;
}
