#ifndef IPSEC_POLICY_SPAN_H
#define IPSEC_POLICY_SPAN_H

#include <algorithm>
#include <cstddef>
#include <string_view>

/// A piece of a document.
struct Span {
    std::size_t offset = 0; ///< bytes before it
    std::size_t length = 0;

    std::size_t end() const { return offset + length; }

    std::string_view in(std::string_view document) const { return document.substr(offset, length); }
};

inline Span spanBetween(std::size_t begin, std::size_t end)
{
    return {begin, end - begin};
}

constexpr bool isLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

/// As much of the piece as is on the line in which it begins.
inline Span firstLineOf(std::string_view document, Span span)
{
    const std::string_view text = span.in(document);
    return {span.offset, static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isLineEnd) - text.begin())};
}

#endif
