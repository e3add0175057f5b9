#ifndef IPSECIMPL_XML_NUMBER_H
#define IPSECIMPL_XML_NUMBER_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ipsecimpl {

// The libc's strtol() and strtoul() as they are where `long` has 32 bits, so that a document means the same on every
// machine: independent of the width of `long`, of the locale, and of whether the libc knows "0b" for binary (here it
// is a 0 and something that is ignored).
//
// Leading white space and a sign are accepted. Base 0 takes the base from the digits: "0x" is 16, "0" is 8, else 10.
// The number ends at the first character that is no digit of the base; no digits give 0. `used`, if not null, becomes
// the number of characters read, 0 where there are no digits.

/// Saturates at 2147483647 and -2147483648.
std::int32_t strtol32(std::string_view text, int base, std::size_t* used = nullptr);

/// More than 4294967295, with or without a minus sign, gives 4294967295; otherwise a minus sign negates modulo 2^32.
std::uint32_t strtoul32(std::string_view text, int base, std::size_t* used = nullptr);

} // namespace ipsecimpl

#endif
