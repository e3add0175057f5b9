#include "json_list.h"

namespace {

std::string lineStart(std::size_t depth)
{
    return '\n' + std::string(2 * depth, ' ');
}

} // namespace

std::string nestedText(const Json& value, std::size_t depth)
{
    std::string text = textOf(value);
    text.pop_back();

    std::string       nested;
    const std::string start = lineStart(depth);
    for (const char c : text) // a newline in a text is "\n" in JSON
        if (c == '\n')
            nested += start;
        else
            nested += c;
    return nested;
}

void JsonList::add(const Json& member)
{
    out_.write((isEmpty_ ? "[" : ",") + lineStart(depth_ + 1) + nestedText(member, depth_ + 1));
    isEmpty_ = false;
}

void JsonList::finish()
{
    out_.write(isEmpty_ ? "[]" : lineStart(depth_) + ']');
}
