#include "edit_losses.h"

#include "edited_config.h"
#include "fields.h"

#include <algorithm>
#include <string_view>
#include <vector>

using namespace ipsecimpl;

namespace {

std::string_view partOf(std::string_view path)
{
    return path.substr(0, path.find('/'));
}

/// What the action has no more: "ikePhase1" if all of it went, else "ikePhase1/presharedKey".
std::vector<std::string_view> lossesOf(const ObjectDifference& object, const IPsecAction& after)
{
    const std::vector<Field>      left = fieldsOf(after);
    std::vector<std::string_view> losses;
    for (const FieldDifference& field : object.fields) {
        if (field.after)
            continue;
        const std::string_view part = partOf(field.path);
        const bool             some =
            std::any_of(left.begin(), left.end(), [part](const Field& other) { return partOf(other.path) == part; });
        const std::string_view loss = some ? field.path : part;
        if (losses.empty() || losses.back() != loss)
            losses.push_back(loss);
    }
    return losses;
}

} // namespace

std::string lossesIn(const Difference& difference)
{
    std::string lines;
    for (const ObjectDifference& object : difference.collections[static_cast<std::size_t>(Kind::ACTION)].objects) {
        if (object.change != Change::CHANGED)
            continue;
        const IPsecAction& after = difference.after.actions.at(object.id);
        std::string        list;
        for (const std::string_view loss : lossesOf(object, after))
            list += (list.empty() ? "" : ", ") + std::string(loss);
        if (!list.empty())
            lines += sentenceOf(Kind::ACTION, object.id, after.nameGet()) + " loses " + list +
                     ", for which it has no place any more\n";
    }
    return lines;
}
