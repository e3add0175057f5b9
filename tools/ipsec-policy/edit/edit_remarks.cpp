#include "edit_remarks.h"

#include "checks.h"
#include "edit_policies.h"

#include <algorithm>

using namespace ipsecimpl;

namespace {

const std::size_t MOST = 20;

template <class Object>
Entry<Object> entryOf(unsigned int id, const Object& object)
{
    return {id, &object, false, false};
}

/// Whether a finding in a host selector is about what only the spelling with tags can say, or the word `none`. Nobody
/// writes these by mistake, but diff does, for documents that have such selectors.
bool isSaidSo(const Finding& finding)
{
    return std::string_view(finding.rule->code) != "host-bits-set";
}

/// The one thing that `check` lets pass, because documents of some systems mean it so.
void findPortsOfICMP(const ProtocolGroup& group, std::multimap<std::size_t, std::string>& texts, std::size_t line)
{
    for (const ProtocolSelector& selector : group.selectors)
        if ((selector.protocol == 1 || selector.protocol == 58) && (selector.dstPort != 0 || selector.srcPort != 0)) {
            texts.emplace(line, "ICMP has no ports: some systems take the number for its type, others refuse it.");
            return;
        }
}

std::string textOf(const Finding& finding)
{
    return joined({finding.message, " [", finding.rule->code, "]"});
}

/// The IDs of the objects of that kind and name.
std::vector<unsigned int> idsNamed(const EditedConfig& config, Kind kind, const std::string& name)
{
    return kind == Kind::HOST_GROUP       ? config.hostGroups.index().idsNamed(name)
           : kind == Kind::PROTOCOL_GROUP ? config.protocolGroups.index().idsNamed(name)
                                          : config.actions.index().idsNamed(name);
}

} // namespace

void Remarks::add(std::size_t line, unsigned int id, const HostGroup& group, const IsGiven& isGiven)
{
    Findings findings;
    if (isGiven("selectors")) {
        checkHostSelectors(entryOf(id, group), findings);
        findings.erase(std::remove_if(findings.begin(), findings.end(), isSaidSo), findings.end());
    }
    checkCharacters(entryOf(id, group), findings);
    keep(line, findings, isGiven);
    keepName(line, Kind::HOST_GROUP, group.name, isGiven);
}

void Remarks::add(std::size_t line, unsigned int id, const ProtocolGroup& group, const IsGiven& isGiven)
{
    Findings findings;
    checkCharacters(entryOf(id, group), findings);
    if (isGiven("selectors")) {
        checkProtocolSelectors(entryOf(id, group), findings);
        findPortsOfICMP(group, texts_, line);
    }
    keep(line, findings, isGiven);
    keepName(line, Kind::PROTOCOL_GROUP, group.name, isGiven);
}

void Remarks::add(std::size_t line, unsigned int id, const IPsecAction& action, const IsGiven& isGiven)
{
    Findings findings;
    checkCharacters(entryOf(id, action), findings);
    checkTunnelEndPoint(entryOf(id, action), findings);
    if (const MKM* const key = manualKeyOf(action))
        checkReservedSPIs(id, *key, findings);
    if (const IKEPhase1* const phase1 = phase1Of(action))
        checkZeroLifetimes(id, *phase1, *phase2Of(action), findings);
    keep(line, findings, isGiven);
    keepName(line, Kind::ACTION, action.nameGet(), isGiven);
}

void Remarks::add(std::size_t line, unsigned int id, const Policy&, const IsGiven& isGiven)
{
    for (const Reference& reference : referencesOfPolicies())
        if (isGiven(reference.path))
            references_[{id, &reference}] = line;
}

/// Findings in a selector are about a field below "selectors".
void Remarks::keep(std::size_t line, const Findings& findings, const IsGiven& isGiven)
{
    const std::string LIST = "selectors";
    for (const Finding& finding : findings)
        if (isGiven(finding.path.field.compare(0, LIST.size(), LIST) == 0 ? LIST : finding.path.field))
            texts_.emplace(line, textOf(finding));
}

void Remarks::keepName(std::size_t line, Kind kind, const std::string& name, const IsGiven& isGiven)
{
    if (!name.empty() && isGiven("name"))
        names_[{kind, name}] = line;
}

void Remarks::addNames(const EditedConfig& config, Texts& texts) const
{
    for (const auto& [named, line] : names_)
        if (const auto ids = idsNamed(config, named.first, named.second); ids.size() > 1)
            texts.emplace(line,
                          joined({"There are ", std::to_string(ids.size()), " ", pluralOf(named.first), " of the name ",
                                  inQuotes(named.second), ". Commands must call them by ID. [repeated-name]"}));
}

void Remarks::addReferences(const EditedConfig& config, Texts& texts) const
{
    for (const auto& [given, line] : references_) {
        const auto& [id, reference] = given;
        const Policy* const policy  = config.policies.find(id);
        if (policy == nullptr) // removed since
            continue;
        const unsigned int named = policy->*reference->id;
        const bool         exists =
            withCollection(config, reference->kind, [named](const auto& all) { return all.find(named) != nullptr; });
        Findings findings;
        checkReference(id, reference->kind, reference->path, named, exists, findings);
        for (const Finding& finding : findings)
            texts.emplace(line, textOf(finding));
    }
}

std::vector<std::string> Remarks::all(const EditedConfig& config) const
{
    Texts texts = texts_;
    addNames(config, texts);
    addReferences(config, texts);

    std::vector<std::string> lines;
    for (const auto& [line, text] : texts) {
        if (lines.size() == MOST) {
            lines.push_back(joined({std::to_string(line), ": ... and so on, ", std::to_string(texts.size() - MOST),
                                    " more. 'ipsec-policy check' tells all."}));
            break;
        }
        lines.push_back(joined({std::to_string(line), ": taken as it is: ", text}));
    }
    return lines;
}
