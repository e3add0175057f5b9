#ifndef IPSECIMPL_ENUM_READ_ENUM_H
#define IPSECIMPL_ENUM_READ_ENUM_H

#include <ipsecimpl/enums.h>
#include <ipsecimpl/xml.h>

#include <string_view>

namespace ipsecimpl {

/// A name table, without its type.
struct NameTable {
    const char* const* names;
    int                size;
};

template <class E>
struct NamesOf;

template <int Num, auto Names>
struct NamesOf<Enum<Num, Names>> {
    static constexpr NameTable table{*Names, Num};
};

/// The number of the name `text`. Throws `std::invalid_argument` "to_int" if there is none.
int numberOf(std::string_view text, const NameTable& table);

/// The number of the leaf `name`, whose text is a name of `table`; any other throws the ParseError "`problem` '<text>'
/// for `place`".
int readNumberOf(XMLParser& parser, std::string_view name, const NameTable& table, const char* problem,
                 const char* place);

/// The value whose name is the text of the leaf `name`. An unknown one throws a ParseError such as "bad value 'x' for
/// <keyMgr> in <action>".
template <class E>
E readEnum(XMLParser& parser, std::string_view name, const char* problem, const char* place)
{
    return E(readNumberOf(parser, name, NamesOf<E>::table, problem, place));
}

} // namespace ipsecimpl

#endif
