#ifndef IPSEC_POLICY_MISPLACED_H
#define IPSEC_POLICY_MISPLACED_H

#include "load_place.h"

#include <cstddef>
#include <string>
#include <string_view>

/// What to do about the tag at `offset` in the element `parent`, if there is an element of its name already, or if
/// there are such elements only beside another value of a leaf before it; empty if that is not what is wrong.
///
/// Not for a parent that can have many children of one name.
std::string misplacedAdvice(std::string_view document, const OpenElement& parent, std::size_t offset);

#endif
