#ifndef IPSEC_POLICY_MISPLACED_H
#define IPSEC_POLICY_MISPLACED_H

#include "load_place.h"

#include <cstddef>
#include <string>
#include <string_view>

/// What to do about the tag at `offset` in the element `parent`, if elements of its name are there only beside another
/// value of a leaf before it, or only once; empty if that is not what is wrong.
std::string misplacedAdvice(std::string_view document, const OpenElement& parent, std::size_t offset);

#endif
