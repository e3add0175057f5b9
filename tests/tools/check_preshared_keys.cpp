#include "check_samples.h"

using namespace ipsecimpl;

namespace {

const std::string KEY       = "Tr0ub4dor-and-3-more-words";
const std::string OTHER_KEY = "c0rrect-Horse-battery-Staple";

IPsecAction keyed(IPsecAction action, const std::string& key)
{
    IKEPhase1 phase1 = action.ikePhase1Get();
    phase1.presharedKeySet(key);
    action.ikePhase1Set(phase1);
    return action;
}

IPsecAction tunnelTo(const std::string& endPoint, const std::string& key = KEY)
{
    return keyed(tunnel(KEYMGR_IKE, endPoint), key);
}

IPsecConfig actions(const std::vector<IPsecAction>& all)
{
    IPsecConfig config = having(all.front());
    for (std::size_t i = 1; i < all.size(); ++i)
        config.actions.add(all[i]);
    return config;
}

/// Two in transport mode, with a policy for each of these groups of hosts.
IPsecConfig transports(const std::vector<std::vector<HostSelector>>& first,
                       const std::vector<std::vector<HostSelector>>& second, const std::string& secondKey = KEY)
{
    IPsecConfig config = actions({keyed(transport(KEYMGR_IKE), KEY), keyed(transport(KEYMGR_IKE), secondKey)});
    config.policies.remove(1);
    unsigned int action = 1;
    for (const auto& groups : {first, second}) {
        for (const std::vector<HostSelector>& selectors : groups) {
            HostGroup group;
            group.selectors = {selectors.begin(), selectors.end()};
            config.policies.add(Policy(config.hostGroups.add(group), 1, action));
        }
        ++action;
    }
    return config;
}

HostSelector host(const std::string& address)
{
    return HostSelector(HOST_INET, HOST_SINGLE, address, "");
}

const HostSelector A   = host("192.0.2.1");
const HostSelector B   = host("192.0.2.2");
const HostSelector NET = HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "192.0.2.2", 32);

Samples sharedSamples()
{
    const char* const CODE = "shared-preshared-key";
    const auto        as   = [](unsigned int action, const std::string& before) {
        return "actions/" + std::to_string(action) + "/ikePhase1/presharedKey: The pre-shared key is also that of " +
               before + ", which has another peer. Draw a key of its own for each peer.";
    };
    const IPsecAction certified = [] {
        IPsecAction action = tunnelTo("192.0.2.2");
        IKEPhase1   phase1 = action.ikePhase1Get();
        phase1.authTypeSet(IKE_AUTH_RSA);
        action.ikePhase1Set(phase1);
        return action;
    }();
    return {
        {CODE,
         {as(2, "action 1 'Tunnel'")},
         actions({tunnelTo("192.0.2.1"), tunnelTo("192.0.2.2")}),
         actions({tunnelTo("192.0.2.1"), tunnelTo("192.0.2.2", OTHER_KEY)})},
        {CODE,
         {as(2, "action 1 'Tunnel'"), as(4, "action 1 'Tunnel'")},
         actions({tunnelTo("192.0.2.1"), tunnelTo("2001:db8::1"), tunnelTo("192.0.2.1"), tunnelTo("192.0.2.2")}),
         actions({tunnelTo("2001:db8::1"), tunnelTo("2001:DB8:0::1"), tunnelTo("2001:db8::0001")})},
        {CODE,
         {as(2, "action 1 'Tunnel'")},
         actions({tunnelTo("192.0.2.1"), tunnelTo("::192.0.2.1")}),
         actions({tunnelTo("192.0.2.1"), tunnelTo("gw.example.com"), tunnelTo("")})},
        {CODE,
         {as(2, "action 1 'Tunnel'")},
         actions({tunnelTo("192.0.2.1"), tunnelTo("192.0.2.2")}),
         actions({tunnelTo("192.0.2.1"), certified})},
        {CODE,
         {as(2, "action 1 'Tunnel'")},
         actions({tunnelTo("192.0.2.1", "a"), tunnelTo("192.0.2.2", "a")}),
         actions({tunnelTo("192.0.2.1", ""), tunnelTo("192.0.2.2", "")})},
        {CODE, {as(2, "action 1 'Protect'")}, transports({{A}}, {{B}}), transports({{A}}, {{A}})},
        {CODE, {as(2, "action 1 'Protect'")}, transports({{A}, {A}}, {{B}, {B}}), transports({{A}}, {{B}, {A}})},
        {CODE, {as(2, "action 1 'Protect'")}, transports({{A}}, {{B}}), transports({{A}}, {{B}, {A}, {B}})},
        {CODE, {as(2, "action 1 'Protect'")}, transports({{A}}, {{B}}), transports({{A}}, {{A, B}})},
        {CODE, {as(2, "action 1 'Protect'")}, transports({{A}}, {{B}}), transports({{A}}, {{NET}})},
        {CODE, {as(2, "action 1 'Protect'")}, transports({{A}}, {{B}}), transports({{A}}, {{}})},
        {CODE, {as(2, "action 1 'Protect'")}, transports({{A}}, {{B}}), transports({{A}}, {})},
        {CODE, {as(2, "action 1 'Protect'")}, transports({{A}}, {{B}}), transports({{A}}, {{host("b")}})},
        {CODE,
         {as(2, "action 1 'Tunnel'")},
         [] {
             IPsecConfig config = actions({tunnelTo("192.0.2.1"), keyed(transport(KEYMGR_IKE), KEY)});
             config.policies.add(Policy(1, 1, 2)); // for 192.0.2.7
             return config;
         }(),
         [] {
             IPsecConfig config = actions({tunnelTo("192.0.2.7"), keyed(transport(KEYMGR_IKE), KEY)});
             config.policies.add(Policy(1, 1, 2));
             return config;
         }()},
    };
}

Samples conflictingSamples()
{
    const char* const CODE = "conflicting-preshared-keys";
    const auto        as   = [](unsigned int action, const std::string& before, const std::string& peer) {
        return "actions/" + std::to_string(action) + "/ikePhase1/presharedKey: " + before +
               " has another pre-shared key for the same peer, " + peer + ". Write the same key in both.";
    };
    return {
        {CODE,
         {as(2, "Action 1 'Tunnel'", "192.0.2.1")},
         actions({tunnelTo("192.0.2.1"), tunnelTo("192.0.2.1", OTHER_KEY)}),
         actions({tunnelTo("192.0.2.1"), tunnelTo("192.0.2.1")})},
        {CODE,
         {as(3, "Action 1 'Tunnel'", "2001:db8::1"), as(4, "Action 1 'Tunnel'", "2001:db8::1")},
         actions({tunnelTo("2001:db8::1"), tunnelTo("2001:DB8::1"), tunnelTo("2001:DB8::1", OTHER_KEY),
                  tunnelTo("2001:db8:0::1", "a")}),
         actions({tunnelTo("2001:db8::1"), tunnelTo("2001:db8::1", "")})},
        {CODE,
         {as(2, "Action 1 'Protect'", "192.0.2.1")},
         transports({{A}}, {{A}}, OTHER_KEY),
         transports({{A}}, {{B}}, OTHER_KEY)},
        {CODE,
         {as(2, "Action 1 'Protect'", "192.0.2.1")},
         transports({{A}, {A}}, {{A}}, OTHER_KEY),
         transports({{A}, {B}}, {{A}}, OTHER_KEY)},
    };
}

} // namespace

Samples presharedKeySamples()
{
    Samples       samples     = sharedSamples();
    const Samples conflicting = conflictingSamples();
    samples.insert(samples.end(), conflicting.begin(), conflicting.end());
    return samples;
}
