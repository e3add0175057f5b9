// The constants of the enumerations hold their values before any dynamic initialisation: each number is taken from one
// in an initialiser of this unit. In the program it is linked ahead of all others.

#include <ipsecimpl/enums.h>

#include <gmock/gmock.h>

namespace ipsecimpl {
namespace {

using testing::ElementsAre;

// The last value of each enumeration, since none of these is the 0 that an object holds before it is initialised.
struct LastValues {
    SPDAction          action;
    IPsecKeyMgr        keyMgr;
    IPsecProtocol      protocol;
    AHTransform        ah;
    ESPTransform       esp;
    IKEAuthType        auth;
    IKEPhase1Transform phase1;
    DHGroup            dhGroup;
    KeyLifetimeUnits   units;
    AddressFamily      family;
    AddressType        type;
    Direction          direction;
};

const LastValues copies{
    SPD_TUNNEL,  KEYMGR_IKE,  IPSEC_ESP_AH,    AH_AESXCBCMAC, ESP_NULL_AESXCBCMAC, IKE_AUTH_RSA,
    IKE_DES_MD5, DH_GROUP_14, KEYLIFETIME_HRS, HOST_INETANY,  HOST_MCAST,          PROTO_INOUT,
};

TEST(EnumConstants, CanBeCopiedWhileStaticObjectsAreConstructed)
{
    EXPECT_TRUE(copies.action == SPDAction(4));
    EXPECT_TRUE(copies.keyMgr == IPsecKeyMgr(2));
    EXPECT_TRUE(copies.protocol == IPsecProtocol(3));
    EXPECT_TRUE(copies.ah == AHTransform(3));
    EXPECT_TRUE(copies.esp == ESPTransform(18));
    EXPECT_TRUE(copies.auth == IKEAuthType(1));
    EXPECT_TRUE(copies.phase1 == IKEPhase1Transform(6));
    EXPECT_TRUE(copies.dhGroup == DHGroup(3));
    EXPECT_TRUE(copies.units == KeyLifetimeUnits(3));
    EXPECT_TRUE(copies.family == AddressFamily(2));
    EXPECT_TRUE(copies.type == AddressType(7));
    EXPECT_TRUE(copies.direction == Direction(2));
}

// A shared library is initialised ahead of the whole program, so the copies above would be right with constants that
// are set at load time too. The functions in this section run before that.
int early[3];

__attribute__((no_sanitize("address", "undefined"))) int numberOf(const void* constant)
{
    return *static_cast<const int*>(constant); // the only member
}

__attribute__((no_sanitize("address", "undefined"))) void takeNumbers(int, char**, char**)
{
    early[0] = numberOf(&SPD_TUNNEL);
    early[1] = numberOf(&HOST_MCAST);
    early[2] = numberOf(&PROTO_INOUT);
}

__attribute__((section(".preinit_array"), used)) void (*runsFirst)(int, char**, char**) = takeNumbers;

TEST(EnumConstants, HoldTheirValuesBeforeAnyLibraryIsInitialised)
{
    EXPECT_THAT(early, ElementsAre(4, 7, 2));
}

} // namespace
} // namespace ipsecimpl
