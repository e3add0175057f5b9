#include "storability.h"

#include "checks.h"
#include "failure.h"
#include "files.h"
#include "position.h"
#include "source.h"
#include "text.h"
#include "understood.h"
#include "understood_rules.h"

#include <algorithm>

using namespace ipsecimpl;

namespace {

bool isDropped(const Finding& finding)
{
    return finding.rule == &understood::DUPLICATE_SELECTOR;
}

/// Whether storing the configuration would lose what stands in the document. That is no matter of the level: an octal
/// number and a selector's second name are warnings only, as they may be meant so, but nobody could see them any more.
bool isLoss(const Finding& finding)
{
    return understood::isOfAnotherNumber(*finding.rule) || isDropped(finding);
}

std::string placeOf(const Finding& finding, std::string_view document)
{
    return textOf(positionIn(document, finding.offset)) + ": " + textOf(finding.path);
}

Findings lossesIn(std::string_view document, const IPsecConfig& config)
{
    Findings findings;
    checkUnderstood(Source(document, config), findings);
    findings.erase(std::partition(findings.begin(), findings.end(), isLoss), findings.end());
    return findings;
}

/// Such as "2 values and 1 selector". There are some.
std::string countOf(const Findings& losses)
{
    const auto dropped = static_cast<std::size_t>(std::count_if(losses.begin(), losses.end(), isDropped));
    const auto values  = losses.size() - dropped;
    if (dropped == 0)
        return counted(values, "value");
    return (values == 0 ? "" : counted(values, "value") + " and ") + counted(dropped, "selector");
}

} // namespace

std::string misreadIn(std::string_view document, const IPsecConfig& config)
{
    const Findings losses = lossesIn(document, config);
    if (losses.empty())
        return "";
    return countOf(losses) + (losses.size() == 1 ? " was" : " were") + " not understood as written";
}

void refuseMisread(std::string_view document, const IPsecConfig& config, const std::string& fileName)
{
    const Findings findings = lossesIn(document, config);
    if (findings.empty())
        return;

    const auto        first = std::min_element(findings.begin(), findings.end(),
                                               [](const Finding& a, const Finding& b) { return a.offset < b.offset; });
    const std::string shown = isStandardStream(fileName) ? "standard input" : printable(fileName);
    const std::string only  = isDropped(*first) ? "selector" : "value";
    const std::string count =
        findings.size() == 1 ? "the only " + only + " that was" : "one of " + countOf(findings) + " that were";
    throw Failure(ExitStatus::FINDINGS,
                  shown + ':' + placeOf(*first, document) + ": " + first->message + "\nIt is " + count +
                      " not understood as written, and stored it would stay so. Correct the document, or give "
                      "--force.");
}

std::string firstUnstorable(const IPsecConfig& config)
{
    Findings findings;
    for (const auto& [id, group] : config.hostGroups)
        checkTexts(Entry<HostGroup>{id, &group, false, false}, findings);
    for (const auto& [id, group] : config.protocolGroups)
        checkTexts(Entry<ProtocolGroup>{id, &group, false, false}, findings);
    for (const auto& [id, action] : config.actions)
        checkTexts(Entry<IPsecAction>{id, &action, false, false}, findings);
    return findings.empty() ? std::string() : textOf(findings.front().path) + ": " + findings.front().message;
}
