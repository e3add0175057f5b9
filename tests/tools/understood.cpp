#include "understood.h"

#include "understood_findings.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace ipsecimpl;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string withName(const std::string& element)
{
    return document("", "",
                    "<actionEntry><id>1</id><action><changeCount>0</changeCount>" + element +
                        "<builtinName>0</builtinName><descr></descr><builtinDescr>0</builtinDescr><type>0</type>"
                        "<state>0</state><spdAction>BYPASS</spdAction></action></actionEntry>");
}

TEST(Understood, WhiteSpaceAroundATextIsDropped)
{
    EXPECT_THAT(misreadingsIn(withName("<name>a b</name>")), IsEmpty());
    EXPECT_THAT(misreadingsIn(withName("<name> a b</name>")),
                ElementsAre("white-space-trimmed actions/1/name [a b]: White space around the text was dropped."));
    EXPECT_THAT(misreadingsIn(withName("<name>a b\n</name>")),
                ElementsAre("white-space-trimmed actions/1/name [a b]: White space around the text was dropped."));
    EXPECT_THAT(misreadingsIn(withName("<name> </name>")),
                ElementsAre("white-space-trimmed actions/1/name [<name> </name>]: White space around the text was "
                            "dropped."));
}

TEST(Understood, WhiteSpaceInAnAttributeStays)
{
    EXPECT_THAT(misreadingsIn(withName("<name value=' a b '/>")), IsEmpty());
    EXPECT_THAT(misreadingsIn(withName("<name value=\"\n</name>\n<name>\"></name>")), IsEmpty());
}

TEST(Understood, WhiteSpaceAroundANumberIsDropped)
{
    EXPECT_THAT(
        misreadingsIn(withPolicy("<hostGroupID> 5 </hostGroupID>")),
        ElementsAre("white-space-trimmed policies/1/hostGroupID [5]: White space around the text was dropped."));
    EXPECT_THAT(misreadingsIn(withPolicy("<hostGroupID value=' 5 '/>")),
                ElementsAre("number-spelling policies/1/hostGroupID [ 5 ]: A text of 3 bytes was read as 5, and will "
                            "be stored so."));
    EXPECT_THAT(misreadingsIn(withPolicy("<hostGroupID value='5'/>")), IsEmpty());
}

TEST(Understood, AnAttributeWithoutAValueIsAnEmptyText)
{
    EXPECT_THAT(misreadingsIn(withName("<name value=''/>")), IsEmpty());
    EXPECT_THAT(misreadingsIn(withName("<name/>")), IsEmpty());
    EXPECT_THAT(misreadingsIn(withName("<name value/>")),
                ElementsAre("empty-attribute actions/1/name [<name value/>]: The attribute has no value, which reads "
                            "as an empty text. Write the value."));
    EXPECT_THAT(misreadingsIn(withName("<name value></name>")),
                ElementsAre("empty-attribute actions/1/name [<name value></name>]: The attribute has no value, which "
                            "reads as an empty text. Write the value."));
    EXPECT_THAT(misreadingsIn(withPolicy("<hostGroupID value/>")),
                ElementsAre("no-number policies/1/hostGroupID [<hostGroupID value/>]: An empty text was read as 0, "
                            "because it does not begin with a number. Write a number."));
}

TEST(Understood, AnEntityStandsForItself)
{
    EXPECT_THAT(misreadingsIn(withName("<name>R&D; A&B &amp &;&#;&#x; &ampere;&nbsp;</name>")), IsEmpty());
    for (const std::string entity : {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "&#65;", "&#x41;"}) {
        const std::string finding =
            "]: What looks like an XML entity is kept as it stands, because this format has none. Write the character "
            "itself.";
        EXPECT_THAT(misreadingsIn(withName("<name>R" + entity + "D" + entity + "</name>")),
                    ElementsAre("entity-kept actions/1/name [" + entity + finding));
        EXPECT_THAT(misreadingsIn(withName("<name value='" + entity + "'/>")),
                    ElementsAre("entity-kept actions/1/name [" + entity + finding));
    }
}

TEST(Understood, AnEntityIsToldByTheSelectorsNumberInTheConfiguration)
{
    const std::string first  = protocolSelector("6", "<dstPort>81</dstPort>", "R&amp;D");
    const std::string second = protocolSelector("6", "<dstPort>80</dstPort>", "R&D");
    const std::string third  = protocolSelector("6", "<dstPort>79</dstPort>", "&lt;R&D");
    EXPECT_THAT(misreadingsIn(withProtocolSelectors(first + second + third)),
                ElementsAre(testing::StartsWith("entity-kept protocolGroups/1/selectors/3/name [&amp;]: "),
                            testing::StartsWith("entity-kept protocolGroups/1/selectors/1/name [&lt;]: ")));
}

std::string withKey(const std::string& element)
{
    return document("", "",
                    entry("action", 1,
                          action("p", "",
                                 "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK"
                                 "</authType>" +
                                     element +
                                     "<proposal><dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime><keyLifetimeUnits>"
                                     "MINS</keyLifetimeUnits></proposal></ikePhase1><ikePhase2><dhGroup>G1</dhGroup>"
                                     "<keyLifetime>5</keyLifetime><keyLifetimeUnits>KB</keyLifetimeUnits>"
                                     "</ikePhase2>")));
}

TEST(Understood, WhiteSpaceAroundAKeyIsWorse)
{
    EXPECT_THAT(misreadingsIn(withKey("<presharedKey>Kq 7Z</presharedKey>")), IsEmpty());
    EXPECT_THAT(misreadingsIn(withKey("<presharedKey>Kq7Z </presharedKey>")),
                ElementsAre("key-trimmed actions/1/ikePhase1/presharedKey [Kq7Z]: White space around the key was "
                            "dropped. Write the key without it; if it belongs to the key, choose another key."));
}

const std::string DUPLICATE =
    "This selector says the same as one before it in its group, whatever their names, and was "
    "dropped. Remove it, or write what it was meant to be.";

TEST(Understood, ASelectorThatIsThereAlreadyIsDropped)
{
    const std::string one   = protocolSelector("6", "<dstPort>80</dstPort><srcPort>0</srcPort>", "one");
    const std::string other = protocolSelector("6", "<dstPort>81</dstPort><srcPort>0</srcPort>", "one");
    const std::string named = protocolSelector("6", "<dstPort>80</dstPort><srcPort>0</srcPort>", "two");
    EXPECT_THAT(misreadingsIn(withProtocolSelectors(other + one)), IsEmpty());
    EXPECT_THAT(misreadingsIn(withProtocolSelectors(one + other + one)),
                ElementsAre("duplicate-selector protocolGroups/1/selectors/1 [" + one + "]: " + DUPLICATE));
    EXPECT_THAT(misreadingsIn(withProtocolSelectors(other + one + named)),
                ElementsAre("duplicate-selector protocolGroups/1/selectors/1 [" + named + "]: " + DUPLICATE));
}

TEST(Understood, ADroppedSelectorIsReadAsClosely)
{
    const std::string one   = protocolSelector("6", "<dstPort>80</dstPort><srcPort>0</srcPort>");
    const std::string other = protocolSelector("6", "<dstPort>80 (web)</dstPort>");
    EXPECT_THAT(misreadingsIn(withProtocolSelectors(one + other)),
                ElementsAre("number-cut-short protocolGroups/1/selectors/1/dstPort [80 (web)]: A text of 8 bytes was "
                            "read as 80, and what follows the number was ignored. Write the number alone.",
                            "duplicate-selector protocolGroups/1/selectors/1 [" + other + "]: " + DUPLICATE));
}

std::string policies(const std::string& nextID, unsigned int id)
{
    return document("", "", "", nextID + entry("policy", id, policy(1, 1, 1)));
}

TEST(Understood, ANextIDThatIsTooSmallIsRaised)
{
    EXPECT_THAT(misreadingsIn(policies("<nextpolicy>8</nextpolicy>", 7)), IsEmpty());
    EXPECT_THAT(misreadingsIn(policies("<nextpolicy>80</nextpolicy>", 7)), IsEmpty());
    EXPECT_THAT(misreadingsIn(policies("", 7)), IsEmpty());
    EXPECT_THAT(misreadingsIn(policies("<nextpolicy>7</nextpolicy>", 7)),
                ElementsAre("next-id-raised policies/nextpolicy [7]: The next ID is 8 instead of 7, because there are "
                            "greater IDs. Write 8."));
}

TEST(Understood, ANextIDIsANumberToo)
{
    EXPECT_THAT(misreadingsIn(policies("<nextpolicy>9th</nextpolicy>", 7)),
                ElementsAre("number-cut-short policies/nextpolicy [9th]: A text of 3 bytes was read as 9, and what "
                            "follows the number was ignored. Write the number alone."));
    EXPECT_THAT(misreadingsIn(policies("<nextpolicy>05</nextpolicy>", 7)),
                ElementsAre("number-spelling policies/nextpolicy [05]: '05' was read as 5, and will be stored so.",
                            "next-id-raised policies/nextpolicy [05]: The next ID is 8 instead of 5, because there "
                            "are greater IDs. Write 8."));
    EXPECT_THAT(misreadingsIn(policies("<nextpolicy> 8 </nextpolicy>", 7)),
                ElementsAre("white-space-trimmed policies/nextpolicy [8]: White space around the text was dropped."));
}

TEST(Understood, OfSeveralNextIDsOneCounts)
{
    EXPECT_THAT(misreadingsIn(document("", "", "", "<nextpolicy>5</nextpolicy><nextpolicy>9</nextpolicy>")),
                ElementsAre("next-id-raised policies/nextpolicy [5]: The next ID is 9 instead of 5, because a greater "
                            "one stands behind it. Write 9.",
                            "next-id-repeated policies/nextpolicy [9]: The collection has a next ID before this one. "
                            "Remove one."));
}

TEST(Understood, ANextIDThatIsTooLowForTheIDsIsRaisedWhateverStandsBehindIt)
{
    EXPECT_THAT(misreadingsIn(policies("<nextpolicy>2</nextpolicy><nextpolicy>3</nextpolicy>", 8)),
                ElementsAre("next-id-raised policies/nextpolicy [2]: The next ID is 9 instead of 2, because there are "
                            "greater IDs. Write 9.",
                            "next-id-raised policies/nextpolicy [3]: The next ID is 9 instead of 3, because there are "
                            "greater IDs. Write 9.",
                            "next-id-repeated policies/nextpolicy [3]: The collection has a next ID before this one. "
                            "Remove one."));
}

TEST(Understood, TheLastIDOfAllHasANextOneThatComesBack)
{
    EXPECT_THAT(misreadingsIn(storedText(loadedFrom(policies("", 2147483647)))), IsEmpty());
    EXPECT_THAT(misreadingsIn(policies("<nextpolicy>2147483647</nextpolicy>", 2147483647)),
                ElementsAre("next-id-raised policies/nextpolicy [2147483647]: The next ID is 2147483648 instead of "
                            "2147483647, because there are greater IDs. Write 2147483648."));
}

TEST(Understood, WhateverElseIsReadOtherwiseIsToldToo)
{
    const std::string text   = withName("<name>one</name>");
    IPsecConfig       config = loadedFrom(text);
    config.actions.at(1).nameSet("two");
    config.actions.at(1).typeSet(5);
    const Source source(text, config);
    Findings     findings;
    checkUnderstood(source, findings);
    ASSERT_THAT(findings, testing::SizeIs(2));
    EXPECT_EQ(findings[0].rule->code, std::string("value-changed"));
    EXPECT_EQ(findings[0].message,
              "The value that is in force is not this one. See what 'ipsec-policy show' has, and write that.");
    EXPECT_EQ(textOf(findings[0].path), "actions/1/name");
    EXPECT_EQ(findings[1].rule->code, std::string("value-changed"));
    EXPECT_EQ(textOf(findings[1].path), "actions/1/type");
}

TEST(Understood, TheSamplesAreUnderstood)
{
    for (const std::string name : {"branch-office", "home-router", "server-farm"})
        EXPECT_THAT(misreadingsIn(contentOf(EXAMPLES_DIR "/configs/" + name + ".xml")), IsEmpty()) << name;
}

TEST(Understood, EachRuleHasACodeOfItsOwnAndAllItsTexts)
{
    std::set<std::string> codes;
    for (const Rule* rule : understoodRules()) {
        EXPECT_TRUE(codes.insert(rule->code).second) << rule->code;
        EXPECT_EQ(std::string(rule->code).find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string::npos);
        const std::string summary     = rule->summary;
        const std::string explanation = rule->explanation;
        EXPECT_TRUE(!summary.empty() && summary.back() != '.') << rule->code;
        EXPECT_TRUE(!explanation.empty() && explanation.back() != '\n') << rule->code;
        for (std::size_t start = 0; start < explanation.size();) {
            const std::size_t end = std::min(explanation.find('\n', start), explanation.size());
            EXPECT_LE(end - start, 80U) << explanation.substr(start, end - start);
            start = end + 1;
        }
    }
}

} // namespace
