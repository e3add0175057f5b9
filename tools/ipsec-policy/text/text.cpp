#include "text.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

/// The first character of a text: its bytes, and its code point unless the bytes are not UTF-8 (then it is one byte).
struct Character {
    std::size_t length;
    char32_t    code;
    bool        valid;
};

Character firstCharacter(std::string_view text)
{
    const auto byte    = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto lead    = byte(0);
    const auto invalid = Character{1, lead, false};
    if (lead < 0x80)
        return {1, lead, true};
    // 0xC0 and 0xC1 could only start an overlong form, 0xF5 and above nothing.
    if (lead < 0xC2 || lead > 0xF4)
        return invalid;

    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (text.size() < length)
        return invalid;
    char32_t code = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U)
            return invalid;
        code = (code << 6U) | (byte(i) & 0x3FU);
    }
    const bool overlong  = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (overlong || surrogate || code > 0x10FFFF)
        return invalid;
    return {length, code, true};
}

struct Range {
    char32_t first;
    char32_t last;
};

template <std::size_t N>
bool isIn(const Range (&ranges)[N], char32_t code)
{
    return std::any_of(ranges, ranges + N, [code](const Range& r) { return code >= r.first && code <= r.last; });
}

// clang-format off

// Characters without a shape of their own that move, hide or break what stands beside them.
const Range FORMATTING[] = {{0xAD, 0xAD},         {0x61C, 0x61C},     {0x180E, 0x180E},   {0x200B, 0x200F},
                            {0x2028, 0x202E},     {0x2060, 0x206F},   {0xFEFF, 0xFEFF},   {0xFFF9, 0xFFFB},
                            {0xE0000, 0xE007F}};

// Characters that terminals draw on top of the one before.
const Range COMBINING[] = {{0x300, 0x36F}, {0x483, 0x489}, {0x591, 0x5BD}, {0x610, 0x61A}, {0x64B, 0x65F},
                           {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}};

// Characters that terminals draw two columns wide.
const Range WIDE[] = {{0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
                      {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF},
                      {0x1F900, 0x1FAFF}, {0x20000, 0x3FFFD}};

// clang-format on

std::size_t columnsOf(const Character& c)
{
    if (c.code < 0x300 || !c.valid)
        return 1;
    if (isIn(COMBINING, c.code))
        return 0;
    return isIn(WIDE, c.code) ? 2 : 1;
}

std::string formatted(const char* format, unsigned long number)
{
    char      text[24];
    const int length = std::snprintf(text, sizeof text, format, number);
    return std::string(text, static_cast<std::size_t>(length));
}

std::string escape(const Character& c)
{
    switch (c.code) {
    case '\\':
        return "\\\\";
    case '\t':
        return "\\t";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    default:
        return formatted(c.valid && c.code >= 0x80 ? "\\u{%lx}" : "\\x%02lx", c.code);
    }
}

/// The longest start of `text` that fits into `width` columns, but at least one character.
std::size_t fitting(std::string_view text, std::size_t width)
{
    // One more, as it could be drawn on top of the last.
    if (isPlain(text.substr(0, width + 1)))
        return std::min(text.size(), width);

    std::size_t end = 0;
    for (std::size_t used = 0; end < text.size();) {
        const bool      isASCII = static_cast<unsigned char>(text[end]) < 0x80; // which nearly all is
        const Character c       = isASCII ? Character{1, 0, true} : firstCharacter(text.substr(end));
        used += columnsOf(c);
        if (used > width && end > 0)
            break;
        end += c.length;
    }
    return end;
}

} // namespace

bool isPlain(std::string_view text)
{
    // Eight bytes at once, with arithmetic that does not carry from one to the next unless the answer is no already.
    const std::size_t   SIZE = sizeof(std::uint64_t);
    const std::uint64_t EACH = 0x0101010101010101U;
    const std::uint64_t HIGH = 0x80 * EACH;
    const auto          zero = [](std::uint64_t word) { return (word - EACH) & ~word; }; // HIGH where a byte is 0

    std::uint64_t others = 0;
    const auto    take   = [&](std::uint64_t word) {
        others |= word | (word - ' ' * EACH); // not ASCII, a control character
        others |= zero(word ^ ('\\' * EACH)) | zero(word ^ (0x7F * EACH));
    };
    const auto takeAt = [&](std::size_t at) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, SIZE);
        take(word);
    };
    if (text.size() < SIZE) {
        std::uint64_t word = ' ' * EACH;
        for (const char c : text)
            word = word << 8U | static_cast<unsigned char>(c);
        take(word);
    } else {
        for (std::size_t at = 0; at + SIZE <= text.size(); at += SIZE)
            takeAt(at);
        takeAt(text.size() - SIZE); // some of them once more
    }
    return (others & HIGH) == 0;
}

std::string printable(std::string_view text)
{
    if (isPlain(text))
        return std::string(text);

    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Character c       = firstCharacter(text);
        const bool      control = c.code < 0x20 || (c.code >= 0x7F && c.code < 0xA0);
        if (!c.valid || control || c.code == '\\' || (c.code >= 0x80 && isIn(FORMATTING, c.code)))
            result += escape(c);
        else
            result += text.substr(0, c.length);
        text.remove_prefix(c.length);
    }
    return result;
}

std::size_t firstCharacterSize(std::string_view text)
{
    return text.empty() ? 0 : firstCharacter(text).length;
}

std::string sentenceStart(std::string text)
{
    text.front() = static_cast<char>(text.front() - 'a' + 'A');
    return text;
}

std::string counted(std::size_t count, const char* what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

std::size_t columnsOf(std::string_view text)
{
    if (isPlain(text))
        return text.size();

    std::size_t columns = 0;
    while (!text.empty()) {
        const Character c = firstCharacter(text);
        columns += columnsOf(c);
        text.remove_prefix(c.length);
    }
    return columns;
}

void wrap(std::string_view text, std::size_t width, std::size_t hanging, std::vector<WrappedLine>& lines)
{
    // A text may begin with any number of blanks: the further lines must keep room for something else.
    const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t indent = std::min(blanks + hanging, width / 2);

    std::size_t margin = 0;
    do {
        std::size_t end = fitting(text, width - margin);
        if (end < text.size() && text[end] != ' ') {
            const std::size_t blank = text.substr(0, end).find_last_of(' ');
            if (blank != std::string_view::npos && text.find_first_not_of(' ') < blank)
                end = blank;
        }
        lines.push_back({margin, text.substr(0, text.substr(0, end).find_last_not_of(' ') + 1)});

        text.remove_prefix(end);
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        margin = indent;
    } while (!text.empty());
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width, std::size_t hanging)
{
    std::vector<WrappedLine> pieces;
    wrap(text, width, hanging, pieces);

    std::vector<std::string> lines;
    lines.reserve(pieces.size());
    for (const WrappedLine& piece : pieces)
        lines.push_back(std::string(piece.indent, ' ').append(piece.text));
    return lines;
}
