#include "leaf_finder.h"

#include <charconv>

namespace {

const std::string_view SELECTORS = "selectors/";

/// The field with its selector's number in the document exchanged for that in the configuration.
std::string renumbered(const Source& source, const ObjectPath& path)
{
    const std::string& field = path.field;
    if (field.compare(0, SELECTORS.size(), SELECTORS) != 0)
        return field;
    std::size_t       number = 0;
    const char* const rest = std::from_chars(field.data() + SELECTORS.size(), field.data() + field.size(), number).ptr;
    return std::string(SELECTORS) + std::to_string(source.storedNumber(path.kind, path.id, number)) + rest;
}

} // namespace

bool LeafFinder::goTo(std::size_t offset)
{
    for (const Kind kind : ALL_KINDS) {
        const EntryIndex& index = source_.indexOf(kind);
        const auto        entry = index.firstFrom(offset);
        if (entry == index.children().end() || entry->span.offset > offset)
            continue;
        if (entry->id == 0)
            return false;
        if (entry_ != entry->span.offset)
            walker_.enter(entry->span.offset);
        entry_      = entry->span.offset;
        path_       = {kind, entry->id, walker_.to(offset)};
        path_.field = renumbered(source_, path_);
        return true;
    }
    return false;
}
