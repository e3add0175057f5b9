#ifndef IPSECIMPL_TESTS_SELECTORS_FIELDS_H
#define IPSECIMPL_TESTS_SELECTORS_FIELDS_H

/// \file
/// Everything that a selector or a group holds, as one text. The objects' own equality and output leave fields out.

#include <ipsecimpl/selectors.h>

#include <sstream>
#include <string>

namespace ipsecimpl {

/// Such as "AF_INET SUBNET_MASK '10.0.0.0' '255.0.0.0' 8".
inline std::string fieldsOf(const HostSelector& s)
{
    std::ostringstream out;
    out << s.family << ' ' << s.selectorType << " '" << s.addr1 << "' '" << s.addr2 << "' " << s.length;
    return out.str();
}

/// Such as "'web' 6 dst 80 src 0 IN mirrored".
inline std::string fieldsOf(const ProtocolSelector& s)
{
    std::ostringstream out;
    out << '\'' << s.name << "' " << s.protocol << " dst " << s.dstPort << " src " << s.srcPort << ' ' << s.direction
        << (s.mirrored ? " mirrored" : "");
    return out.str();
}

/// Such as "'Branch' 0 'Our branch' 7" and one line for each selector.
template <auto Tag, class Selector>
std::string fieldsOf(const SelectorGroup<Tag, Selector>& group)
{
    std::ostringstream out;
    out << '\'' << group.name << "' " << group.builtinName << " '" << group.descr << "' " << group.builtinDescr;
    for (const Selector& selector : group.selectors)
        out << '\n' << fieldsOf(selector);
    return out.str();
}

} // namespace ipsecimpl

#endif
