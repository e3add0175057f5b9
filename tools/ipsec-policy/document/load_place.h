#ifndef IPSEC_POLICY_LOAD_PLACE_H
#define IPSEC_POLICY_LOAD_PLACE_H

/// \file
/// Where in a document its reader gave up, told by the tags around that place.

#include "span.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Where a parser gave up.
struct Place {
    std::string_view document;
    std::size_t      read;  ///< that many bytes of the document are read
    bool             atEnd; ///< and there were too few
};

/// An element that is open.
struct OpenElement {
    std::string_view name;
    Span             tag; ///< its start tag
    bool             hasChildren = false;
};

/// The tags before a place in a document.
struct TagsBefore {
    std::vector<OpenElement> open; ///< the outermost first

    /// The last element if it is a leaf, else the last tag; and the name in it.
    Span             last;
    std::string_view lastName;

    /// The start tag of the last ID.
    Span id;

    /// Where a tag begins that does not end before the place, or is none; else std::string_view::npos.
    std::size_t unfinished = std::string_view::npos;
};

/// Of whatever stands there, as far as it is made of tags. One pass over the document.
TagsBefore tagsBefore(std::string_view document, std::size_t end);

/// The whole tag that begins at `offset`, if it ends before another one begins; else what is before `read`.
Span wholeTag(std::string_view document, std::size_t offset, std::size_t read);

/// The name in the tag that begins at `offset`, that of an end tag too; empty if there is none.
std::string_view tagNameAt(std::string_view document, std::size_t offset);

/// What the reader could not take: an element, a tag, or a character. `read` are the tags before the place, `message`
/// is what the reader said.
Span faultyPiece(const Place& place, const TagsBefore& read, std::string_view message);

#endif
