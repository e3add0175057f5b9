#include "edit_words.h"

#include "hex_digit.h"
#include "text.h"

#include <algorithm>

namespace {

bool isLetterOrDigit(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Whether the text means the same everywhere in a command without quotes.
bool needsNoQuotes(std::string_view text)
{
    return !text.empty() && text.front() != '-' && text.front() != '+' &&
           std::all_of(text.begin(), text.end(), [](char c) {
               return isLetterOrDigit(c) || std::string_view("._:/+-").find(c) != std::string_view::npos;
           });
}

Failure escapeFailure()
{
    return commandFailure(R"(an escape in quotes is none of \" \\ \n \r \t \xHH \u{H...})");
}

/// The number in one to six hexadecimal digits.
char32_t hexadecimal(std::string_view digits)
{
    if (digits.empty() || digits.size() > 6)
        throw escapeFailure();
    char32_t number = 0;
    for (const char c : digits) {
        const unsigned int digit = hexDigit(c);
        if (digit > 15)
            throw escapeFailure();
        number = number * 16 + digit;
    }
    return number;
}

std::string utf8(char32_t code)
{
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        throw escapeFailure();
    const auto continuation = [code](unsigned int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80)
        return {static_cast<char>(code)};
    if (code < 0x800)
        return {static_cast<char>(0xC0 | code >> 6), continuation(0)};
    if (code < 0x10000)
        return {static_cast<char>(0xE0 | code >> 12), continuation(6), continuation(0)};
    return {static_cast<char>(0xF0 | code >> 18), continuation(12), continuation(6), continuation(0)};
}

/// Takes what follows a backslash from the start of `text`, and returns what it stands for.
std::string takeEscaped(std::string_view& text)
{
    if (text.empty())
        throw escapeFailure();
    const char kind = text.front();
    text.remove_prefix(1);
    switch (kind) {
    case '"':
    case '\\':
        return {kind};
    case 'n':
        return "\n";
    case 'r':
        return "\r";
    case 't':
        return "\t";
    case 'x': {
        if (text.size() < 2)
            throw escapeFailure();
        const char32_t byte = hexadecimal(text.substr(0, 2));
        text.remove_prefix(2);
        return {static_cast<char>(byte)};
    }
    case 'u': {
        const std::size_t end = text.find('}');
        if (text.empty() || text.front() != '{' || end == std::string_view::npos)
            throw escapeFailure();
        const char32_t code = hexadecimal(text.substr(1, end - 1));
        text.remove_prefix(end + 1);
        return utf8(code);
    }
    default:
        throw escapeFailure();
    }
}

/// Goes through a text that begins with a word, or with a piece of one, and knows what stands in quotes.
class Quotes {
  public:
    /// Goes on to the next character. Whether that begins or ends a quote.
    bool take(char c)
    {
        const bool isMark = isOpen() ? c == open_ : c == '"' || (c == '\'' && mayBegin_);
        if (isMark)
            open_ = isOpen() ? '\0' : c;
        // An apostrophe in a word is one; a single quote begins where a word, a value or a member of a list does.
        mayBegin_ = isMark || isIn(BLANKS, c) || isIn("=,@", c);
        return isMark;
    }

    bool isOpen() const { return open_ != '\0'; }
    char open() const { return open_; }
    bool hasEscapes() const { return open_ == '"'; }

  private:
    static bool isIn(std::string_view characters, char c) { return characters.find(c) != std::string_view::npos; }

    char open_     = '\0';
    bool mayBegin_ = true;
};

std::string_view withoutBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
    return text.substr(0, text.find_last_not_of(BLANKS) + 1);
}

} // namespace

std::string quotedWord(std::string_view text)
{
    if (needsNoQuotes(text))
        return std::string(text);
    std::string result = "\"";
    for (const char c : printable(text)) {
        if (c == '"')
            result += '\\';
        result += c;
    }
    return result + '"';
}

std::string unquoted(std::string_view word)
{
    std::string text;
    Quotes      quotes;
    while (!word.empty()) {
        const char c = word.front();
        word.remove_prefix(1);
        if (quotes.take(c))
            continue;
        if (c == '\\' && quotes.hasEscapes())
            text += takeEscaped(word);
        else
            text += c;
    }
    return text;
}

bool isQuoted(std::string_view word)
{
    return !word.empty() && (word.front() == '"' || word.front() == '\'');
}

char openQuoteIn(std::string_view text)
{
    Quotes quotes;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (!quotes.take(text[i]) && text[i] == '\\' && quotes.hasEscapes())
            ++i; // what follows ends no quote
    return quotes.open();
}

std::size_t findUnquoted(std::string_view text, std::string_view characters, std::size_t from)
{
    Quotes quotes;
    for (std::size_t i = from; i < text.size(); ++i) {
        if (quotes.take(text[i]))
            continue;
        if (quotes.hasEscapes() && text[i] == '\\')
            ++i; // what follows ends no quote
        else if (!quotes.isOpen() && characters.find(text[i]) != std::string_view::npos)
            return i;
    }
    if (quotes.isOpen())
        throw commandFailure("a quote is not closed");
    return std::string_view::npos;
}

std::string_view withoutComment(std::string_view line)
{
    for (std::size_t at = 0; at != std::string_view::npos; at = findUnquoted(line, BLANKS, at)) {
        at = line.find_first_not_of(BLANKS, at);
        if (at == std::string_view::npos)
            break;
        if (line[at] == '#')
            return line.substr(0, at);
    }
    return line;
}

std::vector<std::string_view> splitWords(std::string_view text)
{
    std::vector<std::string_view> words;
    for (std::size_t at = text.find_first_not_of(BLANKS); at != std::string_view::npos;) {
        const std::size_t end = std::min(findUnquoted(text, BLANKS, at), text.size());
        words.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(BLANKS, end);
    }
    return words;
}

std::vector<std::string_view> splitList(std::string_view text)
{
    std::vector<std::string_view> members;
    if (text.find_first_not_of(BLANKS) == std::string_view::npos)
        return members;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t comma = std::min(findUnquoted(text, ",", at), text.size());
        members.push_back(withoutBlanks(text.substr(at, comma - at)));
        at = comma + 1;
    }
    return members;
}

std::optional<Assignment> assignmentIn(std::string_view word)
{
    const std::size_t      equals = findUnquoted(word, "=");
    const std::string_view name   = word.substr(0, equals);
    if (equals == std::string_view::npos || isQuoted(name) || name.find('"') != std::string_view::npos)
        return std::nullopt;
    return Assignment{name, word.substr(equals + 1)};
}
