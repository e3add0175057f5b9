#include "diff.h"

#include "text.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <type_traits>

using namespace ipsecimpl;

namespace {

const char CHANGE_COUNT[] = "changeCount";

template <class Object>
std::vector<Field> comparedFields(const Object& object, const DiffOptions& options)
{
    std::vector<Field> fields = fieldsOf(object);
    if (!options.changeCounts && !fields.empty() && std::strcmp(fields.front().path, CHANGE_COUNT) == 0)
        fields.erase(fields.begin());
    return fields;
}

FieldDifference lacking(const Field& field)
{
    return {field.path, field.isSecret, field.refersTo, std::nullopt, std::nullopt};
}

FieldDifference removed(const Field& field)
{
    FieldDifference result = lacking(field);
    result.before          = field.value;
    return result;
}

FieldDifference added(const Field& field)
{
    FieldDifference result = lacking(field);
    result.after           = field.value;
    return result;
}

/// Both lists leave out fields of one and the same order: a field that the other list does not have further on is
/// missing there.
std::vector<FieldDifference> fieldDifferences(const std::vector<Field>& before, const std::vector<Field>& after)
{
    std::vector<FieldDifference> result;
    auto                         a = after.begin();
    for (const Field& field : before) {
        const auto other =
            std::find_if(a, after.end(), [&field](const Field& f) { return std::strcmp(f.path, field.path) == 0; });
        if (other == after.end()) {
            result.push_back(removed(field));
            continue;
        }
        std::transform(a, other, std::back_inserter(result), added);
        if (!isSame(field.value, other->value)) {
            result.push_back(removed(field));
            result.back().after = other->value;
        }
        a = std::next(other);
    }
    std::transform(a, after.end(), std::back_inserter(result), added);
    return result;
}

template <class Collection>
class Comparison {
  public:
    Comparison(Kind kind, const Collection& before, const Collection& after, const DiffOptions& options)
        : kind_(kind)
        , before_(before)
        , after_(after)
        , options_(options)
    {
    }

    CollectionDifference run()
    {
        auto b = before_.begin();
        auto a = after_.begin();
        while (b != before_.end() || a != after_.end()) {
            if (a == after_.end() || (b != before_.end() && b->first < a->first)) {
                lone(*b++, Change::REMOVED, removed);
            } else if (b == before_.end() || a->first < b->first) {
                lone(*a++, Change::ADDED, added);
            } else {
                pair(b->first, b->second, a->second);
                ++b;
                ++a;
            }
        }
        if (before_.nextIDGet() != after_.nextIDGet())
            result_.nextID = {before_.nextIDGet(), after_.nextIDGet()};
        return std::move(result_);
    }

  private:
    template <class Entry>
    void lone(const Entry& entry, Change change, FieldDifference (*make)(const Field&))
    {
        const std::vector<Field> fields = comparedFields(entry.second, options_);
        ObjectDifference         object = {kind_, entry.first, change, {}};
        std::transform(fields.begin(), fields.end(), std::back_inserter(object.fields), make);
        result_.objects.push_back(std::move(object));
    }

    template <class Object>
    void pair(unsigned int id, const Object& before, const Object& after)
    {
        const std::vector<Field> old   = comparedFields(before, options_);
        const std::vector<Field> fresh = comparedFields(after, options_);
        if (!std::equal(old.begin(), old.end(), fresh.begin(), fresh.end(),
                        [](const Field& a, const Field& b) { return isSame(a, b); }))
            result_.objects.push_back({kind_, id, Change::CHANGED, fieldDifferences(old, fresh)});
    }

    Kind                 kind_;
    const Collection&    before_;
    const Collection&    after_;
    const DiffOptions&   options_;
    CollectionDifference result_;
};

} // namespace

bool Difference::empty() const
{
    return std::all_of(collections.begin(), collections.end(),
                       [](const CollectionDifference& c) { return c.objects.empty() && !c.nextID; });
}

Difference difference(const IPsecConfig& before, const IPsecConfig& after, const DiffOptions& options)
{
    const auto compared = [&options](Kind kind, const auto& old, const auto& fresh) {
        return Comparison<std::decay_t<decltype(old)>>(kind, old, fresh, options).run();
    };
    return {before,
            after,
            options.showKeys,
            {compared(Kind::HOST_GROUP, before.hostGroups, after.hostGroups),
             compared(Kind::PROTOCOL_GROUP, before.protocolGroups, after.protocolGroups),
             compared(Kind::ACTION, before.actions, after.actions),
             compared(Kind::POLICY, before.policies, after.policies)}};
}

std::string textOfReference(const IPsecConfig& config, Kind kind, unsigned int id)
{
    const std::string text = std::to_string(id);
    if (id == 0)
        return text + " (none)";
    const auto rest = [id](const auto& collection) -> std::string {
        const auto* const object = collection.find(id);
        if (object == nullptr)
            return " (missing)";
        if constexpr (std::is_same_v<std::decay_t<decltype(collection)>, Policies>)
            return "";
        else
            return " '" + printable(nameOf(*object)) + "'";
    };
    return text + withCollection(config, kind, rest);
}

std::string diffText(const IPsecConfig& before, const IPsecConfig& after, const DiffOptions& options)
{
    return textOf(difference(before, after, options));
}
