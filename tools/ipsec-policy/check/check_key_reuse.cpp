#include "checks.h"
#include "key_text.h"

#include <algorithm>
#include <cstdint>

using namespace ipsecimpl;

namespace {

const Rule TWICE = {"key-used-twice", Level::WARNING, "An action has one key for two purposes",
                    "With the same key in both directions, packets that this node sent can be sent\n"
                    "back to it and pass as the peer's. With the same key for encryption and\n"
                    "authentication, a weakness of one costs the other too.\n"
                    "Make a key of its own for each.",
                    ""};

const Rule SHARED = {"key-shared", Level::WARNING, "Two actions have the same key",
                     "Who holds the key for one can read and forge the traffic of the other. The\n"
                     "peers of one action can pass for those of the other.\n"
                     "Make a key of its own for each.",
                     ""};

/// A key, and where it is used. Keys are the same if their bytes are, however the digits are written.
struct Use {
    std::string_view          digits;
    bool                      isHex;
    std::uint64_t             hash;
    const Entry<IPsecAction>* action;
    std::size_t               number; ///< in the order of the document
    const char*               field;
    const char*               what;
};

char folded(char digit)
{
    return digit >= 'A' && digit <= 'F' ? static_cast<char>(digit - 'A' + 'a') : digit;
}

char byteOf(const Use& use, std::size_t i)
{
    return use.isHex ? folded(use.digits[i]) : use.digits[i];
}

/// Tells different keys apart at once, mostly. (FNV-1a)
std::uint64_t hashOf(const Use& use)
{
    std::uint64_t hash = 14695981039346656037U;
    for (std::size_t i = 0; i < use.digits.size(); ++i)
        hash = (hash ^ static_cast<unsigned char>(byteOf(use, i))) * 1099511628211U;
    return hash;
}

/// Negative, 0 or positive.
int compareKeys(const Use& a, const Use& b)
{
    if (a.hash != b.hash)
        return a.hash < b.hash ? -1 : 1;
    if (a.isHex != b.isHex)
        return a.isHex ? -1 : 1;
    if (a.digits.size() != b.digits.size())
        return a.digits.size() < b.digits.size() ? -1 : 1;
    for (std::size_t i = 0; i < a.digits.size(); ++i)
        if (const int difference = byteOf(a, i) - byteOf(b, i))
            return difference;
    return 0;
}

std::vector<Use> usesIn(const Model& model)
{
    std::vector<Use> uses;
    for (const ManualKey& manual : model.manualKeys())
        for (const KeyText& text : keysIn(*manual.key)) {
            const std::string_view digits = withoutPrefix(*text.key);
            Use use  = {digits, isHexadecimal(digits), 0, manual.action, uses.size(), text.field, text.what};
            use.hash = hashOf(use);
            if (!digits.empty())
                uses.push_back(use);
        }
    return uses;
}

/// `before` is the same key in the same action, or in the first action that has it.
void reportReuse(const Use& use, const Use& before, Findings& findings)
{
    const std::string what = std::string("The ") + use.what + " is also the " + before.what;
    if (use.action == before.action)
        report(findings, TWICE, Kind::ACTION, use.action->id, {use.field}, what + ". Make a key of its own for each.");
    else
        report(findings, SHARED, Kind::ACTION, use.action->id, {use.field},
               what + " of " + named(Kind::ACTION, *before.action) + ". Make a key of its own for each.");
}

} // namespace

Rules keyReuseRules()
{
    return {&TWICE, &SHARED};
}

void checkKeyReuse(const Model& model, Findings& findings)
{
    std::vector<Use> uses = usesIn(model);
    std::sort(uses.begin(), uses.end(), [](const Use& a, const Use& b) {
        const int difference = compareKeys(a, b);
        return difference != 0 ? difference < 0 : a.number < b.number;
    });

    // In each row of equal keys a use is held against the one before it in its action, or against the row's first.
    struct Reuse {
        const Use* use;
        const Use* before;
    };
    std::vector<Reuse> reuses;
    const Use*         first = nullptr;
    const Use*         last  = nullptr;
    for (const Use& use : uses) {
        if (last == nullptr || compareKeys(*last, use) != 0)
            first = &use;
        else
            reuses.push_back({&use, last->action == use.action ? last : first});
        last = &use;
    }
    std::sort(reuses.begin(), reuses.end(),
              [](const Reuse& a, const Reuse& b) { return a.use->number < b.use->number; });
    for (const Reuse& reuse : reuses)
        reportReuse(*reuse.use, *reuse.before, findings);
}
