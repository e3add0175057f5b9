#include "source.h"

#include "loaded_document.h"
#include "program.h"
#include "source_documents.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>

using namespace ipsecimpl;
using testing::IsEmpty;

namespace {

std::string hostSelector(const std::string& address)
{
    return "<hostSelector><family>AF_INET</family><selectorType>SINGLE</selectorType><addr1>" + address +
           "</addr1></hostSelector>";
}

std::string hostGroups(const std::string& selectors)
{
    return document(entry("hostGroup", 7, group("hostGroup", "web", "d", selectors)));
}

TEST(Source, FindsTheTextOfALeaf)
{
    const LoadedDocument loaded(ikeAction(PHASES));
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "name"), "a");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "keyMgr"), "IKE");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase1/presharedKey"), "Kq7Zm");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase1/proposal/dhGroup"), "G2");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase2/dhGroup"), "G14");
}

TEST(Source, FindsTheMembersOfLists)
{
    const LoadedDocument loaded(ikeAction(PHASES));
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase1/proposal/transform/2"), "IKE_3DES_SHA");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase2/saProposal/1/hash"), "3");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase2/saProposal/2/hash"), "4");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase2/saProposal/2"),
              "<saProposal><protocol>AH</protocol><encryption>0</encryption><hash>4</hash></saProposal>");
}

TEST(Source, FindsWholeElementsWhereThereAreChildren)
{
    const LoadedDocument loaded(ikeAction(PHASES));
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase1/proposal"), PROPOSAL);
    const std::string whole = loaded.find(Kind::ACTION, 3, "");
    EXPECT_EQ(whole.substr(0, 8), "<action>");
    EXPECT_EQ(whole.substr(whole.size() - 21), "</ikePhase2></action>");
}

TEST(Source, FindsTheElementOfALeafWithoutText)
{
    const LoadedDocument loaded(document("", "",
                                         "<actionEntry><id>3</id><action><changeCount/><name></name><builtinName value"
                                         "/><descr>  </descr><builtinDescr value=''/><type>0</type><state>0</state>"
                                         "<spdAction>BYPASS</spdAction></action></actionEntry>"));
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "changeCount"), "<changeCount/>");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "name"), "<name></name>");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "builtinName"), "<builtinName value/>");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "descr"), "<descr>  </descr>");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "builtinDescr"), "<builtinDescr value=''/>");
}

TEST(Source, FindsTheElementThatShouldHoldWhatIsMissing)
{
    const LoadedDocument loaded(ikeAction(PHASES));
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase1/proposal/transform/3"), PROPOSAL);
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase1/proposal/nonsense/deeper"), PROPOSAL);
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "tunnelEndpoint"), loaded.find(Kind::ACTION, 3, ""));
    EXPECT_EQ(loaded.find(Kind::POLICY, 9, "actionID"), "<policies></policies>");

    const LoadedDocument group(hostGroups(""));
    EXPECT_EQ(group.find(Kind::HOST_GROUP, 7, "selectors/1/addr1"), "<selectors></selectors>");
    const LoadedDocument closed(document("<hostGroupEntry><id>7</id><hostGroup><name/><builtinName>0</builtinName>"
                                         "<descr/><builtinDescr>0</builtinDescr><selectors/></hostGroup>"
                                         "</hostGroupEntry>"));
    EXPECT_EQ(closed.find(Kind::HOST_GROUP, 7, "selectors/1/addr1"), "<selectors/>");
}

TEST(Source, FindsTextsInAttributes)
{
    const LoadedDocument loaded(document("", "",
                                         "<actionEntry ><id value='3'></id><action><changeCount value = 7 />"
                                         "<name value=\" it's </name> \"/><builtinName\n value='0'\n></builtinName>"
                                         "<descr value=<x/y=z /><builtinDescr>0</builtinDescr><type>0</type>"
                                         "<state>0</state><spdAction>BYPASS</spdAction></action></actionEntry>"));
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "id"), "3");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "changeCount"), "7");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "name"), " it's </name> ");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "builtinName"), "0");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "descr"), "<x/y=z");
    EXPECT_EQ(loaded.find(Kind::ACTION, 3, "spdAction"), "BYPASS");
}

TEST(Source, FindsSelectorsByTheirNumberInTheConfiguration)
{
    const LoadedDocument loaded(hostGroups(hostSelector("10.0.0.1") + hostSelector("10.0.0.3") +
                                           hostSelector("10.0.0.1") + hostSelector("10.0.0.2")));
    EXPECT_EQ(loaded.find(Kind::HOST_GROUP, 7, "selectors/1/addr1"), "10.0.0.3");
    EXPECT_EQ(loaded.find(Kind::HOST_GROUP, 7, "selectors/2/addr1"), "10.0.0.2");
    EXPECT_EQ(loaded.find(Kind::HOST_GROUP, 7, "selectors/3/addr1"), "10.0.0.1");
    EXPECT_EQ(loaded.place({Kind::HOST_GROUP, 7, "selectors/3"}).offset, loaded.text.find("<hostSelector>"));
    EXPECT_EQ(loaded.find(Kind::HOST_GROUP, 7, "selectors/4"), loaded.find(Kind::HOST_GROUP, 7, "selectors"));
}

TEST(Source, FindsProtocolSelectorsWhoseChildrenStandInAnyOrder)
{
    const std::string selectors =
        "<protocolSelector><mirrored>MIRRORED</mirrored><dstPort>443</dstPort><protocol>6</protocol><direction>OUT"
        "</direction></protocolSelector><protocolSelector><direction>IN</direction><protocol>17</protocol><mirrored>"
        "NOTMIRRORED</mirrored><name>DNS</name><srcPort>53</srcPort></protocolSelector>";
    const LoadedDocument loaded(document("", entry("protocolGroup", 2, group("protocolGroup", "p", "", selectors))));
    EXPECT_EQ(loaded.find(Kind::PROTOCOL_GROUP, 2, "selectors/1/name"), "DNS");
    EXPECT_EQ(loaded.find(Kind::PROTOCOL_GROUP, 2, "selectors/2/dstPort"), "443");
    EXPECT_EQ(loaded.find(Kind::PROTOCOL_GROUP, 2, "selectors/2/srcPort"),
              loaded.find(Kind::PROTOCOL_GROUP, 2, "selectors/2"));
    EXPECT_THAT(loaded.source.misreadings(), IsEmpty());
}

TEST(Source, FindsTextsOfAnyLength)
{
    for (const std::string& text : {std::string(2000, 'x'), std::string(490, '\n') + '<', std::string(100000, '>')}) {
        const std::string name         = "<name value='" + text + "'/>";
        std::string       withLongName = ikeAction(PHASES);
        withLongName.replace(withLongName.find("<name>"), 14, name);
        const LoadedDocument loaded(withLongName);
        EXPECT_EQ(loaded.find(Kind::ACTION, 3, "name"), text);
        EXPECT_EQ(loaded.find(Kind::ACTION, 3, "ikePhase2/saProposal/2/hash"), "4");
        EXPECT_THAT(loaded.source.misreadings(), IsEmpty());
    }
}

TEST(Source, FindsEntriesInAnyOrder)
{
    const LoadedDocument loaded(document("", "", "",
                                         entry("policy", 5, policy(50, 1, 1)) + entry("policy", 2, policy(20, 1, 1)) +
                                             "<nextpolicy>6</nextpolicy>" + entry("policy", 4, policy(40, 1, 1))));
    EXPECT_EQ(loaded.find(Kind::POLICY, 2, "hostGroupID"), "20");
    EXPECT_EQ(loaded.find(Kind::POLICY, 4, "hostGroupID"), "40");
    EXPECT_EQ(loaded.find(Kind::POLICY, 5, "hostGroupID"), "50");
    EXPECT_EQ(loaded.find(Kind::POLICY, 4, ""), policy(40, 1, 1));
    EXPECT_EQ(loaded.find(Kind::POLICY, 4, "id"), "4");
    EXPECT_THAT(loaded.source.misreadings(), IsEmpty());
}

TEST(Source, FindsEntriesInAnyOrderBehindTheNextID)
{
    const LoadedDocument loaded(document("", "", "",
                                         "<nextpolicy>4</nextpolicy>" + entry("policy", 1, policy(10, 1, 1)) +
                                             entry("policy", 3, policy(30, 1, 1)) +
                                             entry("policy", 2, policy(20, 1, 1))));
    EXPECT_EQ(loaded.find(Kind::POLICY, 1, "hostGroupID"), "10");
    EXPECT_EQ(loaded.find(Kind::POLICY, 2, "hostGroupID"), "20");
    EXPECT_EQ(loaded.find(Kind::POLICY, 3, "hostGroupID"), "30");
    EXPECT_EQ(loaded.find(Kind::POLICY, 0, "nextpolicy"), "4");
    EXPECT_THAT(loaded.source.misreadings(), IsEmpty());
}

TEST(Source, FindsTheNextID)
{
    const std::string next = "<nextpolicy>1</nextpolicy>";
    EXPECT_EQ(LoadedDocument(document("", "", "", next)).find(Kind::POLICY, 0, "nextpolicy"), "1");
    EXPECT_EQ(
        LoadedDocument(document("", "", "", next + entry("policy", 1, policy(1, 1, 1)) + "<nextpolicy>9</nextpolicy>"))
            .find(Kind::POLICY, 0, "nextpolicy"),
        "9");
    EXPECT_EQ(LoadedDocument(document()).find(Kind::POLICY, 0, "nextpolicy"), "<policies></policies>");
    EXPECT_EQ(LoadedDocument(document("", "", "", next)).find(Kind::POLICY, 0, ""),
              "<policies>" + next + "</policies>");
}

TEST(Source, FindsEverythingInALongListToo)
{
    std::string selectors;
    std::string transforms;
    for (unsigned int i = 1000; i > 0; --i) {
        selectors += hostSelector("10.0." + std::to_string(i / 250) + '.' + std::to_string(i % 250));
        transforms += i == 3 ? "<transform>IKE_DES_MD5</transform>" : "<transform>IKE_AES_SHA</transform>";
    }
    const LoadedDocument hosts(hostGroups(selectors));
    EXPECT_EQ(hosts.find(Kind::HOST_GROUP, 7, "selectors/1000/addr1"), "10.0.0.1");
    EXPECT_EQ(hosts.place({Kind::HOST_GROUP, 7, "selectors/1000"}).offset, hosts.text.find(hostSelector("10.0.0.1")));

    std::string phases = PHASES;
    phases.insert(phases.find("<transform>"), transforms);
    const LoadedDocument actions(ikeAction(phases));
    EXPECT_EQ(actions.find(Kind::ACTION, 3, "ikePhase1/proposal/transform/998"), "IKE_DES_MD5");
    EXPECT_EQ(actions.find(Kind::ACTION, 3, "ikePhase2/saProposal/2/hash"), "4");
    EXPECT_EQ(actions.find(Kind::ACTION, 3, "ikePhase1/proposal/transform/1003"),
              actions.find(Kind::ACTION, 3, "ikePhase1/proposal"));
}

TEST(Source, RefusesAConfigurationOfAnotherDocument)
{
    const IPsecConfig other =
        loadedFrom(document("", "", entry("action", 1, action("x", "", "<spdAction>NONE</spdAction>"))));
    const std::string text = document("", "",
                                      entry("action", 1, action("x", "", "<spdAction>BYPASS</spdAction>")) +
                                          entry("action", 2, action("y", "", "<spdAction>NONE</spdAction>")));
    EXPECT_THROW(Source(text, other), std::logic_error);
    EXPECT_THROW(Source("", other), std::logic_error);
    EXPECT_THROW(Source(text.substr(0, text.size() / 2), other), std::logic_error);
}

} // namespace
