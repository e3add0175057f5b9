#include "objects.h"

#include "failure.h"
#include "text.h"

#include <algorithm>
#include <charconv>
#include <type_traits>

using namespace ipsecimpl;

namespace {

const std::string_view FORCED_NAME = "name=";

const KindWords WORDS[] = {
    {"hostGroups", "host-groups", "host-group", "host group"},
    {"protocolGroups", "protocol-groups", "protocol-group", "protocol group"},
    {"actions", "actions", "action", "action"},
    {"policies", "policies", "policy", "policy"},
};

bool isNumber(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// The ID in a text of digits; 0, which no object has, for what is beyond all IDs.
unsigned int numberIn(std::string_view digits)
{
    unsigned int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number); // which stays 0 beyond 32 bits
    return number;
}

std::vector<unsigned int> namesakes(const IPsecConfig& config, Kind kind, std::string_view name)
{
    return withCollection(config, kind, [name](const auto& collection) {
        std::vector<unsigned int> ids;
        if constexpr (!std::is_same_v<std::decay_t<decltype(collection)>, Policies>)
            for (const auto& [id, object] : collection)
                if (nameOf(object) == name)
                    ids.push_back(id);
        return ids;
    });
}

Failure lookupFailure(const std::string& message)
{
    return Failure(ExitStatus::TROUBLE, message);
}

} // namespace

const KindWords& wordsOf(Kind kind)
{
    return WORDS[static_cast<std::size_t>(kind)];
}

std::string pluralOf(Kind kind)
{
    return kind == Kind::POLICY ? "policies" : wordsOf(kind).sentence + std::string("s");
}

Kind kindNamed(std::string_view word)
{
    for (const Kind kind : ALL_KINDS)
        if (word == wordsOf(kind).plural || word == wordsOf(kind).singular)
            return kind;
    throw lookupFailure("'" + printable(word) +
                        "' is no kind of object: there are host-groups, protocol-groups, actions and policies");
}

std::string textOf(const ObjectPath& path)
{
    std::string text;
    appendText(text, path);
    return text;
}

void appendText(std::string& text, const ObjectPath& path)
{
    text += wordsOf(path.kind).collection;
    if (path.id != 0)
        (text += '/') += std::to_string(path.id);
    if (!path.field.empty())
        (text += '/') += path.field;
}

unsigned int findObject(Kind kind, std::string_view reference, const std::function<bool(unsigned int)>& exists,
                        const std::function<std::vector<unsigned int>(std::string_view)>& idsNamed)
{
    const std::string sentence = wordsOf(kind).sentence;
    if (isNumber(reference)) {
        const unsigned int id = numberIn(reference);
        if (!exists(id))
            throw lookupFailure("no " + sentence + " has ID " + std::string(reference));
        return id;
    }
    if (kind == Kind::POLICY)
        throw lookupFailure("'" + printable(reference) + "' is no policy: policies have no names, give the ID");

    const bool                      forced = reference.substr(0, FORCED_NAME.size()) == FORCED_NAME;
    const std::string_view          name   = forced ? reference.substr(FORCED_NAME.size()) : reference;
    const std::vector<unsigned int> ids    = idsNamed(name);
    if (ids.empty())
        throw lookupFailure("no " + sentence + " is named '" + printable(name) + "'");
    if (ids.size() > 1) {
        std::string list;
        for (const unsigned int id : ids)
            list += (list.empty() ? "" : ", ") + std::to_string(id);
        throw lookupFailure(std::to_string(ids.size()) + ' ' + pluralOf(kind) + " are named '" + printable(name) +
                            "' (IDs " + list + "): give the ID");
    }
    return ids.front();
}

unsigned int findObject(const IPsecConfig& config, Kind kind, std::string_view reference)
{
    return findObject(
        kind, reference,
        [&](unsigned int id) {
            return withCollection(config, kind, [id](const auto& all) { return all.find(id) != nullptr; });
        },
        [&](std::string_view name) { return namesakes(config, kind, name); });
}
