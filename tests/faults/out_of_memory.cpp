#include "faults/out_of_memory.h"

#include "support/streams.h"
#include "support/xml.h"

#include <ipsecimpl/ipsecimpl.h>

#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using namespace ipsecimpl;

namespace {

// Texts and names that no string holds within itself.
const std::string LONG  = "a text that is too long for a string to hold within itself";
const std::string OTHER = "another text that is too long for a string to hold within itself";

IPsecConfig load(const std::string& text)
{
    std::istringstream in(text);
    XMLParser          parser(in);
    return IPsecConfig::importXML(parser);
}

std::string sample(const std::string& name)
{
    std::ifstream      file(std::string(EXAMPLES_DIR) + "/configs/" + name + ".xml");
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_GT(text.str().size(), 1000U) << name;
    return text.str();
}

IKEPhase1 phase1(const std::string& text)
{
    return IKEPhase1(IKE_AUTH_RSA, text, text, text,
                     IKEPhase1Proposal({IKE_AESCBC_SHA1, IKE_3DES_SHA1}, DH_GROUP_14, 28800, KEYLIFETIME_SECS));
}

IKEPhase1 sharedKey(const std::string& text)
{
    IKEPhase1 phase = phase1(text);
    phase.authTypeSet(IKE_AUTH_PSK);
    return phase;
}

IKEPhase2 phase2()
{
    return IKEPhase2({{IPSEC_ESP, 12, 5}, {IPSEC_AH, 0, 5}}, DH_GROUP_2, 3600, KEYLIFETIME_MINS);
}

MKM manualKey(const std::string& text)
{
    MKM key;
    key.saProposal     = IPsecProposal(IPSEC_ESP_AH, 12, 5);
    key.inboundDecrKey = key.inboundAuthKey = text;
    key.outboundEncrKey = key.outboundAuthKey = key.outboundEncrIV = text;
    return key;
}

IPsecAction ikeAction(const std::string& text)
{
    IPsecAction action(SPD_TUNNEL, text, 0, text, 0, KEYMGR_IKE);
    action.tunnelEndpointSet(text);
    action.ikePhase1Set(phase1(text));
    action.ikePhase2Set(phase2());
    action.typeSet(3);
    action.stateSet(4);
    return action;
}

IPsecAction manualAction(const std::string& text)
{
    IPsecAction action(SPD_TRANSPORT, text, 0, text, 0, KEYMGR_MKM);
    action.manualKeySet(manualKey(text));
    return action;
}

HostGroup hostGroup(const std::string& text)
{
    HostGroup group(text, 0, text, 0);
    group.selectors.emplace(HOST_INET6, HOST_RANGE, text, text);
    group.selectors.emplace(HOST_INET, HOST_SUBNET_LENGTH, text, 24);
    return group;
}

ProtocolGroup protocolGroup(const std::string& text)
{
    ProtocolGroup group(text, 0, text, 0);
    group.selectors.emplace(text, static_cast<unsigned short>(6), static_cast<unsigned short>(80),
                            static_cast<unsigned short>(0), PROTO_OUT, true);
    return group;
}

IPsecConfig configuration()
{
    IPsecConfig config;
    config.hostGroups.add(hostGroup(LONG));
    config.hostGroups.add(hostGroup(OTHER));
    config.protocolGroups.add(protocolGroup(LONG));
    config.actions.add(ikeAction(LONG));
    config.actions.add(manualAction(LONG));
    config.policies.add(Policy(1, 1, 1));
    return config;
}

/// What `object` writes, and what only its public members tell.
template <class T>
std::string state(T& object)
{
    return written(object);
}

/// Operations on a T that the same maker and the same state serve.
template <class T>
struct Operations {
    std::function<T()>                                           make;
    std::vector<std::pair<const char*, std::function<void(T&)>>> all;

    std::size_t failures() const
    {
        std::size_t total = 0;
        for (const auto& [name, operation] : all) {
            SCOPED_TRACE(name);
            const std::size_t failed = failEachAllocation(make, operation, [](T& target) { return state(target); });
            EXPECT_GT(failed, 0U) << "nothing to fail";
            total += failed;
        }
        return total;
    }
};

TEST(OutOfMemory, LeavesAnActionAsItWas)
{
    const Operations<IPsecAction> ike = {
        [] { return ikeAction(LONG); },
        {{"nameSet", [](IPsecAction& a) { a.nameSet(OTHER); }},
         {"descrSet", [](IPsecAction& a) { a.descrSet(OTHER); }},
         {"tunnelEndpointSet", [](IPsecAction& a) { a.tunnelEndpointSet(OTHER); }},
         {"ikePhase1Set", [](IPsecAction& a) { a.ikePhase1Set(sharedKey(OTHER)); }},
         {"ikePhase2Set", [](IPsecAction& a) { a.ikePhase2Set(phase2()); }},
         {"assignment", [other = manualAction(OTHER)](IPsecAction& a) { a = other; }}},
    };
    const Operations<IPsecAction> manual = {
        [] { return manualAction(LONG); },
        {{"manualKeySet", [](IPsecAction& a) { a.manualKeySet(manualKey(OTHER)); }},
         {"assignment", [other = ikeAction(OTHER)](IPsecAction& a) { a = other; }}},
    };
    report(ike.failures() + manual.failures());
}

TEST(OutOfMemory, LeavesKeyingObjectsAsTheyWere)
{
    const Operations<IKEPhase1> certificates = {
        [] { return phase1(LONG); },
        {{"localCertSet", [](IKEPhase1& p) { p.localCertSet(OTHER); }},
         {"peerTrustSet", [](IKEPhase1& p) { p.peerTrustSet(OTHER); }},
         {"proposalSet",
          [](IKEPhase1& p) { p.proposalSet(IKEPhase1Proposal({IKE_NONE}, DH_GROUP_1, 1, KEYLIFETIME_KB)); }},
         {"assignment", [other = sharedKey(OTHER)](IKEPhase1& p) { p = other; }}},
    };
    const Operations<IKEPhase1> shared = {
        [] { return sharedKey(LONG); },
        {{"presharedKeySet", [](IKEPhase1& p) { p.presharedKeySet(OTHER); }}},
    };
    const Operations<IKEPhase1Proposal> proposal = {
        [] { return phase1(LONG).proposalGet(); },
        {{"assignment",
          [other = IKEPhase1Proposal({IKE_NONE}, DH_GROUP_1, 1, KEYLIFETIME_KB)](IKEPhase1Proposal& p) { p = other; }}},
    };
    const Operations<IKEPhase2> second = {
        [] { return IKEPhase2({}, DH_GROUP_1, 1, KEYLIFETIME_KB); },
        {{"assignment", [other = phase2()](IKEPhase2& p) { p = other; }}},
    };
    const Operations<MKM> manual = {
        [] { return manualKey(LONG); },
        {{"assignment", [other = manualKey(OTHER)](MKM& key) { key = other; }}},
    };
    report(certificates.failures() + shared.failures() + proposal.failures() + second.failures() + manual.failures());
}

TEST(OutOfMemory, LeavesGroupsAsTheyWere)
{
    const Operations<HostGroup> hosts = {
        [] { return hostGroup(LONG); },
        {{"assignment", [other = hostGroup(OTHER)](HostGroup& g) { g = other; }},
         {"insert", [other = hostGroup(OTHER)](HostGroup& g) { g.selectors.insert(*other.selectors.begin()); }}},
    };
    const Operations<ProtocolGroup> protocols = {
        [] { return protocolGroup(LONG); },
        {{"assignment", [other = protocolGroup(OTHER)](ProtocolGroup& g) { g = other; }}},
    };
    report(hosts.failures() + protocols.failures());
}

TEST(OutOfMemory, LeavesAConfigurationAndItsCollectionsAsTheyWere)
{
    const Operations<IPsecConfig> operations = {
        configuration,
        {{"add a host group", [other = hostGroup(OTHER)](IPsecConfig& c) { c.hostGroups.add(other); }},
         {"add a protocol group", [other = protocolGroup(OTHER)](IPsecConfig& c) { c.protocolGroups.add(other); }},
         {"add an action", [other = ikeAction(OTHER)](IPsecConfig& c) { c.actions.add(other); }},
         {"add a policy", [](IPsecConfig& c) { c.policies.add(Policy(1, 2, 3)); }},
         {"replace a host group", [other = hostGroup(OTHER)](IPsecConfig& c) { c.hostGroups.replace(1, other); }},
         {"replace a protocol group",
          [other = protocolGroup(OTHER)](IPsecConfig& c) { c.protocolGroups.replace(1, other); }},
         {"replace an action", [other = manualAction(OTHER)](IPsecConfig& c) { c.actions.replace(1, other); }},
         {"assign the host groups", [](IPsecConfig& c) { c.hostGroups = HostGroups(configuration().hostGroups); }},
         {"assign the actions", [other = configuration()](IPsecConfig& c) { c.actions = other.actions; }},
         {"assign", [other = load(sample("home-router"))](IPsecConfig& c) { c = other; }},
         {"build",
          [other = configuration()](IPsecConfig& c) {
              c = IPsecConfig(other.hostGroups, other.protocolGroups, Actions(), other.policies);
          }}},
    };
    report(operations.failures());
}

/// Loading into a configuration that exists.
class SampleOutOfMemory : public ::testing::TestWithParam<const char*> {};

TEST_P(SampleOutOfMemory, LoadsWholeOrNotAtAll)
{
    const std::string text     = sample(GetParam());
    const std::size_t failures = failEachAllocation(
        configuration,
        [&text](IPsecConfig& config) {
            std::istringstream in(text);
            XMLParser          parser(in);
            config = IPsecConfig::importXML(parser);
        },
        [](IPsecConfig& config) { return written(config); });
    EXPECT_GT(failures, 50U);
    report(failures);
}

// From a buffer that holds nothing ready, everything goes through the parser's operations and strings.
TEST_P(SampleOutOfMemory, LoadsByteForByteWholeOrNotAtAll)
{
    const std::string text     = sample(GetParam());
    const std::size_t failures = failEachAllocation([] { return IPsecConfig(); },
                                                    [&text](IPsecConfig& config) {
                                                        ByteBuffer   buffer(text);
                                                        std::istream in(&buffer);
                                                        XMLParser    parser(in);
                                                        config = IPsecConfig::importXML(parser);
                                                    },
                                                    [](IPsecConfig& config) { return written(config); });
    EXPECT_GT(failures, 50U);
    report(failures);
}

TEST_P(SampleOutOfMemory, IsStoredWholeOrTheStreamTellsOfIt)
{
    IPsecConfig       config   = load(sample(GetParam()));
    const std::string whole    = written(config);
    std::size_t       failures = 0;
    for (;; ++failures) {
        const std::size_t blocks = blocksInUse();
        bool              happened;
        {
            std::ostringstream out;
            {
                const FailingAllocation failing(failures);
                config.exportXML(out);
                happened = failing.happened();
            }
            EXPECT_EQ(out.bad(), happened) << "allocation " << failures;
            EXPECT_EQ(whole.compare(0, out.str().size(), out.str()), 0) << "allocation " << failures;
            EXPECT_EQ(out.str().size() == whole.size(), !happened) << "allocation " << failures;
        }
        EXPECT_EQ(blocksInUse(), blocks) << "allocation " << failures;
        ASSERT_FALSE(HasFailure());
        if (!happened)
            break;
    }
    EXPECT_EQ(written(config), whole);
    EXPECT_GT(failures, 3U);
    report(failures);
}

INSTANTIATE_TEST_SUITE_P(Configs, SampleOutOfMemory, ::testing::Values("home-router", "branch-office", "server-farm"),
                         [](const auto& test) {
                             std::string name = test.param;
                             for (char& c : name)
                                 if (c == '-')
                                     c = '_';
                             return name;
                         });

} // namespace
