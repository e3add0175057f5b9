#include "support/documents.h"
#include "support/number_forms.h"
#include "actions/samples.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <limits>

namespace ipsecimpl {
namespace {

const std::string ESP_SPIS        = "<inboundESPSPI>4096</inboundESPSPI>\n<outboundESPSPI>4097</outboundESPSPI>\n";
const std::string AH_SPIS         = "<inboundAHSPI>4098</inboundAHSPI>\n<outboundAHSPI>4099</outboundAHSPI>\n";
const std::string ENCRYPTION_KEYS = "<inboundDecrKey>0xd1</inboundDecrKey>\n"
                                    "<outboundEncrKey>0xe2</outboundEncrKey>\n"
                                    "<outboundEncrIV>0x13</outboundEncrIV>\n";
const std::string AUTH_KEYS       = "<inboundAuthKey>0xa4</inboundAuthKey>\n<outboundAuthKey>0xb5</outboundAuthKey>\n";

/// A proposal, and what an element with it holds besides.
struct Shape {
    std::string   protocol;
    unsigned long encryption;
    unsigned long hash;
    std::string   rest;

    IPsecProposal proposal() const { return IPsecProposal(IPsecProtocol::to_int(protocol), encryption, hash); }

    std::string document() const
    {
        return "<manualKey>\n<saProposal>\n" + leaf("protocol", protocol) + "\n" +
               leaf("encryption", std::to_string(encryption)) + "\n" + leaf("hash", std::to_string(hash)) +
               "\n</saProposal>\n" + rest + "</manualKey>\n";
    }
};

const std::vector<Shape>& shapes()
{
    constexpr unsigned long MOST = 4294967295UL;
    // clang-format off
    static const std::vector<Shape> all = {
        {"NONE",   0, 0, ""},
        {"NONE",   0, 1, ""},
        {"NONE",   0, 2, AUTH_KEYS},
        {"NONE",   1, 0, ""},
        {"NONE",   1, 1, ""},
        {"NONE",   1, 2, AUTH_KEYS},
        {"NONE",   2, 0, ENCRYPTION_KEYS},
        {"NONE",   2, 1, ENCRYPTION_KEYS},
        {"NONE",   2, 2, ENCRYPTION_KEYS + AUTH_KEYS},
        {"AH",     0, 0, AH_SPIS},
        {"AH",     0, 1, AH_SPIS},
        {"AH",     0, 2, AH_SPIS + AUTH_KEYS},
        {"AH",     1, 0, AH_SPIS},
        {"AH",     1, 1, AH_SPIS},
        {"AH",     1, 2, AH_SPIS + AUTH_KEYS},
        {"AH",     2, 0, AH_SPIS + ENCRYPTION_KEYS},
        {"AH",     2, 1, AH_SPIS + ENCRYPTION_KEYS},
        {"AH",     2, 2, AH_SPIS + ENCRYPTION_KEYS + AUTH_KEYS},
        {"ESP",    0, 0, ESP_SPIS},
        {"ESP",    0, 1, ESP_SPIS},
        {"ESP",    0, 2, ESP_SPIS + AUTH_KEYS},
        {"ESP",    1, 0, ESP_SPIS},
        {"ESP",    1, 1, ESP_SPIS},
        {"ESP",    1, 2, ESP_SPIS + AUTH_KEYS},
        {"ESP",    2, 0, ESP_SPIS + ENCRYPTION_KEYS},
        {"ESP",    2, 1, ESP_SPIS + ENCRYPTION_KEYS},
        {"ESP",    2, 2, ESP_SPIS + ENCRYPTION_KEYS + AUTH_KEYS},
        {"ESP+AH", 0, 0, ESP_SPIS + AH_SPIS},
        {"ESP+AH", 0, 1, ESP_SPIS + AH_SPIS},
        {"ESP+AH", 0, 2, ESP_SPIS + AH_SPIS + AUTH_KEYS},
        {"ESP+AH", 1, 0, ESP_SPIS + AH_SPIS},
        {"ESP+AH", 1, 1, ESP_SPIS + AH_SPIS},
        {"ESP+AH", 1, 2, ESP_SPIS + AH_SPIS + AUTH_KEYS},
        {"ESP+AH", 2, 0, ESP_SPIS + AH_SPIS + ENCRYPTION_KEYS},
        {"ESP+AH", 2, 1, ESP_SPIS + AH_SPIS + ENCRYPTION_KEYS},
        {"ESP+AH", 2, 2, ESP_SPIS + AH_SPIS + ENCRYPTION_KEYS + AUTH_KEYS},
        {"NONE",   MOST, MOST, ENCRYPTION_KEYS + AUTH_KEYS},
    };
    // clang-format on
    return all;
}

/// sampleKey() with what a document of this shape cannot hold at its default.
MKM readable(const Shape& shape)
{
    const auto has = [&shape](const std::string& part) { return shape.rest.find(part) != std::string::npos; };
    MKM        key = sampleKey();
    key.saProposal = shape.proposal();
    if (!has(ESP_SPIS))
        key.inboundESPSPI = key.outboundESPSPI = 0;
    if (!has(AH_SPIS))
        key.inboundAHSPI = key.outboundAHSPI = 0;
    if (!has(ENCRYPTION_KEYS))
        key.inboundDecrKey = key.outboundEncrKey = key.outboundEncrIV = "";
    if (!has(AUTH_KEYS))
        key.inboundAuthKey = key.outboundAuthKey = "";
    return key;
}

TEST(MKM, StartsWithNothing)
{
    EXPECT_EQ(everythingOf(MKM()), "<saProposal>\n"
                                   "<protocol>NONE</protocol>\n"
                                   "<encryption>0</encryption>\n"
                                   "<hash>0</hash>\n"
                                   "</saProposal>\n"
                                   "0\n0\n\n\n0\n0\n\n\n\n");
}

TEST(MKM, WritesWhatItsProposalMakesMeaningful)
{
    for (const Shape& shape : shapes()) {
        MKM key        = sampleKey();
        key.saProposal = shape.proposal();
        EXPECT_EQ(written(key), shape.document());
    }
    EXPECT_EQ(written(sampleKey()), KEY_DOCUMENT);
}

TEST(MKM, ReadsWhatItsProposalMakesMeaningfulAndLeavesTheRestAtItsDefault)
{
    for (const Shape& shape : shapes())
        EXPECT_EQ(everythingOf(read<MKM>(shape.document())), everythingOf(readable(shape))) << shape.document();
}

TEST(MKM, WritesWhatItHasRead)
{
    for (const Shape& shape : shapes())
        EXPECT_EQ(rewritten<MKM>(shape.document()), shape.document());
}

TEST(MKM, RefusesEveryOtherShapesContent)
{
    for (const Shape& shape : shapes())
        for (const Shape& other : shapes()) {
            if (shape.rest == other.rest)
                continue;
            Shape mixed = shape;
            mixed.rest  = other.rest;
            EXPECT_THROW(read<MKM>(mixed.document()), ParseError) << mixed.document();
        }
}

TEST(MKM, KeepsFieldsThatItDoesNotWrite)
{
    MKM               key        = sampleKey();
    const std::string everything = everythingOf(key);
    key.saProposal               = IPsecProposal(IPSEC_NONE, 1, 1);
    EXPECT_EQ(textIn(written(key), "protocol"), "NONE");
    key.saProposal = IPsecProposal(IPSEC_ESP_AH, 12, 3);
    EXPECT_EQ(everythingOf(key), everything);
}

TEST(MKM, LooksForKeysByTheNumberThatTheTextStandsFor)
{
    const Shape none{"NONE", 0, 0, ""};
    const auto  wants = [&none](const std::string& tag, const std::string& number) {
        return refusalOf<MKM>(withText(none.document(), tag, number));
    };
    for (const char* number : {"2", "0x2", "02", "-1", "4294967296", "-4294967294", "2x"}) {
        EXPECT_EQ(wants("encryption", number),
                  "parse_tagged_value: missing tag; expected <inboundDecrKey>\nfrom <manualKey>");
        EXPECT_EQ(wants("hash", number),
                  "parse_tagged_value: missing tag; expected <inboundAuthKey>\nfrom <manualKey>");
    }
    for (const char* number : {"1", "0x1", "01", "-4294967295", "08", "0b11", "1 2", "two", ""})
        for (const char* tag : {"encryption", "hash"})
            EXPECT_NO_THROW(read<MKM>(withText(none.document(), tag, number))) << tag << ' ' << number;
}

TEST(MKM, IsWrittenLineByLine)
{
    expectWrittenByLines(sampleKey());
}

TEST(MKM, ReadsItsNumbersInEveryForm)
{
    for (const char* tag : {"inboundESPSPI", "outboundESPSPI", "inboundAHSPI", "outboundAHSPI"})
        expectNumberForms<MKM>(KEY_DOCUMENT, tag, Sign::Unsigned);
    EXPECT_EQ(read<MKM>(withText(KEY_DOCUMENT, "inboundESPSPI", "0x1000")).inboundESPSPI, 4096U);
    EXPECT_EQ(read<MKM>(withText(KEY_DOCUMENT, "outboundAHSPI", "-1")).outboundAHSPI, 4294967295UL);

    MKM key          = sampleKey();
    key.inboundAHSPI = std::numeric_limits<unsigned long>::max();
    EXPECT_EQ(rewritten<MKM>(written(key)), withText(KEY_DOCUMENT, "inboundAHSPI", "4294967295"));
}

TEST(MKM, KeepsKeysAsTheParserGivesThem)
{
    for (const char* tag :
         {"inboundDecrKey", "outboundEncrKey", "outboundEncrIV", "inboundAuthKey", "outboundAuthKey"}) {
        EXPECT_EQ(rewritten<MKM>(withText(KEY_DOCUMENT, tag, "  not hex \n at all ")),
                  withText(KEY_DOCUMENT, tag, "not hex \n at all"));
        EXPECT_EQ(rewritten<MKM>(withText(KEY_DOCUMENT, tag, "&lt;'\">")), withText(KEY_DOCUMENT, tag, "&lt;'\">"));
        EXPECT_EQ(rewritten<MKM>(
                      changed(KEY_DOCUMENT, leafIn(KEY_DOCUMENT, tag), "<" + std::string(tag) + " value=' a<b '/>")),
                  withText(KEY_DOCUMENT, tag, " a<b "));
        EXPECT_EQ(rewritten<MKM>(changed(KEY_DOCUMENT, leafIn(KEY_DOCUMENT, tag), "<" + std::string(tag) + "/>")),
                  withText(KEY_DOCUMENT, tag, ""));
    }
}

TEST(MKM, ReadsItsLeavesInEveryForm)
{
    expectLeafForms<MKM>(KEY_DOCUMENT, {"protocol", "encryption", "hash", "inboundESPSPI", "outboundESPSPI",
                                        "inboundAHSPI", "outboundAHSPI", "inboundDecrKey", "outboundEncrKey",
                                        "outboundEncrIV", "inboundAuthKey", "outboundAuthKey"});
}

TEST(MKM, RefusesAnotherFrame)
{
    expectFrameChecked<MKM>(KEY_DOCUMENT, "manualKey");
    expectFrameChecked<MKM>(shapes().front().document(), "manualKey");
}

TEST(MKM, RefusesMissingDoubledAndMisplacedChildren)
{
    expectLeavesChecked<MKM>(KEY_DOCUMENT, "manualKey",
                             {"inboundESPSPI", "outboundESPSPI", "inboundAHSPI", "outboundAHSPI", "inboundDecrKey",
                              "outboundEncrKey", "outboundEncrIV", "inboundAuthKey", "outboundAuthKey"});

    const std::string last = leafIn(KEY_DOCUMENT, "outboundAuthKey"), from = "\nfrom <manualKey>";
    const std::string sa = "<saProposal>\n<protocol>ESP+AH</protocol>\n<encryption>12</encryption>\n<hash>3</hash>\n"
                           "</saProposal>\n";
    // clang-format off
    expectRefused<MKM>(KEY_DOCUMENT, {
        {last, "", "parse_tagged_value: missing tag; expected <outboundAuthKey>" + from},
        {last, last + last, "parse_end_tag: expected '/', got 'o'" + from},
        {sa, "", "parse_simple_tag: wrong tag; expected <saProposal>, found <inboundESPSPI>\n"
                 "from <inboundESPSPI>" + from},
        {sa, sa + sa, "parse_tagged_value: wrong tag; expected <inboundESPSPI>, found <saProposal>\n"
                      "from <saProposal>" + from},
        {sa, "<saProposal/>", "parse_tagged_value: wrong tag; expected <protocol>, found <inboundESPSPI>\n"
                              "from <inboundESPSPI>" + from},
        {">ESP+AH<", ">esp<", "invalid value 'esp' for <protocol> in <saProposal>"},
        {">ESP+AH<", ">AH<", "parse_tagged_value: wrong tag; expected <inboundAHSPI>, found <inboundESPSPI>\n"
                             "from <inboundESPSPI>" + from},
        {">ESP+AH<", ">ESP<", "parse_tagged_value: wrong tag; expected <inboundDecrKey>, found <inboundAHSPI>\n"
                              "from <inboundAHSPI>" + from},
        {">ESP+AH<", ">NONE<", "parse_tagged_value: wrong tag; expected <inboundDecrKey>, found <inboundESPSPI>\n"
                               "from <inboundESPSPI>" + from},
        {">12<", ">1<", "parse_tagged_value: wrong tag; expected <inboundAuthKey>, found <inboundDecrKey>\n"
                        "from <inboundDecrKey>" + from},
        {">3<", ">1<", "parse_end_tag: expected '/', got 'i'" + from},
    });
    // clang-format on
}

TEST(MKM, IsReadNoFurtherThanItsEnd)
{
    expectReadNoFurther<MKM>(KEY_DOCUMENT);
}

TEST(MKM, CopiesAndAssignsAllFields)
{
    const MKM         original   = sampleKey();
    const std::string everything = everythingOf(original);
    MKM               copy(original);
    EXPECT_EQ(everythingOf(copy), everything);
    copy = MKM();
    EXPECT_EQ(everythingOf(copy), everythingOf(MKM()));
    copy = original;
    EXPECT_EQ(everythingOf(copy), everything);
    EXPECT_EQ(everythingOf(original), everything);
}

TEST(MKM, IsUnchangedByAssignmentToItself)
{
    MKM key = sampleKey();
    expectKeptByAssignmentToItself(key);
    EXPECT_EQ(everythingOf(key), everythingOf(sampleKey()));
}

TEST(MKM, IsUnchangedByMoveIntoItself)
{
    MKM key = sampleKey();
    expectKeptByMoveIntoItself(key);
}

TEST(MKM, KeepsTheTargetOfARefusedRead)
{
    MKM key = sampleKey();
    EXPECT_EQ(errorOf([&] { key = read<MKM>(withText(KEY_DOCUMENT, "protocol", "x")); }),
              "invalid value 'x' for <protocol> in <saProposal>");
    EXPECT_EQ(everythingOf(key), everythingOf(sampleKey()));
}

} // namespace
} // namespace ipsecimpl
