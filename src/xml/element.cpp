#include "xml/element.h"

#include "xml/number.h"

namespace ipsecimpl {

std::ostream& openTag(std::ostream& out, std::string_view name)
{
    return out << '<' << name << '>' << std::endl;
}

std::ostream& closeTag(std::ostream& out, std::string_view name)
{
    return out << "</" << name << '>' << std::endl;
}

std::string readText(XMLParser& parser, const char* name)
{
    return parser.parse_tagged_value(name);
}

int readInt(XMLParser& parser, const char* name)
{
    return strtol32(readText(parser, name), 0);
}

unsigned int readUnsigned(XMLParser& parser, const char* name)
{
    return strtoul32(readText(parser, name), 0);
}

} // namespace ipsecimpl
