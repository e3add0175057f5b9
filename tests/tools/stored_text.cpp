#include "storable.h"

#include "check_samples.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

using namespace ipsecimpl;

namespace {

/// A text of a configuration, as one can put it there and get it back.
struct Place {
    const char* name;
    IPsecConfig (*put)(const std::string& text);
    std::string (*get)(const IPsecConfig& config);
    bool isSelectorName = false;
};

const HostSelector& firstHost(const IPsecConfig& config)
{
    return *config.hostGroups.at(1).selectors.begin();
}

template <std::string MKM::*Key>
IPsecConfig putKey(const std::string& text)
{
    return having(manual([&](MKM& key) { key.*Key = text; }));
}

template <std::string MKM::*Key>
std::string getKey(const IPsecConfig& config)
{
    return config.actions.at(1).manualKeyGet().*Key;
}

// clang-format off
const Place PLACES[] = {
    {"host group's name",
     [](const std::string& t) { return plain([&](IPsecConfig& c) { c.hostGroups.at(1).name = t; }); },
     [](const IPsecConfig& c) { return c.hostGroups.at(1).name; }},
    {"protocol group's description",
     [](const std::string& t) { return plain([&](IPsecConfig& c) { c.protocolGroups.at(1).descr = t; }); },
     [](const IPsecConfig& c) { return c.protocolGroups.at(1).descr; }},
    {"address",
     [](const std::string& t) { return having(HostSelector(HOST_INET, HOST_SINGLE, t, "")); },
     [](const IPsecConfig& c) { return firstHost(c).addr1; }},
    {"second address",
     [](const std::string& t) { return having(HostSelector(HOST_INET, HOST_RANGE, "192.0.2.1", t)); },
     [](const IPsecConfig& c) { return firstHost(c).addr2; }},
    {"subnet's address",
     [](const std::string& t) { return having(HostSelector(HOST_INET, HOST_SUBNET_LENGTH, t, 8)); },
     [](const IPsecConfig& c) { return firstHost(c).addr1; }},
    {"protocol selector's name",
     [](const std::string& t) { return plain([&](IPsecConfig& c) {
         c.protocolGroups.at(1).selectors = std::set{ProtocolSelector(t, 6, 0, 0, PROTO_IN, false)}; }); },
     [](const IPsecConfig& c) { return c.protocolGroups.at(1).selectors.begin()->name; }, true},
    {"action's name",
     [](const std::string& t) { return plain([&](IPsecConfig& c) { c.actions.at(1).nameSet(t); }); },
     [](const IPsecConfig& c) { return c.actions.at(1).nameGet(); }},
    {"tunnel end point",
     [](const std::string& t) { return having(tunnel(KEYMGR_IKE, t)); },
     [](const IPsecConfig& c) { return c.actions.at(1).tunnelEndpointGet(); }},
    {"pre-shared key",
     [](const std::string& t) { return having(authenticated(IKE_AUTH_PSK, "", "", t)); },
     [](const IPsecConfig& c) { return c.actions.at(1).ikePhase1Get().presharedKeyGet(); }},
    {"certificate",
     [](const std::string& t) { return having(authenticated(IKE_AUTH_RSA, t, "", "")); },
     [](const IPsecConfig& c) { return c.actions.at(1).ikePhase1Get().localCertGet(); }},
    {"trust",
     [](const std::string& t) { return having(authenticated(IKE_AUTH_RSA, "", t, "")); },
     [](const IPsecConfig& c) { return c.actions.at(1).ikePhase1Get().peerTrustGet(); }},
    {"inbound key", putKey<&MKM::inboundDecrKey>, getKey<&MKM::inboundDecrKey>},
    {"outbound key", putKey<&MKM::outboundEncrKey>, getKey<&MKM::outboundEncrKey>},
    {"initialisation vector", putKey<&MKM::outboundEncrIV>, getKey<&MKM::outboundEncrIV>},
    {"inbound authentication key", putKey<&MKM::inboundAuthKey>, getKey<&MKM::inboundAuthKey>},
    {"outbound authentication key", putKey<&MKM::outboundAuthKey>, getKey<&MKM::outboundAuthKey>},
};
// clang-format on

/// Whether the text comes back when the configuration is stored and loaded.
bool comesBack(IPsecConfig config, const Place& place, const std::string& text)
{
    std::stringstream stream;
    config.exportXML(stream);
    try {
        XMLParser parser(stream);
        return place.get(IPsecConfig::importXML(parser)) == text;
    } catch (const ParseError&) {
        return false;
    }
}

bool isFound(const IPsecConfig& config)
{
    for (const Finding& finding : findingsIn(config))
        for (const char* const code : {"markup-in-text", "outer-white-space", "unnamed-selector"})
            if (finding.rule->code == std::string(code))
                return true;
    return false;
}

/// Each byte at the start and at the end; all texts of up to two of the characters that matter;
/// and some that try to pass for markup.
std::vector<std::string> texts()
{
    std::vector<std::string> all = {"",
                                    "&amp;",
                                    "&lt;descr>",
                                    "]]>",
                                    "</descr>",
                                    "<descr>x</descr>",
                                    "x</name><name>x",
                                    "</name>\n<builtinName>0</builtinName>",
                                    "<!--",
                                    "<name/>",
                                    "\"a\"",
                                    "value=\"a\""};
    for (int byte = 0; byte < 256; ++byte) {
        const std::string character(1, static_cast<char>(byte));
        all.insert(all.end(), {character + "x", "x" + character});
    }
    const std::string special("< >&/\t\n\v\f\r\0\xff\xa0\x85=a", 16);
    for (const char first : special)
        for (const char second : special)
            all.push_back({first, second});
    return all;
}

TEST(StoredText, IsFoundIfItDoesNotComeBack)
{
    for (const Place& place : PLACES)
        for (const std::string& text : texts()) {
            const IPsecConfig config    = place.put(text);
            const bool        survived  = comesBack(config, place, text);
            const bool        isUnnamed = place.isSelectorName && text.empty();
            EXPECT_EQ(!isUnnamed && obstacleToStoring(std::string_view(text)) == nullptr, survived)
                << place.name << " '" << text << "'";
            EXPECT_NE(isFound(config), survived) << place.name << " '" << text << "'";
        }
}

/// What the reader lets in is found, not only what programs make.
TEST(StoredText, IsFoundInADocument)
{
    const std::string document =
        "<ipsec><hostGroups><hostGroupEntry><id>1</id><hostGroup><name value=\"a<b\"/><builtinName>0</builtinName>"
        "<descr value=' x'/><builtinDescr>0</builtinDescr><selectors/></hostGroup></hostGroupEntry></hostGroups>"
        "<protocolGroups><protocolGroupEntry><id>1</id><protocolGroup><name/><builtinName/><descr/><builtinDescr/>"
        "<selectors><protocolSelector><protocol>6</protocol><direction>IN</direction><mirrored>MIRRORED</mirrored>"
        "</protocolSelector></selectors></protocolGroup></protocolGroupEntry></protocolGroups><actions/><policies/>"
        "</ipsec>";
    std::istringstream in(document);
    XMLParser          parser(in);
    const Findings     findings = findingsIn(IPsecConfig::importXML(parser));
    EXPECT_EQ(textsOf(findings, "markup-in-text").size(), 1U);
    EXPECT_EQ(textsOf(findings, "outer-white-space").size(), 1U);
    EXPECT_EQ(textsOf(findings, "unnamed-selector").size(), 1U);
}

} // namespace
