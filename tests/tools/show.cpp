#include "program.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>

using testing::HasSubstr;
using testing::Not;

namespace {

std::string host(const std::string& family, const std::string& type, const std::string& rest)
{
    return "<hostSelector><family>" + family + "</family><selectorType>" + type + "</selectorType>" + rest +
           "</hostSelector>";
}

std::string traffic(const std::string& name, const std::string& protocol, const std::string& rest)
{
    return "<protocolSelector><protocol>" + protocol + "</protocol><name>" + name + "</name>" + rest +
           "</protocolSelector>";
}

/// What is shown of the document from the line that starts with `title` up to the next blank line but one.
std::string section(const std::string& title, const std::string& text)
{
    const Outcome     outcome = run({"show", "-"}, text);
    const std::size_t start   = outcome.out.find(title + ":");
    EXPECT_EQ(outcome.status, 0) << outcome;
    EXPECT_EQ(outcome.err, "");
    if (start == std::string::npos)
        return "(no such section)";
    const std::size_t table = outcome.out.find("\n\n", start);
    return outcome.out.substr(start, outcome.out.find("\n\n", table + 2) + 1 - start);
}

TEST(Show, AnEmptyConfigurationHasFourEmptySections)
{
    EXPECT_EQ(run({"show", "-"}, document()), printed("Host groups: none (next ID 1)\n\n"
                                                      "Protocol groups: none (next ID 1)\n\n"
                                                      "Actions: none (next ID 1)\n\n"
                                                      "Policies: none (next ID 1)\n"));
}

TEST(Show, EverySelectorTypeOfHostsReadsAsInEditCommands)
{
    const std::string selectors = host("AF_INET", "NONE", "") + host("AF_INET", "SINGLE", "<addr1>10.0.0.1</addr1>") +
                                  host("AF_INET", "RANGE", "<addr1>10.0.0.1</addr1><addr2>10.0.0.9</addr2>") +
                                  host("AF_INET6", "SUBNET_LENGTH", "<addr1>2001:db8::</addr1><length>48</length>") +
                                  host("AF_INET", "SUBNET_MASK", "<addr1>10.2.0.0</addr1><mask>255.255.0.0</mask>") +
                                  host("AF_ANY", "LOCAL", "") + host("AF_INET6", "ANY", "") +
                                  host("AF_INET", "MCAST", "");
    EXPECT_EQ(section("Host groups", document(entry("hostGroup", 7, group("hostGroup", "Many", "All", selectors)) +
                                              entry("hostGroup", 12, group("hostGroup", "", "", "")))),
              R"(Host groups: 2 (next ID 13)

ID  NAME       HOSTS                 DESCRIPTION
 7  Many       none4                 All
               10.0.0.1
               10.0.0.1-10.0.0.9
               10.2.0.0/255.255.0.0
               mcast4
               2001:db8::/48
               any6
               local
12  (no name)  (nothing)
)");
}

TEST(Show, ProtocolSelectorsTellDirectionPortsAndMirroring)
{
    const std::string selectors =
        traffic("Web", "6", "<dstPort>443</dstPort><direction>OUT</direction><mirrored>MIRRORED</mirrored>") +
        traffic("Protocol", "17",
                "<dstPort>67</dstPort><srcPort>68</srcPort><direction>INOUT</direction><mirrored>NOTMIRRORED"
                "</mirrored>") +
        traffic("Ping", "1", "<direction>IN</direction><mirrored>NOTMIRRORED</mirrored>") +
        traffic("Other", "253", "<srcPort>9</srcPort><direction>IN</direction><mirrored>NOTMIRRORED</mirrored>") +
        traffic("Protocol", "0", "<direction>IN</direction><mirrored>MIRRORED</mirrored>");
    EXPECT_EQ(section("Protocol groups",
                      document("", entry("protocolGroup", 1, group("protocolGroup", "Mixed", "d", selectors)))),
              R"(Protocol groups: 1 (next ID 2)

ID  NAME   TRAFFIC                         DESCRIPTION
 1  Mixed  udp/67 from 68 in/out           d
           253 from 9 in named Other
           tcp/443 out mirrored named Web
           icmp in named Ping
           any in mirrored
)");
}

TEST(Show, BuiltInEntriesAreMarked)
{
    const Outcome starter = run({"new"});
    EXPECT_THAT(section("Protocol groups", starter.out), testing::StartsWith(R"(Protocol groups: 2 (next ID 3)

ID  NAME             TRAFFIC                       DESCRIPTION
 1  All              any in mirrored               This group includes all
    [built-in]                                     protocols and packets.
 2  System Services  udp/500 from 500 in mirrored  This group matches all
    [built-in]       udp/67 from 68 out mirrored   protocols required for basic
                     tcp/53 out mirrored           network services such as DHCP
                     udp/53 out mirrored           and DNS.
)"));
    EXPECT_THAT(section("Actions", starter.out), testing::StartsWith(R"(Actions: 4 (next ID 5)

ID  NAME                     ACTION
 1  Discard                  DISCARD
    [built-in]               "block unencrypted traffic"
)"));
}

TEST(Show, PoliciesNameWhatTheyTieAndMarkWhatIsMissing)
{
    EXPECT_EQ(section("Policies", document(entry("hostGroup", 3, group("hostGroup", "Peers", "", "")),
                                           entry("protocolGroup", 4, group("protocolGroup", "Web", "", "")),
                                           entry("action", 5, action("Pass", "", "<spdAction>BYPASS</spdAction>")),
                                           entry("policy", 1, policy(3, 4, 5)) + entry("policy", 20, policy(4, 0, 6)) +
                                               entry("policy", 21, policy(4294967295U, 4, 5)))),
              R"(Policies: 3 (next ID 22)

ID  HOST GROUP             PROTOCOL GROUP  ACTION
 1  3 Peers                4 Web           5 Pass
20  4 !! missing           0 !! missing    6 !! missing
21  4294967295 !! missing  4 Web           5 Pass
)");
}

TEST(Show, AFullCollectionSaysSo)
{
    EXPECT_THAT(section("Policies", document("", "", "", entry("policy", 2147483647, policy(1, 1, 1)))),
                testing::StartsWith("Policies: 1 (no ID left)\n"));
}

TEST(Show, ActionsWithoutKeysAreOneLineAndTheirDescription)
{
    EXPECT_EQ(
        section("Actions",
                document("", "",
                         entry("action", 1, action("none", "", "<spdAction>NONE</spdAction>")) +
                             entry("action", 2, action("drop", "d", "<spdAction>DISCARD</spdAction>")) +
                             entry("action", 3,
                                   action("later", "",
                                          "<spdAction>TUNNEL</spdAction><tunnelEndpoint/><keyMgr>NONE</keyMgr>")))),
        R"(Actions: 3 (next ID 4)

ID  NAME   ACTION
 1  none   NONE
 2  drop   DISCARD
           "d"
 3  later  TUNNEL to (empty)
           no key manager
)");
}

TEST(Show, KeyExchangeTellsBothPhases)
{
    const std::string ike =
        "<keyMgr>IKE</keyMgr><ikePhase1><authType>RSA</authType><localCert>me.pem</localCert><peerTrust>ca.pem"
        "</peerTrust><proposal><dhGroup>G14</dhGroup><keyLifetime>8</keyLifetime><keyLifetimeUnits>HRS"
        "</keyLifetimeUnits><transform>IKE_AES_SHA</transform><transform>IKE_3DES_MD5</transform></proposal>"
        "</ikePhase1><ikePhase2><dhGroup>NONE</dhGroup><keyLifetime>3600</keyLifetime><keyLifetimeUnits>SECS"
        "</keyLifetimeUnits><saProposal><protocol>ESP+AH</protocol><encryption>12</encryption><hash>2</hash>"
        "</saProposal></ikePhase2>";
    EXPECT_EQ(section("Actions", document("", "",
                                          entry("action", 1,
                                                action("t", "To the branch",
                                                       "<spdAction>TUNNEL</spdAction><tunnelEndpoint>192.0.2.1"
                                                       "</tunnelEndpoint>" +
                                                           ike)))),
              R"(Actions: 1 (next ID 2)

ID  NAME  ACTION
 1  t     TUNNEL to 192.0.2.1
          "To the branch"
          phase 1: DH group G14, 8 HRS
            IKE_AES_SHA
            IKE_3DES_MD5
            certificate: me.pem
            peer trusted by: ca.pem
          phase 2: DH group NONE, 3600 SECS
            ESP+AH, encryption 12, hash 2
)");
}

TEST(Show, EmptyCredentialsAreMarked)
{
    const Outcome outcome =
        run({"show", "-"},
            document("", "",
                     entry("action", 1,
                           action("t", "",
                                  "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>RSA"
                                  "</authType><localCert/><peerTrust/><proposal><dhGroup>G14</dhGroup><keyLifetime>8"
                                  "</keyLifetime><keyLifetimeUnits>HRS</keyLifetimeUnits></proposal></ikePhase1>"
                                  "<ikePhase2><dhGroup>NONE</dhGroup><keyLifetime>1</keyLifetime><keyLifetimeUnits>"
                                  "SECS</keyLifetimeUnits></ikePhase2>"))));
    EXPECT_THAT(outcome.out, HasSubstr("            certificate: (empty)\n            peer trusted by: (empty)\n"));
}

TEST(Show, LongTextsAreWrappedAndNothingIsCut)
{
    const std::string name = "A group whose name goes on and on until it reaches the very end of its long line";
    const std::string word = std::string(100, 'w') + "END";
    const Outcome     outcome =
        run({"show", "-"}, document(entry("hostGroup", 1, group("hostGroup", name, word, "")), "",
                                    entry("action", 4000000, action(word, name, "<spdAction>NONE</spdAction>")),
                                    entry("policy", 1, policy(1, 2, 4000000))));
    std::istringstream lines(outcome.out);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(line.size(), 80U) << line;
        EXPECT_THAT(line, Not(testing::EndsWith(" ")));
    }
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), 'w'),
              3 * 100 + 3 * std::count(name.begin(), name.end(), 'w'));
}

TEST(Show, EveryLineOfTheExamplesFitsEightyColumns)
{
    for (const std::string name : {"home-router.xml", "branch-office.xml", "server-farm.xml"}) {
        const Outcome outcome = run({"show", EXAMPLES_DIR "/configs/" + name});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, HasSubstr("Policies: "));
        EXPECT_THAT(outcome.out, Not(HasSubstr("!! missing")));
        std::istringstream lines(outcome.out);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 80U) << line;
    }
}

} // namespace
