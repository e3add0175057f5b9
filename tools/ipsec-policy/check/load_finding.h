#ifndef IPSEC_POLICY_LOAD_FINDING_H
#define IPSEC_POLICY_LOAD_FINDING_H

#include "findings.h"
#include "load_message.h"

#include <string_view>

extern const Rule DOES_NOT_LOAD;

/// The finding that `document` does not load because of `fault`.
Finding loadFinding(std::string_view document, const LoadFault& fault);

#endif
