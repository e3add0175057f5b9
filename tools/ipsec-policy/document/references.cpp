#include "references.h"

#include <algorithm>

using namespace ipsecimpl;

namespace {

std::size_t indexOf(Kind kind)
{
    return static_cast<std::size_t>(kind);
}

} // namespace

unsigned int referenceTo(Kind kind, const Policy& policy)
{
    if (kind == Kind::HOST_GROUP)
        return policy.hostGroupID;
    return kind == Kind::PROTOCOL_GROUP ? policy.protocolGroupID : policy.actionID;
}

void Names::add(Kind kind, unsigned int id, const std::string& name)
{
    OfKind& all = kinds_[indexOf(kind)];
    all.text += name;
    all.ids.push_back(id);
    all.ends.push_back(all.text.size());
}

void Names::addMissing(const IPsecConfig& config)
{
    const auto addAll = [this](Kind kind, const auto& collection) {
        if (kinds_[indexOf(kind)].ids.empty())
            for (const auto& [id, object] : collection)
                add(kind, id, nameOf(object));
    };
    addAll(Kind::HOST_GROUP, config.hostGroups);
    addAll(Kind::PROTOCOL_GROUP, config.protocolGroups);
    addAll(Kind::ACTION, config.actions);
}

std::optional<std::string_view> Names::find(Kind kind, unsigned int id) const
{
    const OfKind& all = kinds_[indexOf(kind)];
    if (id == 0 || all.ids.empty())
        return std::nullopt;

    // IDs ascend from 1 at least, so that none stands behind the place it has when none is left out; mostly none is.
    std::size_t at = std::min<std::size_t>(id, all.ids.size()) - 1;
    if (all.ids[at] > id) {
        const auto found = std::lower_bound(all.ids.begin(), all.ids.end(), id);
        at               = static_cast<std::size_t>(found - all.ids.begin());
    }
    if (all.ids[at] != id)
        return std::nullopt;
    const std::size_t begin = at == 0 ? 0 : all.ends[at - 1];
    return std::string_view(all.text).substr(begin, all.ends[at] - begin);
}

Users::Users(const Policies& policies)
{
    for (const Kind kind : REFERENCED_KINDS) {
        Uses& uses = kinds_[indexOf(kind)];
        uses.reserve(policies.size());
        for (const auto& [id, policy] : policies)
            uses.emplace_back(referenceTo(kind, policy), id);
        std::sort(uses.begin(), uses.end());
    }
}

Users::Uses::const_iterator Users::first(Kind kind, unsigned int id) const
{
    const Uses& uses = kinds_[indexOf(kind)];
    return std::lower_bound(uses.begin(), uses.end(), Use(id, 0));
}

std::vector<unsigned int> Users::of(Kind kind, unsigned int id) const
{
    std::vector<unsigned int> policies;
    for (auto use = first(kind, id); use != kinds_[indexOf(kind)].end() && use->first == id; ++use)
        policies.push_back(use->second);
    return policies;
}

bool Users::has(Kind kind, unsigned int id) const
{
    const auto use = first(kind, id);
    return use != kinds_[indexOf(kind)].end() && use->first == id;
}
