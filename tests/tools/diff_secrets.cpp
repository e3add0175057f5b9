#include "program.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

using testing::HasSubstr;
using testing::Not;

namespace {

/// An action with every kind of key, all of which begin with `secret`.
std::string withKeys(const std::string& secret)
{
    const auto leaf = [](const std::string& tag, const std::string& text) {
        return "<" + tag + ">" + text + "</" + tag + ">";
    };
    return document(
        "", "",
        entry("action", 1,
              action("Manual", "",
                     "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>NONE"
                     "</protocol><encryption>2</encryption><hash>2</hash></saProposal>" +
                         leaf("inboundDecrKey", secret + "1") + leaf("outboundEncrKey", secret + "2") +
                         leaf("outboundEncrIV", secret + "3") + leaf("inboundAuthKey", secret + "4") +
                         leaf("outboundAuthKey", secret + "5") + "</manualKey>")) +
            entry("action", 2,
                  action("Shared", "",
                         "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK</authType>" +
                             leaf("presharedKey", secret + "6") +
                             "<proposal><dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime><keyLifetimeUnits>MINS"
                             "</keyLifetimeUnits></proposal></ikePhase1><ikePhase2><dhGroup>G1</dhGroup><keyLifetime>5"
                             "</keyLifetime><keyLifetimeUnits>KB</keyLifetimeUnits></ikePhase2>")));
}

class DiffSecrets : public InFolder {
  protected:
    DiffSecrets()
    {
        writeFile("none.xml", document());
        writeFile("old.xml", withKeys("Kq7\"Zv"));
        writeFile("new.xml", withKeys("Wx9 Rb"));
    }
};

TEST_F(DiffSecrets, AreInNoOutput)
{
    const std::vector<std::pair<std::string, std::string>> pairs = {
        {"none.xml", "old.xml"}, {"old.xml", "none.xml"}, {"old.xml", "new.xml"}, {"old.xml", "old.xml"}};
    for (const auto& [before, after] : pairs)
        for (const std::string option : {"--json", "--script", "--change-counts"})
            if (option != "--change-counts" || before != after) {
                const Outcome outcome = run({"diff", before, after, option});
                for (const char* const piece : {"Kq7", "Wx9", "Zv", "Rb"})
                    EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr(piece))) << option;
            }
}

TEST_F(DiffSecrets, AreToldOnDemand)
{
    EXPECT_EQ(run({"diff", "--show-keys", "old.xml", "new.xml"}), (Outcome{1, R"(~ actions/1 'Manual'
  ~ manualKey/inboundDecrKey: 'Kq7"Zv1' -> 'Wx9 Rb1'
  ~ manualKey/outboundEncrKey: 'Kq7"Zv2' -> 'Wx9 Rb2'
  ~ manualKey/outboundEncrIV: 'Kq7"Zv3' -> 'Wx9 Rb3'
  ~ manualKey/inboundAuthKey: 'Kq7"Zv4' -> 'Wx9 Rb4'
  ~ manualKey/outboundAuthKey: 'Kq7"Zv5' -> 'Wx9 Rb5'
~ actions/2 'Shared'
  ~ ikePhase1/presharedKey: 'Kq7"Zv6' -> 'Wx9 Rb6'
)",
                                                                           ""}));
}

TEST_F(DiffSecrets, AreWrittenIntoTheScriptOnDemand)
{
    EXPECT_EQ(run({"diff", "--show-keys", "--script", "new.xml", "old.xml"}), (Outcome{1, R"(# action 1 'Manual'
set action 1 manualKey/inboundDecrKey="Kq7\"Zv1"
set action 1 manualKey/outboundEncrKey="Kq7\"Zv2"
set action 1 manualKey/outboundEncrIV="Kq7\"Zv3"
set action 1 manualKey/inboundAuthKey="Kq7\"Zv4"
set action 1 manualKey/outboundAuthKey="Kq7\"Zv5"

# action 2 'Shared'
set action 2 ikePhase1/presharedKey="Kq7\"Zv6"
)",
                                                                                       ""}));
}

TEST_F(DiffSecrets, AreAskedForByTheScriptThatDoesNotTellThem)
{
    EXPECT_EQ(run({"diff", "--script", "none.xml", "old.xml"}),
              (Outcome{1, R"(# 6 keys are asked for, at each =? (diff --show-keys writes keys here instead).

add action Manual id=1 spdAction=TRANSPORT keyMgr=MKM
set action 1 manualKey/saProposal/protocol=NONE
set action 1 manualKey/saProposal/encryption=2
set action 1 manualKey/saProposal/hash=2
set action 1 manualKey/inboundDecrKey=?
set action 1 manualKey/outboundEncrKey=?
set action 1 manualKey/outboundEncrIV=?
set action 1 manualKey/inboundAuthKey=?
set action 1 manualKey/outboundAuthKey=?

add action Shared id=2 spdAction=TRANSPORT keyMgr=IKE
set action 2 ikePhase1/authType=PSK
set action 2 ikePhase1/presharedKey=?
set action 2 ikePhase1/proposal/dhGroup=G2
set action 2 ikePhase1/proposal/keyLifetime=1
set action 2 ikePhase1/proposal/keyLifetimeUnits=MINS
set action 2 ikePhase1/proposal/transform=
set action 2 ikePhase2/dhGroup=G1
set action 2 ikePhase2/keyLifetime=5
set action 2 ikePhase2/keyLifetimeUnits=KB
set action 2 ikePhase2/saProposal=
)",
                       ""}));
}

TEST_F(DiffSecrets, AreNullInJson)
{
    writeFile("empty.xml", withKeys("").replace(withKeys("").find("6</presharedKey>"), 1, ""));
    writeFile("set.xml", withKeys(""));
    EXPECT_EQ(run({"diff", "--json", "empty.xml", "set.xml"}), (Outcome{1, R"({
  "nextIDs": [],
  "objects": [
    {
      "change": "changed",
      "collection": "actions",
      "id": 2,
      "name": "Shared",
      "fields": [
        {
          "field": "ikePhase1/presharedKey",
          "secret": true,
          "old": "",
          "new": null
        }
      ]
    }
  ]
}
)",
                                                                        ""}));
}

} // namespace
