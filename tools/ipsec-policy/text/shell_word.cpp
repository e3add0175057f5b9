#include "shell_word.h"

#include "text.h"

#include <algorithm>
#include <cstdlib>

namespace {

const char PLAIN_MARKS[]        = "_./,+@%-"; // which no shell takes for something else
const char DOUBLE_QUOTE_MARKS[] = "\"$`\\!";  // which mean something between double quotes
const char DOUBLE_ESCAPES[]     = "\"$`\\";   // what a backslash quotes there

bool isOneOf(char c, std::string_view characters)
{
    return characters.find(c) != std::string_view::npos;
}

bool isPlainCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || isOneOf(c, PLAIN_MARKS) ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// Whether all of it is on the keyboard, in a way: nothing that printable() would show otherwise but backslashes.
bool isTypable(std::string_view text)
{
    std::string doubled;
    for (const char c : text)
        doubled.append(c == '\\' ? 2 : 1, c);
    return printable(text) == doubled;
}

} // namespace

ShellWord readShellWord(std::string_view typed)
{
    ShellWord word;
    if (typed.substr(0, 2) == "~/")
        if (const char* const home = std::getenv("HOME"); home != nullptr) {
            word.text = home;
            typed.remove_prefix(1);
        }

    for (std::size_t i = 0; i < typed.size(); ++i) {
        const char c    = typed[i];
        const bool last = i + 1 == typed.size();
        if (word.openQuote == '\0' && (c == '\'' || c == '"'))
            word.openQuote = c;
        else if (c == word.openQuote)
            word.openQuote = '\0';
        else if (c == '\\' && word.openQuote == '\0')
            word.text.append(last ? "" : std::string(1, typed[++i]));
        else if (c == '\\' && word.openQuote == '"' && !last && isOneOf(typed[i + 1], DOUBLE_ESCAPES))
            word.text += typed[++i];
        else
            word.text += c;
    }
    return word;
}

std::optional<std::string> typedWord(std::string_view text, char openQuote)
{
    const char* const forbidden = openQuote == '\'' ? "'" : openQuote == '"' ? DOUBLE_QUOTE_MARKS : "";
    if (!isTypable(text) || text.find_first_of(forbidden) != std::string_view::npos)
        return std::nullopt;

    std::string typed;
    for (const char c : text) {
        if (openQuote == '\0' && !isPlainCharacter(c))
            typed += '\\';
        typed += c;
    }
    return typed;
}
