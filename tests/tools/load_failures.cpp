#include "program.h"

#include <cstddef>
#include <ostream>
#include <set>
#include <string>

namespace {

class LoadFailures : public InFolder {};

TEST_F(LoadFailures, AreReportedWithTheFileAndTheOpenElements)
{
    writeFile("policy.xml", "<ipsec><hostGroups><hostGroupEntry></hostGroupEntry></hostGroups></ipsec>");
    EXPECT_EQ(run({"show", "policy.xml"}),
              refused("policy.xml: line 1: parse_tagged_value: missing tag; expected <id>\n"
                      "from <hostGroupEntry>\nfrom <hostGroups>\nfrom <ipsec>"));
}

TEST_F(LoadFailures, EscapeTheFileName)
{
    writeFile("a\x1b[2J\n.xml", "");
    EXPECT_EQ(run({"format", "a\x1b[2J\n.xml"}), refused("a\\x1b[2J\\n.xml: the document is empty"));
}

struct Refused {
    std::string document;
    std::string message;
};

std::ostream& operator<<(std::ostream& out, const Refused& refused)
{
    return out << refused.document;
}

const char BEFORE_KEYS[] = "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal>"
                           "<protocol>NONE</protocol><encryption>2</encryption><hash>2</hash></saProposal>";
const char BEFORE_PSK[]  = "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK</authType>";

const std::string IN_ACTION   = "\nfrom <action>\nfrom <actionEntry>\nfrom <actions>\nfrom <ipsec>";
const std::string IN_PHASE1   = "\nfrom <ikePhase1>" + IN_ACTION;
const char        ATTRIBUTE[] = "line 1: parse_tagged_value: invalid attribute; found (not shown)";

Refused inAction(const std::string& mode, const std::string& message)
{
    return {document("", "", entry("action", 1, action("a", "", mode))), message};
}

Refused inPhase1(const std::string& elements, const std::string& message)
{
    return inAction(BEFORE_PSK + elements, message + IN_PHASE1);
}

/// Refused in the element `tag`.
Refused inManualKey(const std::string& elements, const std::string& message, const std::string& tag)
{
    return inAction(BEFORE_KEYS + elements, message + "\nfrom <" + tag + ">\nfrom <manualKey>" + IN_ACTION);
}

class RefusedDocument : public testing::TestWithParam<Refused> {};

TEST_P(RefusedDocument, IsReportedByEveryCommandThatLoads)
{
    const Outcome expected = refused("standard input: " + GetParam().message);
    EXPECT_EQ(run({"show", "-"}, GetParam().document), expected);
    EXPECT_EQ(run({"show", "--show-keys", "-"}, GetParam().document), expected);
    EXPECT_EQ(run({"format", "-"}, GetParam().document), expected);
}

// clang-format off
const Refused DOCUMENTS[] = {
    {"\x1b",                            "line 1: parse_tag: expected '<', found (not shown)"},
    {"'",                               "line 1: parse_tag: expected '<', found (not shown)"},
    {"\n\n<ipsec>\n<hostGroups>\n\n<hostGroupEntry>\n<od>",
     "line 7: parse_tagged_value: wrong tag; expected <id>, found an unknown element"
     "\nfrom an unknown element\nfrom <hostGroupEntry>\nfrom <hostGroups>\nfrom <ipsec>"},
    {"<ipsec>\n<actions>",              "line 2: parse_simple_tag: wrong tag; expected <hostGroups>, found <actions>"
                                        "\nfrom <actions>\nfrom <ipsec>"},
    {"<ipsec>\n<hostGroups>\n</ipsec>", "line 3: parse_end_tag: begin/end tags don't match"
                                        "\nfrom <hostGroups>\nfrom <ipsec>"},
    {"<ipsec><hostGroups><policy/>",    "line 1: unknown tag: policy"},
    {"<ipsec><hostGroups><hosts/>",     "line 1: unknown tag: (not shown)"},
    {document("<hostGroupEntry/>"),     "line 1: hostGroup missing required data"},
    inAction("<spdAction>\x1b[1m\n</spdAction>", "line 2: bad value (not shown) for <spdAction> in <action>"),
    inAction("<spdAction>name</spdAction>",      "line 1: bad value (not shown) for <spdAction> in <action>"),

    // What follows the document would get lost.
    {document() + "\n" + document(),    "line 3: something follows </ipsec>"},
    {document() + "x",                  "line 2: something follows </ipsec>"},
    {document() + "<!-- end -->",       "line 2: something follows </ipsec>"},
};

const char DECLARATION[] = "line 1: parse_tag: unnamed tag (this format has no XML declaration, comments, DOCTYPE or "
                           "CDATA)";
const char MARK[]        = "the document begins with a byte order mark, which this format does not have";

const Refused ENDS[] = {
    {"",                                "the document is empty"},
    {" \t\n\v\f\r",                     "the document is empty"},
    {"<ipsec>\n",                       "line 1: parse_tag: expected '<' (the document ends here)\nfrom <ipsec>"},
    {"<ipsec",                          "line 1: parse_tag_end: invalid attribute or missing '>' (the document ends "
                                        "here)\nfrom <ipsec>"},
    {"<ipsec>\n<hostGroups>",           "line 2: parse_tag: expected '<' (the document ends here)"
                                        "\nfrom <hostGroups>\nfrom <ipsec>"},
    {"<ipsec>\n<hostGroups>\n<nexthostGroup> 1\n", "line 3: parse_data: unmatched tag 'nexthostGroup' (the document ends "
                                        "here)\nfrom <nexthostGroup>\nfrom <hostGroups>\nfrom <ipsec>"},
    {"<?xml version=\"1.0\"?>\n<ipsec>",  DECLARATION},
    {"<!-- mine -->\n<ipsec>",          DECLARATION},
    {"<!DOCTYPE ipsec>\n<ipsec>",       DECLARATION},
    {"<ipsec>\n<!-- mine -->",          "line 2: parse_tag: unnamed tag (this format has no XML declaration, comments, "
                                        "DOCTYPE or CDATA)\nfrom <ipsec>"},
    {document(entry("hostGroup", 1, "<hostGroup><name>a<!-- b -->")),
     "line 1: parse_end_tag: expected '/', got (not shown) (this format has no XML declaration, comments, DOCTYPE or "
     "CDATA)\nfrom <name>\nfrom <hostGroup>\nfrom <hostGroupEntry>\nfrom <hostGroups>\nfrom <ipsec>"},
    {"\xef\xbb\xbf" + document(),       MARK},
    {"\xff\xfe<",                       MARK},
    {"\xfe\xff<",                       MARK},
    {"\xff",                            "line 1: parse_tag: expected '<', found (not shown)"},
    {std::string("<ipsec>\n\0", 9),
     "line 2: the document does not load; why cannot be told, because it holds a NUL character"},
};

const Refused WITH_KEYS[] = {
    inPhase1("<presharedKey value='a'>S3cret</presharedKey>",
             "line 1: parse_end_tag: expected '<', got (not shown)\nfrom <presharedKey>"),
    inPhase1("<presharedKey>a<S3cret</presharedKey>",
             "line 1: parse_end_tag: expected '/', got (not shown)\nfrom <presharedKey>"),
    inPhase1("<presharedKey S3cret/>",  ATTRIBUTE + std::string("\nfrom <presharedKey>")),
    inPhase1("<presharedKeyS3cret</presharedKey>",
             "line 1: parse_tagged_value: wrong tag; expected <presharedKey>, found an unknown element"
             "\nfrom an unknown element"),
    inPhase1("<presharedKey/>S3cret",   "line 1: parse_tag: expected '<', found (not shown)"),
    inPhase1("S3cret</presharedKey>",   "line 1: parse_tag: expected '<', found (not shown)"),
    inAction("<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>S3cret</authType>",
             "line 1: invalid value (not shown) for <auth> in <ikePhase1>"),
    inManualKey("<inboundDecrKey>a<S3cret</inboundDecrKey>",
                "line 1: parse_end_tag: expected '/', got (not shown)",  "inboundDecrKey"),
    inManualKey("<inboundDecrKey/><outboundEncrKey S3cret/>", ATTRIBUTE, "outboundEncrKey"),
    inManualKey("<inboundDecrKey/><outboundEncrKey/><outboundEncrIV S3cret/>", ATTRIBUTE, "outboundEncrIV"),
    inManualKey("<inboundDecrKey/><outboundEncrKey/><outboundEncrIV/><inboundAuthKey S3cret/>",
                ATTRIBUTE,                                               "inboundAuthKey"),
    inManualKey("<inboundDecrKey/><outboundEncrKey/><outboundEncrIV/><inboundAuthKey/><outboundAuthKey S3cret/>",
                ATTRIBUTE,                                               "outboundAuthKey"),
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
                  refused("standard input: line 1: parse_simple_tag: wrong tag; expected <ipsec>, found <" + tag +
                          ">\nfrom <" + tag + ">"));
}

} // namespace
