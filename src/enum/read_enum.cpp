#include "enum/read_enum.h"

#include "xml/element.h"
#include "xml/joined.h"

#include <stdexcept>

namespace ipsecimpl {

namespace {

/// Is `text` the whole of `name`? The first difference ends the comparison.
bool isWhole(std::string_view text, const char* name)
{
    for (const char c : text)
        if (c != *name++ || c == '\0')
            return false;
    return *name == '\0';
}

} // namespace

int numberOf(std::string_view text, const NameTable& table)
{
    for (int i = 0; i < table.size; ++i)
        if (isWhole(text, table.names[i]))
            return i;
    throw std::invalid_argument("to_int");
}

int readNumberOf(XMLParser& parser, std::string_view name, const NameTable& table, const char* problem,
                 const char* place)
{
    const Leaf leaf(parser, name);
    try {
        return numberOf(leaf.text(), table);
    } catch (const std::invalid_argument&) {
        throw ParseError(joined({problem, " '", leaf.text(), "' for ", place}));
    }
}

} // namespace ipsecimpl
