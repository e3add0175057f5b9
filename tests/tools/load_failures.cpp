#include "program.h"

#include <ostream>
#include <string>

namespace {

class LoadFailures : public InFolder {};

TEST_F(LoadFailures, AreReportedWithTheFileAndTheOpenElements)
{
    writeFile("policy.xml", "<ipsec><hostGroups><hostGroupEntry></hostGroupEntry></hostGroups></ipsec>");
    EXPECT_EQ(run({"show", "policy.xml"}), refused("policy.xml: parse_tagged_value: missing tag; expected <id>\n"
                                                   "from <hostGroupEntry>\nfrom <hostGroups>\nfrom <ipsec>"));
}

TEST_F(LoadFailures, EscapeTheFileName)
{
    writeFile("a\x1b[2J\n.xml", "");
    EXPECT_EQ(run({"format", "a\x1b[2J\n.xml"}), refused("a\\x1b[2J\\n.xml: parse_tag: expected '<', found '\\xff'"));
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
const char        ATTRIBUTE[] = "parse_tagged_value: invalid attribute";

Refused inAction(const std::string& mode, const std::string& message)
{
    return {document("", "", entry("action", 1, action("a", "", mode))), message};
}

/// Refused in the element `tag`, which holds a key: nothing of it is quoted.
Refused inPhase1(const std::string& elements, const std::string& message, const std::string& tag)
{
    return inAction(BEFORE_PSK + elements,
                    message + " (what stands there is not shown)\nfrom <" + tag + ">\nfrom <ikePhase1>" + IN_ACTION);
}

Refused inManualKey(const std::string& elements, const std::string& message, const std::string& tag)
{
    return inAction(BEFORE_KEYS + elements,
                    message + " (what stands there is not shown)\nfrom <" + tag + ">\nfrom <manualKey>" + IN_ACTION);
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
    {"",                                         "parse_tag: expected '<', found '\\xff'"},
    {"<?xml version=\"1.0\"?><ipsec>",           "parse_tag: unnamed tag"},
    {"\x1b",                                     "parse_tag: expected '<', found '\\x1b'"},
    {"<ipsec>\n",                                "parse_tag: expected '<', found '\\xff'\nfrom <ipsec>"},
    {document("<hostGroupEntry/>"),              "hostGroup missing required data"},
    inAction("<spdAction>\x1b[1m\n</spdAction>", "bad value '\\x1b[1m' for <spdAction> in <action>"),

    // What follows the document would get lost.
    {document() + document(),                    "there is more than one document: something follows </ipsec>"},
    {document() + "x",                           "there is more than one document: something follows </ipsec>"},
};

const Refused WITH_KEYS[] = {
    inPhase1("<presharedKey value='a'>S3cret</presharedKey>", "parse_end_tag: expected '<'", "presharedKey"),
    inPhase1("<presharedKey>a<S3cret</presharedKey>",         "parse_end_tag: expected '/'", "presharedKey"),
    inPhase1("<presharedKey S3cret/>",                        ATTRIBUTE,                     "presharedKey"),
    inManualKey("<inboundDecrKey>a<S3cret</inboundDecrKey>",  "parse_end_tag: expected '/'", "inboundDecrKey"),
    inManualKey("<inboundDecrKey/><outboundEncrKey S3cret/>", ATTRIBUTE,                     "outboundEncrKey"),
    inManualKey("<inboundDecrKey/><outboundEncrKey/><outboundEncrIV S3cret/>", ATTRIBUTE,    "outboundEncrIV"),
    inManualKey("<inboundDecrKey/><outboundEncrKey/><outboundEncrIV/><inboundAuthKey S3cret/>",
                ATTRIBUTE,                                                                   "inboundAuthKey"),
    inManualKey("<inboundDecrKey/><outboundEncrKey/><outboundEncrIV/><inboundAuthKey/><outboundAuthKey S3cret/>",
                ATTRIBUTE,                                                                   "outboundAuthKey"),
    // A wrong tag is named, for it is not a key.
    inAction(std::string(BEFORE_PSK) + "<preSharedKey>S3cret</preSharedKey>",
             "parse_tagged_value: wrong tag; expected <presharedKey>, found <preSharedKey>\nfrom <preSharedKey>"
             "\nfrom <ikePhase1>" + IN_ACTION),
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(LoadFailures, RefusedDocument, testing::ValuesIn(DOCUMENTS));
INSTANTIATE_TEST_SUITE_P(LoadFailuresNearKeys, RefusedDocument, testing::ValuesIn(WITH_KEYS));

} // namespace
