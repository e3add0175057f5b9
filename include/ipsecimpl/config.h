#ifndef IPSECIMPL_CONFIG_H
#define IPSECIMPL_CONFIG_H

/// \file
/// The whole configuration, its collections, and the policies that tie their entries together.

#include <ipsecimpl/actions.h>
#include <ipsecimpl/export.h>
#include <ipsecimpl/selectors.h>
#include <ipsecimpl/xml.h>

#include <iosfwd>
#include <map>

namespace ipsecimpl {

/// Ties one host group, one protocol group and one action together by ID.
///
/// A plain value. The IDs are never checked: a policy may name entries that do not exist, and 0 names none.
class IPSECIMPL_API Policy {
  public:
    Policy(unsigned int hostGroupID, unsigned int protocolGroupID, unsigned int actionID);

    /// Reads one <policy> element. Throws ParseError; then there is no policy.
    static Policy importXML(XMLParser& parser);

    /// Writes the <policy> element and returns `out`, whose state is the caller's to test.
    std::ostream& exportXML(std::ostream& out) const;

    unsigned int hostGroupID;     ///< entry of the host groups
    unsigned int protocolGroupID; ///< entry of the protocol groups
    unsigned int actionID;        ///< entry of the actions
};

/// Elements of one kind by ID, in ascending order of the IDs, with the next ID to hand out.
///
/// A value: a copy owns copies of the elements (of actions without `type` and `state`). IDs run from 1 to 2147483647,
/// which is what a document can carry. At all times `nextIDGet()` is greater than every ID in use and storing and
/// loading gives the same IDs and the same next ID back. Every operation that throws leaves the collection as it was.
///
/// References and pointers to an element hold until it is removed or the collection is assigned to.
///
/// `pluralTag` and `singularTag` are the addresses of the tags from which the element names are made.
template <class T, auto pluralTag, auto singularTag>
class IPSECIMPL_API IndexedCollection {
  public:
    using iterator       = typename std::map<unsigned int, T>::iterator;       ///< to a pair of ID and element
    using const_iterator = typename std::map<unsigned int, T>::const_iterator; ///< to a pair of ID and element

    /// Empty; the next ID is 1.
    IndexedCollection();

    IndexedCollection(const IndexedCollection& other);
    IndexedCollection(IndexedCollection&& other) noexcept; ///< `other` is empty afterwards, its next ID is 1
    IndexedCollection& operator=(const IndexedCollection& other); ///< if it throws, the target is as it was
    IndexedCollection& operator=(IndexedCollection&& other) noexcept; ///< `other` is empty afterwards, its next ID is 1
    ~IndexedCollection();

    /// Stores a copy of `element` under the next ID, which it returns.
    ///
    /// Throws invalid_operation "no ID left for " and the singular tag when the next ID is beyond 2147483647. Gaps
    /// among the IDs are not filled: an ID that was in use once is not given to something else.
    unsigned int add(const T& element);

    /// The same, moving `element` in (an action keeps its `type` and `state`).
    unsigned int add(T&& element);

    /// The element, or null if there is none with this ID.
    T*       find(unsigned int id);
    const T* find(unsigned int id) const;

    /// The element. Throws `std::invalid_argument` "no " + singular tag + " with ID N" if there is none.
    T&       at(unsigned int id);
    const T& at(unsigned int id) const;

    /// Assigns `element` to the stored one, which it returns. So an action's `type` and `state` stay what they are in
    /// the collection, whatever those of `element`. Throws `std::invalid_argument` as at() does.
    T& replace(unsigned int id, const T& element);

    /// Removes the element; false if there is none. The next ID stays, but for ID 2147483647: nothing greater can be
    /// handed out or stored, so it becomes the next ID again.
    bool remove(unsigned int id);

    std::size_t size() const noexcept { return entries_.size(); }
    bool        empty() const noexcept { return entries_.empty(); }

    iterator       begin() noexcept { return entries_.begin(); }
    iterator       end() noexcept { return entries_.end(); }
    const_iterator begin() const noexcept { return entries_.begin(); }
    const_iterator end() const noexcept { return entries_.end(); }

    /// The ID that the next add() uses: 1 to 2147483647, or 2147483648 when there is none left.
    unsigned int nextIDGet() const noexcept { return nextID_; }

    /// Reads one collection element. Throws ParseError, or what the element's own reader throws; then there is no
    /// collection.
    static IndexedCollection importXML(XMLParser& parser);

    /// Writes the collection, its entries in ascending order, and returns `out`, whose state is the caller's to test.
    std::ostream& exportXML(std::ostream& out) const;

  private:
    std::map<unsigned int, T> entries_;
    unsigned int              nextID_ = 1;
};

using HostGroups     = IndexedCollection<HostGroup, &__hostGroupsTag, &__hostGroupTag>;
using ProtocolGroups = IndexedCollection<ProtocolGroup, &__protocolGroupsTag, &__protocolGroupTag>;
using Actions        = IndexedCollection<IPsecAction, &__actionsTag, &__actionTag>;
using Policies       = IndexedCollection<Policy, &__policiesTag, &__policyTag>;

extern template class IPSECIMPL_API IndexedCollection<HostGroup, &__hostGroupsTag, &__hostGroupTag>;
extern template class IPSECIMPL_API IndexedCollection<ProtocolGroup, &__protocolGroupsTag, &__protocolGroupTag>;
extern template class IPSECIMPL_API IndexedCollection<IPsecAction, &__actionsTag, &__actionTag>;
extern template class IPSECIMPL_API IndexedCollection<Policy, &__policiesTag, &__policyTag>;

/// The whole configuration: what one document holds.
///
/// A value that owns its collections. Nothing is checked across them, and the library never adds anything by itself.
class IPSECIMPL_API IPsecConfig {
  public:
    /// Four empty collections.
    IPsecConfig();

    /// Copies the four collections.
    IPsecConfig(const HostGroups& hostGroups, const ProtocolGroups& protocolGroups, const Actions& actions,
                const Policies& policies);

    IPsecConfig(const IPsecConfig& other);                ///< the actions' `type` and `state` start at 0
    IPsecConfig(IPsecConfig&& other) noexcept;            ///< `other` is empty afterwards
    IPsecConfig& operator=(const IPsecConfig& other);     ///< if it throws, the target is as it was
    IPsecConfig& operator=(IPsecConfig&& other) noexcept; ///< `other` is empty afterwards
    ~IPsecConfig();

    /// Reads one <ipsec> element; what follows it stays in the stream.
    ///
    /// Throws ParseError, and nothing else but std::bad_alloc and what the stream's exception mask demands. It yields
    /// a whole configuration or none: assign the result to replace a configuration only if the load succeeds.
    static IPsecConfig importXML(XMLParser& parser);

    /// Writes the <ipsec> element and returns `out`.
    ///
    /// Each line is flushed. Nothing is escaped: a text with `<` in it, or with white space at its ends, does not come
    /// back. Nothing is thrown unless the exception mask of `out` asks for it: errors show in its state, running out of
    /// memory included, so test it. Not const, for historical reasons; it changes nothing.
    std::ostream& exportXML(std::ostream& out);

    HostGroups     hostGroups;     ///< who the peers are
    ProtocolGroups protocolGroups; ///< which traffic
    Actions        actions;        ///< what happens to it
    Policies       policies;       ///< what belongs together
};

} // namespace ipsecimpl

#endif
