#ifndef IPSEC_POLICY_MISREADING_H
#define IPSEC_POLICY_MISREADING_H

/// \file
/// Where a document says something else than the configuration that it loaded as.

#include "lexer.h"
#include "objects.h"
#include "span.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class Misread {
    OTHERWISE,       ///< a leaf's text is not what is stored
    TRIMMED,         ///< it is, but for white space around it
    EMPTY_ATTRIBUTE, ///< the leaf has an attribute without a value, which reads as an empty text
    DROPPED,         ///< a selector says the same as one before
    NEXT_ID,         ///< a next ID is not what is stored
    REPEATED_NEXT_ID ///< the document has a next ID before this one
};

struct Misreading {
    Misread     how;
    ObjectPath  path;   ///< of a dropped selector, and of what is in it: that of the one that stands for it
    Span        place;  ///< the leaf's text, or the whole element where there is none
    Span        text;   ///< the leaf's text, however short
    std::string stored; ///< what the configuration has instead; empty if it has the text
};

using Misreadings = std::vector<Misreading>;

/// How a leaf is misread that is stored as `stored`, if it is.
std::optional<Misread> misreadOf(std::string_view document, const Leaf& leaf, std::string_view stored);

Misreading misreadingOf(const Leaf& leaf, Misread how, ObjectPath path, std::string_view stored);

#endif
