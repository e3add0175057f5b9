#include "diff.h"

#include "enum_text.h"
#include "json.h"

#include <type_traits>

using namespace ipsecimpl;

namespace {

Json jsonOf(const IPsecProposal& proposal)
{
    return {{"protocol", wordOf(proposal.protocol)}, {"encryption", proposal.encryption}, {"hash", proposal.hash}};
}

struct Conversion {
    Json operator()(std::string_view text) const { return std::string(text); }
    Json operator()(const Word& word) const { return word.text; }
    Json operator()(long long number) const { return number; }

    Json operator()(const std::list<IKEPhase1Transform>* transforms) const
    {
        Json result = Json::array();
        for (const IKEPhase1Transform& transform : *transforms)
            result.push_back(wordOf(transform));
        return result;
    }

    Json operator()(const std::list<IPsecProposal>* proposals) const
    {
        Json result = Json::array();
        for (const IPsecProposal& proposal : *proposals)
            result.push_back(jsonOf(proposal));
        return result;
    }

    template <class Selector>
    Json operator()(const std::set<Selector>* selectors) const
    {
        return selectorsOnlyIn(selectors, std::nullopt);
    }
};

/// The name of an object of a kind that has names; null if there is no such object.
Json nameOfObject(const IPsecConfig& config, Kind kind, unsigned int id)
{
    return withCollection(config, kind, [id](const auto& collection) -> Json {
        if constexpr (!std::is_same_v<std::decay_t<decltype(collection)>, Policies>)
            if (const auto* const object = collection.find(id); object != nullptr)
                return nameOf(*object);
        return nullptr;
    });
}

const char* textOf(Change change)
{
    switch (change) {
    case Change::ADDED:
        return "added";
    case Change::REMOVED:
        return "removed";
    default:
        return "changed";
    }
}

/// A key that is not to be shown is null; that there is none is no secret.
Json jsonOf(const FieldValue& value, const FieldDifference& field, bool showKeys)
{
    if (field.isSecret && !showKeys && !std::get<std::string_view>(value).empty())
        return nullptr;
    return std::visit(Conversion(), value);
}

void addValue(Json& result, const std::string& member, const FieldValue& value, const FieldDifference& field,
              const IPsecConfig& config, bool showKeys)
{
    result[member] = jsonOf(value, field, showKeys);
    if (field.refersTo)
        result[member + "Name"] =
            nameOfObject(config, *field.refersTo, static_cast<unsigned int>(std::get<long long>(value)));
}

Json jsonOf(const FieldDifference& field, const Difference& difference)
{
    Json result = {{"field", field.path}};
    if (field.isSecret)
        result["secret"] = true;
    if (field.before && field.after && holdsSelectors(*field.before)) {
        result["removed"] = selectorsOnlyIn(*field.before, field.after);
        result["added"]   = selectorsOnlyIn(*field.after, field.before);
        return result;
    }
    if (field.before)
        addValue(result, "old", *field.before, field, difference.before, difference.showKeys);
    if (field.after)
        addValue(result, "new", *field.after, field, difference.after, difference.showKeys);
    return result;
}

Json jsonOf(const ObjectDifference& object, const Difference& difference)
{
    const IPsecConfig& config = object.change == Change::REMOVED ? difference.before : difference.after;

    Json result = {
        {"change", textOf(object.change)}, {"collection", wordsOf(object.kind).collection}, {"id", object.id}};
    if (object.kind != Kind::POLICY)
        result["name"] = nameOfObject(config, object.kind, object.id);
    Json& fields = result["fields"] = Json::array();
    for (const FieldDifference& field : object.fields)
        fields.push_back(jsonOf(field, difference));
    return result;
}

} // namespace

std::string jsonOf(const Difference& difference)
{
    Json nextIDs = Json::array();
    Json objects = Json::array();
    for (const Kind kind : ALL_KINDS) {
        const CollectionDifference& collection = difference.collections[static_cast<std::size_t>(kind)];
        if (collection.nextID)
            nextIDs.push_back({{"collection", wordsOf(kind).collection},
                               {"old", collection.nextID->first},
                               {"new", collection.nextID->second}});
        for (const ObjectDifference& object : collection.objects)
            objects.push_back(jsonOf(object, difference));
    }
    return textOf(Json{{"nextIDs", nextIDs}, {"objects", objects}});
}
