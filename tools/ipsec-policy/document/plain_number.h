#ifndef IPSEC_POLICY_PLAIN_NUMBER_H
#define IPSEC_POLICY_PLAIN_NUMBER_H

#include <cstdint>
#include <optional>
#include <string_view>

/// The number in a text of decimal digits, perhaps with a minus sign. Nothing for any other text: no blanks, plus
/// sign, leading 0 (which would be octal elsewhere) or anything behind the digits is let pass. Nothing either for more
/// than ten digits, which are beyond every number of a configuration.
std::optional<std::int64_t> plainNumber(std::string_view text);

#endif
