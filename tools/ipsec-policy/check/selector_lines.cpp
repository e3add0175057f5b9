#include "selector_lines.h"

#include <string>

std::size_t SelectorLines::readChildren(std::size_t offset)
{
    children_.clear();
    Lexer lexer(document_, offset);
    lexer.startTag();
    while (!lexer.atEndTag())
        children_.push_back({lexer.leaf(), false});
    lexer.endTag();
    return lexer.offset();
}

void SelectorLines::line(std::string_view line)
{
    const StoredLine stored(line);
    if (stored.type != StoredLine::Type::LEAF)
        return;
    for (Child& child : children_) {
        if (child.leaf.tag.name == stored.name) {
            child.isStored = true;
            match(child.leaf, stored.text);
        }
    }
}

/// Ports are not stored where both of them are 0.
void SelectorLines::matchUnstored()
{
    for (const Child& child : children_)
        if (!child.isStored)
            match(child.leaf, "0");
}

void SelectorLines::match(const Leaf& leaf, std::string_view stored)
{
    if (const auto how = misreadOf(document_, leaf, stored))
        misreadings_.push_back(misreadingOf(
            leaf, *how, {path_->kind, path_->id, path_->field + '/' + std::string(leaf.tag.name)}, stored));
}
