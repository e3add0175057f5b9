#ifndef IPSEC_POLICY_LOAD_MESSAGE_H
#define IPSEC_POLICY_LOAD_MESSAGE_H

/// \file
/// What is said about a document that does not load. All of it is fit for a terminal, and for eyes that must not see
/// the document's keys.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What the parser skips between elements.
inline constexpr char WHITE_SPACE[] = " \t\n\v\f\r";

constexpr bool isWhiteSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Where a parser gave up.
struct Place {
    std::string_view document;
    std::size_t      read;  ///< that many bytes of the document are read
    bool             atEnd; ///< and there were too few
};

/// Why a document does not load. All texts are fit for a terminal.
struct LoadFault {
    std::string message; ///< what is wrong

    /// The elements that are open where it is, such as "<ipsec>", the outermost first.
    std::vector<std::string> openElements;

    bool        hasPlace = true;  ///< else the document as a whole is meant
    std::size_t read     = 0;     ///< the parser gave up after so many bytes
    bool        isAtEnd  = false; ///< because there were no more
};

/// What a parser's message says, with a hint where the document has what this format has not.
///
/// The parser quotes what it did not expect. A slip of the pen makes any of that a key, or a piece of one, so of the
/// document nothing is shown but words of the format itself.
LoadFault loadFault(const std::string& parserMessage, const Place& place);

/// The fault in one text: the line, what is wrong, and a line "from <tag>" for each open element, the innermost first.
std::string loadMessage(const LoadFault& fault, std::string_view document);

/// Whether `name` is a word of the format, which anybody may see.
bool isWordOfFormat(std::string_view name);

#endif
