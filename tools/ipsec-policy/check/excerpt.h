#ifndef IPSEC_POLICY_EXCERPT_H
#define IPSEC_POLICY_EXCERPT_H

/// \file
/// The line of a document that a finding is about.

#include "span.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// A line as it is shown, and what goes under it.
struct Excerpt {
    std::string line;  ///< fit for a terminal
    std::string marks; ///< blanks, a caret under the first character that is meant, and '~' under the others
};

/// The part of a line around `what` of which at most `width` columns (at least 10) are to be shown. What it costs to
/// look at does not depend on how long the line is.
Span excerptSpan(std::string_view document, Span what, std::size_t width);

/// Makes `excerpt`, whose memory is used again, as much of `span`, which excerptSpan() has told, as fits into `width`
/// columns, with "..." where the line was clipped.
///
/// Instead of the pieces `hidden` (in ascending order) there is "***". What is meant is marked to the end of the line
/// at most.
void takeExcerpt(Excerpt& excerpt, std::string_view document, Span span, Span what, const std::vector<Span>& hidden,
                 std::size_t width);

#endif
