#include "entry_outline.h"

void EntryOutline::enter(std::size_t offset)
{
    if (!elements_.empty() && elements_.front().offset == offset)
        return;
    lexer_ = Lexer(document_, offset);
    depth_ = 0;
    elements_.clear();
    readElement();
}

std::size_t EntryOutline::childOf(std::size_t element, std::string_view name, std::size_t number)
{
    const std::size_t depth = elements_[element].depth + 1;
    for (std::size_t i = element + 1; i < elements_.size() || readElement(); ++i) {
        const Element& other = elements_[i];
        if (other.depth < depth)
            break;
        if (other.depth == depth && (name.empty() || other.name == name) && --number == 0)
            return i;
    }
    return NONE;
}

/// Reads the next element, if there is one.
bool EntryOutline::readElement()
{
    while (depth_ > 0 && lexer_.atEndTag()) {
        lexer_.endTag();
        --depth_;
    }
    if (depth_ == 0 && !elements_.empty())
        return false;
    const StartTag tag = lexer_.startTag();
    elements_.push_back({tag.offset, depth_, tag.name});
    if (!lexer_.skipLeaf(tag))
        ++depth_;
    return true;
}
