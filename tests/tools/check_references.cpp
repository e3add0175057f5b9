#include "check_samples.h"

using namespace ipsecimpl;

namespace {

IPsecConfig tied(const std::vector<Policy>& policies)
{
    return plain([&](IPsecConfig& config) {
        config.policies.remove(1);
        for (const Policy& policy : policies)
            config.policies.add(policy);
    });
}

/// With a second group of each kind and a second action.
IPsecConfig doubled(const std::vector<Policy>& policies)
{
    IPsecConfig config = tied(policies);
    config.hostGroups.add(config.hostGroups.at(1));
    config.protocolGroups.add(config.protocolGroups.at(1));
    config.actions.add(config.actions.at(1));
    return config;
}

IPsecConfig adding(const HostGroup& group)
{
    return plain([&](IPsecConfig& config) { config.hostGroups.add(group); });
}

IPsecConfig adding(const IPsecAction& action)
{
    return plain([&](IPsecConfig& config) { config.actions.add(action); });
}

} // namespace

Samples referenceSamples()
{
    Samples samples = {
        {"dangling-reference",
         {"policies/2/hostGroupID: There is no host group with ID 2. Add it, or name one that exists.",
          "policies/2/protocolGroupID: There is no protocol group with ID 3. Add it, or name one that exists.",
          "policies/2/actionID: There is no action with ID 4294967295. Add it, or name one that exists."},
         tied({Policy(2, 3, 4294967295U)}),
         tied({Policy(1, 1, 1)})},
        {"no-reference",
         {"policies/2/hostGroupID: ID 0 is no host group. Name one that exists, or remove the policy.",
          "policies/2/protocolGroupID: ID 0 is no protocol group. Name one that exists, or remove the policy.",
          "policies/2/actionID: ID 0 is no action. Name one that exists, or remove the policy."},
         tied({Policy(0, 0, 0)}),
         tied({Policy(1, 1, 1)})},
        {"unused-group",
         {"hostGroups/1: No policy uses host group 1 'Server'. Name it in a policy, or remove it.",
          "protocolGroups/2: No policy uses protocol group 2 'Web'. Name it in a policy, or remove it."},
         doubled({Policy(2, 1, 1)}),
         doubled({Policy(2, 1, 1), Policy(1, 2, 1)})},
        {"unused-group",
         {"hostGroups/2: No policy uses host group 2. Name it in a policy, or remove it."},
         adding(HostGroup("", 0, "", -1)),
         adding(HostGroup("", 0, "", 1))},
        {"unused-action",
         {"actions/2: No policy uses action 2 'Pass\\x1b'. Name it in a policy, or remove it."},
         adding(IPsecAction(SPD_BYPASS, "Pass\x1b", 0, "", 0, KEYMGR_NONE)),
         adding(ActionBypass())},
        {"unused-action",
         {"actions/2: No policy uses action 2 'Pass'. Name it in a policy, or remove it."},
         doubled({Policy(2, 1, 1), Policy(1, 2, 1)}),
         doubled({Policy(2, 1, 1), Policy(1, 2, 2)})},
        {"conflicting-policies",
         {"policies/4/actionID: Policy 2 has action 1 for the same host group and protocol group. Remove one of the "
          "two."},
         doubled({Policy(1, 1, 1), Policy(2, 2, 2), Policy(1, 1, 2)}),
         doubled({Policy(1, 1, 1), Policy(2, 2, 2), Policy(1, 2, 2)})},
        {"repeated-policy",
         {"policies/3: Policy 2 is the same. Remove one of the two.",
          "policies/5: Policy 2 is the same. Remove one of the two."},
         doubled({Policy(1, 1, 1), Policy(1, 1, 1), Policy(2, 2, 2), Policy(1, 1, 1)}),
         doubled({Policy(1, 1, 1), Policy(1, 1, 2), Policy(2, 1, 1)})},
        {"repeated-policy",
         {"policies/3: Policy 2 is the same. Remove one of the two."},
         tied({Policy(7, 7, 7), Policy(7, 7, 7)}),
         tied({Policy(0, 7, 7), Policy(0, 7, 7), Policy(7, 0, 7), Policy(7, 0, 7)})},
    };
    samples.push_back(
        {"empty-group",
         {"hostGroups/1/selectors: Host group 1 'Server' has no selectors, so its policies apply to nothing. Add a "
          "selector.",
          "protocolGroups/1/selectors: Protocol group 1 'Web' has no selectors, so its policies apply to nothing. Add "
          "a selector."},
         plain([](IPsecConfig& config) {
             config.hostGroups.at(1).selectors.clear();
             config.protocolGroups.at(1).selectors.clear();
         }),
         adding(HostGroup("Unused", 0, "", 0))});
    samples.push_back(
        {"no-spd-action",
         {"actions/1/spdAction: Policies use this action, but NONE does nothing. Write BYPASS, DISCARD, TRANSPORT or "
          "TUNNEL."},
         having(IPsecAction(SPD_NONE, "Later", 0, "", 0, KEYMGR_NONE)),
         adding(IPsecAction(SPD_NONE, "Later", 0, "", 0, KEYMGR_NONE))});
    return samples;
}
