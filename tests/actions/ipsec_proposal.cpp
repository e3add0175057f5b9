#include "support/documents.h"
#include "support/number_forms.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <limits>

namespace ipsecimpl {
namespace {

const std::string DOCUMENT = "<saProposal>\n"
                             "<protocol>ESP</protocol>\n"
                             "<encryption>12</encryption>\n"
                             "<hash>3</hash>\n"
                             "</saProposal>\n";

void expectFields(const IPsecProposal& proposal, const IPsecProtocol& protocol, unsigned long encryption,
                  unsigned long hash)
{
    EXPECT_EQ(proposal.protocol, protocol);
    EXPECT_EQ(proposal.encryption, encryption);
    EXPECT_EQ(proposal.hash, hash);
}

TEST(IPsecProposal, KeepsWhatItIsMadeFrom)
{
    expectFields(IPsecProposal(IPSEC_AH, 0, 4294967295UL), IPSEC_AH, 0, 4294967295UL);
    expectFields(IPsecProposal(IPSEC_NONE, 4294967295UL, 0), IPSEC_NONE, 4294967295UL, 0);
}

TEST(IPsecProposal, IsWrittenAsItsThreeLeaves)
{
    EXPECT_EQ(written(IPsecProposal(IPSEC_ESP, 12, 3)), DOCUMENT);
    EXPECT_EQ(written(IPsecProposal(IPSEC_NONE, 0, 4294967295UL)), "<saProposal>\n"
                                                                   "<protocol>NONE</protocol>\n"
                                                                   "<encryption>0</encryption>\n"
                                                                   "<hash>4294967295</hash>\n"
                                                                   "</saProposal>\n");
}

TEST(IPsecProposal, IsWrittenLineByLine)
{
    expectWrittenByLines(IPsecProposal(IPSEC_ESP_AH, 1, 2));
}

TEST(IPsecProposal, ReadsWhatIsWritten)
{
    expectFields(read<IPsecProposal>(DOCUMENT), IPSEC_ESP, 12, 3);
}

TEST(IPsecProposal, WritesWhatItHasReadOfEveryProtocolAndNumber)
{
    for (const char* protocol : {"NONE", "AH", "ESP", "ESP+AH"})
        for (const char* number : {"0", "1", "2", "4294967295"}) {
            const std::string document =
                withText(withText(withText(DOCUMENT, "protocol", protocol), "encryption", number), "hash", number);
            EXPECT_EQ(rewritten<IPsecProposal>(document), document);
        }
}

TEST(IPsecProposal, ReadsEachProtocolByItsWord)
{
    EXPECT_EQ(read<IPsecProposal>(withText(DOCUMENT, "protocol", "NONE")).protocol, IPSEC_NONE);
    EXPECT_EQ(read<IPsecProposal>(withText(DOCUMENT, "protocol", "AH")).protocol, IPSEC_AH);
    EXPECT_EQ(read<IPsecProposal>(withText(DOCUMENT, "protocol", "ESP")).protocol, IPSEC_ESP);
    EXPECT_EQ(read<IPsecProposal>(withText(DOCUMENT, "protocol", "ESP+AH")).protocol, IPSEC_ESP_AH);
}

TEST(IPsecProposal, RefusesAWordThatIsNoProtocol)
{
    expectWordsChecked<IPsecProposal>(DOCUMENT, "protocol", "invalid value '", "' for <protocol> in <saProposal>",
                                      {"esp", "Esp", "AH+ESP", "ESP +AH", "ESP+AHx", "ES", "2", "G1", "MKM"});
}

TEST(IPsecProposal, ReadsItsNumbersInEveryForm)
{
    expectNumberForms<IPsecProposal>(DOCUMENT, "encryption", Sign::Unsigned);
    expectNumberForms<IPsecProposal>(DOCUMENT, "hash", Sign::Unsigned);
    EXPECT_EQ(read<IPsecProposal>(withText(DOCUMENT, "encryption", "0x10")).encryption, 16U);
    EXPECT_EQ(read<IPsecProposal>(withText(DOCUMENT, "hash", "-1")).hash, 4294967295UL);
    EXPECT_EQ(read<IPsecProposal>(withText(DOCUMENT, "hash", "abc")).hash, 0U);
}

TEST(IPsecProposal, WritesTheWholeFieldOfWhichThirtyTwoBitsComeBack)
{
    constexpr unsigned long most  = std::numeric_limits<unsigned long>::max();
    const std::string       large = written(IPsecProposal(IPSEC_ESP, most, most));
    EXPECT_EQ(textIn(large, "encryption"), std::to_string(most));
    EXPECT_EQ(textIn(large, "hash"), std::to_string(most));
    expectFields(read<IPsecProposal>(large), IPSEC_ESP, 4294967295UL, 4294967295UL);
}

TEST(IPsecProposal, ReadsItsLeavesInEveryForm)
{
    expectLeafForms<IPsecProposal>(DOCUMENT, {"protocol", "encryption", "hash"});
}

TEST(IPsecProposal, RefusesAnotherFrame)
{
    expectFrameChecked<IPsecProposal>(DOCUMENT, "saProposal");
}

TEST(IPsecProposal, RefusesMissingDoubledAndMisplacedLeaves)
{
    expectLeavesChecked<IPsecProposal>(DOCUMENT, "saProposal", {"protocol", "encryption", "hash"});
    expectRefused<IPsecProposal>(
        DOCUMENT, {
                      {"<hash>3</hash>\n", "", "parse_tagged_value: missing tag; expected <hash>\nfrom <saProposal>"},
                      {"<hash>3</hash>\n", "<hash>3</hash><hash>3</hash>",
                       "parse_end_tag: expected '/', got 'h'\nfrom <saProposal>"},
                  });
}

TEST(IPsecProposal, IsReadNoFurtherThanItsEnd)
{
    expectReadNoFurther<IPsecProposal>(DOCUMENT);
}

TEST(IPsecProposal, CopiesAndAssignsAllFields)
{
    const IPsecProposal original(IPSEC_ESP_AH, 5, 6);
    IPsecProposal       copy(original);
    expectFields(copy, IPSEC_ESP_AH, 5, 6);
    copy = IPsecProposal(IPSEC_AH, 7, 8);
    expectFields(copy, IPSEC_AH, 7, 8);
    copy = original;
    expectFields(copy, IPSEC_ESP_AH, 5, 6);
}

TEST(IPsecProposal, IsUnchangedByAssignmentToItself)
{
    IPsecProposal proposal(IPSEC_ESP, 12, 3);
    expectKeptByAssignmentToItself(proposal);
}

TEST(IPsecProposal, IsUnchangedByMoveIntoItself)
{
    IPsecProposal proposal(IPSEC_ESP, 12, 3);
    expectKeptByMoveIntoItself(proposal);
}

TEST(IPsecProposal, KeepsTheTargetOfARefusedRead)
{
    IPsecProposal proposal(IPSEC_AH, 1, 2);
    EXPECT_EQ(errorOf([&] { proposal = read<IPsecProposal>(withText(DOCUMENT, "protocol", "x")); }),
              "invalid value 'x' for <protocol> in <saProposal>");
    expectFields(proposal, IPSEC_AH, 1, 2);
}

} // namespace
} // namespace ipsecimpl
