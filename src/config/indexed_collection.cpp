#include <ipsecimpl/config.h>

#include "config/entry_reader.h"
#include "xml/element.h"

#include <array>
#include <cstddef>
#include <string_view>

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

} // namespace

template <class T, auto pluralTag, auto singularTag>
IndexedCollection<T, pluralTag, singularTag>
IndexedCollection<T, pluralTag, singularTag>::importXML(XMLParser& parser)
{
    IndexedCollection collection;
    auto&             entries = collection.entries_;

    EntryReader reader(parser, *pluralTag, *singularTag);
    while (reader.next()) {
        const std::size_t before = entries.size();
        entries.emplace_hint(entries.end(), reader.id(), T::importXML(parser));
        if (entries.size() == before)
            throw ParseError("duplicate ID");
        reader.endEntry();
    }
    collection.nextID_ = reader.nextID();
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

template HostGroups IndexedCollection<HostGroup, &__hostGroupsTag, &__hostGroupTag>::importXML(XMLParser&);
template ProtocolGroups
IndexedCollection<ProtocolGroup, &__protocolGroupsTag, &__protocolGroupTag>::importXML(XMLParser&);
template Actions IndexedCollection<IPsecAction, &__actionsTag, &__actionTag>::importXML(XMLParser&);
template Policies IndexedCollection<Policy, &__policiesTag, &__policyTag>::importXML(XMLParser&);

template std::ostream& IndexedCollection<HostGroup, &__hostGroupsTag, &__hostGroupTag>::exportXML(std::ostream&) const;
template std::ostream&
IndexedCollection<ProtocolGroup, &__protocolGroupsTag, &__protocolGroupTag>::exportXML(std::ostream&) const;
template std::ostream& IndexedCollection<IPsecAction, &__actionsTag, &__actionTag>::exportXML(std::ostream&) const;
template std::ostream& IndexedCollection<Policy, &__policiesTag, &__policyTag>::exportXML(std::ostream&) const;

} // namespace ipsecimpl
