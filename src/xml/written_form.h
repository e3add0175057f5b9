#ifndef IPSECIMPL_XML_WRITTEN_FORM_H
#define IPSECIMPL_XML_WRITTEN_FORM_H

#include "xml/character.h"
#include "xml/short_bytes.h"

#include <cstddef>
#include <cstring>
#include <string_view>

namespace ipsecimpl {

// Recognises tags and leaves as the library writes them, whole, at the start of what a stream's buffer holds ready.
//
// Nearly all that is read is in this form, and can be taken in one step. A match is always what the parser's own
// operations would have come to; whatever does not match is left to them, and so are all errors.

/// What a match leaves unread begins here; null if there is no match.
using Rest = const char*;

/// `<name>`
inline Rest matchStartTag(std::string_view text, std::string_view name)
{
    const bool match = text.size() >= name.size() + 2 && text[0] == '<' && text[name.size() + 1] == '>' &&
                       sameBytes(text.data() + 1, name.data(), name.size());
    return match ? text.data() + name.size() + 2 : nullptr;
}

/// `</name>`
inline Rest matchEndTag(std::string_view text, std::string_view name)
{
    const bool match = text.size() >= name.size() + 3 && text[0] == '<' && text[1] == '/' &&
                       text[name.size() + 2] == '>' && sameBytes(text.data() + 2, name.data(), name.size());
    return match ? text.data() + name.size() + 3 : nullptr;
}

struct LeafMatch {
    std::string_view text; // without white space at its ends
    Rest             rest = nullptr;
};

/// `<name>text</name>`
inline LeafMatch matchLeaf(std::string_view ahead, std::string_view name)
{
    const Rest content = matchStartTag(ahead, name);
    if (content == nullptr)
        return {};
    const char* const limit = ahead.data() + ahead.size();
    const char*       from  = content;
    const void* const found = std::memchr(from, '<', static_cast<std::size_t>(limit - from));
    if (found == nullptr)
        return {};
    const char* to   = static_cast<const char*>(found);
    const Rest  rest = matchEndTag({to, static_cast<std::size_t>(limit - to)}, name);
    if (rest == nullptr)
        return {};
    while (from != to && isSpace(toByte(*from)))
        ++from;
    while (from != to && isSpace(toByte(to[-1])))
        --to;
    return {{from, static_cast<std::size_t>(to - from)}, rest};
}

/// The name in `<name>`, where it is one; else empty.
inline std::string_view matchName(std::string_view text)
{
    std::size_t end = 1;
    while (end < text.size() && isTagChar(toByte(text[end])))
        ++end;
    if (end >= text.size() || text[0] != '<' || text[end] != '>')
        return {};
    return text.substr(1, end - 1);
}

} // namespace ipsecimpl

#endif
