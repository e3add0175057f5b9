#include "edited_config.h"

#include "text.h"

#include <algorithm>
#include <new>
#include <sstream>

using namespace ipsecimpl;

namespace {

template <class Object>
Object placeholder()
{
    return Object();
}

template <>
Policy placeholder<Policy>()
{
    return Policy(0, 0, 0);
}

/// Puts the object where a placeholder was. What assignment leaves out on purpose is carried over.
template <class Object>
void put(Object& place, Object&& object)
{
    place = std::forward<Object>(object);
}

void put(IPsecAction& place, IPsecAction&& action)
{
    place.typeSet(action.typeGet());
    place.stateSet(action.stateGet());
    place = std::move(action);
}

} // namespace

std::vector<unsigned int> NameIndex::idsNamed(std::string_view name) const
{
    std::vector<unsigned int> ids;
    for (auto i = names_.lower_bound({std::string(name), 0}); i != names_.end() && i->first == name; ++i)
        ids.push_back(i->second);
    return ids;
}

void ReferenceIndex::insert(unsigned int id, const Policy& policy)
{
    hostGroups_.emplace(policy.hostGroupID, id);
    protocolGroups_.emplace(policy.protocolGroupID, id);
    actions_.emplace(policy.actionID, id);
}

void ReferenceIndex::erase(unsigned int id, const Policy& policy)
{
    hostGroups_.erase({policy.hostGroupID, id});
    protocolGroups_.erase({policy.protocolGroupID, id});
    actions_.erase({policy.actionID, id});
}

std::vector<unsigned int> ReferenceIndex::usersOf(Kind kind, unsigned int id) const
{
    const References&         references = kind == Kind::HOST_GROUP       ? hostGroups_
                                           : kind == Kind::PROTOCOL_GROUP ? protocolGroups_
                                                                          : actions_;
    std::vector<unsigned int> users;
    for (auto i = references.lower_bound({id, 0}); i != references.end() && i->first == id; ++i)
        users.push_back(i->second);
    return users;
}

std::string sentenceOf(Kind kind, unsigned int id, const std::string& name)
{
    return wordsOf(kind).sentence + (' ' + std::to_string(id)) + " '" + printable(name) + '\'';
}

template <class Object, auto pluralTag, auto singularTag>
EditedCollection<IndexedCollection<Object, pluralTag, singularTag>>::EditedCollection(Kind         kind,
                                                                                      Collection&& collection)
    : kind_(kind)
    , nextID_(collection.nextIDGet())
{
    for (auto& [id, object] : collection) {
        index_.insert(id, object);
        entries_.emplace_hint(entries_.end(), id, std::move(object));
    }
}

template <class Object, auto pluralTag, auto singularTag>
const Object* EditedCollection<IndexedCollection<Object, pluralTag, singularTag>>::find(unsigned int id) const
{
    const auto entry = entries_.find(id);
    return entry == entries_.end() ? nullptr : &entry->second;
}

template <class Object, auto pluralTag, auto singularTag>
unsigned int
EditedCollection<IndexedCollection<Object, pluralTag, singularTag>>::add(Object&&                    object,
                                                                         std::optional<unsigned int> wanted)
{
    const unsigned int id = wanted.value_or(nextID_);
    if (id > LAST_ID)
        throw invalid_operation(std::string("no ID left for ") + *singularTag);
    if (find(id) != nullptr)
        throw commandFailure("ID " + std::to_string(id) + " is in use: it is " + sentence(id));

    const auto entry = entries_.emplace(id, std::move(object)).first;
    index_.insert(id, entry->second);
    nextID_ = std::max(nextID_, id + 1);
    return id;
}

template <class Object, auto pluralTag, auto singularTag>
void EditedCollection<IndexedCollection<Object, pluralTag, singularTag>>::remove(unsigned int id)
{
    const auto entry = entries_.find(id);
    index_.erase(id, entry->second);
    entries_.erase(entry);
    if (id == LAST_ID)
        nextID_ = LAST_ID;
}

template <class Object, auto pluralTag, auto singularTag>
void EditedCollection<IndexedCollection<Object, pluralTag, singularTag>>::nextIDSet(unsigned int nextID)
{
    const unsigned int greatest = entries_.empty() ? 0 : entries_.rbegin()->first;
    if (nextID <= greatest)
        throw commandFailure("the next ID must be greater than the IDs in use, such as that of " + sentence(greatest));
    if (nextID > LAST_ID && greatest != LAST_ID)
        throw commandFailure("the next ID can be 2147483647 at most");
    nextID_ = nextID;
}

template <class Object, auto pluralTag, auto singularTag>
std::string EditedCollection<IndexedCollection<Object, pluralTag, singularTag>>::sentence(unsigned int id) const
{
    if constexpr (std::is_same_v<Object, Policy>)
        return "policy " + std::to_string(id);
    else
        return sentenceOf(kind_, id, nameOf(entries_.at(id)));
}

template <class Object, auto pluralTag, auto singularTag>
void EditedCollection<IndexedCollection<Object, pluralTag, singularTag>>::writePlaceholders(std::ostream& out) const
{
    std::ostringstream element;
    placeholder<Object>().exportXML(element);
    if (!element)
        out.setstate(std::ios::badbit);

    const std::string plural = *pluralTag, singular = *singularTag, entry = singular + "Entry>";
    out << '<' << plural << "><next" << singular << '>' << nextID_ << "</next" << singular << '>';
    for (const auto& object : entries_)
        out << '<' << entry << "<id>" << object.first << "</id>" << element.str() << "</" << entry;
    out << "</" << plural << '>';
}

template <class Object, auto pluralTag, auto singularTag>
void EditedCollection<IndexedCollection<Object, pluralTag, singularTag>>::moveInto(Collection& collection)
{
    auto place = collection.begin();
    for (auto& entry : entries_)
        put((place++)->second, std::move(entry.second));
    entries_.clear();
}

template class EditedCollection<HostGroups>;
template class EditedCollection<ProtocolGroups>;
template class EditedCollection<Actions>;
template class EditedCollection<Policies>;

EditedConfig::EditedConfig(IPsecConfig&& config)
    : hostGroups(Kind::HOST_GROUP, std::move(config.hostGroups))
    , protocolGroups(Kind::PROTOCOL_GROUP, std::move(config.protocolGroups))
    , actions(Kind::ACTION, std::move(config.actions))
    , policies(Kind::POLICY, std::move(config.policies))
{
}

unsigned int EditedConfig::find(Kind kind, std::string_view reference) const
{
    return withCollection(*this, kind, [&](const auto& objects) {
        return findObject(
            kind, reference, [&](unsigned int id) { return objects.find(id) != nullptr; },
            [&](std::string_view name) {
                if constexpr (std::is_same_v<std::decay_t<decltype(objects.index())>, NameIndex>)
                    return objects.index().idsNamed(name);
                else
                    return std::vector<unsigned int>();
            });
    });
}

IPsecConfig EditedConfig::finished()
{
    std::stringstream document;
    document << "<ipsec>";
    for (const Kind kind : ALL_KINDS)
        withCollection(*this, kind, [&](const auto& objects) { objects.writePlaceholders(document); });
    document << "</ipsec>";
    if (!document) // a stream in memory fails for want of memory alone
        throw std::bad_alloc();

    XMLParser   parser(document);
    IPsecConfig config = IPsecConfig::importXML(parser);
    hostGroups.moveInto(config.hostGroups);
    protocolGroups.moveInto(config.protocolGroups);
    actions.moveInto(config.actions);
    policies.moveInto(config.policies);
    return config;
}
