#ifndef IPSEC_POLICY_LOAD_MESSAGE_H
#define IPSEC_POLICY_LOAD_MESSAGE_H

/// \file
/// What is said about a document that does not load. All of it is fit for a terminal, and for eyes that must not see
/// the document's keys.

#include <cstddef>
#include <string>
#include <string_view>

/// What the parser skips between elements.
inline constexpr char WHITE_SPACE[] = " \t\n\v\f\r";

/// Where a parser gave up.
struct Place {
    std::string_view document;
    std::size_t      read;  ///< that many bytes of the document are read
    bool             atEnd; ///< and there were too few
};

/// A parser's message with the line and, where the document has what this format has not, a hint.
///
/// The parser quotes what it did not expect. A slip of the pen makes any of that a key, or a piece of one, so of the
/// document nothing is shown but words of the format itself.
std::string loadMessage(const std::string& parserMessage, const Place& place);

/// Such as "line 7", counted from 1, for what comes after the first `read` bytes.
std::string lineAfter(std::string_view document, std::size_t read);

#endif
