#include "path_walker.h"

void PathWalker::enter(std::size_t entry)
{
    lexer_ = Lexer(document_, entry);
    leaf_  = Leaf();
    open_.clear();
}

std::string PathWalker::to(std::size_t offset)
{
    while (leaf_.end <= offset) {
        if (!open_.empty() && lexer_.atEndTag()) {
            lexer_.endTag();
            open_.pop_back();
            continue;
        }
        const StartTag tag   = lexer_.startTag();
        std::string    field = fieldOf(tag.name);
        if (lexer_.isLeaf(tag)) {
            leaf_  = lexer_.rest(tag);
            field_ = std::move(field);
        } else {
            open_.push_back({tag.name, std::move(field)});
        }
    }
    return field_;
}

std::string PathWalker::fieldOf(std::string_view name)
{
    if (open_.empty() || (open_.size() == 1 && name != "id")) // the entry, and the object in it
        return "";
    Frame&            parent = open_.back();
    const std::string prefix = parent.field.empty() ? "" : parent.field + '/';
    if (parent.name == "selectors")
        return prefix + std::to_string(++parent.members);

    const std::string field  = prefix + std::string(name);
    const bool        isList = name == "transform" || (name == "saProposal" && parent.name == "ikePhase2");
    return isList ? field + '/' + std::to_string(++parent.members) : field;
}
