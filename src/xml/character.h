#ifndef IPSECIMPL_XML_CHARACTER_H
#define IPSECIMPL_XML_CHARACTER_H

#include <string>

namespace ipsecimpl {

// The libc's isspace() and isalnum() in the "C" locale, whatever locale is set: a document must mean the same
// everywhere. `c` is an `unsigned char` value or end of file.

constexpr bool isSpace(int c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr bool isDigit(int c) { return c >= '0' && c <= '9'; }

constexpr bool isAlnum(int c) { return isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// A character of names.
constexpr bool isNameChar(int c) { return isAlnum(c) || c == '.' || c == '-' || c == '_' || c == ':'; }

/// What the names of tags and attributes are read from: `&` is let through on purpose, though it is no name character.
constexpr bool isTagChar(int c) { return isNameChar(c) || c == '&'; }

/// A byte as the parser handles it: 0 to 255, so that none is taken for end of file.
constexpr int toByte(char c) { return std::char_traits<char>::to_int_type(c); }

} // namespace ipsecimpl

#endif
