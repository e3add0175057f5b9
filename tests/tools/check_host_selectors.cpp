#include "check_samples.h"

using namespace ipsecimpl;

namespace {

IPsecConfig single(const AddressFamily& family, const std::string& address)
{
    return having(HostSelector(family, HOST_SINGLE, address, ""));
}

IPsecConfig range(const AddressFamily& family, const std::string& first, const std::string& last)
{
    return having(HostSelector(family, HOST_RANGE, first, last));
}

IPsecConfig prefix(const AddressFamily& family, const std::string& address, int length)
{
    return having(HostSelector(family, HOST_SUBNET_LENGTH, address, length));
}

IPsecConfig mask(const AddressFamily& family, const std::string& address, const std::string& text)
{
    return having(HostSelector(family, HOST_SUBNET_MASK, address, text));
}

/// A mask that the constructor would not take.
IPsecConfig rawMask(const std::string& text)
{
    HostSelector selector(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "255.0.0.0");
    selector.addr2 = text;
    return having(selector);
}

IPsecConfig symbolic(const AddressFamily& family, const AddressType& type)
{
    return having(HostSelector(family, type, "no address", "nor this"));
}

const std::string AT = "hostGroups/1/selectors/1/";

Samples addressSamples()
{
    const char* const CODE = "not-an-address";
    return {
        {CODE,
         {AT + "addr1: '192.0.2.256' is no IPv4 address. Write one, such as 192.0.2.1."},
         single(HOST_INET, "192.0.2.256"),
         single(HOST_INET, "192.0.2.255")},
        {CODE,
         {AT + "addr1: '192.0.2.01' is no IPv4 address. Write one, such as 192.0.2.1."},
         single(HOST_INET, "192.0.2.01"),
         single(HOST_INET, "192.0.2.1")},
        {CODE,
         {AT + "addr1: 'fe80::1%eth0\\x07' is no IPv6 address. Write one, such as 2001:db8::1."},
         single(HOST_INET6, "fe80::1%eth0\a"),
         single(HOST_INET6, "fe80::1")},
        {CODE,
         {AT + "addr1: '192.0.2.1\\x00' is no IPv4 address. Write one, such as 192.0.2.1."},
         single(HOST_INET, std::string("192.0.2.1\0", 10)),
         single(HOST_INET, "192.0.2.1")},
        {CODE,
         {AT + "addr1: '2001:db8::1' is an IPv6 address, but the family is AF_INET. Correct one of the two."},
         single(HOST_INET, "2001:db8::1"),
         single(HOST_INET6, "2001:db8::1")},
        {CODE,
         {AT + "addr1: '192.0.2.1' is an IPv4 address, but the family is AF_INET6. Correct one of the two."},
         single(HOST_INET6, "192.0.2.1"),
         single(HOST_INET6, "::192.0.2.1")},
        {CODE,
         {AT + "addr1: There is no address. Write an IPv4 address, such as 192.0.2.1.",
          AT + "addr2: There is no address. Write an IPv4 address, such as 192.0.2.1."},
         range(HOST_INET, "", ""),
         range(HOST_INET, "0.0.0.0", "0.0.0.0")},
        {CODE,
         {AT + "addr1: '10.0.0.0/8' is no IPv4 address. Write one, such as 192.0.2.1."},
         prefix(HOST_INET, "10.0.0.0/8", 8),
         prefix(HOST_INET, "10.0.0.0", 8)},
        {CODE,
         {AT + "addr1: 'ten' is no IPv4 address. Write one, such as 192.0.2.1.",
          AT + "mask: '8' is no IPv4 address. Write one, such as 192.0.2.1."},
         plain([](IPsecConfig& config) {
             HostSelector selector(HOST_INET, HOST_SUBNET_MASK, "ten", "255.0.0.0");
             selector.addr2                    = "8";
             config.hostGroups.at(1).selectors = {selector};
         }),
         rawMask("255.0.0.0")},
        {CODE,
         {AT + "addr1: 'a' is no address. Write one, such as 192.0.2.1 or 2001:db8::1.",
          AT + "addr2: 'b' is no address. Write one, such as 192.0.2.1 or 2001:db8::1."},
         range(HOST_INETANY, "a", "b"),
         range(HOST_INETANY, "192.0.2.1", "2001:db8::1")},
        {CODE,
         {AT + "addr1: 'a' is no address. Write one, such as 192.0.2.1 or 2001:db8::1."},
         single(HOST_INETANY, "a"),
         symbolic(HOST_INETANY, HOST_ANY)},
        {CODE,
         {AT + "addr1: '" + std::string(56, 'x') + "...' is no IPv4 address. Write one, such as 192.0.2.1."},
         single(HOST_INET, std::string(56, 'x') + "\u00e9\u00e9\u00e9"),
         single(HOST_INET, "192.0.2.1")},
    };
}

} // namespace

Samples hostSelectorSamples()
{
    const Samples others = {
        {"any-family-with-address",
         {AT + "family: AF_ANY is no family for an address. Write AF_INET or AF_INET6."},
         single(HOST_INETANY, "192.0.2.1"),
         single(HOST_INET, "192.0.2.1")},
        {"any-family-with-address",
         {AT + "family: AF_ANY is no family for an address. Write AF_INET or AF_INET6."},
         range(HOST_INETANY, "192.0.2.1", "192.0.2.9"),
         symbolic(HOST_INETANY, HOST_LOCAL)},
        {"range-back-to-front",
         {AT + "addr2: 192.0.2.9 is before the range's first address, 192.0.2.10. Swap the two."},
         range(HOST_INET, "192.0.2.10", "192.0.2.9"),
         range(HOST_INET, "192.0.2.9", "192.0.2.10")},
        {"range-back-to-front",
         {AT + "addr2: 2001:db8::fffe is before the range's first address, 2001:db8::ffff. Swap the two."},
         range(HOST_INET6, "2001:db8::ffff", "2001:db8::fffe"),
         range(HOST_INET6, "2001:db8::ffff", "2001:db8::ffff")},
        {"prefix-length",
         {AT + "length: 33 is no prefix length for IPv4. Write a number from 0 to 32."},
         prefix(HOST_INET, "192.0.2.7", 33),
         prefix(HOST_INET, "192.0.2.7", 32)},
        {"prefix-length",
         {AT + "length: 129 is no prefix length for IPv6. Write a number from 0 to 128."},
         prefix(HOST_INET6, "2001:db8::1", 129),
         prefix(HOST_INET6, "2001:db8::1", 128)},
        {"prefix-length",
         {AT + "length: -1 is no prefix length for IPv4. Write a number from 0 to 32."},
         prefix(HOST_INET, "0.0.0.0", -1),
         prefix(HOST_INET, "0.0.0.0", 0)},
        {"mask-with-holes",
         {AT + "mask: 255.0.255.0 has zero bits before one bits. Write a mask that begins with all its one bits."},
         mask(HOST_INET, "10.0.0.0", "255.0.255.0"),
         mask(HOST_INET, "10.0.0.0", "255.255.0.0")},
        {"mask-with-holes",
         {AT + "mask: 0.0.1.255 is a mask turned round. Write 255.255.254.0."},
         mask(HOST_INET, "10.0.0.0", "0.0.1.255"),
         mask(HOST_INET, "10.0.0.0", "255.255.254.0")},
        {"mask-with-holes",
         {AT + "mask: ffff:fff4:: has zero bits before one bits. Write a mask that begins with all its one bits."},
         mask(HOST_INET6, "2001:db8::", "ffff:fff4::"),
         mask(HOST_INET6, "2001:db8::", "ffff:fffc::")},
        {"mask-with-holes",
         {AT + "mask: 127.255.255.255 is a mask turned round. Write 128.0.0.0."},
         mask(HOST_INET, "0.0.0.0", "127.255.255.255"),
         mask(HOST_INET, "0.0.0.0", "0.0.0.0")},
        {"mask-with-holes",
         {AT + "mask: 255.255.255.253 has zero bits before one bits. Write a mask that begins with all its one bits."},
         mask(HOST_INET, "0.0.0.0", "255.255.255.253"),
         mask(HOST_INET, "0.0.0.0", "255.255.255.255")},
        {"host-bits-set",
         {AT + "addr1: 10.1.2.0 has bits beyond the subnet's prefix of 22. Write 10.1.0.0, or a longer prefix."},
         prefix(HOST_INET, "10.1.2.0", 22),
         prefix(HOST_INET, "10.1.2.0", 23)},
        {"host-bits-set",
         {AT + "addr1: 10.1.2.0 has bits beyond the subnet's prefix of 0. Write 0.0.0.0, or a longer prefix."},
         prefix(HOST_INET, "10.1.2.0", 0),
         prefix(HOST_INET, "10.1.2.0", 33)},
        {"host-bits-set",
         {AT + "addr1: 10.1.2.0 has bits beyond the subnet's prefix of 22. Write 10.1.0.0, or a longer prefix."},
         mask(HOST_INET, "10.1.2.0", "255.255.252.0"),
         mask(HOST_INET, "10.1.2.0", "255.255.254.0")},
        {"host-bits-set",
         {AT + "addr1: 2001:db8:0:1::1 has bits beyond the subnet's prefix of 64. Write 2001:db8:0:1::, or a longer "
               "prefix."},
         prefix(HOST_INET6, "2001:db8:0:1::1", 64),
         prefix(HOST_INET6, "2001:db8:0:1::1", 128)},
        {"no-host-selector",
         {AT + "selectorType: NONE names no host. Name some, or remove the selector."},
         symbolic(HOST_INET, HOST_NONE),
         symbolic(HOST_INET, HOST_MCAST)},
    };
    Samples samples = addressSamples();
    samples.insert(samples.end(), others.begin(), others.end());
    return samples;
}
