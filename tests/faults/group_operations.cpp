#include "faults/objects.h"
#include "faults/operations.h"
#include "support/xml.h"

#include <string>
#include <utility>

namespace ipsecimpl {
namespace {

/// The same for both kinds. `make(text)` makes a group.
template <class Group, class Make>
std::vector<Operation> operationsOf(const Make& make)
{
    const auto one = [make] { return make(LONG); };
    const auto two = [make] { return Two<Group>{make(LONG), make(OTHER)}; };

    const std::string text = written(make(LONG));

    Operations group("SelectorGroup::");
    group.cannotFail("SelectorGroup()", nothing, [](Nothing&) { return Group(); })
        .fails("SelectorGroup(std::string ownName, int nameNumber, std::string ownDescr, int descrNumber)", nothing,
               [](Nothing&) { return Group(LONG, 1, OTHER, 2); })
        .fails("SelectorGroup(const SelectorGroup& other)", one, [](Group& g) { return Group(g); })
        .cannotFail("SelectorGroup(SelectorGroup&& other)", one, [](Group& g) { return Group(std::move(g)); })
        .fails(
            "operator=(const SelectorGroup& other)", two, [](auto& g) -> auto& { return g.first = g.second; })
        .cannotFail(
            "operator=(SelectorGroup&& other)", two, [](auto& g) -> auto& { return g.first = std::move(g.second); })
        .fails("selectors [insert]", two, [](auto& g) { g.first.selectors.insert(*g.second.selectors.begin()); })
        .template reads<Group>("importXML(XMLParser& parser)", text)
        .template reads<Group>("importXML(XMLParser& parser) [refused]", text.substr(0, text.find("</selectors>")))
        .stores("exportXML(std::ostream& os) const", one, [](const auto& g, std::ostream& os) { g.exportXML(os); });
    return group.all();
}

} // namespace

std::vector<Operation> groupOperations()
{
    const std::string unknownWord = "<hostGroup><name/><builtinName/><descr/><builtinDescr/><selectors><hostSelector>"
                                    "<family>AF_UNIX</family>";
    Operations        refused("SelectorGroup::");
    refused.reads<HostGroup>("importXML(XMLParser& parser) [refused]", unknownWord);
    return joined({operationsOf<HostGroup>(hostGroup), operationsOf<ProtocolGroup>(protocolGroup), refused.all()});
}

} // namespace ipsecimpl
