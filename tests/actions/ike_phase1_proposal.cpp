#include "support/documents.h"
#include "support/number_forms.h"
#include "actions/samples.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <limits>

namespace ipsecimpl {
namespace {

const std::string& DOCUMENT = PROPOSAL_DOCUMENT;

const std::string EMPTY = "<proposal>\n"
                          "<dhGroup>NONE</dhGroup>\n"
                          "<keyLifetime>28800</keyLifetime>\n"
                          "<keyLifetimeUnits>SECS</keyLifetimeUnits>\n"
                          "</proposal>\n";

const std::string ONE = changed(EMPTY, "</proposal>\n", "<transform>IKE_DES_MD5</transform>\n</proposal>\n");

TEST(IKEPhase1Proposal, KeepsWhatItIsMadeFrom)
{
    const IKEPhase1Proposal proposal = sampleProposal();
    EXPECT_EQ(proposal.transforms, (std::list<IKEPhase1Transform>{IKE_3DES_SHA1, IKE_AESCBC_SHA1, IKE_3DES_SHA1}));
    EXPECT_EQ(proposal.dhGroup, DH_GROUP_14);
    EXPECT_EQ(proposal.keyLifetime, 480U);
    EXPECT_EQ(proposal.keyLifetimeUnits, KEYLIFETIME_MINS);
}

TEST(IKEPhase1Proposal, IsWrittenWithItsTransformsInTheirOrder)
{
    EXPECT_EQ(written(sampleProposal()), DOCUMENT);
    EXPECT_EQ(written(IKEPhase1Proposal({}, DH_GROUP_NONE, 28800, KEYLIFETIME_SECS)), EMPTY);
}

TEST(IKEPhase1Proposal, IsWrittenLineByLine)
{
    expectWrittenByLines(sampleProposal());
}

TEST(IKEPhase1Proposal, ReadsWhatIsWritten)
{
    const IKEPhase1Proposal proposal = read<IKEPhase1Proposal>(DOCUMENT);
    EXPECT_EQ(proposal.transforms, sampleProposal().transforms);
    EXPECT_EQ(proposal.dhGroup, DH_GROUP_14);
    EXPECT_EQ(proposal.keyLifetime, 480U);
    EXPECT_EQ(proposal.keyLifetimeUnits, KEYLIFETIME_MINS);
}

TEST(IKEPhase1Proposal, ReadsNoTransformsAsAnEmptyList)
{
    EXPECT_TRUE(read<IKEPhase1Proposal>(EMPTY).transforms.empty());
    EXPECT_EQ(rewritten<IKEPhase1Proposal>(EMPTY), EMPTY);
}

TEST(IKEPhase1Proposal, WritesWhatItHasReadOfEveryWord)
{
    for (const char* group : {"NONE", "G1", "G2", "G14"})
        for (const char* units : {"SECS", "KB", "MINS", "HRS"}) {
            const std::string document = withText(withText(DOCUMENT, "dhGroup", group), "keyLifetimeUnits", units);
            EXPECT_EQ(rewritten<IKEPhase1Proposal>(document), document);
        }
}

TEST(IKEPhase1Proposal, ReadsEachTransformByItsWord)
{
    const std::string all = "<transform>IKE_NONE</transform>\n"
                            "<transform>IKE_AES_SHA</transform>\n"
                            "<transform>IKE_AES_MD5</transform>\n"
                            "<transform>IKE_3DES_SHA</transform>\n"
                            "<transform>IKE_3DES_MD5</transform>\n"
                            "<transform>IKE_DES_SHA</transform>\n"
                            "<transform>IKE_DES_MD5</transform>\n";

    const std::string document = changed(EMPTY, "</proposal>", all + "</proposal>");
    EXPECT_EQ(read<IKEPhase1Proposal>(document).transforms,
              (std::list<IKEPhase1Transform>{IKE_NONE, IKE_AESCBC_SHA1, IKE_AESCBC_MD5, IKE_3DES_SHA1, IKE_3DES_MD5,
                                             IKE_DES_SHA1, IKE_DES_MD5}));
    EXPECT_EQ(rewritten<IKEPhase1Proposal>(document), document);
}

TEST(IKEPhase1Proposal, RefusesUnknownWordsUnderTheNameOfItsClass)
{
    expectWordsChecked<IKEPhase1Proposal>(withText(DOCUMENT, "dhGroup", "G2"), "dhGroup", "invalid value '",
                                          "' for <dhGroup> in <ikePhase1Proposal>",
                                          {"g14", "none", "14", "G5", "DH_GROUP_14"});
    expectWordsChecked<IKEPhase1Proposal>(DOCUMENT, "keyLifetimeUnits", "invalid value '",
                                          "' for <keyLifetimeUnits> in <ikePhase1Proposal>",
                                          {"mins", "MIN", "2", "DAYS", "NONE"});
    expectWordsChecked<IKEPhase1Proposal>(ONE, "transform", "invalid value '",
                                          "' for <transform> in <ikePhase1Proposal>",
                                          {"ike_des_md5", "NONE", "IKE", "IKE_AESCBC_SHA1", "IKE_DES_SHA1", "6"});
}

TEST(IKEPhase1Proposal, ReadsItsLifetimeInEveryForm)
{
    expectNumberForms<IKEPhase1Proposal>(DOCUMENT, "keyLifetime", Sign::Unsigned);
    EXPECT_EQ(read<IKEPhase1Proposal>(withText(DOCUMENT, "keyLifetime", "0x10")).keyLifetime, 16U);
    EXPECT_EQ(read<IKEPhase1Proposal>(withText(DOCUMENT, "keyLifetime", "-4294967296")).keyLifetime, 4294967295UL);

    constexpr unsigned long most = std::numeric_limits<unsigned long>::max();
    EXPECT_EQ(rewritten<IKEPhase1Proposal>(written(IKEPhase1Proposal({}, DH_GROUP_NONE, most, KEYLIFETIME_SECS))),
              withText(EMPTY, "keyLifetime", "4294967295"));
}

TEST(IKEPhase1Proposal, ReadsItsLeavesInEveryForm)
{
    expectLeafForms<IKEPhase1Proposal>(ONE, {"dhGroup", "keyLifetime", "keyLifetimeUnits", "transform"});
}

TEST(IKEPhase1Proposal, RefusesAnotherFrame)
{
    expectFrameChecked<IKEPhase1Proposal>(DOCUMENT, "proposal");
    expectFrameChecked<IKEPhase1Proposal>(EMPTY, "proposal");
}

TEST(IKEPhase1Proposal, RefusesMissingDoubledAndMisplacedChildren)
{
    expectLeavesChecked<IKEPhase1Proposal>(EMPTY, "proposal", {"dhGroup", "keyLifetime", "keyLifetimeUnits"});

    const std::string units = "<keyLifetimeUnits>SECS</keyLifetimeUnits>\n";
    const std::string end   = "</proposal>\n";
    // clang-format off
    expectRefused<IKEPhase1Proposal>(EMPTY, {
        {units, "", "parse_tagged_value: missing tag; expected <keyLifetimeUnits>\nfrom <proposal>"},
        {units, units + units, "parse_tagged_value: wrong tag; expected <transform>, found <keyLifetimeUnits>\n"
                               "from <keyLifetimeUnits>\nfrom <proposal>"},
        {end, "", "parse_body: unmatched name 'proposal'\nfrom <proposal>"},
        {end, "<", "parse_tag: unnamed tag\nfrom <proposal>"},
        {end, "<!-- none -->" + end, "parse_tag: unnamed tag\nfrom <proposal>"},
        {end, "<transforms/>" + end, "parse_tagged_value: wrong tag; expected <transform>, found <transforms>\n"
                                     "from <transforms>\nfrom <proposal>"},
        {end, "<transform>IKE_NONE" + end, "parse_end_tag: begin/end tags don't match\n"
                                           "from <transform>\nfrom <proposal>"},
        {end, "<transform>IKE_NONE</transform>IKE_NONE" + end, "parse_end_tag: expected '<', got 'I'\nfrom <proposal>"},
    });
    // clang-format on
}

TEST(IKEPhase1Proposal, IsReadNoFurtherThanItsEnd)
{
    expectReadNoFurther<IKEPhase1Proposal>(DOCUMENT);
}

TEST(IKEPhase1Proposal, CopiesAreIndependent)
{
    const IKEPhase1Proposal original = sampleProposal();
    IKEPhase1Proposal       copy(original);
    EXPECT_EQ(written(copy), DOCUMENT);

    copy.transforms.front() = IKE_NONE;
    copy.transforms.pop_back();
    copy.dhGroup = DH_GROUP_1;
    EXPECT_EQ(written(original), DOCUMENT);

    copy = original;
    EXPECT_EQ(written(copy), DOCUMENT);
    copy = IKEPhase1Proposal({}, DH_GROUP_NONE, 28800, KEYLIFETIME_SECS);
    EXPECT_EQ(written(copy), EMPTY);
    EXPECT_EQ(written(original), DOCUMENT);
}

TEST(IKEPhase1Proposal, IsUnchangedByAssignmentToItself)
{
    IKEPhase1Proposal proposal = sampleProposal();
    expectKeptByAssignmentToItself(proposal);
}

TEST(IKEPhase1Proposal, IsUnchangedByMoveIntoItself)
{
    IKEPhase1Proposal proposal = sampleProposal();
    expectKeptByMoveIntoItself(proposal);
}

TEST(IKEPhase1Proposal, KeepsTheTargetOfARefusedRead)
{
    IKEPhase1Proposal proposal = sampleProposal();
    EXPECT_EQ(errorOf([&] { proposal = read<IKEPhase1Proposal>(withText(ONE, "transform", "x")); }),
              "invalid value 'x' for <transform> in <ikePhase1Proposal>");
    EXPECT_EQ(written(proposal), DOCUMENT);
}

} // namespace
} // namespace ipsecimpl
