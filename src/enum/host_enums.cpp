// Names and constants of the host selector. A row is a value: its word in the document, and under the table its
// constant, in the same order.

#include <ipsecimpl/enums.h>

namespace ipsecimpl {

const char* const __AddressFamilyNames__[] = {"AF_INET", "AF_INET6", "AF_ANY"};

constexpr AddressFamily HOST_INET{0};
constexpr AddressFamily HOST_INET6{1};
constexpr AddressFamily HOST_INETANY{2};

template int Enum<__AddressFamilyNum__, &__AddressFamilyNames__>::to_int(const std::string&);

const char* const __AddressTypeNames__[] = {
    "NONE",
    "SINGLE",
    "RANGE",
    "SUBNET_LENGTH",
    "SUBNET_MASK",
    "LOCAL",
    "ANY",
    "MCAST",
};

constexpr AddressType HOST_NONE{0};
constexpr AddressType HOST_SINGLE{1};
constexpr AddressType HOST_RANGE{2};
constexpr AddressType HOST_SUBNET_LENGTH{3};
constexpr AddressType HOST_SUBNET_MASK{4};
constexpr AddressType HOST_LOCAL{5};
constexpr AddressType HOST_ANY{6};
constexpr AddressType HOST_MCAST{7};

template int Enum<__AddressTypeNum__, &__AddressTypeNames__>::to_int(const std::string&);

namespace {

// The counts are inline constants: only what takes an address makes the library carry them as symbols.
[[gnu::used]] const int* const exportedCounts[] = {
    &__AddressFamilyNum__,
    &__AddressTypeNum__,
};

} // namespace

} // namespace ipsecimpl
