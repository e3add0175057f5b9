#ifndef IPSEC_POLICY_NEAREST_H
#define IPSEC_POLICY_NEAREST_H

#include <string>
#include <string_view>
#include <vector>

/// What was probably meant by `word`, which is none of `words`: the first of those that it differs least from, by two
/// characters at most and not by half of them, or the first that it is a piece of. Empty if there is none such.
std::string nearest(std::string_view word, const std::vector<std::string>& words);

#endif
