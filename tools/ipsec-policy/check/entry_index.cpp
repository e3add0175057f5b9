#include "entry_index.h"

#include "lexer.h"
#include "number_text.h"

#include <algorithm>

namespace {

SourceEntry readEntry(Lexer& lexer, std::string_view document, const StartTag& tag)
{
    const unsigned int id = readID(lexer.leaf().text.in(document));
    lexer.skipRest(tag);
    return {id, spanBetween(tag.offset, lexer.offset())};
}

} // namespace

CollectionTags::CollectionTags(Kind kind)
    : collection(wordsOf(kind).collection)
{
    const char* const singular[] = {ipsecimpl::__hostGroupTag, ipsecimpl::__protocolGroupTag, ipsecimpl::__actionTag,
                                    ipsecimpl::__policyTag};
    entry                        = singular[static_cast<std::size_t>(kind)];
    next                         = "next" + entry;
    entry += "Entry";
}

EntryIndex::EntryIndex(std::string_view document, std::size_t offset, const CollectionTags& tags)
{
    Lexer          lexer(document, offset);
    const StartTag collection = lexer.startTag();
    if (!collection.isClosed) {
        while (!lexer.atEndTag()) {
            const StartTag tag = lexer.startTag();
            add(tag.name == tags.entry ? readEntry(lexer, document, tag)
                                       : SourceEntry{0, spanBetween(tag.offset, lexer.rest(tag).end)});
        }
        lexer.endTag();
    }
    finish(spanBetween(collection.offset, lexer.offset()));
}

void EntryIndex::add(const SourceEntry& entry)
{
    if (entry.id != 0)
        byID_.push_back(children_.size());
    else
        nextID_ = entry.span;
    children_.push_back(entry);
}

void EntryIndex::finish(Span collection)
{
    collection_     = collection;
    const auto less = [this](std::size_t a, std::size_t b) { return children_[a].id < children_[b].id; };
    if (!std::is_sorted(byID_.begin(), byID_.end(), less))
        std::sort(byID_.begin(), byID_.end(), less);
}

const SourceEntry* EntryIndex::find(unsigned int id) const
{
    // Mostly there are no gaps among the IDs.
    if (id > 0 && id <= byID_.size() && children_[byID_[id - 1]].id == id)
        return &children_[byID_[id - 1]];
    const auto found = std::lower_bound(byID_.begin(), byID_.end(), id, [this](std::size_t place, unsigned int sought) {
        return children_[place].id < sought;
    });
    return found != byID_.end() && children_[*found].id == id ? &children_[*found] : nullptr;
}

std::vector<SourceEntry>::const_iterator EntryIndex::firstFrom(std::size_t offset) const
{
    return std::lower_bound(children_.begin(), children_.end(), offset,
                            [](const SourceEntry& entry, std::size_t sought) { return entry.span.end() <= sought; });
}
