#ifndef IPSEC_POLICY_OBJECTS_H
#define IPSEC_POLICY_OBJECTS_H

/// \file
/// What a configuration consists of, and how operators point at it: the four kinds of objects, and paths such as
/// `policies/3/actionID`.

#include <ipsecimpl/config.h>

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

enum class Kind { HOST_GROUP, PROTOCOL_GROUP, ACTION, POLICY };

/// In the order of the document.
inline constexpr std::array<Kind, 4> ALL_KINDS = {Kind::HOST_GROUP, Kind::PROTOCOL_GROUP, Kind::ACTION, Kind::POLICY};

/// The words for a kind.
struct KindWords {
    const char* collection; ///< in paths and JSON, which is the document's own tag: "hostGroups"
    const char* plural;     ///< on the command line: "host-groups"
    const char* singular;   ///< in edit commands: "host-group"
    const char* sentence;   ///< in sentences: "host group"
};

const KindWords& wordsOf(Kind kind);

/// Such as "host groups".
std::string pluralOf(Kind kind);

/// The kind that is called so on the command line, in the plural or the singular. Throws a Failure (TROUBLE) if none
/// is.
Kind kindNamed(std::string_view word);

/// An object of a configuration, or a field of it.
struct ObjectPath {
    Kind         kind = Kind::HOST_GROUP;
    unsigned int id   = 0; ///< 0 is no object's: the collection, whose one field is its next ID ("nextpolicy")

    /// Tags of the document below the object's own, such as "ikePhase1/proposal/dhGroup". A list's members are counted
    /// from 1 in the order of the configuration in memory: "selectors/2/addr1", "ikePhase2/saProposal/1/hash". Empty
    /// for the object itself.
    std::string field;
};

/// Such as "policies/3/actionID", or "policies/nextpolicy".
std::string textOf(const ObjectPath& path);

/// Appends the same to `text`.
void appendText(std::string& text, const ObjectPath& path);

/// What the collection of `kind` is. `visit` takes any of the four.
template <class Config, class Visitor>
decltype(auto) withCollection(Config& config, Kind kind, const Visitor& visit)
{
    switch (kind) {
    case Kind::HOST_GROUP:
        return visit(config.hostGroups);
    case Kind::PROTOCOL_GROUP:
        return visit(config.protocolGroups);
    case Kind::ACTION:
        return visit(config.actions);
    default:
        return visit(config.policies);
    }
}

inline const std::string& nameOf(const ipsecimpl::HostGroup& group)
{
    return group.name;
}

inline const std::string& nameOf(const ipsecimpl::ProtocolGroup& group)
{
    return group.name;
}

inline const std::string& nameOf(const ipsecimpl::IPsecAction& action)
{
    return action.nameGet();
}

/// The ID of the object that `reference` names: decimal digits are an ID; all else is a name, which must be exactly one
/// object's. What follows "name=" is a name in any case, digits too. Policies have no names.
///
/// Throws a Failure (TROUBLE) that says what there is instead, such as "no action is named 'x'", "no action has ID 7",
/// "3 actions are named 'x' (IDs 1, 4, 9): give the ID".
unsigned int findObject(const ipsecimpl::IPsecConfig& config, Kind kind, std::string_view reference);

/// The same where objects are not in a configuration. `idsNamed` gives the IDs of all objects of a name, ascending.
unsigned int findObject(Kind kind, std::string_view reference, const std::function<bool(unsigned int)>& exists,
                        const std::function<std::vector<unsigned int>(std::string_view)>& idsNamed);

#endif
