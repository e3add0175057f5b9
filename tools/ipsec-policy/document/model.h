#ifndef IPSEC_POLICY_MODEL_H
#define IPSEC_POLICY_MODEL_H

/// \file
/// A configuration as its checks look at it: what policies refer to is looked up once, and what is not in force stays
/// out of sight.

#include "address.h"
#include "objects.h"

#include <ipsecimpl/config.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

/// An entry of a collection.
template <class T>
struct Entry {
    unsigned int  id;
    const T*      object;
    bool          isVoid;       ///< means nothing: a group without selectors, an action NONE
    bool          isUsed;       ///< a policy names it
    std::uint32_t nameHash = 0; ///< tells different names apart at once, mostly
};

/// The entries of a collection, in ascending order of their IDs.
template <class T>
class Entries {
  public:
    /// For so many entries. More must not be added: references to them hold.
    explicit Entries(std::size_t count) { entries_.reserve(count); }

    Entries(const Entries&)            = delete;
    Entries& operator=(const Entries&) = delete;
    ~Entries()                         = default;

    const Entry<T>& add(unsigned int id, const T& object, bool isVoid)
    {
        const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(nameOf(object)));
        return entries_.emplace_back(Entry<T>{id, &object, isVoid, false, hash});
    }

    /// Null if there is none. The entry is used from then on.
    const Entry<T>* use(unsigned int id)
    {
        const auto entry = find(id);
        if (entry == entries_.end() || entry->id != id)
            return nullptr;
        entry->isUsed = true;
        return &*entry;
    }

    /// The number of the entry, from 0.
    std::size_t placeOf(const Entry<T>& entry) const { return static_cast<std::size_t>(&entry - entries_.data()); }

    std::size_t     size() const { return entries_.size(); }
    const Entry<T>& operator[](std::size_t place) const { return entries_[place]; } ///< numbered from 0

    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

  private:
    auto find(unsigned int id)
    {
        // Mostly there are no gaps among the IDs.
        if (id > 0 && id <= entries_.size() && entries_[id - 1].id == id)
            return entries_.begin() + static_cast<std::ptrdiff_t>(id - 1);
        return std::lower_bound(entries_.begin(), entries_.end(), id,
                                [](const Entry<T>& entry, unsigned int value) { return entry.id < value; });
    }

    std::vector<Entry<T>> entries_;
};

/// A policy and what it refers to; null is what does not exist.
struct Tie {
    unsigned int                           id;
    ipsecimpl::Policy                      policy;
    const Entry<ipsecimpl::HostGroup>*     hostGroup;
    const Entry<ipsecimpl::ProtocolGroup>* protocolGroup;
    const Entry<ipsecimpl::IPsecAction>*   action;
};

/// Which families the hosts of a group can have.
struct Families {
    bool v4 = false;
    bool v6 = false;
};

/// An action with manual keys in force.
struct ManualKey {
    const Entry<ipsecimpl::IPsecAction>* action;
    const ipsecimpl::MKM*                key;
};

/// An action with IKE in force.
struct KeyExchange {
    const Entry<ipsecimpl::IPsecAction>* action;
    const ipsecimpl::IKEPhase1*          phase1;
};

/// What checks across objects need. It is gathered while the objects are checked one by one: to visit each object of a
/// large configuration once more costs as much as all there is to check in it.
class Model {
  public:
    explicit Model(const ipsecimpl::IPsecConfig& config);

    /// \name For each object of the configuration, in the order of the IDs, policies last
    /// @{
    const Entry<ipsecimpl::HostGroup>&     add(unsigned int id, const ipsecimpl::HostGroup& group);
    const Entry<ipsecimpl::ProtocolGroup>& add(unsigned int id, const ipsecimpl::ProtocolGroup& group);
    const Entry<ipsecimpl::IPsecAction>&   add(unsigned int id, const ipsecimpl::IPsecAction& action);
    void                                   add(unsigned int id, const ipsecimpl::Policy& policy);
    /// @}

    const Entries<ipsecimpl::HostGroup>&     hostGroups() const { return hostGroups_; }
    const Entries<ipsecimpl::ProtocolGroup>& protocolGroups() const { return protocolGroups_; }
    const Entries<ipsecimpl::IPsecAction>&   actions() const { return actions_; }
    const std::vector<Tie>&                  ties() const { return ties_; } ///< one for each policy

    /// Those in force.
    const std::vector<ManualKey>& manualKeys() const { return manualKeys_; }

    /// Those in force.
    const std::vector<KeyExchange>& keyExchanges() const { return keyExchanges_; }

    const Families& familiesOf(const Entry<ipsecimpl::HostGroup>& group) const
    {
        return families_[hostGroups_.placeOf(group)];
    }

    /// Nothing unless it is an address, and that of a tunnel.
    const std::optional<Address>& endPointOf(const Entry<ipsecimpl::IPsecAction>& action) const
    {
        return endPoints_[actions_.placeOf(action)];
    }

  private:
    Entries<ipsecimpl::HostGroup>       hostGroups_;
    Entries<ipsecimpl::ProtocolGroup>   protocolGroups_;
    Entries<ipsecimpl::IPsecAction>     actions_;
    std::vector<Tie>                    ties_;
    std::vector<Families>               families_;  // of each host group
    std::vector<std::optional<Address>> endPoints_; // of each action
    std::vector<ManualKey>              manualKeys_;
    std::vector<KeyExchange>            keyExchanges_;
};

/// \name What is in force in an action
/// The getters of the library look at one condition each, a document holds what meets both: a mode that needs keys, and
/// the key manager. Null is what is not in force.
/// @{
bool                        needsKeys(const ipsecimpl::IPsecAction& action); ///< transport or tunnel
const ipsecimpl::MKM*       manualKeyOf(const ipsecimpl::IPsecAction& action);
const ipsecimpl::IKEPhase1* phase1Of(const ipsecimpl::IPsecAction& action);
const ipsecimpl::IKEPhase2* phase2Of(const ipsecimpl::IPsecAction& action);
/// @}

/// \name What is in force in a manual key
/// @{
bool hasESP(const ipsecimpl::IPsecProposal& proposal);
bool hasAH(const ipsecimpl::IPsecProposal& proposal);
bool hasEncryption(const ipsecimpl::IPsecProposal& proposal); ///< and so its keys and initialisation vector
bool hasHash(const ipsecimpl::IPsecProposal& proposal);       ///< and so the authentication keys
/// @}

#endif
