#include "actions/samples.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <list>

namespace ipsecimpl {
namespace {

// The one test of its program: the default proposal grows at each call, and the first call must be this one's.
TEST(IKEPhase1ProposalDefault, FindsTwoMoreTransformsAtEachCallAndNoneOfTheLibrarysOwn)
{
    const std::string fresh = everythingOf(IPsecAction());
    const IPsecAction made(SPD_TUNNEL, "name", 0, "descr", 0, KEYMGR_IKE);
    const std::string document = written(made);
    EXPECT_EQ(rewritten<IPsecAction>(document), document);
    EXPECT_TRUE(made.ikePhase1Get().proposalGet().transforms.empty());
    EXPECT_EQ(rewritten<IKEPhase1>(RSA_DOCUMENT), RSA_DOCUMENT);
    EXPECT_EQ(ActionDiscard().changeCountGet() + ActionBypass().changeCountGet(), 0);

    IKEPhase1Proposal&                  proposal = IKEPhase1ProposalDefault();
    std::list<IKEPhase1Transform>       expected = {IKE_AESCBC_SHA1, IKE_3DES_MD5};
    const std::list<IKEPhase1Transform> two      = expected;
    EXPECT_EQ(proposal.transforms, two);
    EXPECT_EQ(written(proposal), "<proposal>\n"
                                 "<dhGroup>NONE</dhGroup>\n"
                                 "<keyLifetime>28800</keyLifetime>\n"
                                 "<keyLifetimeUnits>SECS</keyLifetimeUnits>\n"
                                 "<transform>IKE_AES_SHA</transform>\n"
                                 "<transform>IKE_3DES_MD5</transform>\n"
                                 "</proposal>\n");
    const IKEPhase1Proposal copy = proposal;

    // Lifetime and unit are set again, the group is not.
    proposal.dhGroup          = DH_GROUP_14;
    proposal.keyLifetime      = 5;
    proposal.keyLifetimeUnits = KEYLIFETIME_HRS;
    for (int call = 2; call <= 6; ++call) {
        EXPECT_EQ(&IKEPhase1ProposalDefault(), &proposal);
        expected.insert(expected.end(), two.begin(), two.end());
        EXPECT_EQ(proposal.transforms, expected);
        EXPECT_EQ(proposal.dhGroup, DH_GROUP_14);
        EXPECT_EQ(proposal.keyLifetime, 28800U);
        EXPECT_EQ(proposal.keyLifetimeUnits, KEYLIFETIME_SECS);
    }
    EXPECT_EQ(proposal.transforms.size(), 12U);

    // What a caller does to the list stays, and a copy does not grow.
    proposal.transforms.clear();
    EXPECT_EQ(IKEPhase1ProposalDefault().transforms, two);
    EXPECT_EQ(copy.transforms, two);
    EXPECT_EQ(copy.dhGroup, DH_GROUP_NONE);

    // Actions start from proposals of their own.
    EXPECT_EQ(everythingOf(IPsecAction()), fresh);
    EXPECT_TRUE(IPsecAction(SPD_NONE, "", 0, "", 0, KEYMGR_IKE).ikePhase1Get().proposalGet().transforms.empty());
}

} // namespace
} // namespace ipsecimpl
