// Every field of every kind of object, changed alone.

#include "program.h"

#include <cstddef>
#include <ostream>
#include <stdexcept>
#include <string>

namespace {

const std::string HOSTS =
    document(entry("hostGroup", 4,
                   "<hostGroup><name>N</name><builtinName>1</builtinName><descr>D</descr><builtinDescr>2</builtinDescr>"
                   "<selectors><hostSelector><family>AF_INET</family><selectorType>RANGE</selectorType><addr1>10.0.0.1"
                   "</addr1><addr2>10.0.0.9</addr2></hostSelector><hostSelector><family>AF_INET</family><selectorType>"
                   "SUBNET_LENGTH</selectorType><addr1>10.2.0.0</addr1><length>16</length></hostSelector><hostSelector>"
                   "<family>AF_INET</family><selectorType>SUBNET_MASK</selectorType><addr1>10.3.0.0</addr1><mask>"
                   "255.255.0.0</mask></hostSelector></selectors></hostGroup>"));

const std::string TRAFFIC =
    document("", entry("protocolGroup", 4,
                       "<protocolGroup><name>N</name><builtinName>1</builtinName><descr>D</descr><builtinDescr>2"
                       "</builtinDescr><selectors><protocolSelector><protocol>6</protocol><name>Web</name><dstPort>443"
                       "</dstPort><srcPort>7</srcPort><direction>OUT</direction><mirrored>MIRRORED</mirrored>"
                       "</protocolSelector></selectors></protocolGroup>"));

std::string withAction(const std::string& mode)
{
    return document("", "",
                    entry("action", 4,
                          "<action><changeCount>3</changeCount><name>N</name><builtinName>1</builtinName><descr>D"
                          "</descr><builtinDescr>2</builtinDescr><type>5</type><state>6</state>" +
                              mode + "</action>"));
}

const std::string PASSING = withAction("<spdAction>BYPASS</spdAction>");

std::string withKeyExchange(const std::string& credentials)
{
    return withAction("<spdAction>TUNNEL</spdAction><tunnelEndpoint>192.0.2.1</tunnelEndpoint><keyMgr>IKE</keyMgr>"
                      "<ikePhase1>" +
                      credentials +
                      "<proposal><dhGroup>G14</dhGroup><keyLifetime>8</keyLifetime><keyLifetimeUnits>HRS"
                      "</keyLifetimeUnits><transform>IKE_AES_SHA</transform><transform>IKE_3DES_SHA</transform>"
                      "</proposal></ikePhase1><ikePhase2><dhGroup>G2</dhGroup><keyLifetime>60</keyLifetime>"
                      "<keyLifetimeUnits>MINS</keyLifetimeUnits><saProposal><protocol>ESP</protocol><encryption>12"
                      "</encryption><hash>5</hash></saProposal></ikePhase2>");
}

const std::string PRESHARED = withKeyExchange("<authType>PSK</authType><presharedKey>Secret</presharedKey>");
const std::string CERTIFIED =
    withKeyExchange("<authType>RSA</authType><localCert>C</localCert><peerTrust>T</peerTrust>");

const std::string MANUAL =
    withAction("<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>ESP+AH</protocol>"
               "<encryption>12</encryption><hash>5</hash></saProposal><inboundESPSPI>256</inboundESPSPI>"
               "<outboundESPSPI>257</outboundESPSPI><inboundAHSPI>258</inboundAHSPI><outboundAHSPI>259</outboundAHSPI>"
               "<inboundDecrKey>SecretA</inboundDecrKey><outboundEncrKey>SecretB</outboundEncrKey><outboundEncrIV>"
               "SecretC</outboundEncrIV><inboundAuthKey>SecretD</inboundAuthKey><outboundAuthKey>SecretE"
               "</outboundAuthKey></manualKey>");

const std::string POLICY = document("", "", "", entry("policy", 4, policy(1, 2, 3)));

/// `text` with `to` in place of `from`, which it must hold.
std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    if (at == std::string::npos)
        throw std::invalid_argument(from);
    return text.replace(at, from.size(), to);
}

std::string leaf(const std::string& tag, const std::string& text)
{
    return "<" + tag + ">" + text + "</" + tag + ">";
}

struct Changed {
    std::string before;
    std::string after;
    std::string lines; ///< all that is printed
};

std::ostream& operator<<(std::ostream& out, const Changed& changed)
{
    return out << changed.lines;
}

/// The text of a leaf is another one.
Changed changed(const std::string& before, const std::string& tag, const std::string& from, const std::string& to,
                const std::string& lines)
{
    return {before, replaced(before, leaf(tag, from), leaf(tag, to)), lines};
}

/// The same below an action.
Changed inAction(const std::string& before, const std::string& tag, const std::string& from, const std::string& to,
                 const std::string& lines)
{
    return changed(before, tag, from, to, "~ actions/4 'N'\n" + lines);
}

/// A key is another one.
Changed key(const std::string& before, const std::string& tag, const std::string& from, const std::string& path)
{
    return inAction(before, tag, from, "SecretZ", "  ~ " + path + ": changed (hidden)\n");
}

class DiffField : public InFolder, public testing::WithParamInterface<Changed> {
  protected:
    DiffField()
    {
        writeFile("old", GetParam().before);
        writeFile("new", GetParam().after);
    }
};

TEST_P(DiffField, ThatChangedIsToldAlone)
{
    EXPECT_EQ(run({"diff", "old", "new"}), (Outcome{1, GetParam().lines, ""}));
}

TEST_P(DiffField, ThatDidNotChangeIsNotTold)
{
    EXPECT_EQ(run({"diff", "new", "new"}), printed(""));
}

// clang-format off
const Changed CHANGED[] = {
    changed(HOSTS, "name", "N", "M", "~ hostGroups/4 'M'\n  ~ name: 'N' -> 'M'\n"),
    changed(HOSTS, "builtinName", "1", "0", "~ hostGroups/4 'N'\n  ~ builtinName: 1 -> 0\n"),
    changed(HOSTS, "descr", "D", "", "~ hostGroups/4 'N'\n  ~ descr: 'D' -> ''\n"),
    changed(HOSTS, "builtinDescr", "2", "-1", "~ hostGroups/4 'N'\n  ~ builtinDescr: 2 -> -1\n"),
    changed(HOSTS, "family", "AF_INET", "AF_INET6",
            "~ hostGroups/4 'N'\n  - selectors: 10.0.0.1-10.0.0.9\n"
            "  + selectors: AF_INET6 RANGE addr1=10.0.0.1 addr2=10.0.0.9\n"),
    {HOSTS, replaced(HOSTS, "<selectorType>RANGE</selectorType><addr1>10.0.0.1</addr1><addr2>10.0.0.9</addr2>",
                     "<selectorType>SINGLE</selectorType><addr1>10.0.0.1</addr1>"),
     "~ hostGroups/4 'N'\n  - selectors: 10.0.0.1-10.0.0.9\n  + selectors: 10.0.0.1\n"},
    changed(HOSTS, "addr1", "10.0.0.1", "10.0.0.2",
            "~ hostGroups/4 'N'\n  - selectors: 10.0.0.1-10.0.0.9\n  + selectors: 10.0.0.2-10.0.0.9\n"),
    changed(HOSTS, "addr2", "10.0.0.9", "10.0.0.8",
            "~ hostGroups/4 'N'\n  - selectors: 10.0.0.1-10.0.0.9\n  + selectors: 10.0.0.1-10.0.0.8\n"),
    changed(HOSTS, "length", "16", "17",
            "~ hostGroups/4 'N'\n  - selectors: 10.2.0.0/16\n  + selectors: 10.2.0.0/17\n"),
    // The mask is the same, but not what a document holds of it.
    {replaced(HOSTS, leaf("length", "16"), leaf("length", "32")),
     replaced(HOSTS, leaf("length", "16"), leaf("length", "33")),
     "~ hostGroups/4 'N'\n  - selectors: 10.2.0.0/32\n"
     "  + selectors: AF_INET SUBNET_LENGTH addr1=10.2.0.0 length=33\n"},
    changed(HOSTS, "mask", "255.255.0.0", "255.254.0.0",
            "~ hostGroups/4 'N'\n  - selectors: 10.3.0.0/255.255.0.0\n  + selectors: 10.3.0.0/255.254.0.0\n"),

    changed(TRAFFIC, "name", "N", "M", "~ protocolGroups/4 'M'\n  ~ name: 'N' -> 'M'\n"),
    changed(TRAFFIC, "builtinName", "1", "0", "~ protocolGroups/4 'N'\n  ~ builtinName: 1 -> 0\n"),
    changed(TRAFFIC, "descr", "D", "", "~ protocolGroups/4 'N'\n  ~ descr: 'D' -> ''\n"),
    changed(TRAFFIC, "builtinDescr", "2", "-1", "~ protocolGroups/4 'N'\n  ~ builtinDescr: 2 -> -1\n"),
    changed(TRAFFIC, "protocol", "6", "17",
            "~ protocolGroups/4 'N'\n  - selectors: tcp/443 from 7 out mirrored named Web\n"
            "  + selectors: udp/443 from 7 out mirrored named Web\n"),
    changed(TRAFFIC, "name", "Web", "HTTPS",
            "~ protocolGroups/4 'N'\n  - selectors: tcp/443 from 7 out mirrored named Web\n"
            "  + selectors: tcp/443 from 7 out mirrored named HTTPS\n"),
    changed(TRAFFIC, "dstPort", "443", "80",
            "~ protocolGroups/4 'N'\n  - selectors: tcp/443 from 7 out mirrored named Web\n"
            "  + selectors: tcp/80 from 7 out mirrored named Web\n"),
    changed(TRAFFIC, "srcPort", "7", "0",
            "~ protocolGroups/4 'N'\n  - selectors: tcp/443 from 7 out mirrored named Web\n"
            "  + selectors: tcp/443 out mirrored named Web\n"),
    changed(TRAFFIC, "direction", "OUT", "INOUT",
            "~ protocolGroups/4 'N'\n  - selectors: tcp/443 from 7 out mirrored named Web\n"
            "  + selectors: tcp/443 from 7 in/out mirrored named Web\n"),
    changed(TRAFFIC, "mirrored", "MIRRORED", "NOTMIRRORED",
            "~ protocolGroups/4 'N'\n  - selectors: tcp/443 from 7 out mirrored named Web\n"
            "  + selectors: tcp/443 from 7 out named Web\n"),

    changed(PASSING, "name", "N", "M", "~ actions/4 'M'\n  ~ name: 'N' -> 'M'\n"),
    inAction(PASSING, "builtinName", "1", "17", "  ~ builtinName: 1 -> 17\n"),
    inAction(PASSING, "descr", "D", "E", "  ~ descr: 'D' -> 'E'\n"),
    inAction(PASSING, "builtinDescr", "2", "18", "  ~ builtinDescr: 2 -> 18\n"),
    inAction(PASSING, "type", "5", "-2147483648", "  ~ type: 5 -> -2147483648\n"),
    inAction(PASSING, "state", "6", "2147483647", "  ~ state: 6 -> 2147483647\n"),
    inAction(PASSING, "spdAction", "BYPASS", "DISCARD", "  ~ spdAction: BYPASS -> DISCARD\n"),

    inAction(PRESHARED, "tunnelEndpoint", "192.0.2.1", "192.0.2.2",
             "  ~ tunnelEndpoint: '192.0.2.1' -> '192.0.2.2'\n"),
    {PRESHARED, replaced(PRESHARED, "<spdAction>TUNNEL</spdAction><tunnelEndpoint>192.0.2.1</tunnelEndpoint>",
                         "<spdAction>TRANSPORT</spdAction>"),
     "~ actions/4 'N'\n  ~ spdAction: TUNNEL -> TRANSPORT\n  - tunnelEndpoint: '192.0.2.1'\n"},
    key(PRESHARED, "presharedKey", "Secret", "ikePhase1/presharedKey"),
    inAction(PRESHARED, "dhGroup", "G14", "G1", "  ~ ikePhase1/proposal/dhGroup: G14 -> G1\n"),
    inAction(PRESHARED, "keyLifetime", "8", "4294967295",
             "  ~ ikePhase1/proposal/keyLifetime: 8 -> 4294967295\n"),
    inAction(PRESHARED, "keyLifetimeUnits", "HRS", "KB",
             "  ~ ikePhase1/proposal/keyLifetimeUnits: HRS -> KB\n"),
    inAction(PRESHARED, "transform", "IKE_3DES_SHA", "IKE_NONE",
             "  - ikePhase1/proposal/transform: IKE_AES_SHA, IKE_3DES_SHA\n"
             "  + ikePhase1/proposal/transform: IKE_AES_SHA, IKE_NONE\n"),
    {PRESHARED, replaced(PRESHARED, leaf("transform", "IKE_AES_SHA") + leaf("transform", "IKE_3DES_SHA"),
                         leaf("transform", "IKE_3DES_SHA") + leaf("transform", "IKE_AES_SHA")),
     "~ actions/4 'N'\n  - ikePhase1/proposal/transform: IKE_AES_SHA, IKE_3DES_SHA\n"
     "  + ikePhase1/proposal/transform: IKE_3DES_SHA, IKE_AES_SHA\n"},
    {PRESHARED, replaced(PRESHARED, leaf("transform", "IKE_AES_SHA") + leaf("transform", "IKE_3DES_SHA"), ""),
     "~ actions/4 'N'\n  ~ ikePhase1/proposal/transform: IKE_AES_SHA, IKE_3DES_SHA -> (none)\n"},
    inAction(PRESHARED, "dhGroup", "G2", "NONE", "  ~ ikePhase2/dhGroup: G2 -> NONE\n"),
    inAction(PRESHARED, "keyLifetime", "60", "0", "  ~ ikePhase2/keyLifetime: 60 -> 0\n"),
    inAction(PRESHARED, "keyLifetimeUnits", "MINS", "SECS", "  ~ ikePhase2/keyLifetimeUnits: MINS -> SECS\n"),
    inAction(PRESHARED, "protocol", "ESP", "AH",
             "  - ikePhase2/saProposal: ESP, encryption 12, hash 5\n"
             "  + ikePhase2/saProposal: AH, encryption 12, hash 5\n"),
    inAction(PRESHARED, "encryption", "12", "3",
             "  - ikePhase2/saProposal: ESP, encryption 12, hash 5\n"
             "  + ikePhase2/saProposal: ESP, encryption 3, hash 5\n"),
    inAction(PRESHARED, "hash", "5", "2",
             "  - ikePhase2/saProposal: ESP, encryption 12, hash 5\n"
             "  + ikePhase2/saProposal: ESP, encryption 12, hash 2\n"),
    {PRESHARED, replaced(PRESHARED, "</saProposal>",
                         "</saProposal><saProposal><protocol>AH</protocol><encryption>0</encryption><hash>4</hash>"
                         "</saProposal>"),
     "~ actions/4 'N'\n  - ikePhase2/saProposal: ESP, encryption 12, hash 5\n"
     "  + ikePhase2/saProposal: ESP, encryption 12, hash 5; AH, encryption 0, hash 4\n"},
    {PRESHARED, CERTIFIED,
     "~ actions/4 'N'\n  ~ ikePhase1/authType: PSK -> RSA\n  - ikePhase1/presharedKey: (hidden)\n"
     "  + ikePhase1/localCert: 'C'\n  + ikePhase1/peerTrust: 'T'\n"},
    inAction(CERTIFIED, "localCert", "C", "c", "  ~ ikePhase1/localCert: 'C' -> 'c'\n"),
    inAction(CERTIFIED, "peerTrust", "T", "t", "  ~ ikePhase1/peerTrust: 'T' -> 't'\n"),

    {MANUAL, withAction("<spdAction>TRANSPORT</spdAction><keyMgr>NONE</keyMgr>"),
     "~ actions/4 'N'\n  ~ keyMgr: MKM -> NONE\n  - manualKey/saProposal/protocol: ESP+AH\n"
     "  - manualKey/saProposal/encryption: 12\n  - manualKey/saProposal/hash: 5\n  - manualKey/inboundESPSPI: 256\n"
     "  - manualKey/outboundESPSPI: 257\n  - manualKey/inboundAHSPI: 258\n  - manualKey/outboundAHSPI: 259\n"
     "  - manualKey/inboundDecrKey: (hidden)\n  - manualKey/outboundEncrKey: (hidden)\n"
     "  - manualKey/outboundEncrIV: (hidden)\n  - manualKey/inboundAuthKey: (hidden)\n"
     "  - manualKey/outboundAuthKey: (hidden)\n"},
    {MANUAL, replaced(replaced(MANUAL, "ESP+AH", "ESP"),
                      leaf("inboundAHSPI", "258") + leaf("outboundAHSPI", "259"), ""),
     "~ actions/4 'N'\n  ~ manualKey/saProposal/protocol: ESP+AH -> ESP\n  - manualKey/inboundAHSPI: 258\n"
     "  - manualKey/outboundAHSPI: 259\n"},
    inAction(MANUAL, "encryption", "12", "4294967295", "  ~ manualKey/saProposal/encryption: 12 -> 4294967295\n"),
    inAction(MANUAL, "hash", "5", "2", "  ~ manualKey/saProposal/hash: 5 -> 2\n"),
    {MANUAL, replaced(MANUAL, "<hash>5</hash></saProposal>", "<hash>1</hash></saProposal>")
                 .replace(MANUAL.find("<inboundAuthKey>"),
                          MANUAL.find("</manualKey>") - MANUAL.find("<inboundAuthKey>"), ""),
     "~ actions/4 'N'\n  ~ manualKey/saProposal/hash: 5 -> 1\n  - manualKey/inboundAuthKey: (hidden)\n"
     "  - manualKey/outboundAuthKey: (hidden)\n"},
    inAction(MANUAL, "inboundESPSPI", "256", "1", "  ~ manualKey/inboundESPSPI: 256 -> 1\n"),
    inAction(MANUAL, "outboundESPSPI", "257", "1", "  ~ manualKey/outboundESPSPI: 257 -> 1\n"),
    inAction(MANUAL, "inboundAHSPI", "258", "1", "  ~ manualKey/inboundAHSPI: 258 -> 1\n"),
    inAction(MANUAL, "outboundAHSPI", "259", "1", "  ~ manualKey/outboundAHSPI: 259 -> 1\n"),
    key(MANUAL, "inboundDecrKey", "SecretA", "manualKey/inboundDecrKey"),
    key(MANUAL, "outboundEncrKey", "SecretB", "manualKey/outboundEncrKey"),
    key(MANUAL, "outboundEncrIV", "SecretC", "manualKey/outboundEncrIV"),
    key(MANUAL, "inboundAuthKey", "SecretD", "manualKey/inboundAuthKey"),
    key(MANUAL, "outboundAuthKey", "SecretE", "manualKey/outboundAuthKey"),
    inAction(MANUAL, "outboundAuthKey", "SecretE", "",
             "  ~ manualKey/outboundAuthKey: (hidden) -> (empty)\n"),

    changed(POLICY, "hostGroupID", "1", "5",
            "~ policies/4\n  ~ hostGroupID: 1 (missing) -> 5 (missing)\n    protocolGroupID: 2 (missing)\n"
            "    actionID: 3 (missing)\n"),
    changed(POLICY, "protocolGroupID", "2", "0",
            "~ policies/4\n    hostGroupID: 1 (missing)\n  ~ protocolGroupID: 2 (missing) -> 0 (none)\n"
            "    actionID: 3 (missing)\n"),
    changed(POLICY, "actionID", "3", "4294967295",
            "~ policies/4\n    hostGroupID: 1 (missing)\n    protocolGroupID: 2 (missing)\n"
            "  ~ actionID: 3 (missing) -> 4294967295 (missing)\n"),
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Diff, DiffField, testing::ValuesIn(CHANGED));

class DiffChangeCounter : public InFolder {};

TEST_F(DiffChangeCounter, IsComparedOnlyIfAsked)
{
    writeFile("old", PASSING);
    writeFile("new", replaced(PASSING, leaf("changeCount", "3"), leaf("changeCount", "4")));
    EXPECT_EQ(run({"diff", "old", "new"}), printed(""));
    EXPECT_EQ(run({"diff", "--change-counts", "old", "new"}),
              (Outcome{1, "~ actions/4 'N'\n  ~ changeCount: 3 -> 4\n", ""}));
}

} // namespace
