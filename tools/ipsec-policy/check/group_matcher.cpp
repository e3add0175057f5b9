#include "group_matcher.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace {

template <class Selector>
std::vector<const Selector*> inOrder(const std::set<Selector>& selectors)
{
    std::vector<const Selector*> result;
    result.reserve(selectors.size());
    for (const Selector& selector : selectors)
        result.push_back(&selector);
    return result;
}

/// The place of the one that `compare` takes for the same.
template <class Selector>
std::size_t placeOf(const Selector& selector, const std::vector<const Selector*>& all)
{
    const auto found =
        std::lower_bound(all.begin(), all.end(), selector, [](const Selector* a, const Selector& b) { return *a < b; });
    if (found == all.end() || selector < **found)
        throw std::logic_error("the document's selectors are not those of the configuration");
    return static_cast<std::size_t>(found - all.begin());
}

} // namespace

template <class Groups>
GroupMatcher<Groups>::GroupMatcher(std::string_view document, std::size_t offset, Kind kind, const Groups& groups,
                                   Misreadings& misreadings, PlacesByGroup& places)
    : Matcher(document, offset, kind, misreadings)
    , groups_(groups)
    , places_(places)
    , reader_(document)
    , lines_(document, misreadings)
{
}

template <class Groups>
std::size_t GroupMatcher<Groups>::matchSelectors(unsigned int id, std::size_t offset)
{
    const auto stored = inOrder(groups_.at(id).selectors);
    using Selector    = std::decay_t<decltype(*stored.front())>;
    const auto none   = std::string_view::npos;

    SelectorPlaces& places = places_[id];
    places.offsets.assign(stored.size(), none);

    Lexer lexer(document(), offset);
    lexer.startTag();
    while (!lexer.atEndTag()) {
        const std::size_t from     = lexer.offset();
        const auto        selector = reader_.read<Selector>(from);
        const std::size_t place    = placeOf(selector, stored);
        const ObjectPath  path     = {kind(), id, "selectors/" + std::to_string(place + 1)};
        const bool        isFirst  = places.offsets[place] == none;

        places.numbers.push_back(place + 1);
        const std::size_t end = lines_.match(selector, from, path);
        if (isFirst)
            places.offsets[place] = from;
        else
            misreadings().push_back({Misread::DROPPED, path, spanBetween(from, end), {}, {}});
        lexer = Lexer(document(), end);
    }
    lexer.endTag();
    return lexer.offset();
}

template class GroupMatcher<ipsecimpl::HostGroups>;
template class GroupMatcher<ipsecimpl::ProtocolGroups>;
