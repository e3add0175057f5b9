// What is said to do about documents that do not load.

#include "document.h"
#include "program.h"

#include <ostream>
#include <string>

namespace {

struct Advised {
    std::string document;
    std::string message;
    std::string advice;
};

std::ostream& operator<<(std::ostream& out, const Advised& advised)
{
    return out << advised.message;
}

class LoadAdvice : public testing::TestWithParam<Advised> {};

TEST_P(LoadAdvice, SaysWhatToDo)
{
    try {
        parseDocument(GetParam().document);
        ADD_FAILURE() << "the document loads";
    } catch (const LoadError& error) {
        EXPECT_EQ(error.fault.message, GetParam().message);
        EXPECT_EQ(error.fault.advice, GetParam().advice);
    }
}

std::string inAction(const std::string& mode)
{
    return document("", "", entry("action", 1, action("a", "", mode)));
}

std::string inProposal(const std::string& elements)
{
    return inAction("<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>RSA</authType>"
                    "<localCert>c</localCert><peerTrust>t</peerTrust><proposal>" +
                    elements);
}

/// Of ESP, AH or both, with the numbers of algorithms.
std::string inManualKey(const std::string& protocol, const std::string& encryption, const std::string& hash,
                        const std::string& elements)
{
    return inAction("<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>" + protocol +
                    "</protocol><encryption>" + encryption + "</encryption><hash>" + hash + "</hash></saProposal>" +
                    elements);
}

std::string inHosts(const std::string& elements)
{
    return document(
        entry("hostGroup", 1, group("hostGroup", "n", "", "<hostSelector>" + elements + "</hostSelector>")));
}

std::string inProtocols(const std::string& elements)
{
    return document("",
                    entry("protocolGroup", 1,
                          group("protocolGroup", "n", "", "<protocolSelector>" + elements + "</protocolSelector>")));
}

const char NO_END_TAG[] = "parse_end_tag: expected '/', got (not shown)";
const char TO_INT[]     = "bad value: to_int";

// clang-format off
const Advised WORDS[] = {
    {inAction("<spdAction>ENCRYPT</spdAction>"), "bad value (not shown) for <spdAction> in <action>",
     "Write one of these in <spdAction>: NONE, BYPASS, DISCARD, TRANSPORT, TUNNEL."},
    {inAction("<spdAction/>"), "bad value (not shown) for <spdAction> in <action>",
     "Write one of these in <spdAction>: NONE, BYPASS, DISCARD, TRANSPORT, TUNNEL."},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr value='IKEv2'/>"),
     "bad value (not shown) for <keyMgr> in <action>", "Write one of these in <keyMgr>: NONE, MKM, IKE."},
    {inProposal("<dhGroup>G5</dhGroup>"), "invalid value (not shown) for <dhGroup> in <ikePhase1Proposal>",
     "Write one of these in <dhGroup>: NONE, G1, G2, G14."},
    {inProposal("<dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime><keyLifetimeUnits>DAYS</keyLifetimeUnits>"),
     "invalid value (not shown) for <keyLifetimeUnits> in <ikePhase1Proposal>",
     "Write one of these in <keyLifetimeUnits>: SECS, KB, MINS, HRS."},
    {inProposal("<dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime><keyLifetimeUnits>HRS</keyLifetimeUnits>"
                "<transform>AES</transform>"),
     "invalid value (not shown) for <transform> in <ikePhase1Proposal>",
     "Write one of these in <transform>: IKE_NONE, IKE_AES_SHA, IKE_AES_MD5, IKE_3DES_SHA, IKE_3DES_MD5, IKE_DES_SHA, "
     "IKE_DES_MD5."},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>50</protocol>"),
     "invalid value (not shown) for <protocol> in <saProposal>",
     "Write one of these in <protocol>: NONE, AH, ESP, ESP+AH."},
    {inHosts("<family>4</family>"), TO_INT, "Write one of these in <family>: AF_INET, AF_INET6, AF_ANY."},
    {inHosts("<family>AF_INET</family><selectorType>HOST</selectorType>"), TO_INT,
     "Write one of these in <selectorType>: NONE, SINGLE, RANGE, SUBNET_LENGTH, SUBNET_MASK, LOCAL, ANY, MCAST."},
    {inProtocols("<protocol>6</protocol><direction>BOTH</direction>"), TO_INT,
     "Write one of these in <direction>: IN, OUT, INOUT."},
};

const Advised ELEMENTS_OF_ANOTHER_CASE[] = {
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>NONE</keyMgr><ikePhase1>"), NO_END_TAG,
     "An <action> with keyMgr NONE has no <ikePhase1>: remove it, or set keyMgr to IKE."},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>NONE</keyMgr><manualKey>"), NO_END_TAG,
     "An <action> with keyMgr NONE has no <manualKey>: remove it, or set keyMgr to MKM."},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><ikePhase1>"),
     "parse_simple_tag: wrong tag; expected <manualKey>, found <ikePhase1>",
     "An <action> with keyMgr MKM has no <ikePhase1>: remove it, or set keyMgr to IKE."},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase2>"),
     "parse_simple_tag: wrong tag; expected <ikePhase1>, found <ikePhase2>",
     "Write <ikePhase1> before this tag, or instead: the order is fixed."},
    {inAction("<spdAction>BYPASS</spdAction><ikePhase1>"), NO_END_TAG,
     "An <action> with spdAction BYPASS has no <ikePhase1>: remove it, or set spdAction to TRANSPORT or TUNNEL."},
    {inAction("<spdAction>TRANSPORT</spdAction><tunnelEndpoint>"),
     "parse_tagged_value: wrong tag; expected <keyMgr>, found <tunnelEndpoint>",
     "An <action> with spdAction TRANSPORT has no <tunnelEndpoint>: remove it, or set spdAction to TUNNEL."},
    {inAction("<spdAction>TUNNEL</spdAction><keyMgr>"),
     "parse_tagged_value: wrong tag; expected <tunnelEndpoint>, found <keyMgr>",
     "Write <tunnelEndpoint> before this tag, or instead: the order is fixed."},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>NONE</keyMgr><keyMgr>"), NO_END_TAG,
     "There is a <keyMgr> before this one: remove one of them."},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>NONE</keyMgr><mask>"), NO_END_TAG,
     "Only </action> can stand here: remove this element."},
    {inHosts("<family>AF_INET</family><selectorType>SINGLE</selectorType><addr1>a</addr1><addr2>b</addr2>"), NO_END_TAG,
     "A <hostSelector> with selectorType SINGLE has no <addr2>: remove it, or set selectorType to RANGE."},
    {inHosts("<family>AF_INET</family><selectorType>ANY</selectorType><addr1>a</addr1>"), NO_END_TAG,
     "A <hostSelector> with selectorType ANY has no <addr1>: remove it, or set selectorType to SINGLE, RANGE, "
     "SUBNET_LENGTH or SUBNET_MASK."},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>RSA</authType><presharedKey>"),
     "parse_tagged_value: wrong tag; expected <localCert>, found <presharedKey>",
     "An <ikePhase1> with authType RSA has no <presharedKey>: remove it, or set authType to PSK."},
};

const char SPIS_OF_ESP[] = "<inboundESPSPI>256</inboundESPSPI><outboundESPSPI>256</outboundESPSPI>";
const char SPIS_OF_AH[]  = "<inboundAHSPI>256</inboundAHSPI><outboundAHSPI>256</outboundAHSPI>";

const Advised ELEMENTS_OF_OTHER_MANUAL_KEYS[] = {
    {inManualKey("ESP", "12", "2", std::string(SPIS_OF_ESP) + SPIS_OF_AH),
     "parse_tagged_value: wrong tag; expected <inboundDecrKey>, found <inboundAHSPI>",
     "A <manualKey> with protocol ESP has no <inboundAHSPI>: remove it, or set protocol to AH or ESP+AH."},
    {inManualKey("ESP", "0", "0", std::string(SPIS_OF_ESP) + "<outboundAHSPI>"), NO_END_TAG,
     "A <manualKey> with protocol ESP has no <outboundAHSPI>: remove it, or set protocol to AH or ESP+AH."},
    {inManualKey("AH", "0", "2", SPIS_OF_ESP),
     "parse_tagged_value: wrong tag; expected <inboundAHSPI>, found <inboundESPSPI>",
     "A <manualKey> with protocol AH has no <inboundESPSPI>: remove it, or set protocol to ESP or ESP+AH."},
    {inManualKey("NONE", "1", "1", "<outboundESPSPI>"), NO_END_TAG,
     "A <manualKey> with protocol NONE has no <outboundESPSPI>: remove it, or set protocol to ESP or ESP+AH."},
    {inManualKey("ESP", "1", "2", std::string(SPIS_OF_ESP) + "<inboundDecrKey>k</inboundDecrKey>"),
     "parse_tagged_value: wrong tag; expected <inboundAuthKey>, found <inboundDecrKey>",
     "A <manualKey> with encryption 1 has no <inboundDecrKey>: remove it, or set encryption to 2 or more."},
    {inManualKey("NONE", "S3cret", "0", "<outboundEncrKey>"), NO_END_TAG,
     "A <manualKey> with encryption 0 has no <outboundEncrKey>: remove it, or set encryption to 2 or more."},
    {inManualKey("NONE", "0x1", "0", "<outboundEncrIV>"), NO_END_TAG,
     "A <manualKey> with encryption 1 has no <outboundEncrIV>: remove it, or set encryption to 2 or more."},
    {inManualKey("AH", "0", "0", std::string(SPIS_OF_AH) + "<inboundAuthKey>"), NO_END_TAG,
     "A <manualKey> with hash 0 has no <inboundAuthKey>: remove it, or set hash to 2 or more."},
    {inManualKey("AH", "0", "1", std::string(SPIS_OF_AH) + "<outboundAuthKey>"), NO_END_TAG,
     "A <manualKey> with hash 1 has no <outboundAuthKey>: remove it, or set hash to 2 or more."},
    // These are in the wrong order, or have lost their SPIs.
    {inManualKey("ESP", "12", "2", "<inboundDecrKey>"),
     "parse_tagged_value: wrong tag; expected <inboundESPSPI>, found <inboundDecrKey>",
     "Write <inboundESPSPI> before this tag, or instead: the order is fixed."},
    {inManualKey("ESP+AH", "12", "2", SPIS_OF_AH),
     "parse_tagged_value: wrong tag; expected <inboundESPSPI>, found <inboundAHSPI>",
     "Write <inboundESPSPI> before this tag, or instead: the order is fixed."},
};

const Advised DOUBLED_ELEMENTS[] = {
    {document("", "", entry("action", 1, action("a", "</descr><descr>", "<spdAction>NONE</spdAction>"))),
     "parse_tagged_value: wrong tag; expected <builtinDescr>, found <descr>",
     "There is a <descr> before this one: remove one of them."},
    {document(entry("hostGroup", 1, group("hostGroup", "</name><name>", "", ""))),
     "parse_tagged_value: wrong tag; expected <builtinName>, found <name>",
     "There is a <name> before this one: remove one of them."},
    {"<ipsec><hostGroups/><protocolGroups/><actions></actions> <actions>",
     "parse_simple_tag: wrong tag; expected <policies>, found <actions>",
     "There is a <actions> before this one: remove one of them."},
    {"<ipsec><hostGroups/><protocolGroups/><actions/><policies></policies><actions>", NO_END_TAG,
     "There is a <actions> before this one: remove one of them."},
    {inAction("<spdAction>TRANSPORT</spdAction><keyMgr>NONE</keyMgr><spdAction>"), NO_END_TAG,
     "There is a <spdAction> before this one: remove one of them."},
    {document("", "", "", entry("policy", 1, policy(1, 1, 1) + policy(1, 1, 1))), NO_END_TAG,
     "There is a <policy> before this one: remove one of them."},
    // Of these there can be many, and they have nothing to do with each other.
    {document(entry("hostGroup", 1, group("hostGroup", "n", "", "<hostSelector><family>AF_ANY</family><selectorType>ANY"
                                          "</selectorType></hostSelector><protocolSelector>"))),
     "parse_simple_tag: wrong tag; expected <hostSelector>, found <protocolSelector>",
     "Write <hostSelector> before this tag, or instead: the order is fixed."},
};

const Advised ELEMENTS_IN_ANOTHER_ORDER[] = {
    {inAction("<spdAction>TUNNEL</spdAction><keyMgr>NONE</keyMgr><tunnelEndpoint>e</tunnelEndpoint>"),
     "parse_tagged_value: wrong tag; expected <tunnelEndpoint>, found <keyMgr>",
     "Move <tunnelEndpoint> before this element: the order is fixed."},
    {document("", "", "", entry("policy", 1, "<policy><protocolGroupID value='1'/>\n<hostGroupID>1</hostGroupID>"
                                             "<actionID>1</actionID></policy>")),
     "parse_tagged_value: wrong tag; expected <hostGroupID>, found <protocolGroupID>",
     "Move <hostGroupID> before this element: the order is fixed."},
    {document("", "", "", "<policyEntry>" + policy(1, 1, 1) + "<id>1</id></policyEntry>"),
     "parse_tagged_value: wrong tag; expected <id>, found <policy>",
     "Move <id> before this element: the order is fixed."},
    {"<ipsec><hostGroups/><policies/><actions/><protocolGroups/></ipsec>",
     "parse_simple_tag: wrong tag; expected <protocolGroups>, found <policies>",
     "Move <protocolGroups> before this element: the order is fixed."},
    {"<ipsec><hostGroups/><comment>c</comment><protocolGroups/></ipsec>",
     "parse_simple_tag: wrong tag; expected <protocolGroups>, found an unknown element", "Remove this element."},
    // One of another parent is another one.
    {document("", "", "", entry("policy", 1, "<policy><protocolGroupID>1</protocolGroupID></policy>") +
                              entry("policy", 2, policy(1, 1, 1))),
     "parse_tagged_value: wrong tag; expected <hostGroupID>, found <protocolGroupID>",
     "Write <hostGroupID> before this tag, or instead: the order is fixed."},
    {"<ipsec><policies><hostGroups/></policies>",
     "parse_simple_tag: wrong tag; expected <hostGroups>, found <policies>",
     "Write <hostGroups> before this tag, or instead: the order is fixed."},
    {"<ipsec><policies><", "parse_simple_tag: wrong tag; expected <hostGroups>, found <policies>",
     "Write <hostGroups> before this tag, or instead: the order is fixed."},
};

const Advised ENTRIES[] = {
    {document("", "", "", entry("policy", 1, policy(1, 1, 1)) + "\n" + entry("policy", 2, policy(1, 1, 1)) + "\n" +
                              entry("policy", 3, policy(1, 1, 1)) + "\n" + entry("policy", 2, policy(1, 1, 1))),
     "duplicate ID", "The first entry with it has it at 2:14. Write an ID that no other has."},
    {document("", "",
              "<nextaction>9</nextaction>\n" + entry("action", 7, action("a", "", "<spdAction>NONE</spdAction>")) +
                  "<actionEntry><id value=' 07'/>" + action("b", "", "<spdAction>NONE</spdAction>") + "</actionEntry>"),
     "duplicate ID", "The first entry with it has it at 2:14. Write an ID that no other has."},
    {document("<hostGroupEntry><id>0</id>"), "invalid ID for hostGroup", "Write a whole number from 1 to 2147483647."},
    {document("<nexthostGroup>-1</nexthostGroup>"), "invalid value for nexthostGroup",
     "Write a whole number from 1 to 2147483647, or 2147483648 where no ID is left."},
    {document("<nexthostGroup></nexthostGroup>"), "nexthostGroup missing required data",
     "It cannot be empty: write what belongs in it."},
    {document("", "", "", "<actionEntry>"), "unknown tag: actionEntry",
     "Only <policyEntry> and <nextpolicy> can stand in <policies>."},
};

const Advised TAGS[] = {
    {"<ipsec>\n< hostGroups>", "parse_tag: unnamed tag", "Write the name of the element right behind '<'."},
    {"<ipsec><hostGroups x>", "parse_tag_end: invalid attribute or missing '>'",
     "End the tag with '>'. The only attribute is value, of elements that hold a text."},
    {document("<hostGroupEntry><id value=1/>\n"), "parse_value: unterminated attribute value",
     "Put the attribute's value in quotes."},
    {document("<hostGroupEntry><id number='1'/>\n"),
     "parse_tagged_value: invalid attribute; found (not shown)",
     "The only attribute is value. Write that, or the text between a start tag and an end tag."},
    {"<ipsec><hostGroups></>\n", "parse_end_tag: missing tag name", "Write </hostGroups> here, without white space."},
    {"<ipsec><hostGroups></hostGroups >\n", "parse_end_tag: malformed end tag",
     "Write </hostGroups> here, without white space."},
    {"<ipsec><hostGroups></ipsec>\n", "parse_end_tag: begin/end tags don't match",
     "Write </hostGroups> before this tag."},
    {"<ipsec><hostGroups></hostGroup>\n", "parse_end_tag: begin/end tags don't match",
     "Write </hostGroups> instead of this tag."},
    {"<policy>\n", "parse_simple_tag: wrong tag; expected <ipsec>, found <policy>", "A document begins with <ipsec>."},
};

const Advised SELECTORS[] = {
    {inHosts("<family>AF_ANY</family><selectorType>SUBNET_LENGTH</selectorType><addr1>a</addr1><length>8</length>"),
     "bad value in <hostSelector>", "A <length> needs the <family> AF_INET or AF_INET6."},
    {inHosts("<family>AF_INET</family><selectorType>SUBNET_MASK</selectorType><addr1>a</addr1><mask>8</mask>"),
     "bad value in <hostSelector>",
     "Write a mask such as 255.255.255.0 with <family> AF_INET, or ffff:: with AF_INET6."},
    {inProtocols("<protocol/>"), "invalid attributes or closing tag in <protocol>",
     "Write a start tag without attributes, the text, and an end tag."},
    {inProtocols("<protocol></protocol>"), "missing data for <protocol>",
     "Write the number of the protocol in it, or 0 for any."},
    {inProtocols("<protocol>6</protocol><name>\n </name>"), "missing data for <name>",
     "Write a name in it: of a selector without one, what is stored does not load again."},
    {inProtocols("<dstPort></dstPort>"), "missing data for <dstPort>",
     "Write the number of the port in it, or remove the element: 0 and no element are any port."},
    {inProtocols("<srcPort></srcPort>"), "missing data for <srcPort>",
     "Write the number of the port in it, or remove the element: 0 and no element are any port."},
    {inProtocols("<direction></direction>"), "missing data for <direction>",
     "Write one of these in <direction>: IN, OUT, INOUT."},
    {inProtocols("<mirrored> </mirrored>"), "missing data for <mirrored>", "Write MIRRORED or NOTMIRRORED."},
    {inProtocols("<port></port>"), "missing data for an unknown element",
     "A <protocolSelector> has <protocol>, <name>, <dstPort>, <srcPort>, <direction> and <mirrored>."},
    {inProtocols("<port>1</port>"), "unknown attribute: (not shown)",
     "A <protocolSelector> has <protocol>, <name>, <dstPort>, <srcPort>, <direction> and <mirrored>."},
    {inProtocols("<protocol>1</protocol><protocol>2</protocol>"), "attribute 'protocol' can only appear once",
     "Remove one of the two."},
    {inProtocols("<mirrored>YES</mirrored>"), "required attribute 'mirrored' must be MIRRORED or NOTMIRRORED",
     "Write MIRRORED or NOTMIRRORED."},
    {inProtocols("<protocol>1</protocol>"), "attribute 'direction' is required", "Write <direction> before this tag."},
    {inProtocols("<protocol>0</protocol><dstPort>80</dstPort>"),
     "nonzero 'srcPort'/'dstProt' requires nonzero 'protocol'",
     "Write the number of the <protocol> that has these ports, or remove them."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Words, LoadAdvice, testing::ValuesIn(WORDS));
INSTANTIATE_TEST_SUITE_P(ElementsOfAnotherCase, LoadAdvice, testing::ValuesIn(ELEMENTS_OF_ANOTHER_CASE));
INSTANTIATE_TEST_SUITE_P(ManualKeys, LoadAdvice, testing::ValuesIn(ELEMENTS_OF_OTHER_MANUAL_KEYS));
INSTANTIATE_TEST_SUITE_P(DoubledElements, LoadAdvice, testing::ValuesIn(DOUBLED_ELEMENTS));
INSTANTIATE_TEST_SUITE_P(Order, LoadAdvice, testing::ValuesIn(ELEMENTS_IN_ANOTHER_ORDER));
INSTANTIATE_TEST_SUITE_P(Entries, LoadAdvice, testing::ValuesIn(ENTRIES));
INSTANTIATE_TEST_SUITE_P(Tags, LoadAdvice, testing::ValuesIn(TAGS));
INSTANTIATE_TEST_SUITE_P(Selectors, LoadAdvice, testing::ValuesIn(SELECTORS));

} // namespace
