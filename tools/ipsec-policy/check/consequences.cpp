#include "consequences.h"

#include "checks.h"
#include "understood_rules.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace {

using Field  = std::tuple<Kind, unsigned int, std::string_view>;
using Causes = std::map<Field, Level>;

Causes causesIn(const Findings& understood)
{
    Causes causes;
    for (const Finding& finding : understood)
        if (understood::isOfAnotherNumber(*finding.rule))
            causes.emplace(Field(finding.path.kind, finding.path.id, finding.path.field), finding.rule->level);
    return causes;
}

/// The field whose value made the finding: its own, but for the bits of an address that its prefix leaves to hosts.
/// That one is put together in `other`.
Field reasonOf(const Finding& finding, std::string& other)
{
    const ObjectPath& path = finding.path;
    if (finding.rule != &HOST_BITS_SET)
        return {path.kind, path.id, path.field};
    other = path.field;
    other.replace(other.rfind('/') + 1, std::string::npos, "length");
    return {path.kind, path.id, other};
}

} // namespace

void dropConsequences(const Findings& understood, Findings& findings)
{
    const Causes causes = causesIn(understood);
    if (causes.empty())
        return;
    std::string other;
    const auto  isConsequence = [&](const Finding& finding) {
        if (finding.isAboutFile)
            return false;
        const auto cause = causes.find(reasonOf(finding, other));
        return cause != causes.end() && cause->second <= finding.rule->level;
    };
    findings.erase(std::remove_if(findings.begin(), findings.end(), isConsequence), findings.end());
}
