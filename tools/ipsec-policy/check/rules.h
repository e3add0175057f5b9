#ifndef IPSEC_POLICY_RULES_H
#define IPSEC_POLICY_RULES_H

#include "findings.h"

#include <string_view>
#include <vector>

/// Everything that `check` can find, in the order of the documentation.
const std::vector<const Rule*>& allRules();

/// The rule with this code. Throws a Failure if there is none.
const Rule& findRule(std::string_view code);

#endif
