#ifndef IPSEC_POLICY_CONSEQUENCES_H
#define IPSEC_POLICY_CONSEQUENCES_H

#include "findings.h"

/// Takes from `findings` what is only found because a number was misread, as `understood` tells: what it is in force as
/// is no news, and advice on that would mislead. What is worse than the misreading itself stays.
void dropConsequences(const Findings& understood, Findings& findings);

#endif
