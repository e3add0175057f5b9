// Where a document that does not load is wrong, and which elements are open there.

#include "document.h"
#include "program.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::optional<LoadFault> faultOf(const std::string& text)
{
    try {
        parseDocument(text);
        return std::nullopt;
    } catch (const LoadError& error) {
        return error.fault;
    }
}

std::vector<std::string> elementsBefore(const std::string& text, std::size_t end)
{
    std::vector<std::string> names;
    for (const OpenElement& element : tagsBefore(text, end).open)
        names.emplace_back(element.name);
    return names;
}

using Names = std::vector<std::string>;

TEST(TagsBefore, AreThoseOfTheOpenElements)
{
    const std::string text = "<a><b/><c x='</a>'><d>1 > 0 </d ><e v=1 />text</c></a>";
    EXPECT_EQ(elementsBefore(text, 0), Names());
    EXPECT_EQ(elementsBefore(text, text.find("<b")), Names({"a"}));
    EXPECT_EQ(elementsBefore(text, text.find("<c")), Names({"a"}));
    EXPECT_EQ(elementsBefore(text, text.find("<d")), Names({"a", "c"}));
    EXPECT_EQ(elementsBefore(text, text.find("</d")), Names({"a", "c", "d"}));
    // An end tag with a blank is none.
    EXPECT_EQ(elementsBefore(text, text.find("<e")), Names({"a", "c", "d"}));
}

TEST(TagsBefore, OfNonsenseAreWhatIsKnown)
{
    EXPECT_EQ(elementsBefore("</a></b>", 8), Names());
    EXPECT_EQ(elementsBefore("<a><", 4), Names({"a"}));
    EXPECT_EQ(elementsBefore("<a></", 5), Names({"a"}));
    EXPECT_EQ(elementsBefore("<a><b x='", 9), Names({"a"}));
    EXPECT_EQ(elementsBefore(std::string("<a>\0<b\0>", 8), 8), Names({"a"}));
    EXPECT_EQ(elementsBefore("<a>", 100), Names({"a"}));
    EXPECT_EQ(elementsBefore("", 0), Names());
}

TEST(TagsBefore, OfMillionsOfStartTagsTakeNoDeepStack)
{
    const std::size_t COUNT = 1'000'000;
    std::string       text;
    for (std::size_t i = 0; i < COUNT; ++i)
        text += "<a>";
    EXPECT_EQ(tagsBefore(text, text.size()).open.size(), COUNT);
}

/// Whether `elements` are those before the fault, or those and the one whose tag is wrong.
void expectElementsOf(const std::string& text, const LoadFault& fault)
{
    Names before = elementsBefore(text, fault.place.offset);
    if (fault.openElements.size() == before.size() + 1) {
        const std::size_t      begun = tagsBefore(text, fault.place.offset).unfinished;
        const std::string_view tag   = tagNameAt(text, begun != std::string::npos ? begun : fault.place.offset);
        before.emplace_back(isWordOfFormat(tag) ? tag : "");
    }
    EXPECT_EQ(fault.openElements, before) << text << '\n' << fault.message;
}

std::string sample()
{
    const std::string host = "<hostSelector><family>AF_INET</family><selectorType>SINGLE</selectorType>"
                             "<addr1 value='192.0.2.1'/></hostSelector>";
    const std::string mode =
        "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK</authType>"
        "<presharedKey>k</presharedKey><proposal><dhGroup>G14</dhGroup><keyLifetime>1</keyLifetime>"
        "<keyLifetimeUnits>HRS</keyLifetimeUnits><transform>IKE_AES_SHA</transform></proposal>"
        "</ikePhase1><ikePhase2><dhGroup>G14</dhGroup><keyLifetime>1</keyLifetime>"
        "<keyLifetimeUnits>MINS</keyLifetimeUnits></ikePhase2>";
    return document(entry("hostGroup", 1, group("hostGroup", "n", "", host)), "",
                    entry("action", 1, action("a", "", mode)), entry("policy", 1, policy(1, 1, 1)));
}

TEST(LoadFault, HasTheElementsThatAreOpenWhereverADocumentEnds)
{
    const std::string text = sample();
    ASSERT_FALSE(faultOf(text));
    const std::size_t end = text.rfind('>');
    for (std::size_t size = 1; size <= end; ++size) {
        const std::string              start = text.substr(0, size);
        const std::optional<LoadFault> fault = faultOf(start);
        ASSERT_TRUE(fault) << start;
        expectElementsOf(start, *fault);
        EXPECT_NE(fault->advice, "");
    }
}

TEST(LoadFault, HasTheElementsThatAreOpenWhereverACharacterIsWrong)
{
    const std::string text   = sample();
    std::size_t       faults = 0;
    for (const char c : {'<', '>', '/', 'x', '='}) {
        for (std::size_t at = 0; at < text.size(); ++at) {
            for (const std::size_t replaced : {std::size_t(0), std::size_t(1)}) {
                std::string changed = text;
                changed.replace(at, replaced, 1, c);
                if (const std::optional<LoadFault> fault = faultOf(changed)) {
                    ++faults;
                    expectElementsOf(changed, *fault);
                    EXPECT_LE(fault->place.end(), changed.size());
                    EXPECT_NE(fault->advice, "");
                    EXPECT_EQ(fault->advice.find("ipsec-policy new"), std::string::npos) << fault->message;
                }
            }
        }
    }
    EXPECT_GT(faults, text.size() * 5);
}

/// What is marked of a document.
std::string markedIn(const std::string& text)
{
    const std::optional<LoadFault> fault = faultOf(text);
    return fault ? text.substr(fault->place.offset, fault->place.length) : "(loads)";
}

TEST(LoadFault, MarksTheWholeTag)
{
    EXPECT_EQ(markedIn("<ipsec><policies>\n"), "<policies>");
    EXPECT_EQ(markedIn("<ipsec><policies />\n"), "<policies />");
    EXPECT_EQ(markedIn("<ipsec a='>'>\n"), "<ipsec a='>'>");
    EXPECT_EQ(markedIn("<ipsec a='1' b='2'>\n"), "<ipsec a='1' b='2'>");
    EXPECT_EQ(markedIn("<ipsec><hostGroups></hostGroups >\n"), "</hostGroups >");
    EXPECT_EQ(markedIn("<ipsec><hostGroups></policies>\n"), "</policies>");
    EXPECT_EQ(markedIn("<ipsec><hostGroups><hosts>\n"), "<hosts>");
    EXPECT_EQ(markedIn("<ipsec></ipsec>\n"), "</ipsec>");
    EXPECT_EQ(markedIn("<ipsec><host<x>\n"), "<host<x>");
}

TEST(LoadFault, MarksTheWholeLeafThoughItsEndTagIsNotRead)
{
    const auto inPolicies = [](const std::string& text) { return document("", "", "", text); };
    EXPECT_EQ(markedIn(inPolicies("<nextpolicy>abc</nextpolicy>")), "<nextpolicy>abc</nextpolicy>");
    EXPECT_EQ(markedIn(inPolicies("<nextpolicy>\n0\n</nextpolicy>")), "<nextpolicy>\n0\n</nextpolicy>");
    EXPECT_EQ(markedIn(inPolicies("<nextpolicy></nextpolicy>")), "<nextpolicy></nextpolicy>");
    EXPECT_EQ(markedIn(inPolicies("<nextpolicy>\n</nextpolicy>")), "<nextpolicy>\n</nextpolicy>");
    EXPECT_EQ(markedIn(inPolicies("<nextpolicy/>")), "<nextpolicy/>");
    EXPECT_EQ(markedIn(inPolicies("<nextpolicy>0<b/></nextpolicy>")), "<nextpolicy>");
    const auto inSelector = [](const std::string& text) {
        return document("",
                        entry("protocolGroup", 1,
                              group("protocolGroup", "n", "", "<protocolSelector>" + text + "</protocolSelector>")));
    };
    EXPECT_EQ(markedIn(inSelector("<name></name>")), "<name></name>");
    EXPECT_EQ(markedIn(inSelector("<name> </name>")), "<name> </name>");
    EXPECT_EQ(markedIn(inSelector("<name><b/></name>")), "<name>");
}

TEST(LoadFault, HasNoLeafAmongTheOpenElementsThatIsMarkedWhole)
{
    for (const std::string text : {"<nextpolicy>abc</nextpolicy>", "<nextpolicy></nextpolicy>",
                                   "<nextpolicy> "
                                   "</nextpolicy>"}) {
        const std::optional<LoadFault> fault = faultOf(document("", "", "", text));
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->openElements, Names({"ipsec", "policies"})) << text;
    }
}

TEST(LoadFault, TakesNoTagOutOfAnAttribute)
{
    const std::string one = entry("policy", 1, policy(1, 1, 1));
    std::string       two = one;
    two.replace(two.find("<hostGroupID>1</hostGroupID>"), 28, "<hostGroupID value='<id>1'/>");
    const std::string text = document("", "", "", one + two);
    EXPECT_EQ(markedIn(text), "<id>");
    const std::optional<LoadFault> fault = faultOf(text);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->message, "duplicate ID");
    EXPECT_EQ(fault->place.offset, text.rfind("<policyEntry>") + 13);
    EXPECT_EQ(fault->openElements, Names({"ipsec", "policies", "policyEntry"}));
}

} // namespace
