#ifndef IPSEC_POLICY_LOAD_ADVICE_H
#define IPSEC_POLICY_LOAD_ADVICE_H

/// \file
/// What to do about a document that does not load.

#include "load_place.h"

#include <optional>
#include <string>
#include <string_view>

/// What is known of a place where a document does not load.
struct LoadTrouble {
    std::string_view document;
    std::string_view message; ///< of the reader, without the open elements, and as it can be shown
    bool             isAtEnd; ///< there is too little of the document
    Span             piece;   ///< what the reader could not take
    TagsBefore       before;  ///< that piece
    TagsBefore       read;    ///< before the place where it gave up

    /// The start tag of the ID that this one repeats.
    std::optional<Span> first;
};

/// `message` must outlive it.
LoadTrouble troubleAt(const Place& place, std::string_view message);

/// A sentence or two on what to do, or on what would be right. All that is quoted are words of the format itself, and
/// places.
std::string loadAdvice(const LoadTrouble& trouble);

/// Whether the trouble is a text that is none of the words of its leaf.
bool isAboutWord(const LoadTrouble& trouble);

#endif
