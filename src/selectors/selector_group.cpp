#include <ipsecimpl/selectors.h>

#include "xml/element.h"

#include <stdexcept>
#include <utility>

namespace ipsecimpl {

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>::SelectorGroup() = default;

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>::SelectorGroup(std::string ownName, int nameNumber, std::string ownDescr, int descrNumber)
    : name(std::move(ownName))
    , builtinName(nameNumber)
    , descr(std::move(ownDescr))
    , builtinDescr(descrNumber)
{
}

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>::SelectorGroup(const SelectorGroup&) = default;

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>::SelectorGroup(SelectorGroup&&) noexcept = default;

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>& SelectorGroup<Tag, Selector>::operator=(const SelectorGroup& other)
{
    if (this != &other)
        *this = SelectorGroup(other);
    return *this;
}

// By swapping: the set's own assignment may assign to selectors that are there, and a protocol selector would keep its
// name then.
template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>& SelectorGroup<Tag, Selector>::operator=(SelectorGroup&& other) noexcept
{
    name.swap(other.name);
    builtinName = other.builtinName;
    descr.swap(other.descr);
    builtinDescr = other.builtinDescr;
    selectors.swap(other.selectors);
    return *this;
}

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>::~SelectorGroup() = default;

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector> SelectorGroup<Tag, Selector>::importXML(XMLParser& parser)
try {
    SelectorGroup group;
    if (openElement(parser, *Tag) != PARSE_CONTENT)
        throw ParseError(std::string(*Tag) + " missing required data");
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
    throw ParseError(std::string("bad value: ") + e.what());
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

template class SelectorGroup<&__hostGroupTag, HostSelector>;
template class SelectorGroup<&__protocolGroupTag, ProtocolSelector>;

} // namespace ipsecimpl
