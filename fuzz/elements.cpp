#include "elements.h"

#include <algorithm>

namespace ipsecimpl {
namespace {

bool isStartTag(std::string_view text, std::size_t at)
{
    return text[at] == '<' && at + 1 < text.size() && text[at + 1] != '/' && text[at + 1] != '<';
}

std::size_t behind(std::string_view text, char c, std::size_t from)
{
    const std::size_t at = text.find(c, from);
    return at == std::string_view::npos ? text.size() : at + 1;
}

} // namespace

std::string_view Element::nameIn(std::string_view text) const
{
    const std::string_view name = text.substr(begin + 1);
    return name.substr(0, std::min(name.find_first_of(" />\n"), name.size()));
}

std::vector<std::size_t> startTags(std::string_view text)
{
    std::vector<std::size_t> tags;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (isStartTag(text, at))
            tags.push_back(at);
    return tags;
}

Element elementAt(std::string_view text, std::size_t begin)
{
    Element element;
    element.begin        = begin;
    element.contentBegin = element.contentEnd = element.end = behind(text, '>', begin);
    if (element.end < 2 || text[element.end - 2] == '/')
        return element;

    std::size_t depth = 1;
    for (std::size_t at = text.find('<', element.end); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const std::size_t tagEnd = behind(text, '>', at);
        if (isStartTag(text, at)) {
            if (text[tagEnd - 2] != '/')
                ++depth;
        } else if (--depth == 0) {
            element.isLeaf =
                text.substr(element.contentBegin, at - element.contentBegin).find('<') == std::string_view::npos;
            element.contentEnd = at;
            element.end        = tagEnd < text.size() && text[tagEnd] == '\n' ? tagEnd + 1 : tagEnd;
            break;
        }
    }
    return element;
}

} // namespace ipsecimpl
