#ifndef IPSEC_POLICY_REPEATED_ID_H
#define IPSEC_POLICY_REPEATED_ID_H

#include "load_place.h"
#include "span.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

/// The start tag of the first ID in a collection that is the same as the one whose element begins at `offset`, in the
/// innermost of the elements `open`; nothing if that cannot be told.
std::optional<Span> firstWithSameID(std::string_view document, const std::vector<OpenElement>& open,
                                    std::size_t offset);

#endif
