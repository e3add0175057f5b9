#include "support/documents.h"
#include "support/number_forms.h"
#include "actions/samples.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <limits>

namespace ipsecimpl {
namespace {

const std::string& DOCUMENT = PHASE2_DOCUMENT;

const std::string EMPTY = "<ikePhase2>\n"
                          "<dhGroup>NONE</dhGroup>\n"
                          "<keyLifetime>28800</keyLifetime>\n"
                          "<keyLifetimeUnits>SECS</keyLifetimeUnits>\n"
                          "</ikePhase2>\n";

TEST(IKEPhase2, KeepsWhatItIsMadeFrom)
{
    const IKEPhase2 phase2 = samplePhase2();
    ASSERT_EQ(phase2.proposals.size(), 2U);
    EXPECT_EQ(phase2.proposals.front().protocol, IPSEC_ESP);
    EXPECT_EQ(phase2.proposals.front().encryption, 5U);
    EXPECT_EQ(phase2.proposals.front().hash, 6U);
    EXPECT_EQ(phase2.proposals.back().protocol, IPSEC_AH);
    EXPECT_EQ(phase2.dhGroup, DH_GROUP_2);
    EXPECT_EQ(phase2.keyLifetime, 8U);
    EXPECT_EQ(phase2.keyLifetimeUnits, KEYLIFETIME_HRS);
}

TEST(IKEPhase2, IsWrittenWithItsProposalsInTheirOrder)
{
    EXPECT_EQ(written(samplePhase2()), DOCUMENT);
    EXPECT_EQ(written(IKEPhase2({}, DH_GROUP_NONE, 28800, KEYLIFETIME_SECS)), EMPTY);
}

TEST(IKEPhase2, IsWrittenLineByLine)
{
    expectWrittenByLines(samplePhase2());
}

TEST(IKEPhase2, ReadsWhatIsWritten)
{
    const IKEPhase2 phase2 = read<IKEPhase2>(DOCUMENT);
    EXPECT_EQ(phase2.proposals.size(), 2U);
    EXPECT_EQ(phase2.dhGroup, DH_GROUP_2);
    EXPECT_EQ(phase2.keyLifetime, 8U);
    EXPECT_EQ(phase2.keyLifetimeUnits, KEYLIFETIME_HRS);
    EXPECT_EQ(written(phase2), DOCUMENT);
}

TEST(IKEPhase2, ReadsNoProposalsAsAnEmptyList)
{
    EXPECT_TRUE(read<IKEPhase2>(EMPTY).proposals.empty());
    EXPECT_EQ(rewritten<IKEPhase2>(EMPTY), EMPTY);
}

TEST(IKEPhase2, WritesWhatItHasReadOfEveryWord)
{
    for (const char* group : {"NONE", "G1", "G2", "G14"})
        for (const char* units : {"SECS", "KB", "MINS", "HRS"}) {
            const std::string document = withText(withText(DOCUMENT, "dhGroup", group), "keyLifetimeUnits", units);
            EXPECT_EQ(rewritten<IKEPhase2>(document), document);
        }
}

TEST(IKEPhase2, WritesWhatItHasReadOfManyProposals)
{
    IKEPhase2 phase2({}, DH_GROUP_1, 0, KEYLIFETIME_KB);
    for (unsigned long i = 0; i < 1000; ++i)
        phase2.proposals.emplace_back(IPsecProtocol(static_cast<int>(i % 4)), i, 1000 - i);
    const std::string document = written(phase2);
    const IKEPhase2   again    = read<IKEPhase2>(document);
    EXPECT_EQ(again.proposals.size(), 1000U);
    EXPECT_EQ(again.proposals.back().encryption, 999U);
    EXPECT_EQ(written(again), document);
}

TEST(IKEPhase2, RefusesUnknownWords)
{
    expectWordsChecked<IKEPhase2>(DOCUMENT, "dhGroup", "invalid value '", "' for <dhGroup> in <ikePhase2>",
                                  {"g2", "none", "2", "G5", "G 2", "DH_GROUP_2"});
    expectWordsChecked<IKEPhase2>(DOCUMENT, "keyLifetimeUnits", "invalid value '",
                                  "' for <keyLifetimeUnits> in <ikePhase2>", {"hrs", "SEC", "0", "DAYS", "NONE"});
}

TEST(IKEPhase2, ReadsItsLifetimeInEveryForm)
{
    expectNumberForms<IKEPhase2>(DOCUMENT, "keyLifetime", Sign::Unsigned);
    EXPECT_EQ(read<IKEPhase2>(withText(DOCUMENT, "keyLifetime", "0x10")).keyLifetime, 16U);
    EXPECT_EQ(read<IKEPhase2>(withText(DOCUMENT, "keyLifetime", "-4294967296")).keyLifetime, 4294967295UL);

    constexpr unsigned long most = std::numeric_limits<unsigned long>::max();
    EXPECT_EQ(rewritten<IKEPhase2>(written(IKEPhase2({}, DH_GROUP_NONE, most, KEYLIFETIME_SECS))),
              withText(EMPTY, "keyLifetime", "4294967295"));
}

TEST(IKEPhase2, ReadsItsLeavesInEveryForm)
{
    expectLeafForms<IKEPhase2>(DOCUMENT, {"dhGroup", "keyLifetime", "keyLifetimeUnits"});
}

TEST(IKEPhase2, RefusesAnotherFrame)
{
    expectFrameChecked<IKEPhase2>(DOCUMENT, "ikePhase2");
    expectFrameChecked<IKEPhase2>(EMPTY, "ikePhase2");
}

TEST(IKEPhase2, RefusesMissingDoubledAndMisplacedChildren)
{
    expectLeavesChecked<IKEPhase2>(EMPTY, "ikePhase2", {"dhGroup", "keyLifetime", "keyLifetimeUnits"});

    const std::string units = "<keyLifetimeUnits>SECS</keyLifetimeUnits>\n";
    const std::string end   = "</ikePhase2>\n";
    const std::string sa    = "<saProposal>\n";
    // clang-format off
    expectRefused<IKEPhase2>(EMPTY, {
        {units, "", "parse_tagged_value: missing tag; expected <keyLifetimeUnits>\nfrom <ikePhase2>"},
        {units, units + units, "parse_simple_tag: wrong tag; expected <saProposal>, found <keyLifetimeUnits>\n"
                               "from <keyLifetimeUnits>\nfrom <ikePhase2>"},
        {end, "", "parse_body: unmatched name 'ikePhase2'\nfrom <ikePhase2>"},
        {end, "<", "parse_tag: unnamed tag\nfrom <ikePhase2>"},
        {end, "<!-- none -->" + end, "parse_tag: unnamed tag\nfrom <ikePhase2>"},
        {end, "<proposal>" + end, "parse_simple_tag: wrong tag; expected <saProposal>, found <proposal>\n"
                                  "from <proposal>\nfrom <ikePhase2>"},
        {end, "<x/>" + end, "parse_simple_tag: wrong tag; expected <saProposal>, found <x>\n"
                            "from <x>\nfrom <ikePhase2>"},
        {end, sa + end, "parse_tagged_value: missing tag; expected <protocol>\nfrom <saProposal>\nfrom <ikePhase2>"},
        {end, sa + "<protocol>AH</protocol><hash>1</hash>",
         "parse_tagged_value: wrong tag; expected <encryption>, found <hash>\n"
         "from <hash>\nfrom <saProposal>\nfrom <ikePhase2>"},
        {end, sa + "<protocol>AH</protocol><encryption>1</encryption><hash>1</hash>" + end,
         "parse_end_tag: begin/end tags don't match\nfrom <saProposal>\nfrom <ikePhase2>"},
        {end, sa + "<protocol>esp</protocol>", "invalid value 'esp' for <protocol> in <saProposal>"},
    });
    // clang-format on
}

TEST(IKEPhase2, ReadsOnPastAProposalThatIsSelfClosed)
{
    const std::string end   = "</ikePhase2>\n";
    const std::string leafs = "<protocol>AH</protocol><encryption>1</encryption><hash>1</hash>";
    // clang-format off
    expectRefused<IKEPhase2>(EMPTY, {
        {end, "<saProposal/>" + end, "parse_tagged_value: missing tag; expected <protocol>\nfrom <ikePhase2>"},
        // The outer end tag ends the proposal, and with it the last open element.
        {end, "<saProposal/>" + leafs + end, "parse_body: unmatched name ''"},
        {end, "<saProposal/>" + leafs + end + "<", "parse_tag: unnamed tag"},
        {end, "<saProposal/>" + leafs + "</saProposal>", "parse_end_tag: begin/end tags don't match\nfrom <ikePhase2>"},
        {end, "<saProposal/>" + leafs + end + "text", "parse_end_tag: expected '<', got 't'"},
    });
    // clang-format on
}

TEST(IKEPhase2, IsReadNoFurtherThanItsEnd)
{
    expectReadNoFurther<IKEPhase2>(DOCUMENT);
}

TEST(IKEPhase2, CopiesAreIndependent)
{
    const IKEPhase2 original = samplePhase2();
    IKEPhase2       copy(original);
    EXPECT_EQ(written(copy), DOCUMENT);

    copy.proposals.front().hash = 99;
    copy.proposals.pop_back();
    copy.keyLifetime = 1;
    EXPECT_EQ(written(original), DOCUMENT);

    copy = original;
    EXPECT_EQ(written(copy), DOCUMENT);
    copy = IKEPhase2({}, DH_GROUP_NONE, 28800, KEYLIFETIME_SECS);
    EXPECT_EQ(written(copy), EMPTY);
    EXPECT_EQ(written(original), DOCUMENT);
}

TEST(IKEPhase2, IsUnchangedByAssignmentToItself)
{
    IKEPhase2 phase2 = samplePhase2();
    expectKeptByAssignmentToItself(phase2);
}

TEST(IKEPhase2, IsUnchangedByMoveIntoItself)
{
    IKEPhase2 phase2 = samplePhase2();
    expectKeptByMoveIntoItself(phase2);
}

TEST(IKEPhase2, KeepsTheTargetOfARefusedRead)
{
    IKEPhase2 phase2 = samplePhase2();
    EXPECT_EQ(errorOf([&] { phase2 = read<IKEPhase2>(changed(DOCUMENT, "<hash>2</hash>", "")); }),
              "parse_tagged_value: missing tag; expected <hash>\nfrom <saProposal>\nfrom <ikePhase2>");
    EXPECT_EQ(written(phase2), DOCUMENT);
}

} // namespace
} // namespace ipsecimpl
