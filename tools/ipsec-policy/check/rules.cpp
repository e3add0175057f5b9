#include "rules.h"

#include "check_model.h"
#include "failure.h"
#include "file_modes.h"
#include "load_finding.h"
#include "nearest.h"
#include "text.h"
#include "understood.h"

#include <string>

const std::vector<const Rule*>& allRules()
{
    static const std::vector<const Rule*> RULES = [] {
        std::vector<const Rule*> rules = {&DOES_NOT_LOAD};
        for (const auto& some : {fileModeRules(), understoodRules(), modelRules()})
            rules.insert(rules.end(), some.begin(), some.end());
        return rules;
    }();
    return RULES;
}

const Rule& findRule(std::string_view code)
{
    for (const Rule* const rule : allRules())
        if (rule->code == code)
            return *rule;
    std::vector<std::string> codes;
    for (const Rule* const rule : allRules())
        codes.emplace_back(rule->code);
    const std::string meant = nearest(code, codes);
    throw Failure(ExitStatus::TROUBLE,
                  "no finding has the code '" + printable(code) + '\'' +
                      (meant.empty() ? ": 'ipsec-policy check --list' lists all" : " (did you mean '" + meant + "'?)"));
}
