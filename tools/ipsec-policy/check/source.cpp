#include "source.h"

#include "lexer.h"

#include <algorithm>

using ipsecimpl::IPsecConfig;

namespace {

template <class Matching, class Collection>
EntryIndex match(Matching&& matcher, const Collection& collection)
{
    matcher.store(collection);
    return matcher.takeIndex();
}

} // namespace

Source::Source(std::string_view document, const IPsecConfig& config)
    : document_(document)
{
    Lexer lexer(document);
    lexer.startTag();
    std::size_t offset = lexer.offset();
    for (const Kind kind : ALL_KINDS) {
        EntryIndex& index = indexes_[static_cast<std::size_t>(kind)];
        if (kind == Kind::HOST_GROUP)
            index = match(GroupMatcher(document, offset, kind, config.hostGroups, misreadings_, places_[0]),
                          config.hostGroups);
        else if (kind == Kind::PROTOCOL_GROUP)
            index = match(GroupMatcher(document, offset, kind, config.protocolGroups, misreadings_, places_[1]),
                          config.protocolGroups);
        else if (kind == Kind::ACTION)
            index = match(Matcher(document, offset, kind, misreadings_), config.actions);
        else
            index = match(Matcher(document, offset, kind, misreadings_), config.policies);
        offset = index.collection().end();
    }
}

const SelectorPlaces* Source::placesOf(Kind kind, unsigned int id) const
{
    const PlacesByGroup& places = places_[static_cast<std::size_t>(kind)];
    const auto           group  = places.find(id);
    return group == places.end() ? nullptr : &group->second;
}

std::size_t Source::storedNumber(Kind kind, unsigned int id, std::size_t number) const
{
    const SelectorPlaces* const places = placesOf(kind, id);
    return places == nullptr ? number : places->numbers.at(number - 1);
}

std::vector<Span> Source::secretsIn(Span span) const
{
    std::vector<Span> secrets;
    for (const EntryIndex& index : indexes_) {
        const auto end = index.children().end();
        for (auto entry = index.firstFrom(span.offset); entry != end && entry->span.offset < span.end(); ++entry)
            addSecrets(*entry, span, secrets);
    }
    return secrets;
}

void Source::addSecrets(const SourceEntry& entry, Span span, std::vector<Span>& secrets) const
{
    const EntryDetails* const details = longEntries_.detailsOf(document_, entry);
    if (details == nullptr) {
        addSecretsIn(document_, entry.span, span, secrets);
        return;
    }
    const std::vector<Span>& all        = details->secrets;
    const auto               endsBefore = [](const Span& secret, std::size_t offset) { return secret.end() <= offset; };
    auto                     secret     = std::lower_bound(all.begin(), all.end(), span.offset, endsBefore);
    for (; secret != all.end() && secret->offset < span.end(); ++secret)
        secrets.push_back(*secret);
}
