#ifndef IPSECIMPL_ENUM_WRITE_ENUM_H
#define IPSECIMPL_ENUM_WRITE_ENUM_H

#include "xml/element.h"

#include <ipsecimpl/enums.h>

#include <iosfwd>
#include <string_view>

namespace ipsecimpl {

template <int Num, auto Names>
std::ostream& writeLeaf(std::ostream& out, std::string_view name, const Enum<Num, Names>& value)
{
    return writeLeaf(out, name, std::string_view((*Names)[value.valueGet()]));
}

} // namespace ipsecimpl

#endif
