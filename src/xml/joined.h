#ifndef IPSECIMPL_XML_JOINED_H
#define IPSECIMPL_XML_JOINED_H

#include <initializer_list>
#include <string>
#include <string_view>

namespace ipsecimpl {

/// The pieces of a message, one after the other.
inline std::string joined(std::initializer_list<std::string_view> pieces)
{
    std::string text;
    for (const std::string_view piece : pieces)
        text += piece;
    return text;
}

} // namespace ipsecimpl

#endif
