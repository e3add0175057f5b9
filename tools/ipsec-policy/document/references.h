#ifndef IPSEC_POLICY_REFERENCES_H
#define IPSEC_POLICY_REFERENCES_H

/// \file
/// What policies refer to, and who refers to an object. Both are looked up in tables of their own: a policy names three
/// objects, and a search for each in the collections would take longer than all else that is done with it.

#include "objects.h"

#include <ipsecimpl/config.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The kinds that policies refer to.
inline constexpr std::array<Kind, 3> REFERENCED_KINDS = {Kind::HOST_GROUP, Kind::PROTOCOL_GROUP, Kind::ACTION};

/// The ID of the object of `kind` that the policy names.
unsigned int referenceTo(Kind kind, const ipsecimpl::Policy& policy);

/// The names of a configuration's groups and actions by ID.
class Names {
  public:
    Names() = default;

    explicit Names(const ipsecimpl::IPsecConfig& config) { addMissing(config); }

    /// Adds the name of an object. Those of a kind are added all, in ascending order of their IDs.
    void add(Kind kind, unsigned int id, const std::string& name);

    /// Adds all of the kinds of which no name was added.
    void addMissing(const ipsecimpl::IPsecConfig& config);

    /// The object's name, which lives as long as this; nothing if there is no such object.
    std::optional<std::string_view> find(Kind kind, unsigned int id) const;

  private:
    struct OfKind {
        std::vector<unsigned int> ids;  // ascending
        std::vector<std::size_t>  ends; // of their names in the text
        std::string               text;
    };

    std::array<OfKind, REFERENCED_KINDS.size()> kinds_;
};

/// Which policies name an object, whether it exists or not.
class Users {
  public:
    explicit Users(const ipsecimpl::Policies& policies);

    /// The IDs of the policies, ascending.
    std::vector<unsigned int> of(Kind kind, unsigned int id) const;

    /// Whether there are any.
    bool has(Kind kind, unsigned int id) const;

  private:
    using Use = std::pair<unsigned int, unsigned int>; // of an object, by a policy

    using Uses = std::vector<Use>;

    Uses::const_iterator first(Kind kind, unsigned int id) const;

    std::array<Uses, REFERENCED_KINDS.size()> kinds_;
};

#endif
