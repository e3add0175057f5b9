#include <ipsecimpl/selectors.h>

#include "enum/read_enum.h"
#include "enum/write_enum.h"
#include "selectors/order.h"
#include "xml/element.h"

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace ipsecimpl {
namespace {

/// A netmask as the libc knows it: `size` bytes of the socket header's `family`.
struct Mask {
    int                           family;
    std::size_t                   size;
    std::array<unsigned char, 16> bytes;
};

/// The mask of all zeros. The library's families are not the socket header's numbers; AF_ANY has no mask.
Mask emptyMask(const AddressFamily& family)
{
    if (family == HOST_INET)
        return {AF_INET, sizeof(in_addr), {}};
    if (family == HOST_INET6)
        return {AF_INET6, sizeof(in6_addr), {}};
    throw std::invalid_argument("invalid address family");
}

/// The number of one bits of a mask byte, 0 for a byte that is none.
int bitsOf(unsigned char byte)
{
    for (int bits = 1; bits < 8; ++bits)
        if (byte == (0xFFU << (8 - bits) & 0xFFU))
            return bits;
    return 0;
}

/// The value whose name is the text of the leaf `name`. An unknown one leaves here as `std::invalid_argument` "to_int":
/// the group's reader has the message for it.
template <class E>
E readWord(XMLParser& parser, std::string_view name)
{
    return E(numberOf(Leaf(parser, name).text(), NamesOf<E>::table));
}

/// The result of a conversion between mask and length, for the reader.
template <class Conversion>
auto converted(Conversion conversion)
try {
    return conversion();
} catch (const std::invalid_argument&) {
    throw ParseError("bad value in <hostSelector>");
}

} // namespace

HostSelector::HostSelector()
    : HostSelector(HOST_INET, HOST_NONE, std::string(), 0)
{
}

HostSelector::HostSelector(AddressFamily fam, AddressType type, const std::string& first, const std::string& second)
    : family(fam)
    , selectorType(type)
    , addr1(first)
    , addr2(second)
    , length(0)
{
    if (type == HOST_SUBNET_MASK)
        length = mask2len(family, addr2.c_str());
    else if (type == HOST_SUBNET_LENGTH)
        throw std::invalid_argument("prefix length not specified");
}

HostSelector::HostSelector(AddressFamily fam, AddressType type, const std::string& address, int len)
    : family(fam)
    , selectorType(type)
    , addr1(address)
    , length(len)
{
    if (type == HOST_SUBNET_LENGTH)
        addr2 = len2mask(family, length);
    else if (type == HOST_SUBNET_MASK)
        throw std::invalid_argument("subnet mask not specified");
}

HostSelector& HostSelector::operator=(const HostSelector& other)
{
    if (this != &other)
        *this = HostSelector(other);
    return *this;
}

int HostSelector::mask2len(const AddressFamily& family, const char* text)
{
    Mask mask = emptyMask(family);
    if (text == nullptr || inet_pton(mask.family, text, mask.bytes.data()) != 1)
        throw std::invalid_argument("invalid mask");

    // What comes after the first byte that is not full is not looked at: holes in a mask are accepted.
    int length = 0;
    for (std::size_t i = 0; i < mask.size; ++i) {
        if (mask.bytes[i] != 0xFF)
            return length + bitsOf(mask.bytes[i]);
        length += 8;
    }
    return length;
}

std::string HostSelector::len2mask(const AddressFamily& family, int length)
{
    Mask mask = emptyMask(family);

    // There is no range check: with a length too long or negative, which never comes down to 0, every byte is full.
    // Unsigned, as the smallest length would otherwise run out of its type.
    auto left = static_cast<unsigned int>(length);
    for (std::size_t i = 0; i < mask.size && left != 0; ++i) {
        if (left < 8) {
            mask.bytes[i] = static_cast<unsigned char>(0xFFU << (8 - left));
            left          = 0;
        } else {
            mask.bytes[i] = 0xFF;
            left -= 8;
        }
    }

    std::array<char, 60> text{};
    inet_ntop(mask.family, mask.bytes.data(), text.data(), static_cast<socklen_t>(text.size()));
    return text.data();
}

int HostSelector::compare(const HostSelector& other) const
{
    if (family != other.family)
        return order(family, other.family);
    if (selectorType != other.selectorType)
        return order(selectorType, other.selectorType);
    // From here on the sense is reversed, on purpose: it fixes the order in which a group is kept and written.
    if (length != other.length)
        return order(other.length, length);
    if (addr1 != other.addr1)
        return order(other.addr1, addr1);
    return order(other.addr2, addr2);
}

bool HostSelector::operator==(const HostSelector& other) const
{
    return family == other.family && selectorType == other.selectorType && addr1 == other.addr1 && addr2 == other.addr2;
}

HostSelector HostSelector::importXML(XMLParser& parser)
{
    HostSelector selector;
    openElement(parser, "hostSelector");
    selector.family       = readWord<AddressFamily>(parser, "family");
    selector.selectorType = readWord<AddressType>(parser, "selectorType");
    if (selector.selectorType == HOST_SINGLE) {
        selector.addr1  = readText(parser, "addr1");
    } else if (selector.selectorType == HOST_RANGE) {
        selector.addr1  = readText(parser, "addr1");
        selector.addr2  = readText(parser, "addr2");
    } else if (selector.selectorType == HOST_SUBNET_LENGTH) {
        selector.addr1  = readText(parser, "addr1");
        selector.length = readInt(parser, "length");
        selector.addr2  = converted([&] { return len2mask(selector.family, selector.length); });
    } else if (selector.selectorType == HOST_SUBNET_MASK) {
        selector.addr1  = readText(parser, "addr1");
        selector.addr2  = readText(parser, "mask");
        selector.length = converted([&] { return mask2len(selector.family, selector.addr2.c_str()); });
    }
    parser.parse_end_tag();
    return selector;
}

std::ostream& HostSelector::exportXML(std::ostream& os) const
{
    openTag(os, "hostSelector");
    writeLeaf(os, "family", family);
    writeLeaf(os, "selectorType", selectorType);
    if (selectorType == HOST_SINGLE) {
        writeLeaf(os, "addr1", addr1);
    } else if (selectorType == HOST_RANGE) {
        writeLeaf(os, "addr1", addr1);
        writeLeaf(os, "addr2", addr2);
    } else if (selectorType == HOST_SUBNET_LENGTH) {
        writeLeaf(os, "addr1", addr1);
        writeLeaf(os, "length", length);
    } else if (selectorType == HOST_SUBNET_MASK) {
        writeLeaf(os, "addr1", addr1);
        writeLeaf(os, "mask", addr2);
    }
    return closeTag(os, "hostSelector");
}

} // namespace ipsecimpl
