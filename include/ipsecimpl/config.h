#ifndef IPSECIMPL_CONFIG_H
#define IPSECIMPL_CONFIG_H

/// \file
/// The whole configuration, its collections, and the policies that tie their entries together.

#include <ipsecimpl/actions.h>
#include <ipsecimpl/export.h>
#include <ipsecimpl/selectors.h>
#include <ipsecimpl/xml.h>

#include <cstddef>
#include <iosfwd>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>

namespace ipsecimpl {

/// Ties one host group, one protocol group and one action together by ID.
///
/// A plain value. The IDs are never checked: a policy may name entries that do not exist, and 0 names none.
class IPSECIMPL_API Policy {
  public:
    /// Stores the three IDs.
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
/// References, pointers and iterators to an element hold until it is removed or the collection is assigned to.
///
/// `pluralTag` and `singularTag` are the addresses of the tags from which the element names are made.
template <class T, auto pluralTag, auto singularTag>
class IndexedCollection {
  public:
    using iterator       = typename std::map<unsigned int, T>::iterator;       ///< to a pair of ID and element
    using const_iterator = typename std::map<unsigned int, T>::const_iterator; ///< to a pair of ID and element

    /// Empty; the next ID is 1.
    IndexedCollection() = default;

    IndexedCollection(const IndexedCollection& other) = default;
    IndexedCollection(IndexedCollection&& other) noexcept; ///< `other` is empty afterwards, its next ID is 1
    IndexedCollection& operator=(const IndexedCollection& other); ///< if it throws, the target is as it was
    IndexedCollection& operator=(IndexedCollection&& other) noexcept; ///< `other` is empty afterwards, its next ID is 1
    ~IndexedCollection() = default;

    /// Stores a copy of `element` under the next ID, which it returns.
    ///
    /// Throws invalid_operation "no ID left for " and the singular tag when the next ID is beyond 2147483647. Gaps
    /// among the IDs are not filled: an ID that was in use once is not given to something else.
    unsigned int add(const T& element) { return add(T(element)); }

    /// The same, moving `element` in (an action keeps its `type` and `state`).
    unsigned int add(T&& element);

    /// The element, or null if there is none with this ID.
    T*       find(unsigned int id) { return elementOf(entries_, id); }
    const T* find(unsigned int id) const { return elementOf(entries_, id); } ///< the same

    /// The element. Throws `std::invalid_argument` "no " + singular tag + " with ID N" if there is none.
    T&       at(unsigned int id) { return required(find(id), id); }
    const T& at(unsigned int id) const { return required(find(id), id); } ///< the same

    /// Assigns `element` to the stored one, which it returns. So an action's `type` and `state` stay what they are in
    /// the collection, whatever those of `element`. Throws `std::invalid_argument` as at() does.
    T& replace(unsigned int id, const T& element) { return at(id) = element; }

    /// Removes the element; false if there is none. The next ID stays, but for ID 2147483647: nothing greater can be
    /// handed out or stored, so it becomes the next ID again.
    bool remove(unsigned int id);

    std::size_t size() const noexcept { return entries_.size(); }   ///< number of elements, not the greatest ID
    bool        empty() const noexcept { return entries_.empty(); } ///< the next ID may still be beyond 1

    iterator       begin() noexcept { return entries_.begin(); }       ///< at the least ID
    iterator       end() noexcept { return entries_.end(); }           ///< behind the greatest ID
    const_iterator begin() const noexcept { return entries_.begin(); } ///< at the least ID
    const_iterator end() const noexcept { return entries_.end(); }     ///< behind the greatest ID

    /// The ID that the next add() uses: 1 to 2147483647, or 2147483648 when there is none left.
    unsigned int nextIDGet() const noexcept { return nextID_; }

    /// Reads one collection element. Throws ParseError, or what the element's own reader throws; then there is no
    /// collection.
    IPSECIMPL_API static IndexedCollection importXML(XMLParser& parser);

    /// Writes the collection, its entries in ascending order, and returns `out`, whose state is the caller's to test.
    IPSECIMPL_API std::ostream& exportXML(std::ostream& out) const;

  private:
    static constexpr unsigned int lastID_ = 2147483647; // the greatest that a document can carry

    template <class Entries>
    static auto elementOf(Entries& entries, unsigned int id) -> decltype(&entries.begin()->second);

    template <class Element>
    static Element& required(Element* element, unsigned int id);

    std::map<unsigned int, T> entries_;
    unsigned int              nextID_ = 1; // greater than every ID in use
};

using HostGroups     = IndexedCollection<HostGroup, &__hostGroupsTag, &__hostGroupTag>;             ///< whose traffic
using ProtocolGroups = IndexedCollection<ProtocolGroup, &__protocolGroupsTag, &__protocolGroupTag>; ///< which traffic
using Actions        = IndexedCollection<IPsecAction, &__actionsTag, &__actionTag>;                 ///< what happens
using Policies       = IndexedCollection<Policy, &__policiesTag, &__policyTag>;                     ///< what ties them

/// The whole configuration: what one document holds.
///
/// A value that owns its collections. Nothing is checked across them, and the library never adds anything by itself.
class IPSECIMPL_API IPsecConfig {
  public:
    /// Four empty collections.
    IPsecConfig() = default;

    /// Copies the four collections.
    IPsecConfig(const HostGroups& hosts, const ProtocolGroups& protocols, const Actions& actionsToCopy,
                const Policies& policiesToCopy)
        : hostGroups(hosts)
        , protocolGroups(protocols)
        , actions(actionsToCopy)
        , policies(policiesToCopy)
    {
    }

    IPsecConfig(const IPsecConfig& other)     = default;       ///< the actions' `type` and `state` start at 0
    IPsecConfig(IPsecConfig&& other) noexcept = default;       ///< `other` is empty afterwards
    IPsecConfig& operator=(const IPsecConfig& other);          ///< if it throws, the target is as it was
    IPsecConfig& operator=(IPsecConfig&&) noexcept = default;  ///< `other` is empty afterwards
    ~IPsecConfig()                                 = default;

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
    ///
    /// Numbers are written as `out` writes them, and a width pads the first character; no setting is changed but the
    /// width, which is used up. For a document that can be loaded again `out` has to write plain decimal digits, as a
    /// new stream does unless its locale groups them. Where std::locale::global() may have set such a one, call
    /// `out.imbue(std::locale::classic())` first: "1.000" would come back as 1.
    std::ostream& exportXML(std::ostream& out);

    HostGroups     hostGroups;     ///< who the peers are
    ProtocolGroups protocolGroups; ///< which traffic
    Actions        actions;        ///< what happens to it
    Policies       policies;       ///< what belongs together
};

// The collections are compiled where they are used, all but reading and writing.

template <class T, auto pluralTag, auto singularTag>
IndexedCollection<T, pluralTag, singularTag>::IndexedCollection(IndexedCollection&& other) noexcept
    : entries_(std::move(other.entries_))
    , nextID_(std::exchange(other.nextID_, 1U))
{
    other.entries_.clear();
}

template <class T, auto pluralTag, auto singularTag>
IndexedCollection<T, pluralTag, singularTag>&
IndexedCollection<T, pluralTag, singularTag>::operator=(const IndexedCollection& other)
{
    if (this != &other)
        *this = IndexedCollection(other);
    return *this;
}

// By swapping: the map's own assignment may assign to elements that are there, and an action would keep some of its
// fields then.
template <class T, auto pluralTag, auto singularTag>
IndexedCollection<T, pluralTag, singularTag>&
IndexedCollection<T, pluralTag, singularTag>::operator=(IndexedCollection&& other) noexcept
{
    IndexedCollection moved(std::move(other));
    entries_.swap(moved.entries_);
    nextID_ = moved.nextID_;
    return *this;
}

template <class T, auto pluralTag, auto singularTag>
unsigned int IndexedCollection<T, pluralTag, singularTag>::add(T&& element)
{
    if (nextID_ > lastID_)
        throw invalid_operation(std::string("no ID left for ") + *singularTag);
    entries_.emplace_hint(entries_.end(), nextID_, std::move(element));
    return nextID_++;
}

template <class T, auto pluralTag, auto singularTag>
bool IndexedCollection<T, pluralTag, singularTag>::remove(unsigned int id)
{
    if (entries_.erase(id) == 0)
        return false;
    if (id == lastID_)
        nextID_ = lastID_; // without its entry a document could not say that the next ID is beyond
    return true;
}

template <class T, auto pluralTag, auto singularTag>
template <class Entries>
auto IndexedCollection<T, pluralTag, singularTag>::elementOf(Entries& entries, unsigned int id)
    -> decltype(&entries.begin()->second)
{
    const auto entry = entries.find(id);
    return entry == entries.end() ? nullptr : &entry->second;
}

template <class T, auto pluralTag, auto singularTag>
template <class Element>
Element& IndexedCollection<T, pluralTag, singularTag>::required(Element* element, unsigned int id)
{
    if (element == nullptr)
        throw std::invalid_argument(std::string("no ") + *singularTag + " with ID " + std::to_string(id));
    return *element;
}

extern template IPSECIMPL_API HostGroups
IndexedCollection<HostGroup, &__hostGroupsTag, &__hostGroupTag>::importXML(XMLParser&);
extern template IPSECIMPL_API ProtocolGroups
IndexedCollection<ProtocolGroup, &__protocolGroupsTag, &__protocolGroupTag>::importXML(XMLParser&);
extern template IPSECIMPL_API Actions
IndexedCollection<IPsecAction, &__actionsTag, &__actionTag>::importXML(XMLParser&);
extern template IPSECIMPL_API Policies IndexedCollection<Policy, &__policiesTag, &__policyTag>::importXML(XMLParser&);

extern template IPSECIMPL_API std::ostream&
IndexedCollection<HostGroup, &__hostGroupsTag, &__hostGroupTag>::exportXML(std::ostream&) const;
extern template IPSECIMPL_API std::ostream&
IndexedCollection<ProtocolGroup, &__protocolGroupsTag, &__protocolGroupTag>::exportXML(std::ostream&) const;
extern template IPSECIMPL_API std::ostream&
IndexedCollection<IPsecAction, &__actionsTag, &__actionTag>::exportXML(std::ostream&) const;
extern template IPSECIMPL_API std::ostream&
IndexedCollection<Policy, &__policiesTag, &__policyTag>::exportXML(std::ostream&) const;

inline IPsecConfig& IPsecConfig::operator=(const IPsecConfig& other)
{
    if (this != &other)
        *this = IPsecConfig(other); // all four copies are made before the first is put in place
    return *this;
}

} // namespace ipsecimpl

#endif
