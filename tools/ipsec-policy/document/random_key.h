#ifndef IPSEC_POLICY_RANDOM_KEY_H
#define IPSEC_POLICY_RANDOM_KEY_H

#include <string>

/// A pre-shared key that nobody can guess: 32 letters, digits, '-' and '_' from the system's random numbers, with small
/// and capital letters and digits among them. Throws a Failure if the system gives none.
std::string randomKey();

#endif
