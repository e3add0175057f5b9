#include "program.h"

#include <gmock/gmock.h>

#include <string>

using testing::HasSubstr;
using testing::Not;

namespace {

std::string manualKey(const std::string& proposal, const std::string& rest)
{
    return document("", "",
                    entry("action", 1,
                          action("m", "",
                                 "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal>" +
                                     proposal + "</saProposal>" + rest + "</manualKey>")));
}

std::string withPresharedKey(const std::string& key)
{
    return document("", "",
                    entry("action", 1,
                          action("p", "",
                                 "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK"
                                 "</authType><presharedKey>" +
                                     key +
                                     "</presharedKey><proposal><dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime>"
                                     "<keyLifetimeUnits>MINS</keyLifetimeUnits></proposal></ikePhase1><ikePhase2>"
                                     "<dhGroup>G1</dhGroup><keyLifetime>5</keyLifetime><keyLifetimeUnits>KB"
                                     "</keyLifetimeUnits></ikePhase2>")));
}

/// The table of the actions, without its heading.
std::string shownActions(const std::vector<std::string>& arguments, const std::string& text)
{
    const Outcome     outcome = run(arguments, text);
    const std::size_t start   = outcome.out.find("ID  NAME  ACTION\n");
    EXPECT_EQ(outcome.status, 0) << outcome;
    EXPECT_NE(start, std::string::npos) << outcome;
    return outcome.out.substr(start, outcome.out.find("\n\n", start) + 1 - start);
}

const std::string ALL_KEYS =
    manualKey("<protocol>ESP+AH</protocol><encryption>12</encryption><hash>3</hash>",
              "<inboundESPSPI>4096</inboundESPSPI><outboundESPSPI>4097</outboundESPSPI><inboundAHSPI>1</inboundAHSPI>"
              "<outboundAHSPI>4294967295</outboundAHSPI><inboundDecrKey>SecretA</inboundDecrKey><outboundEncrKey>"
              "SecretB</outboundEncrKey><outboundEncrIV>SecretC</outboundEncrIV><inboundAuthKey>SecretD"
              "</inboundAuthKey><outboundAuthKey>SecretE</outboundAuthKey>");

TEST(ShowSecrets, ManualKeysAndTheIvAreHidden)
{
    EXPECT_EQ(shownActions({"show", "-"}, ALL_KEYS), R"(ID  NAME  ACTION
 1  m     TRANSPORT
          manual key: ESP+AH, encryption 12, hash 3
            ESP SPI in 4096 (0x1000), out 4097 (0x1001)
            AH SPI in 1 (0x1), out 4294967295 (0xffffffff)
            encryption key in (hidden)
            encryption key out (hidden)
            encryption IV out (hidden)
            authentication key in (hidden)
            authentication key out (hidden)
)");
    EXPECT_THAT(run({"show", "-"}, ALL_KEYS).out, Not(HasSubstr("Secret")));
}

TEST(ShowSecrets, ManualKeysAndTheIvAreShownOnDemand)
{
    EXPECT_EQ(shownActions({"show", "--show-keys", "-"}, ALL_KEYS), R"(ID  NAME  ACTION
 1  m     TRANSPORT
          manual key: ESP+AH, encryption 12, hash 3
            ESP SPI in 4096 (0x1000), out 4097 (0x1001)
            AH SPI in 1 (0x1), out 4294967295 (0xffffffff)
            encryption key in "SecretA"
            encryption key out "SecretB"
            encryption IV out "SecretC"
            authentication key in "SecretD"
            authentication key out "SecretE"
)");
}

TEST(ShowSecrets, PresharedKeyIsHidden)
{
    const std::string text = withPresharedKey("SecretF");
    EXPECT_EQ(shownActions({"show", "-"}, text), R"(ID  NAME  ACTION
 1  p     TRANSPORT
          phase 1: DH group G2, 1 MINS
            pre-shared key (hidden)
          phase 2: DH group G1, 5 KB
)");
    EXPECT_THAT(run({"show", "-"}, text).out, Not(HasSubstr("SecretF")));
}

TEST(ShowSecrets, PresharedKeyIsShownOnDemand)
{
    EXPECT_THAT(shownActions({"show", "-", "--show-keys"}, withPresharedKey("SecretF")),
                HasSubstr("\n            pre-shared key \"SecretF\"\n"));
}

TEST(ShowSecrets, AKeyThatIsEmptyIsToldFromOneThatIsHidden)
{
    EXPECT_THAT(shownActions({"show", "-"}, withPresharedKey("")), HasSubstr("\n            pre-shared key (empty)\n"));
    EXPECT_THAT(shownActions({"show", "--show-keys", "-"}, withPresharedKey("")),
                HasSubstr("\n            pre-shared key (empty)\n"));
}

TEST(ShowSecrets, OnlyWhatTheProposalUsesIsListed)
{
    EXPECT_EQ(shownActions({"show", "-"}, manualKey("<protocol>AH</protocol><encryption>1</encryption><hash>2</hash>",
                                                    "<inboundAHSPI>256</inboundAHSPI><outboundAHSPI>257"
                                                    "</outboundAHSPI><inboundAuthKey>k</inboundAuthKey>"
                                                    "<outboundAuthKey>k</outboundAuthKey>")),
              R"(ID  NAME  ACTION
 1  m     TRANSPORT
          manual key: AH, encryption 1, hash 2
            AH SPI in 256 (0x100), out 257 (0x101)
            authentication key in (hidden)
            authentication key out (hidden)
)");
    EXPECT_EQ(
        shownActions({"show", "-"}, manualKey("<protocol>NONE</protocol><encryption>2</encryption><hash>1</hash>",
                                              "<inboundDecrKey>k</inboundDecrKey><outboundEncrKey>k</outboundEncrKey>"
                                              "<outboundEncrIV/>")),
        R"(ID  NAME  ACTION
 1  m     TRANSPORT
          manual key: NONE, encryption 2, hash 1
            encryption key in (hidden)
            encryption key out (hidden)
            encryption IV out (empty)
)");
}

} // namespace
