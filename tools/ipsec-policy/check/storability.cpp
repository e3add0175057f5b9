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

/// Whether storing the configuration would lose what stands in the document. That is no matter of the level: an octal
/// number is a warning only, as it may be meant, but nobody could see it any more.
bool isLoss(const Finding& finding)
{
    return understood::isOfAnotherNumber(*finding.rule);
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

} // namespace

std::size_t countMisread(std::string_view document, const IPsecConfig& config)
{
    return lossesIn(document, config).size();
}

void refuseMisread(std::string_view document, const IPsecConfig& config, const std::string& fileName)
{
    const Findings findings = lossesIn(document, config);
    if (findings.empty())
        return;

    const auto        first = std::min_element(findings.begin(), findings.end(),
                                               [](const Finding& a, const Finding& b) { return a.offset < b.offset; });
    const std::string shown = isStandardStream(fileName) ? "standard input" : printable(fileName);
    const std::string count = findings.size() == 1
                                  ? "It is the only value that was"
                                  : "It is one of " + std::to_string(findings.size()) + " values that were";
    throw Failure(
        ExitStatus::FINDINGS,
        shown + ':' + placeOf(*first, document) + ": " + first->message + '\n' + count +
            " not understood as written, and stored it would stay so. Correct the document, or give --force.");
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
