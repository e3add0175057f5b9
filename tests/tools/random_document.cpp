#include "random_document.h"

#include "program.h"
#include "random_text.h"

#include <algorithm>
#include <cstddef>

namespace {

const char BLANKS[] = " \t\n\v\f\r";

std::string leaf(const std::string& tag, const std::string& text)
{
    return "<" + tag + ">" + text + "</" + tag + ">";
}

std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(BLANKS);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(BLANKS) + 1 - first);
}

} // namespace

RandomDocuments::RandomDocuments(unsigned int seed, bool isLossy)
    : random_(seed)
    , isLossy_(isLossy)
{
    for (int i = 0; i < 6; ++i) {
        elements_[0].push_back(group("hostGroup"));
        elements_[1].push_back(group("protocolGroup"));
        elements_[2].push_back(action());
        elements_[3].push_back(policy());
    }
}

std::string RandomDocuments::next()
{
    return "<ipsec>" + collection("hostGroups", "hostGroup", elements_[0]) +
           collection("protocolGroups", "protocolGroup", elements_[1]) + collection("actions", "action", elements_[2]) +
           collection("policies", "policy", elements_[3]) + "</ipsec>";
}

std::string RandomDocuments::collection(const std::string& plural, const std::string& singular, const Texts& elements)
{
    std::string text = "<" + plural + ">";
    if (oneIn(2))
        text += wordLeaf("next" + singular, {"1", "7", "12", "2147483647"});
    for (const unsigned int id : {1U, 2U, 3U, 5U, 8U, 9U})
        if (!oneIn(3))
            text += entry(singular, id, oneOf(elements));
    for (const unsigned int id : {2147483646U, 2147483647U})
        if (oneIn(8))
            text += entry(singular, id, oneOf(elements));
    return text + "</" + plural + ">";
}

unsigned int RandomDocuments::below(std::size_t count)
{
    return randomNumber(random_, static_cast<unsigned int>(count - 1));
}

std::string RandomDocuments::number(long long least, long long greatest)
{
    const std::string usual = std::to_string(below(4));
    return oneIn(4) ? std::to_string(greatest) : oneIn(4) ? std::to_string(least) : usual;
}

std::string RandomDocuments::numberLeaf(const std::string& tag, long long least, long long greatest)
{
    return leaf(tag, number(least, greatest));
}

std::string RandomDocuments::wordLeaf(const std::string& tag, const Texts& words)
{
    return leaf(tag, oneOf(words));
}

std::string RandomDocuments::text()
{
    std::string text = oneIn(2) ? randomText(random_) : oneOf({"", "Office", "Tunnel 7", "7", "?", "@x", "name=y"});
    text.erase(std::remove(text.begin(), text.end(), '<'), text.end());
    return trimmed(text);
}

std::string RandomDocuments::textLeaf(const std::string& tag)
{
    if (isLossy_ && oneIn(4))
        return "<" + tag + " value=\"" + oneOf({"a<b", " x", "x\n", "<"}) + "\"/>";
    return leaf(tag, text());
}

std::string RandomDocuments::hostSelector()
{
    const std::string type =
        oneOf({"NONE", "SINGLE", "RANGE", "SUBNET_LENGTH", "SUBNET_MASK", "LOCAL", "ANY", "MCAST"});
    const bool        is6     = oneIn(2);
    const std::string address = leaf("addr1", oneOf({"10.0.0.1", "::1", text()}));
    // Only of these families there are masks.
    std::string family = is6 ? "AF_INET6" : "AF_INET";
    std::string rest;
    if (type == "SUBNET_LENGTH")
        rest = address + numberLeaf("length", -1, 200);
    else if (type == "SUBNET_MASK")
        rest = address + leaf("mask", is6 ? oneOf({"ffff::", "ffff:0::ffff"}) : oneOf({"255.0.0.0", "255.0.255.0"}));
    else
        family = oneOf({"AF_INET", "AF_INET6", "AF_ANY"});
    if (type == "SINGLE" || type == "RANGE")
        rest = isLossy_ ? textLeaf("addr1") : address;
    if (type == "RANGE")
        rest += leaf("addr2", oneOf({"10.0.0.9", "::2", text()}));
    return leaf("hostSelector", leaf("family", family) + leaf("selectorType", type) + rest);
}

std::string RandomDocuments::protocolSelector()
{
    const std::string protocol = oneOf({"0", "6", "17", "1", "200", "65535"});
    std::string       name     = text();
    if (name.empty())
        name = "Protocol";
    std::string rest = isLossy_ && oneIn(4) ? "" : leaf("name", name);
    if (protocol != "0" && oneIn(2))
        rest += numberLeaf("dstPort", 0, 65535) + numberLeaf("srcPort", 0, 65535);
    return leaf("protocolSelector", leaf("protocol", protocol) + rest + wordLeaf("direction", {"IN", "OUT", "INOUT"}) +
                                        wordLeaf("mirrored", {"MIRRORED", "NOTMIRRORED"}));
}

std::string RandomDocuments::group(const std::string& tag)
{
    std::string selectors;
    for (unsigned int left = below(6); left > 0; --left)
        selectors += tag == "hostGroup" ? hostSelector() : protocolSelector();
    return leaf(tag, textLeaf("name") + numberLeaf("builtinName", -2147483647 - 1, 2147483647) + textLeaf("descr") +
                         numberLeaf("builtinDescr", -2147483647 - 1, 2147483647) + leaf("selectors", selectors));
}

std::string RandomDocuments::saProposal()
{
    return leaf("saProposal", wordLeaf("protocol", {"NONE", "AH", "ESP", "ESP+AH"}) +
                                  numberLeaf("encryption", 0, 4294967295) + numberLeaf("hash", 0, 4294967295));
}

std::string RandomDocuments::groupAndLifetime()
{
    return wordLeaf("dhGroup", {"NONE", "G1", "G2", "G14"}) + numberLeaf("keyLifetime", 0, 4294967295) +
           wordLeaf("keyLifetimeUnits", {"SECS", "KB", "MINS", "HRS"});
}

std::string RandomDocuments::keyExchange()
{
    const std::string credentials = oneIn(2) ? leaf("authType", "PSK") + textLeaf("presharedKey")
                                             : leaf("authType", "RSA") + textLeaf("localCert") + textLeaf("peerTrust");
    std::string       transforms;
    for (unsigned int left = below(4); left > 0; --left)
        transforms += wordLeaf("transform", {"IKE_NONE", "IKE_AES_SHA", "IKE_3DES_MD5"});
    std::string proposals;
    for (unsigned int left = below(4); left > 0; --left)
        proposals += saProposal();
    return leaf("ikePhase1", credentials + leaf("proposal", groupAndLifetime() + transforms)) +
           leaf("ikePhase2", groupAndLifetime() + proposals);
}

std::string RandomDocuments::manualKey()
{
    const std::string protocol   = oneOf({"NONE", "AH", "ESP", "ESP+AH"});
    const std::string encryption = oneOf({"0", "1", "2", "4294967295"});
    const std::string hash       = oneOf({"0", "1", "2", "4294967295"});

    std::string fields =
        leaf("saProposal", leaf("protocol", protocol) + leaf("encryption", encryption) + leaf("hash", hash));
    if (protocol.substr(0, 3) == "ESP")
        fields += numberLeaf("inboundESPSPI", 0, 4294967295) + numberLeaf("outboundESPSPI", 0, 4294967295);
    if (protocol.find("AH") != std::string::npos)
        fields += numberLeaf("inboundAHSPI", 0, 4294967295) + numberLeaf("outboundAHSPI", 0, 4294967295);
    if (encryption > "1")
        fields += textLeaf("inboundDecrKey") + textLeaf("outboundEncrKey") + textLeaf("outboundEncrIV");
    if (hash > "1")
        fields += textLeaf("inboundAuthKey") + textLeaf("outboundAuthKey");
    return leaf("manualKey", fields);
}

std::string RandomDocuments::action()
{
    const std::string mode = oneOf({"NONE", "BYPASS", "DISCARD", "TRANSPORT", "TUNNEL", "TUNNEL", "TUNNEL"});
    std::string       rest = mode == "TUNNEL" ? textLeaf("tunnelEndpoint") : "";
    if (mode == "TUNNEL" || mode == "TRANSPORT")
        rest += oneIn(4)   ? leaf("keyMgr", "NONE")
                : oneIn(2) ? leaf("keyMgr", "MKM") + manualKey()
                           : leaf("keyMgr", "IKE") + keyExchange();
    const auto builtIn = [this](const std::string& tag) {
        return oneIn(2) ? leaf(tag, "0") : numberLeaf(tag, -2147483647 - 1, 2147483647);
    };
    return leaf("action", numberLeaf("changeCount", -2147483647 - 1, 2147483647) + textLeaf("name") +
                              builtIn("builtinName") + textLeaf("descr") + builtIn("builtinDescr") +
                              numberLeaf("type", -2147483647 - 1, 2147483647) +
                              numberLeaf("state", -2147483647 - 1, 2147483647) + leaf("spdAction", mode) + rest);
}

std::string RandomDocuments::policy()
{
    const auto         reference = [this] { return oneIn(8) ? 4294967295U : oneIn(8) ? 2147483647U : below(11); };
    const unsigned int hosts = reference(), traffic = reference();
    return ::policy(hosts, traffic, reference());
}
