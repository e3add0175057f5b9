#include "support/xml.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace ipsecimpl {
namespace {

TEST(InvalidOperation, SaysWhatItWasMadeWith)
{
    EXPECT_STREQ(invalid_operation("no such mode").what(), "no such mode");
    EXPECT_STREQ(invalid_operation("").what(), "");
    EXPECT_STREQ(invalid_operation(std::string(5000, 'x')).what(), std::string(5000, 'x').c_str());
}

TEST(InvalidOperation, SaysTheSameAsACopy)
{
    const invalid_operation original("one");
    invalid_operation       copy(original);
    EXPECT_STREQ(copy.what(), "one");
    copy = invalid_operation("two");
    EXPECT_STREQ(copy.what(), "two");
    EXPECT_STREQ(original.what(), "one");
}

TEST(InvalidOperation, IsALogicErrorWithoutFieldsOfItsOwn)
{
    static_assert(std::is_base_of_v<std::logic_error, invalid_operation>);
    static_assert(std::is_convertible_v<invalid_operation*, std::logic_error*>);
    static_assert(!std::is_base_of_v<std::invalid_argument, invalid_operation>);
    static_assert(!std::is_base_of_v<std::runtime_error, invalid_operation>);
    static_assert(std::has_virtual_destructor_v<invalid_operation>);
    static_assert(!std::is_convertible_v<std::string, invalid_operation>);
    EXPECT_EQ(sizeof(invalid_operation), sizeof(std::logic_error));
}

TEST(InvalidOperation, ThrownByTheLibraryIsCaughtAsItselfAndAsEachOfItsBases)
{
    const std::string message = "tunnelEndpoint is only defined for IPSEC-TUNNEL";
    const IPsecAction action;
    EXPECT_EQ(errorOf<invalid_operation>([&] { action.tunnelEndpointGet(); }), message);
    EXPECT_EQ(errorOf<std::logic_error>([&] { action.tunnelEndpointGet(); }), message);
    EXPECT_THROW(action.tunnelEndpointGet(), std::exception);
}

TEST(InvalidOperation, ThrownByTheLibraryIsNotAnErrorOfArgumentOrReading)
{
    const IPsecAction action;
    std::string       handler;
    try {
        action.tunnelEndpointGet();
    } catch (const std::invalid_argument&) {
        handler = "invalid_argument";
    } catch (const std::runtime_error&) {
        handler = "runtime_error";
    } catch (const std::logic_error&) {
        handler = "logic_error";
    }
    EXPECT_EQ(handler, "logic_error");
}

TEST(InvalidOperation, IsNotWhatACredentialOfAnotherTypeThrows)
{
    const IKEPhase1 phase1(IKE_AUTH_PSK, "", "", "", IKEPhase1Proposal({}, DH_GROUP_NONE, 0, KEYLIFETIME_SECS));
    EXPECT_EQ(errorOf<std::invalid_argument>([&] { phase1.localCertGet(); }),
              "localCert is only valid for IKE_AUTH_RSA");
}

} // namespace
} // namespace ipsecimpl
