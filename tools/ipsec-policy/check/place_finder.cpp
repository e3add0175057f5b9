#include "place_finder.h"

#include "lexer.h"

#include <algorithm>
#include <charconv>

namespace {

const std::size_t NONE = EntryOutline::NONE;

std::string_view takeComponent(std::string_view& field)
{
    const std::size_t      end       = std::min(field.find('/'), field.size());
    const std::string_view component = field.substr(0, end);
    field.remove_prefix(std::min(end + 1, field.size()));
    return component;
}

/// The number of a list's member, if that is what comes next in a field; else 0.
std::size_t takeNumber(std::string_view& field)
{
    std::size_t       number = 0;
    const char* const limit  = field.data() + field.size();
    const auto        result = std::from_chars(field.data(), limit, number);
    if (result.ec != std::errc() || (result.ptr != limit && *result.ptr != '/'))
        return 0;
    takeComponent(field);
    return number;
}

struct List {
    std::string_view         field;
    std::string_view         holder; ///< what has the members
    std::vector<std::size_t> EntryDetails::*offsets;
};

const List LISTS[] = {
    {"selectors/", "selectors", &EntryDetails::selectors},
    {"ikePhase1/proposal/transform/", "ikePhase1/proposal", &EntryDetails::transforms},
    {"ikePhase2/saProposal/", "ikePhase2", &EntryDetails::proposals},
};

bool isAtLineEnd(std::string_view document, std::size_t offset)
{
    return offset < document.size() && isLineEnd(document[offset]);
}

/// The text of the leaf that begins there, or the element's first line.
Span textOrLine(std::string_view document, std::size_t offset)
{
    Lexer          lexer(document, offset);
    const StartTag tag = lexer.startTag();
    if (lexer.isLeaf(tag)) {
        const Leaf leaf = lexer.rest(tag);
        if (leaf.text.length > 0)
            return leaf.text;
    } else if (!isAtLineEnd(document, lexer.offset())) {
        lexer.skipRest(tag);
    }
    return firstLineOf(document, spanBetween(tag.offset, lexer.offset()));
}

} // namespace

Span PlaceFinder::find(const ObjectPath& path)
{
    const SourceEntry* const entry = source_.indexOf(path.kind).find(path.id);
    if (entry == nullptr)
        return findInCollection(path);

    if (path.field == "id") {
        Lexer lexer(document_, entry->span.offset);
        lexer.startTag();
        return lexer.leaf().text;
    }
    std::string_view  field  = path.field;
    const std::size_t member = takeMember(path, *entry, field);
    outline_.enter(member != NONE ? member : entry->span.offset);
    return findBelow(member != NONE ? 0 : outline_.childOf(0, "", 2), field);
}

Span PlaceFinder::findInCollection(const ObjectPath& path) const
{
    const EntryIndex& index = source_.indexOf(path.kind);
    if (path.id == 0 && !path.field.empty() && index.nextID().length > 0)
        return textOrLine(document_, index.nextID().offset);
    return index.collection();
}

/// What `field` names in an element of the outline.
Span PlaceFinder::findBelow(std::size_t element, std::string_view field)
{
    while (!field.empty()) {
        std::string_view  name   = takeComponent(field);
        const std::size_t number = takeNumber(field);
        std::size_t       child  = outline_.childOf(element, name, name == "selectors" || number == 0 ? 1 : number);
        if (name == "selectors" && number > 0 && child != NONE) {
            element = child;
            child   = outline_.childOf(element, "", number);
        }
        if (child == NONE)
            break;
        element = child;
    }
    return textOrLine(document_, outline_.offsetOf(element));
}

/// Where the member of a list is, if that is what a field begins with and it is known without going through the entry;
/// then that part of the field is taken off. Else NONE; where it is known that there is none, the field becomes that
/// of the list.
std::size_t PlaceFinder::takeMember(const ObjectPath& path, const SourceEntry& entry, std::string_view& field)
{
    for (const List& list : LISTS) {
        if (field.substr(0, list.field.size()) != list.field)
            continue;
        const std::vector<std::size_t>* const offsets = membersOf(path, entry, list.offsets);

        std::string_view  rest   = field.substr(list.field.size());
        const std::size_t number = takeNumber(rest);
        if (offsets == nullptr || number == 0)
            return NONE;
        if (number > offsets->size()) {
            field = list.holder;
            return NONE;
        }
        field = rest;
        return (*offsets)[number - 1];
    }
    return NONE;
}

const std::vector<std::size_t>* PlaceFinder::membersOf(const ObjectPath& path, const SourceEntry& entry,
                                                       std::vector<std::size_t> EntryDetails::*list)
{
    if (const SelectorPlaces* const places = source_.placesOf(path.kind, path.id))
        return &places->offsets;
    const EntryDetails* const details = longEntries_.detailsOf(document_, entry);
    return details == nullptr ? nullptr : &(details->*list);
}
