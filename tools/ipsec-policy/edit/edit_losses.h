#ifndef IPSEC_POLICY_EDIT_LOSSES_H
#define IPSEC_POLICY_EDIT_LOSSES_H

#include "diff.h"

#include <string>

/// Lines about the actions that have another mode than before and so lose fields that nobody mentioned, such as keys:
/// the document has no place for them any more.
std::string lossesIn(const Difference& difference);

#endif
