#ifndef IPSECIMPL_TESTS_SUPPORT_GOLDEN_H
#define IPSECIMPL_TESTS_SUPPORT_GOLDEN_H

#include <string>

/// Expects `output` to be what the file `name` in the program's GOLDEN_DIR holds. With IPSEC_POLICY_UPDATE_GOLDEN set
/// in the environment the file is written first, and the test fails all the same: look at the change, then run without
/// it.
void expectGolden(const std::string& name, const std::string& output);

#endif
