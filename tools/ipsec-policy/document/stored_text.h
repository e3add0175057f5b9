#ifndef IPSEC_POLICY_STORED_TEXT_H
#define IPSEC_POLICY_STORED_TEXT_H

/// \file
/// Which texts come back when they are stored and loaded again. Nothing is escaped when they are written, no entity is
/// expanded when they are read, and white space at their ends is skipped.

#include <string_view>

/// The reader would take it for a tag.
bool holdsMarkup(std::string_view text);

/// At an end, where the reader skips it.
bool hasOuterWhiteSpace(std::string_view text);

/// Nothing but white space, or nothing at all.
bool isBlank(std::string_view text);

#endif
