#include "understood_findings.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// An unsigned number of 32 bits in any base, and what is found.
struct NumberCase {
    const char* text;
    const char* finding; ///< without its place; empty for none
};

class UnsignedNumber : public testing::TestWithParam<NumberCase> {};

TEST_P(UnsignedNumber, IsToldIfItIsMisread)
{
    const NumberCase& c     = GetParam();
    const std::string text  = c.text;
    const std::string place = text.empty() ? hostGroupID("") : text;
    if (*c.finding == '\0') {
        EXPECT_THAT(misreadingsIn(withPolicy(hostGroupID(text))), IsEmpty());
        return;
    }
    const std::string finding = c.finding;
    const std::size_t colon   = finding.find(": ");
    EXPECT_THAT(
        misreadingsIn(withPolicy(hostGroupID(text))),
        ElementsAre(finding.substr(0, colon) + " policies/1/hostGroupID [" + place + ']' + finding.substr(colon)));
}

// clang-format off
const NumberCase UNSIGNED_NUMBERS[] = {
    {"0",          ""},
    {"5",          ""},
    {"4294967295", ""},

    {"",           "no-number: An empty text was read as 0, because it does not begin with a number. Write a number."},
    {"web",        "no-number: A text of 3 bytes was read as 0, because it does not begin with a number. "
                   "Write a number."},
    {"x",          "no-number: A text of 1 byte was read as 0, because it does not begin with a number. "
                   "Write a number."},
    {"5s",         "number-cut-short: A text of 2 bytes was read as 5, and what follows the number was ignored. "
                   "Write the number alone."},
    {"08",         "number-cut-short: '08' was read as 0, because a leading 0 makes it octal, and 8 and 9 are no octal "
                   "digits. Write it without the leading 0."},
    {"-1",         "negative-number: '-1' was read as 4294967295, because negative numbers wrap around here. "
                   "Write the number that is meant."},
    {"4294967296", "number-too-large: '4294967296' was read as 4294967295, the greatest number there is room for. "
                   "Write a number within 32 bits."},
    {"010",        "octal-number: '010' was read as 8, because a leading 0 makes it octal. "
                   "Write it without the leading 0."},
    {"0x10",       "hexadecimal-number: '0x10' was read as 16, and will be stored so."},
    {"+5",         "number-spelling: '+5' was read as 5, and will be stored so."},
    {"07",         "number-spelling: '07' was read as 7, and will be stored so."},
    {"-0",         "number-spelling: '-0' was read as 0, and will be stored so."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Understood, UnsignedNumber, testing::ValuesIn(UNSIGNED_NUMBERS));

std::string withLength(const std::string& text)
{
    return document(entry("hostGroup", 1,
                          group("hostGroup", "g", "",
                                "<hostSelector><family>AF_INET</family><selectorType>SUBNET_LENGTH</selectorType>"
                                "<addr1>10.0.0.0</addr1><length>" +
                                    text + "</length></hostSelector>")));
}

TEST(Understood, ASignedNumberMayBeNegativeButNotTooSmall)
{
    EXPECT_THAT(misreadingsIn(withLength("-5")), IsEmpty());
    EXPECT_THAT(misreadingsIn(withLength("-2147483648")), IsEmpty());
    EXPECT_THAT(misreadingsIn(withLength("-2147483649")),
                ElementsAre("number-too-large hostGroups/1/selectors/1/length [-2147483649]: '-2147483649' was read as "
                            "-2147483648, the smallest number there is room for. Write a number within 32 bits."));
}

TEST(Understood, ASignedNumberMayNotBeTooGreat)
{
    EXPECT_THAT(misreadingsIn(withLength("2147483647")), IsEmpty());
    EXPECT_THAT(misreadingsIn(withLength("2147483648")),
                ElementsAre("number-too-large hostGroups/1/selectors/1/length [2147483648]: '2147483648' was read as "
                            "2147483647, the greatest number there is room for. Write a number within 32 bits."));
}

std::string withDstPort(const std::string& text)
{
    return withProtocolSelectors(protocolSelector("6", "<dstPort>" + text + "</dstPort><srcPort>7</srcPort>"));
}

TEST(Understood, APortHas16Bits)
{
    EXPECT_THAT(misreadingsIn(withDstPort("65535")), IsEmpty());
    EXPECT_THAT(misreadingsIn(withDstPort("65536")),
                ElementsAre("number-truncated protocolGroups/1/selectors/1/dstPort [65536]: '65536' was read as 0, "
                            "because only the low 16 bits are kept. Write a number from 0 to 65535."));
    EXPECT_THAT(misreadingsIn(withDstPort("-1")),
                ElementsAre("negative-number protocolGroups/1/selectors/1/dstPort [-1]: '-1' was read as 65535, "
                            "because negative numbers wrap around here. Write the number that is meant."));
}

TEST(Understood, APortIsDecimal)
{
    EXPECT_THAT(misreadingsIn(withDstPort("0x50")),
                ElementsAre("number-cut-short protocolGroups/1/selectors/1/dstPort [0x50]: '0x50' was read as 0, "
                            "because only decimal numbers are read here. Write it in decimal digits."));
    EXPECT_THAT(misreadingsIn(withDstPort("010")),
                ElementsAre("number-spelling protocolGroups/1/selectors/1/dstPort [010]: '010' was read as 10, and "
                            "will be stored so."));
}

TEST(Understood, PortsThatAreNotStoredAreLookedAtToo)
{
    EXPECT_THAT(misreadingsIn(withProtocolSelectors(protocolSelector("6", "<dstPort>0</dstPort><srcPort>0</srcPort>"))),
                IsEmpty());
    EXPECT_THAT(misreadingsIn(withProtocolSelectors(protocolSelector("6", ""))), IsEmpty());
    EXPECT_THAT(misreadingsIn(withProtocolSelectors(protocolSelector("6", "<srcPort>http</srcPort>"))),
                ElementsAre("no-number protocolGroups/1/selectors/1/srcPort [http]: A text of 4 bytes was read as 0, "
                            "because it does not begin with a number. Write a number."));
    EXPECT_THAT(misreadingsIn(withProtocolSelectors(protocolSelector("any", ""))),
                ElementsAre("no-number protocolGroups/1/selectors/1/protocol [any]: A text of 3 bytes was read as 0, "
                            "because it does not begin with a number. Write a number."));
}

TEST(Understood, AnEntrysIDIsLookedAt)
{
    EXPECT_THAT(misreadingsIn(document("", "", "", "<policyEntry><id>7th</id>" + policy(1, 1, 1) + "</policyEntry>")),
                ElementsAre("number-cut-short policies/7/id [7th]: A text of 3 bytes was read as 7, and what follows "
                            "the number was ignored. Write the number alone."));
    EXPECT_THAT(
        misreadingsIn(document("", "", "", "<policyEntry><id>4294967296</id>" + policy(1, 1, 1) + "</policyEntry>")),
        ElementsAre("number-too-large policies/2147483647/id [4294967296]: '4294967296' was read as 2147483647, the "
                    "greatest number there is room for. Write a number within 32 bits."));
    EXPECT_THAT(
        misreadingsIn(document("", "", "", "<policyEntry><id>2147483647</id>" + policy(1, 1, 1) + "</policyEntry>")),
        IsEmpty());
}

TEST(Understood, EveryNumberOfAnActionIsLookedAt)
{
    const std::string text = document(
        "", "",
        "<actionEntry><id>1</id><action><changeCount>+1</changeCount><name>3</name><builtinName>+2</builtinName>"
        "<descr>4</descr><builtinDescr>+3</builtinDescr><type>+4</type><state>+5</state><spdAction>TRANSPORT"
        "</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK</authType><presharedKey>+6</presharedKey><proposal>"
        "<dhGroup>G14</dhGroup><keyLifetime>+7</keyLifetime><keyLifetimeUnits>SECS</keyLifetimeUnits></proposal>"
        "</ikePhase1><ikePhase2><dhGroup>G14</dhGroup><keyLifetime>+8</keyLifetime><keyLifetimeUnits>SECS"
        "</keyLifetimeUnits><saProposal><protocol>ESP</protocol><encryption>9</encryption><hash>9</hash></saProposal>"
        "<saProposal><protocol>ESP</protocol><encryption>+9</encryption><hash>+10</hash></saProposal></ikePhase2>"
        "</action></actionEntry>" +
            entry("action", 2,
                  action("m", "",
                         "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>ESP+AH"
                         "</protocol><encryption>1</encryption><hash>+1</hash></saProposal><inboundESPSPI>+256"
                         "</inboundESPSPI><outboundESPSPI>257</outboundESPSPI><inboundAHSPI>258</inboundAHSPI>"
                         "<outboundAHSPI>+259</outboundAHSPI></manualKey>")));
    std::vector<std::string> paths;
    for (const std::string& finding : misreadingsIn(text))
        paths.push_back(finding.substr(0, finding.find(" [")));
    EXPECT_THAT(paths, ElementsAre("number-spelling actions/1/changeCount", "number-spelling actions/1/builtinName",
                                   "number-spelling actions/1/builtinDescr", "number-spelling actions/1/type",
                                   "number-spelling actions/1/state",
                                   "number-spelling actions/1/ikePhase1/proposal/keyLifetime",
                                   "number-spelling actions/1/ikePhase2/keyLifetime",
                                   "number-spelling actions/1/ikePhase2/saProposal/2/encryption",
                                   "number-spelling actions/1/ikePhase2/saProposal/2/hash",
                                   "number-spelling actions/2/manualKey/saProposal/hash",
                                   "number-spelling actions/2/manualKey/inboundESPSPI",
                                   "number-spelling actions/2/manualKey/outboundAHSPI"));
}

TEST(Understood, TheNumbersOfAGroupAreLookedAt)
{
    const std::string text = document("<hostGroupEntry><id>+1</id><hostGroup><name>0x1</name><builtinName>x"
                                      "</builtinName><descr>0x1</descr><builtinDescr>0x1</builtinDescr><selectors/>"
                                      "</hostGroup></hostGroupEntry>");
    EXPECT_THAT(misreadingsIn(text),
                ElementsAre("number-spelling hostGroups/1/id [+1]: '+1' was read as 1, and will be stored so.",
                            "no-number hostGroups/1/builtinName [x]: A text of 1 byte was read as 0, because it does "
                            "not begin with a number. Write a number.",
                            "hexadecimal-number hostGroups/1/builtinDescr [0x1]: '0x1' was read as 1, and will be "
                            "stored so."));
}

TEST(Understood, OfNothingMoreThanANumberIsQuoted)
{
    for (const std::string text : {"Kq7Z", "7Kq7Z", "0Kq7Z", "-Kq7Z", "0x7Kq7Z", "077Kq7Z", "99999999999Kq7Z"}) {
        for (const std::string& finding : misreadingsIn(withPolicy(hostGroupID(text))))
            EXPECT_EQ(finding.find("Kq7Z", finding.find("]: ")), std::string::npos) << finding;
        EXPECT_THAT(misreadingsIn(withPolicy(hostGroupID(text))), testing::SizeIs(1));
    }
    EXPECT_THAT(misreadingsIn(withPolicy(hostGroupID("1234567890123456789"))),
                ElementsAre("number-too-large policies/1/hostGroupID [1234567890123456789]: A text of 19 bytes was "
                            "read as 4294967295, the greatest number there is room for. Write a number within 32 "
                            "bits."));
}

} // namespace
