#ifndef IPSEC_POLICY_EDITED_CONFIG_H
#define IPSEC_POLICY_EDITED_CONFIG_H

/// \file
/// A configuration in pieces: while it is edited, its entries may have any IDs, names are found quickly, and who uses
/// what is known.
///
/// A collection of the library hands out the next ID and no other. One with other IDs can only be loaded, which takes
/// as long as the collection is large; so that is done once, when all is edited.

#include "edit_words.h"
#include "objects.h"

#include <ipsecimpl/config.h>

#include <iosfwd>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

inline constexpr unsigned int LAST_ID = 2147483647; ///< the greatest that a document can carry

/// The IDs of objects by their names.
class NameIndex {
  public:
    void insert(unsigned int id, const std::string& name) { names_.emplace(name, id); }
    void erase(unsigned int id, const std::string& name) { names_.erase({name, id}); }

    template <class Object>
    void insert(unsigned int id, const Object& object)
    {
        insert(id, nameOf(object));
    }

    template <class Object>
    void erase(unsigned int id, const Object& object)
    {
        erase(id, nameOf(object));
    }

    /// In ascending order.
    std::vector<unsigned int> idsNamed(std::string_view name) const;

  private:
    std::set<std::pair<std::string, unsigned int>> names_;
};

/// The policies by what they refer to.
class ReferenceIndex {
  public:
    void insert(unsigned int id, const ipsecimpl::Policy& policy);
    void erase(unsigned int id, const ipsecimpl::Policy& policy);

    /// The IDs of the policies that refer to an object, in ascending order.
    std::vector<unsigned int> usersOf(Kind kind, unsigned int id) const;

  private:
    using References = std::set<std::pair<unsigned int, unsigned int>>; // ID of the object, ID of the policy

    References hostGroups_;
    References protocolGroups_;
    References actions_;
};

template <class Object>
using IndexOf = std::conditional_t<std::is_same_v<Object, ipsecimpl::Policy>, ReferenceIndex, NameIndex>;

/// Such as "host group 5 'web'".
std::string sentenceOf(Kind kind, unsigned int id, const std::string& name);

template <class Collection>
class EditedCollection;

/// The entries of one collection. After an exception it is of no use any more, unless it says otherwise.
template <class Object, auto pluralTag, auto singularTag>
class EditedCollection<ipsecimpl::IndexedCollection<Object, pluralTag, singularTag>> {
  public:
    using Collection = ipsecimpl::IndexedCollection<Object, pluralTag, singularTag>;

    EditedCollection(Kind kind, Collection&& collection);

    const Object*          find(unsigned int id) const;
    const IndexOf<Object>& index() const { return index_; }

    /// Stores the object under the ID, or under the next one, and returns that.
    ///
    /// Throws a Failure if the ID is in use, and invalid_operation as the library does if no ID is left; the
    /// collection is then as it was.
    unsigned int add(Object&& object, std::optional<unsigned int> wanted);

    /// Calls `change` with the object, which must be there.
    template <class Change>
    void change(unsigned int id, const Change& change);

    /// Removes the object, which must be there, and keeps the next ID as the library does.
    void remove(unsigned int id);

    /// Throws a Failure if the ID is not greater than those in use, or more than a document can carry.
    void nextIDSet(unsigned int nextID);

    /// "host group 5 'web'", or "policy 3". The object must be there.
    std::string sentence(unsigned int id) const;

    /// Writes the collection's element, with these IDs and the next one, in which nothing is said of the objects.
    void writePlaceholders(std::ostream& out) const;

    /// Puts the objects into the collection that was read from there. Nothing is in here afterwards.
    void moveInto(Collection& collection);

  private:
    Kind                           kind_;
    std::map<unsigned int, Object> entries_;
    unsigned int                   nextID_;
    IndexOf<Object>                index_;
};

extern template class EditedCollection<ipsecimpl::HostGroups>;
extern template class EditedCollection<ipsecimpl::ProtocolGroups>;
extern template class EditedCollection<ipsecimpl::Actions>;
extern template class EditedCollection<ipsecimpl::Policies>;

template <class Object, auto pluralTag, auto singularTag>
template <class Change>
void EditedCollection<ipsecimpl::IndexedCollection<Object, pluralTag, singularTag>>::change(unsigned int  id,
                                                                                            const Change& change)
{
    Object& object = entries_.at(id);
    index_.erase(id, object);
    change(object);
    index_.insert(id, object);
}

struct EditedConfig {
    explicit EditedConfig(ipsecimpl::IPsecConfig&& config);

    /// Of a kind, as findObject() tells.
    unsigned int find(Kind kind, std::string_view reference) const;

    /// The configuration. Nothing is in here afterwards.
    ipsecimpl::IPsecConfig finished();

    EditedCollection<ipsecimpl::HostGroups>     hostGroups;
    EditedCollection<ipsecimpl::ProtocolGroups> protocolGroups;
    EditedCollection<ipsecimpl::Actions>        actions;
    EditedCollection<ipsecimpl::Policies>       policies;
};

#endif
