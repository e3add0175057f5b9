#include "checks.h"

#include <algorithm>

using namespace ipsecimpl;

namespace {

const Rule DANGLING = {"dangling-reference", Level::ERROR, "A policy names an object that does not exist",
                       "A policy ties a host group, a protocol group and an action together by their\n"
                       "IDs, and nothing else checks that these exist. What a system makes of such a\n"
                       "policy differs: it may skip it without a word, and the traffic then passes or is\n"
                       "dropped by whatever comes next, or refuse the whole configuration.\n"
                       "Add the object, or let the policy name another.",
                       ""};

const Rule NOTHING_NAMED = {"no-reference", Level::ERROR, "A policy names ID 0, which is no object",
                            "IDs begin with 1. A policy that has 0 for its host group, protocol group or\n"
                            "action is not finished: it says nothing about any traffic.\n"
                            "Let it name an object, or remove the policy.",
                            ""};

const Rule UNUSED_GROUP = {"unused-group", Level::NOTE, "No policy uses a group",
                           "It has no effect, and what was meant with it does not happen. Built-in groups\n"
                           "are there to choose from and may be unused.\n"
                           "Name it in a policy, or remove it.",
                           ""};

const Rule UNUSED_ACTION = {"unused-action", Level::NOTE, "No policy uses an action",
                            "It has no effect, but the keys in it can still be stolen. Built-in actions are\n"
                            "there to choose from and may be unused.\n"
                            "Name it in a policy, or remove it.",
                            ""};

const Rule CONFLICTING = {"conflicting-policies", Level::WARNING,
                          "Two policies have different actions for the same traffic",
                          "Both have the same host group and the same protocol group. Nothing in the\n"
                          "configuration says which of the two actions counts: that is left to the system,\n"
                          "and can change with it.\n"
                          "Remove one of them.",
                          ""};

const Rule REPEATED = {"repeated-policy", Level::NOTE, "Two policies are the same",
                       "They have the same host group, protocol group and action, so one of them does\n"
                       "nothing. When the other is changed later, the two will be at odds.\n"
                       "Remove one of them.",
                       ""};

const Rule EMPTY_GROUP = {"empty-group", Level::WARNING, "A policy uses a group without selectors",
                          "A group without selectors names no hosts, or no traffic, so that its policies\n"
                          "apply to nothing.\n"
                          "Give the group a selector. To mean everything, use a built-in group.",
                          ""};

const Rule NO_SPD_ACTION = {"no-spd-action", Level::ERROR, "An action that policies use is NONE",
                            "NONE neither lets traffic pass, nor drops it, nor protects it: what becomes of\n"
                            "it is left to chance.\n"
                            "Choose BYPASS, DISCARD, TRANSPORT or TUNNEL.",
                            "RFC 4301 section 4.4.1"};

template <class Group>
bool isBuiltIn(const Group& group)
{
    return group.builtinName > 0 || group.builtinDescr > 0;
}

template <class Group>
void checkGroups(Kind kind, const Entries<Group>& groups, Findings& findings)
{
    for (const auto& entry : groups) {
        if (!entry.isUsed && !isBuiltIn(*entry.object))
            report(findings, UNUSED_GROUP, kind, entry.id, {},
                   "No policy uses " + named(kind, entry) + ". Name it in a policy, or remove it.");
        else if (entry.isUsed && entry.isVoid)
            report(findings, EMPTY_GROUP, kind, entry.id, {"selectors"},
                   capitalised(named(kind, entry)) +
                       " has no selectors, so its policies apply to nothing. Add a selector.");
    }
}

void checkActionUse(const Entries<IPsecAction>& actions, Findings& findings)
{
    for (const auto& entry : actions) {
        if (!entry.isUsed && !entry.object->isBuiltIn())
            report(findings, UNUSED_ACTION, Kind::ACTION, entry.id, {},
                   "No policy uses " + named(Kind::ACTION, entry) + ". Name it in a policy, or remove it.");
        else if (entry.isUsed && entry.isVoid)
            report(findings, NO_SPD_ACTION, Kind::ACTION, entry.id, {"spdAction"},
                   "Policies use this action, but NONE does nothing. Write BYPASS, DISCARD, TRANSPORT or TUNNEL.");
    }
}

/// What a policy is for.
struct Traffic {
    unsigned int hostGroup;
    unsigned int protocolGroup;
    const Tie*   tie; // in the order of the IDs
};

bool isSame(const Traffic& a, const Traffic& b)
{
    return a.hostGroup == b.hostGroup && a.protocolGroup == b.protocolGroup;
}

bool operator<(const Traffic& a, const Traffic& b)
{
    if (a.hostGroup != b.hostGroup)
        return a.hostGroup < b.hostGroup;
    if (a.protocolGroup != b.protocolGroup)
        return a.protocolGroup < b.protocolGroup;
    return a.tie < b.tie;
}

void reportSameTraffic(const Tie& first, const Tie& second, Findings& findings)
{
    const std::string other = "Policy " + std::to_string(first.id);
    if (first.policy.actionID == second.policy.actionID)
        report(findings, REPEATED, Kind::POLICY, second.id, {}, other + " is the same. Remove one of the two.");
    else
        report(findings, CONFLICTING, Kind::POLICY, second.id, {"actionID"},
               other + " has action " + std::to_string(first.policy.actionID) +
                   " for the same host group and protocol group. Remove one of the two.");
}

/// Each policy is held against the first with the same traffic.
void checkSameTraffic(const std::vector<Tie>& ties, Findings& findings)
{
    std::vector<Traffic> all;
    all.reserve(ties.size());
    for (const Tie& tie : ties)
        if (tie.policy.hostGroupID != 0 && tie.policy.protocolGroupID != 0)
            all.push_back({tie.policy.hostGroupID, tie.policy.protocolGroupID, &tie});
    std::sort(all.begin(), all.end());

    for (std::size_t first = 0, i = 1; i < all.size(); ++i) {
        if (isSame(all[first], all[i]))
            reportSameTraffic(*all[first].tie, *all[i].tie, findings);
        else
            first = i;
    }
}

} // namespace

Rules referenceRules()
{
    return {&DANGLING,    &NOTHING_NAMED, &UNUSED_GROUP, &UNUSED_ACTION,
            &CONFLICTING, &REPEATED,      &EMPTY_GROUP,  &NO_SPD_ACTION};
}

void checkReference(unsigned int policy, Kind kind, const char* field, unsigned int id, bool exists, Findings& findings)
{
    if (exists)
        return;
    const std::string what = wordsOf(kind).sentence;
    if (id == 0)
        report(findings, NOTHING_NAMED, Kind::POLICY, policy, {field},
               "ID 0 is no " + what + ". Name one that exists, or remove the policy.");
    else
        report(findings, DANGLING, Kind::POLICY, policy, {field},
               "There is no " + what + " with ID " + std::to_string(id) + ". Add it, or name one that exists.");
}

void checkReferences(const Model& model, Findings& findings)
{
    checkGroups(Kind::HOST_GROUP, model.hostGroups(), findings);
    checkGroups(Kind::PROTOCOL_GROUP, model.protocolGroups(), findings);
    checkActionUse(model.actions(), findings);
    for (const Tie& tie : model.ties()) {
        const Policy& policy = tie.policy;
        checkReference(tie.id, Kind::HOST_GROUP, "hostGroupID", policy.hostGroupID, tie.hostGroup != nullptr, findings);
        checkReference(tie.id, Kind::PROTOCOL_GROUP, "protocolGroupID", policy.protocolGroupID,
                       tie.protocolGroup != nullptr, findings);
        checkReference(tie.id, Kind::ACTION, "actionID", policy.actionID, tie.action != nullptr, findings);
    }
    checkSameTraffic(model.ties(), findings);
}
