#ifndef IPSEC_POLICY_ADDRESS_H
#define IPSEC_POLICY_ADDRESS_H

/// \file
/// Addresses and masks, which the library keeps as texts, as the numbers that they are.

#include <ipsecimpl/enums.h>

#include <array>
#include <optional>
#include <string>

/// An IPv4 or IPv6 address.
struct Address {
    /// HOST_INET or HOST_INET6.
    ipsecimpl::AddressFamily family;

    /// The first 4 or all 16 count, the others are 0.
    std::array<unsigned char, 16> bytes;
};

/// Such as "IPv4"; the family is not AF_ANY.
const char* nameOf(const ipsecimpl::AddressFamily& family);

int bitsOf(const ipsecimpl::AddressFamily& family); ///< of an address; the family is not AF_ANY

/// What the text stands for if it is an address of the family, as inet_pton() has it.
std::optional<Address> addressIn(const std::string& text, const ipsecimpl::AddressFamily& family);

/// The same with the family left open.
std::optional<Address> addressIn(const std::string& text);

/// In the usual form, such as "2001:db8::1".
std::string textOf(const Address& address);

/// `length` is not negative, and not greater than bitsOf(family).
Address maskOf(const ipsecimpl::AddressFamily& family, int length);

/// How many one bits a mask begins with; nothing if others follow.
std::optional<int> lengthOf(const Address& mask);

Address inverse(const Address& mask);

/// The network: the address without the bits that the mask leaves to hosts. Both are of one family.
Address masked(const Address& address, const Address& mask);

#endif
