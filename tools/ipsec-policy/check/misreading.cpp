#include "misreading.h"

#include <utility>

std::optional<Misread> misreadOf(std::string_view document, const Leaf& leaf, std::string_view stored)
{
    if (leaf.text.in(document) != stored)
        return Misread::OTHERWISE;
    if (leaf.isTrimmed)
        return Misread::TRIMMED;
    if (leaf.tag.attributeIsBare)
        return Misread::EMPTY_ATTRIBUTE;
    return std::nullopt;
}

Misreading misreadingOf(const Leaf& leaf, Misread how, ObjectPath path, std::string_view stored)
{
    const Span element = spanBetween(leaf.tag.offset, leaf.end);
    const bool isSame  = how == Misread::TRIMMED || how == Misread::EMPTY_ATTRIBUTE; // and may be a long text
    return {how, std::move(path), leaf.text.length > 0 ? leaf.text : element, leaf.text,
            std::string(isSame ? "" : stored)};
}
