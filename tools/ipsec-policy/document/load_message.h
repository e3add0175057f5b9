#ifndef IPSEC_POLICY_LOAD_MESSAGE_H
#define IPSEC_POLICY_LOAD_MESSAGE_H

/// \file
/// What is said about a document that does not load. All of it is fit for a terminal, and for eyes that must not see
/// the document's keys.

#include "load_place.h"
#include "position.h"
#include "span.h"
#include "white_space.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Why a document does not load. All texts are fit for a terminal.
struct LoadFault {
    std::string message; ///< what is wrong, without a full stop
    std::string advice;  ///< what to do, in sentences

    /// The names of the elements that are open where it is, the outermost first; empty for a name that is not of the
    /// format.
    std::vector<std::string> openElements;

    Span     place;    ///< what the reader could not take; its end where there is too little
    Position position; ///< of that

    /// The start tag of the first ID, where an ID is repeated; else empty.
    Span     first;
    Position firstPosition; ///< of that

    bool hasWrongWord = false; ///< the place is a leaf with none of its words

    bool repeatsID() const { return first.length > 0; }
};

/// What a parser's message says, with a hint where the document has what this format has not.
///
/// The parser quotes what it did not expect. A slip of the pen makes any of that a key, or a piece of one, so of the
/// document nothing is shown but words of the format itself.
LoadFault loadFault(const std::string& parserMessage, const Place& place);

/// The fault that something stands behind the end of the configuration, at `offset`.
LoadFault loadFaultBehind(std::string_view document, std::size_t offset);

/// Such as "<ipsec> <actions>", empty if none is open.
std::string shownElements(const LoadFault& fault);

/// The fault in one text: line and column, what is wrong; and lines with what to do, and with the open elements.
std::string loadMessage(const LoadFault& fault);

/// Whether `name` is a word of the format, which anybody may see.
bool isWordOfFormat(std::string_view name);

#endif
