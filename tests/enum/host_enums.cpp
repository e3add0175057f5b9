#include "enum/table.h"
#include "support/xml.h"

#include <stdexcept>

namespace ipsecimpl {

// clang-format off
TEST(AddressFamily, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__AddressFamilyNum__, 3);
    expectTable<__AddressFamilyNum__, &__AddressFamilyNames__>({
        {"AF_INET",  &HOST_INET},
        {"AF_INET6", &HOST_INET6},
        {"AF_ANY",   &HOST_INETANY},
    });
}

TEST(AddressType, HasTheseWordsAndConstants)
{
    EXPECT_EQ(__AddressTypeNum__, 8);
    expectTable<__AddressTypeNum__, &__AddressTypeNames__>({
        {"NONE",          &HOST_NONE},
        {"SINGLE",        &HOST_SINGLE},
        {"RANGE",         &HOST_RANGE},
        {"SUBNET_LENGTH", &HOST_SUBNET_LENGTH},
        {"SUBNET_MASK",   &HOST_SUBNET_MASK},
        {"LOCAL",         &HOST_LOCAL},
        {"ANY",           &HOST_ANY},
        {"MCAST",         &HOST_MCAST},
    });
}
// clang-format on

TEST(AddressFamily, DoesNotKnowTheWordsOfTheAddressType)
{
    EXPECT_EQ(errorOf<std::invalid_argument>([] { AddressFamily::to_int("ANY"); }), "to_int");
    EXPECT_EQ(errorOf<std::invalid_argument>([] { AddressType::to_int("AF_ANY"); }), "to_int");
}

} // namespace ipsecimpl
