#ifndef IPSECIMPL_TESTS_TARGETS_DAMAGE_H
#define IPSECIMPL_TESTS_TARGETS_DAMAGE_H

#include "generator.h"

#include <string>

namespace ipsecimpl {

/// `document` with one to three things done to it: bytes that are changed, that are too many or missing, numbers and
/// texts that are replaced. The same from the same random numbers, on every target.
std::string damaged(std::string document, bench::Random& random);

} // namespace ipsecimpl

#endif
