#ifndef IPSEC_POLICY_EDIT_OBJECTS_H
#define IPSEC_POLICY_EDIT_OBJECTS_H

/// \file
/// What edit commands do to objects of all kinds alike.

#include "edit_actions.h"
#include "edit_groups.h"
#include "edit_policies.h"
#include "edited_config.h"

#include <optional>
#include <string>
#include <type_traits>
#include <utility>

/// Behind the name of a new object, this may stand between its fields.
inline constexpr KnownField ID_FIELD = {"id", false};

/// What is in a collection.
template <class Objects>
using ObjectOf = std::decay_t<decltype(*std::declval<Objects>().find(0))>;

template <class Object>
KnownFields fieldsOf(bool isNew)
{
    if constexpr (std::is_same_v<Object, ipsecimpl::Policy>)
        return isNew ? KnownFields() : fieldsOfPolicies();
    else if constexpr (std::is_same_v<Object, ipsecimpl::IPsecAction>)
        return fieldsOfActions(isNew);
    else
        return fieldsOfGroups(isNew);
}

template <class Object>
KnownFields fieldsAndID()
{
    KnownFields known = fieldsOf<Object>(true);
    known.push_back(ID_FIELD);
    return known;
}

inline std::optional<unsigned int> idIn(const GivenFields& fields)
{
    const GivenValue* const id = fields.find(ID_FIELD.path);
    return id == nullptr ? std::nullopt : std::optional<unsigned int>(givenID(id->plain()));
}

/// A group or an action.
template <class Object>
Object newObject(const std::string& name, const GivenFields& fields)
{
    if constexpr (std::is_same_v<Object, ipsecimpl::IPsecAction>) {
        return newAction(name, fields);
    } else {
        Object group;
        group.name = name;
        setFields(group, fields);
        return group;
    }
}

/// Makes a group or an action what `fresh` is, which `fields` have made.
template <class Object>
void replaceBy(Object& object, Object fresh, const GivenFields& fields)
{
    if constexpr (std::is_same_v<Object, ipsecimpl::IPsecAction>)
        replace(object, fresh, fields);
    else
        object = std::move(fresh);
}

#endif
