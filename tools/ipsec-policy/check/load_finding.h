#ifndef IPSEC_POLICY_LOAD_FINDING_H
#define IPSEC_POLICY_LOAD_FINDING_H

#include "findings.h"
#include "load_message.h"

extern const Rule DOES_NOT_LOAD;

/// The finding that a document does not load because of `fault`.
Finding loadFinding(const LoadFault& fault);

#endif
