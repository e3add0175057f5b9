#include "program.h"

#include <cstddef>
#include <ostream>
#include <set>
#include <string>

namespace {

class LoadFailures : public InFolder {};

TEST_F(LoadFailures, AreReportedWithTheFileThePlaceAndTheOpenElements)
{
    writeFile("policy.xml", "<ipsec><hostGroups><hostGroupEntry></hostGroupEntry></hostGroups></ipsec>");
    const Outcome expected = refused("policy.xml:1:36: parse_tagged_value: missing tag; expected <id>\n"
                                     "Write <id> before this tag: it cannot be left out.\n"
                                     "Open elements: <ipsec> <hostGroups> <hostGroupEntry>");
    writeFile("other.xml", document());
    EXPECT_EQ(run({"show", "policy.xml"}), expected);
    EXPECT_EQ(run({"graph", "policy.xml"}), expected);
    EXPECT_EQ(run({"format", "policy.xml"}), expected);
    EXPECT_EQ(run({"format", "--check", "policy.xml"}), expected);
    EXPECT_EQ(run({"format", "--in-place", "policy.xml"}), expected);
    EXPECT_EQ(run({"diff", "policy.xml", "other.xml"}), expected);
    EXPECT_EQ(run({"diff", "other.xml", "policy.xml"}), expected);
    EXPECT_EQ(run({"edit", "policy.xml", "-e", "remove policy 1"}), expected);
}

TEST_F(LoadFailures, EscapeTheFileName)
{
    writeFile("a\x1b[2J\n.xml", "");
    EXPECT_EQ(run({"format", "a\x1b[2J\n.xml"}), refused("a\\x1b[2J\\n.xml:1:1: the document is empty\n"
                                                         "Make a configuration with 'ipsec-policy new'."));
}

struct Refused {
    std::string document;
    std::string place;
    std::string message;
    std::string advice;
    std::string elements; ///< that are open; empty if none is
};

std::ostream& operator<<(std::ostream& out, const Refused& refused)
{
    return out << refused.document;
}

const char BEFORE_KEYS[] = "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal>"
                           "<protocol>NONE</protocol><encryption>2</encryption><hash>2</hash></saProposal>\n";
const char BEFORE_PSK[]  = "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK</authType>\n";

const std::string IN_ACTION = "<ipsec> <actions> <actionEntry> <action>";
const std::string IN_PHASE1 = IN_ACTION + " <ikePhase1>";
const std::string IN_KEYS   = IN_ACTION + " <manualKey>";

std::string inAction(const std::string& mode)
{
    return document("", "", entry("action", 1, action("a", "", mode)));
}

std::string inPhase1(const std::string& elements)
{
    return inAction(BEFORE_PSK + elements);
}

/// A tag of a key in which there is something else than the attribute.
Refused inManualKey(const std::string& before, const std::string& tag)
{
    return {inAction(BEFORE_KEYS + before + "\n<" + tag + " S3cret/>"), "3:1",
            "parse_tagged_value: invalid attribute; found (not shown)",
            "The only attribute is value. Write that, or the text between a start tag and an end tag.",
            IN_KEYS + " <" + tag + '>'};
}

class RefusedDocument : public testing::TestWithParam<Refused> {};

TEST_P(RefusedDocument, IsReportedByEveryCommandThatLoads)
{
    const Refused& document = GetParam();
    const Outcome  expected =
        refused("standard input:" + document.place + ": " + document.message + '\n' + document.advice +
                (document.elements.empty() ? "" : "\nOpen elements: " + document.elements));
    EXPECT_EQ(run({"show", "-"}, document.document), expected);
    EXPECT_EQ(run({"show", "--show-keys", "-"}, document.document), expected);
    EXPECT_EQ(run({"format", "-"}, document.document), expected);
}

const char NO_TAG[]       = "parse_tag: expected '<', found (not shown)";
const char BEGIN_IPSEC[]  = "A document begins with <ipsec>: remove what stands before it.";
const char REMOVE_TEXT[]  = "Only elements can stand here: remove this text.";
const char OF_HOSTS[]     = "Only <hostGroupEntry> and <nexthostGroup> can stand in <hostGroups>.";
const char NO_SPD[]       = "bad value (not shown) for <spdAction> in <action>";
const char SPD_WORDS[]    = "Write one of these in <spdAction>: NONE, BYPASS, DISCARD, TRANSPORT, TUNNEL.";
const char FOLLOWS[]      = "something follows </ipsec>";
const char ONE_DOCUMENT[] = "Remove it: a file holds one configuration.";

// clang-format off
const Refused DOCUMENTS[] = {
    {"\x1b", "1:1", NO_TAG, BEGIN_IPSEC, ""},
    {"'",    "1:1", NO_TAG, BEGIN_IPSEC, ""},
    {"\n\n<ipsec>\n<hostGroups>\n\n<hostGroupEntry>\n<od>", "7:1",
     "parse_tagged_value: wrong tag; expected <id>, found an unknown element",
     "Write <id> before this tag, or instead: the order is fixed.", "<ipsec> <hostGroups> <hostGroupEntry>"},
    {"<ipsec>\n<actions>", "2:1", "parse_simple_tag: wrong tag; expected <hostGroups>, found <actions>",
     "Write <hostGroups> before this tag, or instead: the order is fixed.", "<ipsec>"},
    {"<ipsec>\n<hostGroups>\n</ipsec>", "3:1", "parse_end_tag: begin/end tags don't match",
     "Write </hostGroups> before this tag.", "<ipsec> <hostGroups>"},
    {"<ipsec><hostGroups><policy/>", "1:20", "unknown tag: policy", OF_HOSTS, "<ipsec> <hostGroups>"},
    {"<ipsec><hostGroups><hosts/>", "1:20", "unknown tag: (not shown)", OF_HOSTS, "<ipsec> <hostGroups>"},
    {document("<hostGroupEntry/>"), "1:20", "hostGroup missing required data",
     "It cannot be empty: write what belongs in it.", "<ipsec> <hostGroups>"},
    {inAction("\n<spdAction>\x1b[1m\n</spdAction>"), "2:1", NO_SPD, SPD_WORDS, IN_ACTION},
    {inAction("\n<spdAction>name</spdAction>"),      "2:1", NO_SPD, SPD_WORDS, IN_ACTION},

    // What follows the document would get lost.
    {document() + "\n" + document(), "3:1", FOLLOWS, ONE_DOCUMENT, ""},
    {document() + "x",               "2:1", FOLLOWS, ONE_DOCUMENT, ""},
    {document() + "<!-- end -->",    "2:1", FOLLOWS, ONE_DOCUMENT, ""},
};

const char EMPTY[]       = "the document is empty";
const char MAKE_ONE[]    = "Make a configuration with 'ipsec-policy new'.";
const char INCOMPLETE[]  = "The document is not complete. Take a whole copy, or add what is missing.";
const char DECLARATION[] = "parse_tag: unnamed tag (this format has no XML declaration, comments, DOCTYPE or CDATA)";
const char MARK[]        = "the document begins with a byte order mark, which this format does not have";
const char STORE_PLAIN[] = "Store it as UTF-8 without one.";

const Refused ENDS[] = {
    {"",             "1:1", EMPTY, MAKE_ONE, ""},
    {" \t\n\v\f\r", "1:1", EMPTY, MAKE_ONE, ""},
    {"<ipsec>\n",    "1:8", "parse_tag: expected '<' (the document ends here)", INCOMPLETE, "<ipsec>"},
    {"<ipsec",       "1:7", "parse_tag_end: invalid attribute or missing '>' (the document ends here)", INCOMPLETE,
     "<ipsec>"},
    {"<ipsec>\n<hostGroups>", "2:13", "parse_tag: expected '<' (the document ends here)", INCOMPLETE,
     "<ipsec> <hostGroups>"},
    {"<ipsec>\n<hostGroups>\n<nexthostGroup> 1\n", "3:18",
     "parse_data: unmatched tag 'nexthostGroup' (the document ends here)", INCOMPLETE,
     "<ipsec> <hostGroups> <nexthostGroup>"},
    {"<?xml version=\"1.0\"?>\n<ipsec>", "1:1", DECLARATION, "Remove it.", ""},
    {"<!-- mine -->\n<ipsec>",          "1:1", DECLARATION, "Remove it.", ""},
    {"<!DOCTYPE ipsec>\n<ipsec>",       "1:1", DECLARATION, "Remove it.", ""},
    {"<ipsec>\n<!-- mine -->",          "2:1", DECLARATION, "Remove it.", "<ipsec>"},
    {document(entry("hostGroup", 1, "<hostGroup>\n<name>a<!-- b -->")), "2:8",
     "parse_end_tag: expected '/', got (not shown) (this format has no XML declaration, comments, DOCTYPE or CDATA)",
     "Only </name> can stand here: a text has no '<' in it.",
     "<ipsec> <hostGroups> <hostGroupEntry> <hostGroup> <name>"},
    {"\xef\xbb\xbf" + document(), "1:1", MARK, STORE_PLAIN, ""},
    {"\xff\xfe<",                 "1:1", MARK, STORE_PLAIN, ""},
    {"\xfe\xff<",                 "1:1", MARK, STORE_PLAIN, ""},
    {"\xff",                      "1:1", NO_TAG, BEGIN_IPSEC, ""},
    {std::string("<ipsec>\n\0", 9), "2:1",
     "the document does not load; why cannot be told, because it holds a NUL character",
     "Remove it: the first one is at 2:1.", "<ipsec>"},
};

const Refused WITH_KEYS[] = {
    {inPhase1("<presharedKey value='a'>S3cret</presharedKey>"), "2:25",
     "parse_end_tag: expected '<', got (not shown)", "Only </presharedKey> can stand here: remove this text.",
     IN_PHASE1 + " <presharedKey>"},
    {inPhase1("<presharedKey>a<S3cret</presharedKey>"), "2:16",
     "parse_end_tag: expected '/', got (not shown)", "Only </presharedKey> can stand here: a text has no '<' in it.",
     IN_PHASE1 + " <presharedKey>"},
    {inPhase1("<presharedKey S3cret/>"), "2:1", "parse_tagged_value: invalid attribute; found (not shown)",
     "The only attribute is value. Write that, or the text between a start tag and an end tag.",
     IN_PHASE1 + " <presharedKey>"},
    {inPhase1("<presharedKeyS3cret</presharedKey>"), "2:1",
     "parse_tagged_value: wrong tag; expected <presharedKey>, found an unknown element",
     "Write <presharedKey> before this tag, or instead: the order is fixed.", IN_PHASE1},
    {inPhase1("<presharedKey/>S3cret"), "2:16", NO_TAG, REMOVE_TEXT, IN_PHASE1},
    {inPhase1("S3cret</presharedKey>"), "2:1",  NO_TAG, REMOVE_TEXT, IN_PHASE1},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1>\n<authType>S3cret</authType>"), "2:1",
     "invalid value (not shown) for <auth> in <ikePhase1>", "Write one of these in <authType>: PSK, RSA.", IN_PHASE1},
    {inAction(BEFORE_KEYS + std::string("<inboundDecrKey>a<S3cret</inboundDecrKey>")), "2:18",
     "parse_end_tag: expected '/', got (not shown)", "Only </inboundDecrKey> can stand here: a text has no '<' in it.",
     IN_KEYS + " <inboundDecrKey>"},
    inManualKey("<inboundDecrKey/>", "outboundEncrKey"),
    inManualKey("<inboundDecrKey/><outboundEncrKey/>", "outboundEncrIV"),
    inManualKey("<inboundDecrKey/><outboundEncrKey/><outboundEncrIV/>", "inboundAuthKey"),
    inManualKey("<inboundDecrKey/><outboundEncrKey/><outboundEncrIV/><inboundAuthKey/>", "outboundAuthKey"),
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(LoadFailures, RefusedDocument, testing::ValuesIn(DOCUMENTS));
INSTANTIATE_TEST_SUITE_P(LoadFailuresAtEnds, RefusedDocument, testing::ValuesIn(ENDS));
INSTANTIATE_TEST_SUITE_P(LoadFailuresNearKeys, RefusedDocument, testing::ValuesIn(WITH_KEYS));

TEST_F(LoadFailures, NameEveryTagOfTheFormat)
{
    std::set<std::string> tags;
    for (const std::string name : {"home-router.xml", "branch-office.xml", "server-farm.xml"}) {
        const std::string text = contentOf(EXAMPLES_DIR "/configs/" + name);
        for (std::size_t at = text.find("</"); at != std::string::npos; at = text.find("</", at + 1))
            tags.insert(text.substr(at + 2, text.find('>', at) - at - 2));
    }
    EXPECT_GT(tags.size(), 40U);
    tags.erase("ipsec"); // is right where the others are wrong
    for (const std::string& tag : tags)
        EXPECT_EQ(run({"show", "-"}, "<" + tag + ">"),
                  refused("standard input:1:1: parse_simple_tag: wrong tag; expected <ipsec>, found <" + tag +
                          ">\nA document begins with <ipsec>."));
}

} // namespace
