#include "edit_groups.h"

#include "selector_text.h"

#include <set>
#include <string>
#include <utility>

using namespace ipsecimpl;

namespace {

/// The selectors in a list, in its order.
std::vector<HostSelector> read(const std::vector<std::string_view>& texts, const HostGroup&)
{
    std::vector<HostSelector> selectors;
    selectors.reserve(texts.size());
    for (const std::string_view text : texts)
        selectors.push_back(readHostSelector(text));
    return selectors;
}

std::vector<ProtocolSelector> read(const std::vector<std::string_view>& texts, const ProtocolGroup&)
{
    std::vector<ProtocolSelector> selectors;
    selectors.reserve(texts.size());
    for (const std::string_view text : texts) {
        if (!selectors.empty())
            refuseListedPort(selectors.back(), text);
        selectors.push_back(readProtocolSelector(text));
    }
    return selectors;
}

void requireStorableTexts(const HostSelector& selector)
{
    requireStorable(selector.addr1, "addr1");
    requireStorable(selector.addr2, selector.selectorType == HOST_SUBNET_MASK ? "mask" : "addr2");
}

void requireStorableTexts(const ProtocolSelector& selector)
{
    requireStorable(selector.name, "named");
    if (selector.name.empty())
        throw commandFailure("named: a document cannot hold a selector without a name");
}

template <class Group>
void add(Group& group, const std::vector<std::string_view>& texts)
{
    for (const auto& selector : read(texts, group)) {
        requireStorableTexts(selector);
        if (!group.selectors.insert(selector).second)
            throw commandFailure("the selector is there already: " + textOf(*group.selectors.find(selector)));
    }
}

template <class Group>
void remove(Group& group, const std::vector<std::string_view>& texts)
{
    for (const auto& selector : read(texts, group))
        if (group.selectors.erase(selector) == 0)
            throw commandFailure("there is no such selector: " + textOf(selector));
}

std::vector<std::string_view> membersOf(std::string_view list)
{
    std::vector<std::string_view> members = splitList(list);
    if (members.empty())
        throw commandFailure("a selector is missing");
    return members;
}

template <class Group>
const FieldSetter<Group> SETTERS[] = {
    {"name", [](Group& group, const GivenValue& value) { group.name = value.text(); }},
    {"builtinName", [](Group& group, const GivenValue& value) { group.builtinName = value.integer(); }},
    {"descr", [](Group& group, const GivenValue& value) { group.descr = value.text(); }},
    {"builtinDescr", [](Group& group, const GivenValue& value) { group.builtinDescr = value.integer(); }},
    {"selectors",
     [](Group& group, const GivenValue& value) {
         std::string list;
         group.selectors.clear();
         add(group, value.members(list));
     }},
};

} // namespace

KnownFields fieldsOfGroups(bool isNew)
{
    KnownFields known;
    append(known, SETTERS<HostGroup>); // those of protocol groups are the same
    if (isNew)
        known.erase(known.begin());
    return known;
}

void setFields(HostGroup& group, const GivenFields& fields)
{
    fields.apply(SETTERS<HostGroup>, group);
}

void setFields(ProtocolGroup& group, const GivenFields& fields)
{
    fields.apply(SETTERS<ProtocolGroup>, group);
}

void addSelectors(HostGroup& group, std::string_view list)
{
    add(group, membersOf(list));
}

void addSelectors(ProtocolGroup& group, std::string_view list)
{
    add(group, membersOf(list));
}

void removeSelectors(HostGroup& group, std::string_view list)
{
    remove(group, membersOf(list));
}

void removeSelectors(ProtocolGroup& group, std::string_view list)
{
    remove(group, membersOf(list));
}
