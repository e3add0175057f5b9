#ifndef IPSECIMPL_TESTS_TOOLS_RANDOM_SELECTORS_H
#define IPSECIMPL_TESTS_TOOLS_RANDOM_SELECTORS_H

/// \file
/// Selectors that a document can hold, of all types, with sense and without.

#include "random_text.h"

#include <ipsecimpl/selectors.h>

#include <random>
#include <string>

/// A netmask that a document can hold: only its text is looked at, up to a NUL.
inline std::string randomMask(std::mt19937& random, const ipsecimpl::AddressFamily& family)
{
    std::string mask = ipsecimpl::HostSelector::len2mask(family, static_cast<int>(randomNumber(random, 129)));
    if (family == ipsecimpl::HOST_INET && randomNumber(random, 3) == 0)
        mask = "255.0.255.0";
    if (randomNumber(random, 3) == 0)
        mask += std::string(1, '\0') + randomText(random);
    return mask;
}

inline std::string randomAddress(std::mt19937& random)
{
    static const char* const ADDRESSES[] = {"10.0.0.1", "10.0.0.9", "::1", "fe80::", "any", "local4"};
    const unsigned int       chosen      = randomNumber(random, 11);
    return chosen < 6 ? ADDRESSES[chosen] : randomText(random);
}

inline ipsecimpl::HostSelector randomHostSelector(std::mt19937& random)
{
    const ipsecimpl::AddressFamily family(static_cast<int>(randomNumber(random, 2)));
    const ipsecimpl::AddressType   type(static_cast<int>(randomNumber(random, 7)));
    const std::string              first = randomAddress(random);
    const bool subnet                    = type == ipsecimpl::HOST_SUBNET_LENGTH || type == ipsecimpl::HOST_SUBNET_MASK;
    if (subnet && family == ipsecimpl::HOST_INETANY)
        return ipsecimpl::HostSelector(family, ipsecimpl::HOST_SINGLE, first, ""); // no document can hold such a subnet
    if (type == ipsecimpl::HOST_SUBNET_LENGTH) {
        const unsigned int length = randomNumber(random, 1) == 0 ? randomNumber(random, 130) : random() & 0xFFFFFFFFU;
        return ipsecimpl::HostSelector(family, type, first, static_cast<int>(length));
    }
    if (type == ipsecimpl::HOST_SUBNET_MASK)
        return ipsecimpl::HostSelector(family, type, first, randomMask(random, family));
    if (type == ipsecimpl::HOST_RANGE)
        return ipsecimpl::HostSelector(family, type, first, randomAddress(random));
    return ipsecimpl::HostSelector(family, type, type == ipsecimpl::HOST_SINGLE ? first : "", "");
}

inline ipsecimpl::ProtocolSelector randomProtocolSelector(std::mt19937& random)
{
    const bool any      = randomNumber(random, 4) == 0;
    const auto number16 = [&] { return static_cast<unsigned short>(any ? 0 : randomNumber(random, 0xFFFF)); };
    const auto protocol = static_cast<unsigned short>(any ? 0 : 1 + randomNumber(random, 0xFFFE));
    return ipsecimpl::ProtocolSelector(
        randomNumber(random, 2) == 0 ? "Protocol" : randomText(random), protocol, number16(), number16(),
        ipsecimpl::Direction(static_cast<int>(randomNumber(random, 2))), randomNumber(random, 1) == 0);
}

#endif
