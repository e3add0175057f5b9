#include "hostile/small_documents.h"

#include <stdexcept>

namespace ipsecimpl {
namespace {

const std::string policyText = R"(<policy>
<hostGroupID>1</hostGroupID>
<protocolGroupID>2</protocolGroupID>
<actionID>3</actionID>
</policy>
)";

std::string hostSelector(const std::string& type, const std::string& rest)
{
    return "<hostSelector>\n<family>AF_INET</family>\n<selectorType>" + type + "</selectorType>\n" + rest +
           "</hostSelector>\n";
}

const std::string protocolSelectorText = R"(<protocolSelector>
<protocol>6</protocol>
<name>web</name>
<dstPort>80</dstPort>
<srcPort>1</srcPort>
<direction>OUT</direction>
<mirrored>MIRRORED</mirrored>
</protocolSelector>
)";

const std::string anyProtocolText = R"(<protocolSelector>
<protocol>0</protocol>
<name>all</name>
<direction>IN</direction>
<mirrored>NOTMIRRORED</mirrored>
</protocolSelector>
)";

std::string group(const std::string& tag, const std::string& selectors)
{
    return "<" + tag + ">\n<name>n</name>\n<builtinName>1</builtinName>\n<descr>d</descr>\n" +
           "<builtinDescr>-2</builtinDescr>\n<selectors>\n" + selectors + "</selectors>\n</" + tag + ">\n";
}

std::string saProposal(const std::string& protocol, const std::string& number)
{
    return "<saProposal>\n<protocol>" + protocol + "</protocol>\n<encryption>" + number + "</encryption>\n<hash>" +
           number + "</hash>\n</saProposal>\n";
}

const std::string proposalText = R"(<proposal>
<dhGroup>G2</dhGroup>
<keyLifetime>480</keyLifetime>
<keyLifetimeUnits>MINS</keyLifetimeUnits>
<transform>IKE_AES_SHA</transform>
</proposal>
)";

std::string phase1(const std::string& type, const std::string& credentials)
{
    return "<ikePhase1>\n<authType>" + type + "</authType>\n" + credentials + proposalText + "</ikePhase1>\n";
}

const std::string pskText = phase1("PSK", "<presharedKey>key</presharedKey>\n");
const std::string rsaText = phase1("RSA", "<localCert>own</localCert>\n<peerTrust>root</peerTrust>\n");

const std::string phase2Text = "<ikePhase2>\n<dhGroup>NONE</dhGroup>\n<keyLifetime>8</keyLifetime>\n"
                               "<keyLifetimeUnits>KB</keyLifetimeUnits>\n" +
                               saProposal("AH", "1") + "</ikePhase2>\n";

const std::string keyText = "<manualKey>\n" + saProposal("ESP+AH", "2") + R"(<inboundESPSPI>256</inboundESPSPI>
<outboundESPSPI>257</outboundESPSPI>
<inboundAHSPI>258</inboundAHSPI>
<outboundAHSPI>259</outboundAHSPI>
<inboundDecrKey>k1</inboundDecrKey>
<outboundEncrKey>k2</outboundEncrKey>
<outboundEncrIV>iv</outboundEncrIV>
<inboundAuthKey>k3</inboundAuthKey>
<outboundAuthKey>k4</outboundAuthKey>
</manualKey>
)";

const std::string noKeyText = "<manualKey>\n" + saProposal("NONE", "0") + "</manualKey>\n";

std::string action(const std::string& spdAction, const std::string& rest)
{
    return R"(<action>
<changeCount>1</changeCount>
<name>n</name>
<builtinName>2</builtinName>
<descr>d</descr>
<builtinDescr>3</builtinDescr>
<type>4</type>
<state>5</state>
<spdAction>)" +
           spdAction + "</spdAction>\n" + rest + "</action>\n";
}

const std::string bypassText = action("BYPASS", "");
const std::string manualText = action("TRANSPORT", "<keyMgr>MKM</keyMgr>\n" + noKeyText);
const std::string ikeText =
    action("TUNNEL", "<tunnelEndpoint>e</tunnelEndpoint>\n<keyMgr>IKE</keyMgr>\n" + pskText + phase2Text);

std::string collection(const std::string& plural, const std::string& singular, const std::string& element)
{
    return "<" + plural + ">\n<next" + singular + ">3</next" + singular + ">\n<" + singular + "Entry>\n<id>2</id>\n" +
           element + "</" + singular + "Entry>\n</" + plural + ">\n";
}

std::string emptyCollection(const std::string& plural, const std::string& singular)
{
    return "<" + plural + ">\n<next" + singular + ">1</next" + singular + ">\n</" + plural + ">\n";
}

const std::string emptyConfigText =
    "<ipsec>\n" + emptyCollection("hostGroups", "hostGroup") + emptyCollection("protocolGroups", "protocolGroup") +
    emptyCollection("actions", "action") + emptyCollection("policies", "policy") + "</ipsec>\n";

// What the library reads and never writes: other forms of leaves, white space, another order, collections that are
// closed at once.

const std::string loosePolicyText = "\n<policy >\t<hostGroupID value=\"1\"/> <protocolGroupID\nvalue = '2' ></"
                                    "protocolGroupID> <actionID value=3 />\r\n</policy>";

const std::string looseProtocolSelectorText = "<protocolSelector > <mirrored>MIRRORED </mirrored>\n<direction >IN"
                                              "</direction><name> a b </name><protocol>6</protocol></protocolSelector>";

const std::string looseGroupText = "<hostGroup><name/><builtinName value='0x1'/><descr></descr><builtinDescr/>"
                                   "<selectors/></hostGroup>";

const std::string looseCollectionText = "<policies ><policyEntry ><id value='7'/>" + loosePolicyText +
                                        "</policyEntry><nextpolicy > 9 </nextpolicy></policies>";

const std::string looseConfigText = "<ipsec><hostGroups/><protocolGroups></protocolGroups><actions /><policies/>"
                                    "</ipsec>";

const Element& elementOf(const std::string& text)
{
    const std::size_t begin = text.find('<') + 1;
    const std::string tag   = text.substr(begin, text.find_first_of(" >/", begin) - begin);
    for (const Element& element : elements)
        if (element.tag == tag)
            return element;
    throw std::invalid_argument("no element " + tag);
}

} // namespace

const std::vector<SmallDocument>& smallDocuments()
{
    static const std::vector<SmallDocument> all = [] {
        const std::string address = "<addr1>a</addr1>\n";
        const std::string single  = hostSelector("SINGLE", address);

        const std::vector<std::pair<std::string, std::string>> written{
            {"policy", policyText},
            {"hostSelector-any", hostSelector("ANY", "")},
            {"hostSelector-single", single},
            {"hostSelector-range", hostSelector("RANGE", address + "<addr2>b</addr2>\n")},
            {"hostSelector-length", hostSelector("SUBNET_LENGTH", address + "<length>24</length>\n")},
            {"hostSelector-mask", hostSelector("SUBNET_MASK", address + "<mask>255.0.0.0</mask>\n")},
            {"protocolSelector", protocolSelectorText},
            {"protocolSelector-any", anyProtocolText},
            {"hostGroup", group("hostGroup", single)},
            {"hostGroup-empty", group("hostGroup", "")},
            {"protocolGroup", group("protocolGroup", anyProtocolText)},
            {"saProposal", saProposal("ESP", "12")},
            {"proposal", proposalText},
            {"ikePhase1-psk", pskText},
            {"ikePhase1-rsa", rsaText},
            {"ikePhase2", phase2Text},
            {"manualKey", keyText},
            {"manualKey-none", noKeyText},
            {"action-bypass", bypassText},
            {"action-manual", manualText},
            {"action-ike", ikeText},
            {"hostGroups", collection("hostGroups", "hostGroup", group("hostGroup", ""))},
            {"protocolGroups", collection("protocolGroups", "protocolGroup", group("protocolGroup", ""))},
            {"actions", collection("actions", "action", bypassText)},
            {"policies", collection("policies", "policy", policyText)},
            {"ipsec", emptyConfigText},
        };
        const std::vector<std::pair<std::string, std::string>> loose{
            {"policy-loose", loosePolicyText},   {"protocolSelector-loose", looseProtocolSelectorText},
            {"hostGroup-loose", looseGroupText}, {"policies-loose", looseCollectionText},
            {"ipsec-loose", looseConfigText},
        };
        std::vector<SmallDocument> documents;
        for (const auto& [name, text] : written)
            documents.push_back({name, elementOf(text), text, true});
        for (const auto& [name, text] : loose)
            documents.push_back({name, elementOf(text), text, false});
        return documents;
    }();
    return all;
}

const SmallDocument& smallDocument(const std::string& name)
{
    for (const SmallDocument& document : smallDocuments())
        if (document.name == name)
            return document;
    throw std::invalid_argument("no document " + name);
}

} // namespace ipsecimpl
