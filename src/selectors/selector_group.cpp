#include <ipsecimpl/selectors.h>

#include "xml/element.h"
#include "xml/joined.h"

#include <stdexcept>
#include <string>

namespace ipsecimpl {

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>::~SelectorGroup() = default;

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector> SelectorGroup<Tag, Selector>::importXML(XMLParser& parser)
try {
    SelectorGroup group;
    if (openElement(parser, *Tag) != PARSE_CONTENT)
        throw ParseError(joined({*Tag, " missing required data"}));
    group.name         = readText(parser, "name");
    group.builtinName  = readInt(parser, "builtinName");
    group.descr        = readText(parser, "descr");
    group.builtinDescr = readInt(parser, "builtinDescr");
    if (openElement(parser, "selectors") == PARSE_CONTENT) {
        while (parser.parse_body() == PARSE_CHILD)
            group.selectors.insert(group.selectors.end(), Selector::importXML(parser));
        parser.parse_end_tag();
    }
    parser.parse_end_tag();
    return group;
} catch (const std::invalid_argument& e) {
    throw ParseError(joined({"bad value: ", e.what()}));
}

template <auto Tag, class Selector>
std::ostream& SelectorGroup<Tag, Selector>::exportXML(std::ostream& os) const
{
    openTag(os, *Tag);
    writeLeaf(os, "name",         name);
    writeLeaf(os, "builtinName",  builtinName);
    writeLeaf(os, "descr",        descr);
    writeLeaf(os, "builtinDescr", builtinDescr);
    openTag(os, "selectors");
    for (const Selector& selector : selectors)
        selector.exportXML(os);
    closeTag(os, "selectors");
    return closeTag(os, *Tag);
}

template SelectorGroup<&__hostGroupTag, HostSelector>::~SelectorGroup();
template HostGroup SelectorGroup<&__hostGroupTag, HostSelector>::importXML(XMLParser&);
template std::ostream& SelectorGroup<&__hostGroupTag, HostSelector>::exportXML(std::ostream&) const;

template SelectorGroup<&__protocolGroupTag, ProtocolSelector>::~SelectorGroup();
template ProtocolGroup SelectorGroup<&__protocolGroupTag, ProtocolSelector>::importXML(XMLParser&);
template std::ostream& SelectorGroup<&__protocolGroupTag, ProtocolSelector>::exportXML(std::ostream&) const;

} // namespace ipsecimpl
