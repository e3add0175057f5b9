#include "hostile/elements.h"

#include <algorithm>

namespace ipsecimpl {

std::vector<ElementPlace> elementsIn(const std::string& document)
{
    std::vector<ElementPlace> all;
    std::vector<std::size_t>  open; // their indices in `all`
    for (std::size_t at = 0; (at = document.find('<', at)) != std::string::npos; ++at) {
        const std::size_t behind = document.find('>', at) + 1;
        if (document[at + 1] == '/') {
            ElementPlace& ended = all[open.back()];
            ended.contentEnd    = at;
            ended.end           = behind + 1; // the line end
            open.pop_back();
            continue;
        }
        const std::string parent = open.empty() ? std::string() : all[open.back()].path + '/';
        open.push_back(all.size());
        all.push_back({parent + document.substr(at + 1, behind - at - 2), at, behind, 0, 0});
    }
    return all;
}

std::vector<ElementChange> changesOf(const std::string& document, const std::vector<ElementPlace>& all,
                                     const ElementPlace& element)
{
    const std::string before(document, 0, element.begin);
    const std::string whole(document, element.begin, element.end - element.begin);
    const std::string after(document, element.end);
    const std::string content(document, element.content, element.contentEnd - element.content);
    const std::string name = document.substr(element.begin + 1, element.content - element.begin - 2);
    const std::string open = '<' + name, close = "</" + name + ">\n";

    std::vector<ElementChange> changes{
        {"empty", before + open + '>' + close + after},
        {"self-closed", before + open + "/>\n" + after},
        {"with an attribute", before + open + " a=\"1\">" + content + close + after},
        {"with a text first", before + open + ">x" + content + close + after},
        {"without its end tag", before + open + '>' + content + after},
        {"without its start tag", before + content + close + after},
        {"renamed", before + "<X>" + content + "</X>\n" + after},
        {"doubled", before + whole + whole + after},
        {"missing", before + after},
    };
    if (element.isLeaf(document))
        changes.push_back({"as an attribute", before + open + " value=\"" + content + "\"/>\n" + after});

    // The next sibling, if there is one, begins where this one ends.
    const auto next = std::find_if(all.begin(), all.end(),
                                   [&element](const ElementPlace& other) { return other.begin == element.end; });
    if (next != all.end())
        changes.push_back({"swapped with the next", before + document.substr(next->begin, next->end - next->begin) +
                                                        whole + document.substr(next->end)});
    return changes;
}

} // namespace ipsecimpl
