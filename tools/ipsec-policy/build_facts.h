#ifndef IPSEC_POLICY_BUILD_FACTS_H
#define IPSEC_POLICY_BUILD_FACTS_H

#include <string>

/// What `--version` prints but for the last newline. The first line is the program's name and its version, and stays
/// so.
std::string buildFacts();

#endif
