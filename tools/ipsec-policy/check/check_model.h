#ifndef IPSEC_POLICY_CHECK_MODEL_H
#define IPSEC_POLICY_CHECK_MODEL_H

/// \file
/// What `check` finds in a configuration as it was understood, however its document is written.

#include "findings.h"

#include <ipsecimpl/config.h>

#include <vector>

class Algorithms;

/// Appends all findings, those of single objects in the order of the configuration, then those across objects.
/// `algorithms` says what the numbers in SA proposals stand for; without it (null) nothing is said about them. No
/// message holds a piece of a key.
///
/// Takes n log n steps, whatever the configuration.
void checkModel(const ipsecimpl::IPsecConfig& config, const Algorithms* algorithms, Findings& findings);

/// Every rule that checkModel() knows, by subject.
std::vector<const Rule*> modelRules();

#endif
