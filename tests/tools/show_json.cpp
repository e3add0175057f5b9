#include "program.h"

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>

#include <string>

using Json = nlohmann::ordered_json;
using testing::HasSubstr;
using testing::Not;

namespace {

std::string manualKey(const std::string& texts)
{
    return entry("action", 1,
                 action("m", "",
                        "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>ESP+AH"
                        "</protocol><encryption>12</encryption><hash>3</hash></saProposal><inboundESPSPI>4096"
                        "</inboundESPSPI><outboundESPSPI>4097</outboundESPSPI><inboundAHSPI>1</inboundAHSPI>"
                        "<outboundAHSPI>4294967295</outboundAHSPI>" +
                            texts + "</manualKey>"));
}

const std::string KEYS = "<inboundDecrKey>SecretA</inboundDecrKey><outboundEncrKey>SecretB</outboundEncrKey>"
                         "<outboundEncrIV>SecretC</outboundEncrIV><inboundAuthKey/><outboundAuthKey>SecretE"
                         "</outboundAuthKey>";

TEST(ShowJson, AnEmptyConfigurationHasFourEmptyLists)
{
    EXPECT_EQ(run({"show", "--json", "-"}, document()), printed(R"({
  "hostGroups": [],
  "protocolGroups": [],
  "actions": [],
  "policies": [],
  "nextID": {
    "hostGroups": 1,
    "protocolGroups": 1,
    "actions": 1,
    "policies": 1
  }
}
)"));
}

TEST(ShowJson, HiddenKeysAreNullAndEmptyOnesAreNotHidden)
{
    EXPECT_EQ(run({"show", "--json", "-", "actions", "1"}, document("", "", manualKey(KEYS))), printed(R"({
  "id": 1,
  "changeCount": 0,
  "name": "m",
  "builtinName": 0,
  "descr": "",
  "builtinDescr": 0,
  "type": 0,
  "state": 0,
  "spdAction": "TRANSPORT",
  "keyMgr": "MKM",
  "manualKey": {
    "saProposal": {
      "protocol": "ESP+AH",
      "encryption": 12,
      "hash": 3
    },
    "inboundESPSPI": 4096,
    "outboundESPSPI": 4097,
    "inboundAHSPI": 1,
    "outboundAHSPI": 4294967295,
    "inboundDecrKey": null,
    "hidden": true,
    "outboundEncrKey": null,
    "outboundEncrIV": null,
    "inboundAuthKey": "",
    "outboundAuthKey": null
  },
  "usedBy": []
}
)"));
}

TEST(ShowJson, KeysAreTextsOnDemand)
{
    const Outcome outcome =
        run({"show", "--json", "--show-keys", "-", "actions", "1"}, document("", "", manualKey(KEYS)));
    const Json key = Json::parse(outcome.out)["manualKey"];
    EXPECT_EQ(key["inboundDecrKey"], "SecretA");
    EXPECT_EQ(key["outboundEncrKey"], "SecretB");
    EXPECT_EQ(key["outboundEncrIV"], "SecretC");
    EXPECT_EQ(key["inboundAuthKey"], "");
    EXPECT_EQ(key["outboundAuthKey"], "SecretE");
    EXPECT_FALSE(key.contains("hidden"));
}

TEST(ShowJson, ReferencesHaveNamesAndNullWhereNothingIsThere)
{
    const std::string text = document(entry("hostGroup", 4, group("hostGroup", "", "", "")), "", "",
                                      entry("policy", 2, policy(4, 9, 4294967295U)));
    EXPECT_EQ(run({"show", "--json", "-", "policies", "2"}, text), printed(R"({
  "id": 2,
  "hostGroupID": 4,
  "hostGroupName": "",
  "protocolGroupID": 9,
  "protocolGroupName": null,
  "actionID": 4294967295,
  "actionName": null
}
)"));
}

TEST(ShowJson, NothingInItIsObeyedByATerminal)
{
    const std::string name = "a\x1b[31m\"b\\ \xc2\x9b \xe2\x80\xae \x7f Z\xc3\xbcrich";
    const Outcome     outcome =
        run({"show", "--json", "-"}, document(entry("hostGroup", 1, group("hostGroup", name, "", ""))));
    EXPECT_EQ(Json::parse(outcome.out)["hostGroups"][0]["name"], name);
    for (const char c : outcome.out)
        EXPECT_TRUE(c == '\n' || (c >= ' ' && c <= '~')) << static_cast<int>(c);
}

TEST(ShowJson, BytesThatAreNotUtf8AreReplaced)
{
    const Outcome outcome = run({"show", "--json", "-"}, document(entry("hostGroup", 1,
                                                                        group("hostGroup",
                                                                              "a\xff"
                                                                              "b",
                                                                              "", ""))));
    EXPECT_EQ(Json::parse(outcome.out)["hostGroups"][0]["name"], "a\xef\xbf\xbd"
                                                                 "b");
}

} // namespace
