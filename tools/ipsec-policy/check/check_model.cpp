#include "check_model.h"

#include "checks.h"
#include "text.h"

using namespace ipsecimpl;

namespace {

const std::size_t LONGEST_QUOTE = 60;

/// Whether the byte goes on with a character of UTF-8 that others began.
bool continues(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace

void checkModel(const IPsecConfig& config, const Algorithms* algorithms, Findings& findings)
{
    Model model(config);
    // So many at the most, mostly: to move them while the list grows would cost a tenth of the time.
    findings.reserve(findings.size() + config.hostGroups.size() + config.actions.size() + config.policies.size());
    for (const auto& [id, group] : config.hostGroups) {
        const Entry<HostGroup>& entry = model.add(id, group);
        checkTexts(entry, findings);
        checkCharacters(entry, findings);
        checkHostSelectors(entry, findings);
    }
    for (const auto& [id, group] : config.protocolGroups) {
        const Entry<ProtocolGroup>& entry = model.add(id, group);
        checkTexts(entry, findings);
        checkCharacters(entry, findings);
        checkProtocolSelectors(entry, findings);
    }
    for (const auto& [id, action] : config.actions) {
        const Entry<IPsecAction>& entry = model.add(id, action);
        checkTexts(entry, findings);
        checkCharacters(entry, findings);
        checkTunnelEndPoint(entry, findings);
        checkAction(entry, findings);
        checkProposals(entry, algorithms, findings);
        checkRepeatedOffers(entry, findings);
        checkManualKey(entry, findings);
        checkStrength(entry, findings);
    }
    for (const auto& [id, policy] : config.policies)
        model.add(id, policy);

    checkReferences(model, findings);
    checkTunnelFamilies(model, findings);
    checkSPIs(model, findings);
    checkKeyReuse(model, findings);
    checkPresharedKeys(model, findings);
    checkNames(model, findings);
    checkIKEVersion(model, findings);
}

std::vector<const Rule*> modelRules()
{
    Rules all;
    for (const Rules& rules :
         {referenceRules(), textRules(), characterRules(), nameRules(), hostSelectorRules(), protocolSelectorRules(),
          tunnelRules(), actionRules(), proposalRules(), repeatedOfferRules(), manualKeyRules(), spiRules(),
          keyReuseRules(), strengthRules(), presharedKeyRules()})
        all.insert(all.end(), rules.begin(), rules.end());
    return all;
}

std::string textOf(const FieldPath& field)
{
    if (field.number == 0)
        return joined({field.first, *field.last == '\0' ? "" : "/", field.last});
    return joined({field.first, "/", std::to_string(field.number), *field.last == '\0' ? "" : "/", field.last});
}

std::string joined(std::initializer_list<std::string_view> texts)
{
    std::size_t size = 0;
    for (const std::string_view text : texts)
        size += text.size();
    std::string result;
    result.reserve(size);
    for (const std::string_view text : texts)
        result += text;
    return result;
}

std::string inQuotes(std::string_view text)
{
    if (text.size() <= LONGEST_QUOTE)
        return '\'' + printable(text) + '\'';

    std::size_t end = LONGEST_QUOTE - 3;
    while (end > LONGEST_QUOTE - 6 && continues(text[end]))
        --end;
    return '\'' + printable(text.substr(0, end)) + "...'";
}

std::string named(Kind kind, unsigned int id, std::string_view name)
{
    return joined({wordsOf(kind).sentence, " ", std::to_string(id), name.empty() ? "" : " ",
                   name.empty() ? std::string() : inQuotes(name)});
}

std::string capitalised(std::string text)
{
    text.front() = static_cast<char>(text.front() - 'a' + 'A');
    return text;
}
