#ifndef IPSECIMPL_ENUM_READ_ENUM_H
#define IPSECIMPL_ENUM_READ_ENUM_H

#include "xml/element.h"

#include <ipsecimpl/enums.h>
#include <ipsecimpl/xml.h>

#include <stdexcept>
#include <string>
#include <string_view>

namespace ipsecimpl {

/// The enumeration value whose name is the text of the leaf `name`. An unknown one throws `std::invalid_argument`
/// "to_int".
template <class E>
E readEnum(XMLParser& parser, std::string_view name)
{
    return E(E::to_int(readText(parser, name)));
}

/// The same, but an unknown text throws the ParseError "`problem` '<text>' for `place`", such as "bad value 'x' for
/// <keyMgr> in <action>".
template <class E>
E readEnum(XMLParser& parser, std::string_view name, const char* problem, const char* place)
{
    const std::string text = readText(parser, name);
    try {
        return E(E::to_int(text));
    } catch (const std::invalid_argument&) {
        throw ParseError(problem + (" '" + text) + "' for " + place);
    }
}

} // namespace ipsecimpl

#endif
