// Assigning an object to itself costs nothing: there is nothing to copy, and so nothing that can fail.

#include "cost/counting_new.h"
#include "cost/sample.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gtest/gtest.h>

#include <string>

namespace ipsecimpl {
namespace {

template <class T>
class SelfAssignment : public testing::Test {};

// Made by `make()`, with texts and lists that take heap blocks to copy.
template <class T>
T make();

template <>
IPsecConfig make()
{
    return sample(2);
}

template <>
HostGroups make()
{
    return sample(2).hostGroups;
}

template <>
HostGroup make()
{
    return sample(1).hostGroups.begin()->second;
}

template <>
HostSelector make()
{
    return {HOST_INET, HOST_RANGE, std::string(40, '1'), std::string(40, '2')};
}

template <>
ProtocolGroup make()
{
    return sample(1).protocolGroups.begin()->second;
}

template <>
ProtocolSelector make()
{
    return {std::string(40, 'n'), 6, 80, 0, PROTO_IN, true};
}

template <>
IPsecAction make()
{
    return sample(1).actions.begin()->second;
}

template <>
MKM make()
{
    return sample(1).actions.at(2).manualKeyGet();
}

template <>
IKEPhase1 make()
{
    return make<IPsecAction>().ikePhase1Get();
}

template <>
IKEPhase1Proposal make()
{
    return make<IKEPhase1>().proposalGet();
}

template <>
IKEPhase2 make()
{
    return make<IPsecAction>().ikePhase2Get();
}

using Classes = testing::Types<IPsecConfig, HostGroups, HostGroup, HostSelector, ProtocolGroup, ProtocolSelector,
                               IPsecAction, MKM, IKEPhase1, IKEPhase1Proposal, IKEPhase2>;
TYPED_TEST_SUITE(SelfAssignment, Classes, );

TYPED_TEST(SelfAssignment, TakesNoMemory)
{
    TypeParam        object = make<TypeParam>();
    const TypeParam& itself = object;
    EXPECT_EQ(blocksOf([&] { object = itself; }), 0U);
}

} // namespace
} // namespace ipsecimpl
