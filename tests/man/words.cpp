// The words and tags of the document in ipsec-policy-config(5) are those of the library.

#include <ipsecimpl/ipsecimpl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

using namespace ipsecimpl;

namespace {

std::string page()
{
    std::ifstream in(MAN_DIR "/ipsec-policy-config.5");
    return {std::istreambuf_iterator<char>(in), {}};
}

/// How the page lists the words of an element.
template <int Num, auto Names>
std::string listOf(const Enum<Num, Names>&)
{
    std::string list;
    for (const char* const name : *Names)
        list += (list.empty() ? "\n.Cm " : " , ") + std::string(name);
    return list + " .\n";
}

/// What the page says of the element `tag` under the heading: up to the next item.
std::string itemOf(const std::string& heading, const std::string& tag)
{
    const std::string text  = page();
    const std::size_t start = text.find("\n.Ss " + heading + '\n');
    const std::size_t item  = text.find("\n.It Ic " + tag + '\n', start);
    if (start == std::string::npos || item == std::string::npos)
        return "there is no " + tag + " under " + heading;
    const std::size_t end = text.find("\n.It ", item + 1);
    return text.substr(item, std::min(end, text.find("\n.El\n", item)) + 1 - item);
}

TEST(ManualPageOfTheDocument, ListsTheWordsThatTheLibraryKnows)
{
    const auto expectList = [](const std::string& heading, const std::string& tag, const auto& value) {
        const std::string item = itemOf(heading, tag);
        EXPECT_NE(item.find("ne of" + listOf(value)), std::string::npos) << item << "lacks" << listOf(value);
    };
    expectList("Host selectors", "family", HOST_INET);
    expectList("Host selectors", "selectorType", HOST_NONE);
    expectList("Protocol selectors", "direction", PROTO_IN);
    expectList("Actions", "spdAction", SPD_NONE);
    expectList("Actions", "keyMgr", KEYMGR_NONE);
    expectList("Proposals of security associations", "protocol", IPSEC_NONE);
    expectList("Key exchange, first phase", "authType", IKE_AUTH_PSK);
    expectList("Key exchange, first phase", "transform", IKE_NONE);
    expectList("Key exchange, second phase", "dhGroup", DH_GROUP_NONE);
    expectList("Key exchange, second phase", "keyLifetimeUnits", KEYLIFETIME_SECS);
}

IPsecAction actionWith(const IPsecKeyMgr& keyMgr)
{
    return IPsecAction(SPD_TUNNEL, "a", 0, "", 0, keyMgr);
}

/// A configuration with every element that a document can have.
IPsecConfig everything()
{
    IPsecConfig config;
    HostGroup   hosts("h", 0, "", 0);
    hosts.selectors = {HostSelector(HOST_INET, HOST_RANGE, "10.0.0.1", "10.0.0.2"),
                       HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "10.0.0.0", 8),
                       HostSelector(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "255.0.0.0")};
    config.hostGroups.add(hosts);
    ProtocolGroup protocols("p", 0, "", 0);
    protocols.selectors = {ProtocolSelector(6, 80, 1024, PROTO_IN, true)};
    config.protocolGroups.add(protocols);

    IPsecAction manual = actionWith(KEYMGR_MKM);
    MKM         key;
    key.saProposal = IPsecProposal(IPSEC_ESP_AH, 12, 5);
    manual.manualKeySet(key);
    config.actions.add(manual);
    for (const IKEAuthType& authType : {IKE_AUTH_PSK, IKE_AUTH_RSA}) {
        const IKEPhase1Proposal proposal({IKE_NONE}, DH_GROUP_14, 1, KEYLIFETIME_SECS);
        IPsecAction             exchange = actionWith(KEYMGR_IKE);
        exchange.ikePhase1Set(IKEPhase1(authType, "", "", "", proposal));
        exchange.ikePhase2Set(IKEPhase2({key.saProposal}, DH_GROUP_14, 1, KEYLIFETIME_SECS));
        config.actions.add(exchange);
    }
    config.policies.add(Policy(1, 1, 1));
    return config;
}

TEST(ManualPageOfTheDocument, NamesEveryElementThatIsWritten)
{
    std::ostringstream document;
    IPsecConfig        config = everything();
    config.exportXML(document);

    std::set<std::string> tags;
    std::istringstream    in(document.str());
    for (std::string line; std::getline(in, line);)
        if (line[1] != '/')
            tags.insert(line.substr(1, line.find('>') - 1));
    EXPECT_EQ(tags.size(), 69U);

    // The words of the lines that name elements, and the tags of the pictures.
    std::set<std::string> named;
    std::istringstream    lines(page());
    for (std::string line; std::getline(lines, line);) {
        const bool isPicture = line.front() == '<';
        if (!isPicture && line.find(".Ic ") != 0 && line.find(".It Ic ") != 0)
            continue;
        for (char& c : line)
            if (c == '<' || c == '>' || c == '/')
                c = ' ';
        std::istringstream words(line);
        named.insert(std::istream_iterator<std::string>(words), {});
    }
    for (const std::string& tag : tags)
        EXPECT_TRUE(named.count(tag) == 1) << tag;
}

} // namespace
