// What is not said twice: findings that only follow from a misread number.

#include "program.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;

/// The code and path of each finding that is not about a file, in the order of the report.
Texts foundIn(const std::string& text, const std::string& level = "warning")
{
    const auto report = nlohmann::json::parse(run({"check", "--json", "--level", level, "-"}, text).out);
    Texts      found;
    for (const auto& finding : report["findings"])
        found.push_back(finding["code"].get<std::string>() + ' ' + finding["path"].get<std::string>());
    return found;
}

std::string subnet(const std::string& length)
{
    return document(entry("hostGroup", 1,
                          group("hostGroup", "n", "",
                                "<hostSelector><family>AF_INET</family><selectorType>SUBNET_LENGTH</selectorType>"
                                "<addr1>10.1.0.0</addr1><length>" +
                                    length + "</length></hostSelector>")));
}

TEST(CheckConsequences, OfAMisreadPrefixLengthAreLeftOut)
{
    EXPECT_EQ(foundIn(subnet("8")), Texts({"host-bits-set hostGroups/1/selectors/1/addr1"}));
    EXPECT_EQ(foundIn(subnet("8x")), Texts({"number-cut-short hostGroups/1/selectors/1/length"}));
    EXPECT_EQ(foundIn(subnet("web")), Texts({"no-number hostGroups/1/selectors/1/length"}));
    EXPECT_EQ(foundIn(subnet("99999999999")), Texts({"number-too-large hostGroups/1/selectors/1/length"}));
    EXPECT_EQ(foundIn(subnet("010")), Texts({"octal-number hostGroups/1/selectors/1/length"}));
}

TEST(CheckConsequences, OfAnotherSpellingStay)
{
    EXPECT_EQ(foundIn(subnet("0x8")), Texts({"host-bits-set hostGroups/1/selectors/1/addr1"}));
    EXPECT_EQ(foundIn(subnet(" 8 ")), Texts({"host-bits-set hostGroups/1/selectors/1/addr1"}));
}

std::string withPolicy(const std::string& hostGroupID)
{
    std::string text = document("", "", "", entry("policy", 1, policy(1, 2, 3)));
    return text.replace(text.find("<hostGroupID>1<"), 15, "<hostGroupID>" + hostGroupID + "<");
}

TEST(CheckConsequences, OfAMisreadReferenceAreLeftOut)
{
    const Texts OTHERS = {"dangling-reference policies/1/protocolGroupID", "dangling-reference policies/1/actionID"};
    const auto  with   = [&OTHERS](const std::string& first) { return Texts{first, OTHERS[0], OTHERS[1]}; };
    EXPECT_EQ(foundIn(withPolicy("1")), with("dangling-reference policies/1/hostGroupID"));
    EXPECT_EQ(foundIn(withPolicy("0")), with("no-reference policies/1/hostGroupID"));
    EXPECT_EQ(foundIn(withPolicy("web")), with("no-number policies/1/hostGroupID"));
}

TEST(CheckConsequences, ThatAreWorseThanTheMisreadingStay)
{
    const Texts OTHERS = {"dangling-reference policies/1/protocolGroupID", "dangling-reference policies/1/actionID"};
    EXPECT_EQ(foundIn(withPolicy("010")), Texts({"dangling-reference policies/1/hostGroupID",
                                                 "octal-number policies/1/hostGroupID", OTHERS[0], OTHERS[1]}));
    EXPECT_EQ(foundIn(withPolicy("010"), "error"),
              Texts({"dangling-reference policies/1/hostGroupID", OTHERS[0], OTHERS[1]}));
}

} // namespace
