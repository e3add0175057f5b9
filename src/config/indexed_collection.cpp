#include <ipsecimpl/config.h>

#include "xml/element.h"
#include "xml/number.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace ipsecimpl {
namespace {

/// An element name of two parts, put together without the heap: a store shall not fail where its stream does not.
class JoinedName {
  public:
    JoinedName(std::string_view first, std::string_view second)
        : size_(first.size() + second.size())
    {
        first.copy(text_.data(), first.size());
        second.copy(text_.data() + first.size(), second.size());
    }

    operator std::string_view() const { return {text_.data(), size_}; }

  private:
    std::array<char, 32> text_; // the longest is "protocolGroupEntry"
    std::size_t          size_;
};

constexpr unsigned int lastID = 2147483647; // the greatest that a document can carry: IDs are read as signed numbers

} // namespace

template <class T, auto pluralTag, auto singularTag>
IndexedCollection<T, pluralTag, singularTag>::IndexedCollection() = default;

template <class T, auto pluralTag, auto singularTag>
IndexedCollection<T, pluralTag, singularTag>::IndexedCollection(const IndexedCollection& other) = default;

template <class T, auto pluralTag, auto singularTag>
IndexedCollection<T, pluralTag, singularTag>::IndexedCollection(IndexedCollection&& other) noexcept
    : entries_(std::move(other.entries_))
    , nextID_(std::exchange(other.nextID_, 1))
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
IndexedCollection<T, pluralTag, singularTag>::~IndexedCollection() = default;

template <class T, auto pluralTag, auto singularTag>
unsigned int IndexedCollection<T, pluralTag, singularTag>::add(const T& element)
{
    return add(T(element));
}

template <class T, auto pluralTag, auto singularTag>
unsigned int IndexedCollection<T, pluralTag, singularTag>::add(T&& element)
{
    if (nextID_ > lastID)
        throw invalid_operation(std::string("no ID left for ") + *singularTag);
    entries_.emplace_hint(entries_.end(), nextID_, std::move(element));
    return nextID_++;
}

template <class T, auto pluralTag, auto singularTag>
T* IndexedCollection<T, pluralTag, singularTag>::find(unsigned int id)
{
    const auto entry = entries_.find(id);
    return entry == entries_.end() ? nullptr : &entry->second;
}

template <class T, auto pluralTag, auto singularTag>
const T* IndexedCollection<T, pluralTag, singularTag>::find(unsigned int id) const
{
    const auto entry = entries_.find(id);
    return entry == entries_.end() ? nullptr : &entry->second;
}

template <class T, auto pluralTag, auto singularTag>
T& IndexedCollection<T, pluralTag, singularTag>::at(unsigned int id)
{
    return const_cast<T&>(std::as_const(*this).at(id));
}

template <class T, auto pluralTag, auto singularTag>
const T& IndexedCollection<T, pluralTag, singularTag>::at(unsigned int id) const
{
    if (const T* const element = find(id))
        return *element;
    throw std::invalid_argument(std::string("no ") + *singularTag + " with ID " + std::to_string(id));
}

template <class T, auto pluralTag, auto singularTag>
T& IndexedCollection<T, pluralTag, singularTag>::replace(unsigned int id, const T& element)
{
    return at(id) = element;
}

template <class T, auto pluralTag, auto singularTag>
bool IndexedCollection<T, pluralTag, singularTag>::remove(unsigned int id)
{
    if (entries_.erase(id) == 0)
        return false;
    if (id == lastID)
        nextID_ = lastID; // without its entry a document could not say that the next ID is beyond
    return true;
}

template <class T, auto pluralTag, auto singularTag>
IndexedCollection<T, pluralTag, singularTag>
IndexedCollection<T, pluralTag, singularTag>::importXML(XMLParser& parser)
{
    const std::string singular = *singularTag;
    const std::string nextTag  = "next" + singular;
    RepeatedElement   entry(singular + "Entry");

    IndexedCollection collection;
    if (openElement(parser, *pluralTag) != PARSE_CONTENT)
        return collection;

    for (std::string tag;;) {
        const bool isOpen = entry.open(parser);
        if (!isOpen && !parser.parse_tag(tag))
            break;
        if (isOpen || tag == entry.name()) {
            if (!isOpen && parser.parse_tag_end() != PARSE_CONTENT)
                throw ParseError(singular + " missing required data");
            const int number = strtol32(Leaf(parser, "id").text(), 10);
            if (number < 1)
                throw ParseError("invalid ID for " + singular);
            const auto id     = static_cast<unsigned int>(number);
            const auto before = collection.entries_.size();
            collection.entries_.emplace_hint(collection.entries_.end(), id, T::importXML(parser));
            if (collection.entries_.size() == before)
                throw ParseError("duplicate ID");
            collection.nextID_ = std::max(collection.nextID_, id + 1);
            entry.close(parser);
        } else if (tag == nextTag) {
            // The messages differ on purpose: a self-closed tag names the element, an empty one itself.
            if (parser.parse_tag_end() != PARSE_CONTENT)
                throw ParseError(singular + " missing required data");
            std::string text;
            if (!parser.parse_data(text))
                throw ParseError(nextTag + " missing required data");
            const int next = strtol32(text, 10);
            if (next < 1)
                throw ParseError("invalid value for " + nextTag);
            collection.nextID_ = std::max(collection.nextID_, static_cast<unsigned int>(next));
            parser.parse_end_tag();
        } else {
            throw ParseError("unknown tag: " + tag);
        }
    }
    parser.parse_end_tag();
    return collection;
}

template <class T, auto pluralTag, auto singularTag>
std::ostream& IndexedCollection<T, pluralTag, singularTag>::exportXML(std::ostream& out) const
{
    const JoinedName entryTag(*singularTag, "Entry");
    const JoinedName nextTag("next", *singularTag);

    openTag(out, *pluralTag);
    writeLeaf(out, nextTag, nextID_);
    for (const auto& [id, element] : entries_) {
        openTag(out, entryTag);
        writeLeaf(out, "id", id);
        element.exportXML(out);
        closeTag(out, entryTag);
    }
    return closeTag(out, *pluralTag);
}

template class IndexedCollection<HostGroup, &__hostGroupsTag, &__hostGroupTag>;
template class IndexedCollection<ProtocolGroup, &__protocolGroupsTag, &__protocolGroupTag>;
template class IndexedCollection<IPsecAction, &__actionsTag, &__actionTag>;
template class IndexedCollection<Policy, &__policiesTag, &__policyTag>;

} // namespace ipsecimpl
