#ifndef IPSECIMPL_XML_ELEMENT_H
#define IPSECIMPL_XML_ELEMENT_H

#include <ipsecimpl/xml.h>

#include <ostream>
#include <string>
#include <string_view>

namespace ipsecimpl {

// The vocabulary of elements: every tag, number and line end of the document is read and written here.
//
// One element start, leaf or element end is one line, ended and flushed by std::endl. Values go through the stream's own
// insertion, whatever its flags; nothing is escaped.

std::ostream& openTag(std::ostream& out, std::string_view name);
std::ostream& closeTag(std::ostream& out, std::string_view name);

template <class Value>
std::ostream& writeLeaf(std::ostream& out, std::string_view name, const Value& value)
{
    return out << '<' << name << '>' << value << "</" << name << '>' << std::endl;
}

/// The text of the leaf that comes next.
std::string readText(XMLParser& parser, const char* name);

/// The leaf as a signed 32-bit number: decimal, 0x hexadecimal or 0 octal; 0 if it is none.
int readInt(XMLParser& parser, const char* name);

/// The leaf as an unsigned 32-bit number: decimal, 0x hexadecimal or 0 octal; 0 if it is none.
unsigned int readUnsigned(XMLParser& parser, const char* name);

} // namespace ipsecimpl

#endif
