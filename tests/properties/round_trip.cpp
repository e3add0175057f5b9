// What is stored and loaded again is the same, byte for byte and field for field, for any model whose texts survive.

#include "properties/random_model.h"
#include "properties/runs.h"
#include "support/contents.h"
#include "support/streams.h"
#include "support/xml.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <sstream>
#include <string>

namespace ipsecimpl {
namespace {

/// `object` comes back from what it writes, also where each byte goes through the parser's own operations.
template <class T>
void expectComesBack(T object)
{
    const std::string before = contentsOf(object);
    const std::string text   = written(object);

    std::istringstream in(text + "<next/>");
    XMLParser          parser(in);
    T                  loaded = T::importXML(parser);
    EXPECT_EQ(in.tellg(), static_cast<std::streamoff>(text.size() - 1)) << "all but the last line end is read";
    ASSERT_EQ(contentsOf(loaded), before);
    ASSERT_EQ(written(loaded), text);

    ByteBuffer   bytes(text);
    std::istream slow(&bytes);
    XMLParser    slowParser(slow);
    ASSERT_EQ(contentsOf(T::importXML(slowParser)), before);
}

TEST(RoundTrip, GivesTheSameConfiguration)
{
    forEachSeed([](std::uint64_t seed) { expectComesBack(RandomModel(seed).config()); });
}

TEST(RoundTrip, GivesTheSameElementOfEachKind)
{
    forEachSeed([](std::uint64_t seed) {
        RandomModel model(seed);
        expectComesBack(model.hostSelector());
        expectComesBack(model.protocolSelector());
        expectComesBack(model.hostGroup());
        expectComesBack(model.protocolGroup());
        expectComesBack(model.saProposal());
        expectComesBack(model.proposal());
        expectComesBack(model.ikePhase1());
        expectComesBack(model.ikePhase2());
        expectComesBack(model.manualKey());
        expectComesBack(model.action());
        expectComesBack(model.policy());
    });
}

/// How often each value of a field is met.
class Met {
  public:
    template <int Num, auto Names>
    void count(const std::string& what, const Enum<Num, Names>& value)
    {
        ++counts_[what + " " + (*Names)[value.valueGet()]];
    }

    template <int Num, auto Names>
    void expectAll(const std::string& what, const Enum<Num, Names>&)
    {
        for (const char* const name : *Names)
            EXPECT_GT(counts_[what + " " + name], 0) << what << " " << name;
    }

    void expectMet(const std::string& what) { EXPECT_GT(counts_[what], 0) << what; }

    void count(const std::string& what, bool holds) { counts_[what] += holds ? 1 : 0; }

  private:
    std::map<std::string, int> counts_;
};

// Without that the above would say little. 300 models are enough to meet everything.
TEST(RandomModel, MakesObjectsOfEveryKindInEveryMode)
{
    Met met;
    for (std::uint64_t seed = 1; seed <= 300; ++seed) {
        RandomModel             model(seed);
        const HostSelector      host   = model.hostSelector();
        const ProtocolSelector  flow   = model.protocolSelector();
        const IPsecAction       action = model.action();
        const IKEPhase1         phase1 = model.ikePhase1();
        const IKEPhase1Proposal offer  = model.proposal();
        const MKM               key    = model.manualKey();
        const IPsecConfig       config = model.config();
        met.count("family", host.family);
        met.count("type", host.selectorType);
        met.count("direction", flow.direction);
        met.count("any protocol", flow.protocol == 0);
        met.count("ports", flow.dstPort != 0 && flow.srcPort != 0);
        met.count("mode", action.spdActionGet());
        if (action.spdActionGet() == SPD_TUNNEL)
            met.count("keys", action.keyMgrGet());
        met.count("built in", action.isBuiltIn());
        met.count("count overflows", action.changeCountGet() < -2147483640);
        met.count("credentials", phase1.authTypeGet());
        met.count("group", offer.dhGroup);
        met.count("units", offer.keyLifetimeUnits);
        if (!offer.transforms.empty())
            met.count("transform", offer.transforms.front());
        met.count("SA", key.saProposal.protocol);
        met.count("no keys", key.saProposal.encryption <= 1 && key.saProposal.hash <= 1);
        met.count("all IDs given", config.actions.nextIDGet() == 2147483648);
        met.count("gap", !config.policies.empty() &&
                             config.policies.nextIDGet() > config.policies.begin()->first + config.policies.size());
    }
    met.expectAll("family", HOST_INET);
    met.expectAll("type", HOST_NONE);
    met.expectAll("direction", PROTO_IN);
    met.expectAll("mode", SPD_NONE);
    met.expectAll("keys", KEYMGR_NONE);
    met.expectAll("credentials", IKE_AUTH_PSK);
    met.expectAll("group", DH_GROUP_NONE);
    met.expectAll("units", KEYLIFETIME_SECS);
    met.expectAll("transform", IKE_NONE);
    met.expectAll("SA", IPSEC_NONE);
    for (const char* const what :
         {"any protocol", "ports", "built in", "count overflows", "no keys", "all IDs given", "gap"})
        met.expectMet(what);
}

// Which machine it runs on must not matter: a seed that fails on one fails on all.
TEST(RandomModel, IsTheSameEverywhere)
{
    const std::string text = written(RandomModel(1).config());
    std::uint64_t     hash = 14695981039346656037U; // FNV-1a
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    EXPECT_EQ(hash, 17671301718610367698U) << text;
}

} // namespace
} // namespace ipsecimpl
