#ifndef IPSECIMPL_SELECTORS_H
#define IPSECIMPL_SELECTORS_H

/// \file
/// What traffic a policy is for: host selectors, protocol selectors, groups of them, and the built-in groups.

#include <ipsecimpl/enums.h>
#include <ipsecimpl/export.h>
#include <ipsecimpl/xml.h>

#include <iosfwd>
#include <set>
#include <string>
#include <utility>

namespace ipsecimpl {

/// Names a set of hosts: one address, a range, a subnet, or a symbolic class (local, any, multicast).
///
/// A plain value. Addresses are texts and stay exactly as given: nothing checks or normalises them. Only netmask
/// texts are parsed, and made.
///
/// | selectorType  | addr1          | addr2                               | length                    |
/// |---------------|----------------|-------------------------------------|---------------------------|
/// | SINGLE        | the address    | empty                               | 0                         |
/// | RANGE         | first address  | last address                        | 0                         |
/// | SUBNET_LENGTH | subnet address | mask, `len2mask(family, length)`    | prefix length as given    |
/// | SUBNET_MASK   | subnet address | mask as given                       | `mask2len(family, addr2)` |
/// | all others    | empty          | empty                               | 0                         |
///
/// The constructors store what they are given also where the type has no use for it. The fields may be changed
/// freely; then it is the caller who keeps `addr2` and `length` in step.
class IPSECIMPL_API HostSelector {
  public:
    /// AF_INET, NONE, no texts, length 0.
    HostSelector();

    /// An address, a range or a subnet with a mask. Throws `std::invalid_argument`: "prefix length not specified" for
    /// SUBNET_LENGTH; for SUBNET_MASK, what mask2len() throws.
    HostSelector(AddressFamily family, AddressType type, const std::string& addr1, const std::string& addr2);

    /// A subnet with a prefix length; `addr2` is computed for SUBNET_LENGTH, else empty. Throws
    /// `std::invalid_argument`: "subnet mask not specified" for SUBNET_MASK; for SUBNET_LENGTH, what len2mask() throws.
    HostSelector(AddressFamily family, AddressType type, const std::string& addr1, int length);

    HostSelector(const HostSelector&)                = default;
    HostSelector(HostSelector&&) noexcept            = default;
    HostSelector& operator=(const HostSelector& other); ///< if it throws, the target is as it was
    HostSelector& operator=(HostSelector&&) noexcept = default;
    ~HostSelector()                                  = default;

    /// The prefix length of a netmask text: its leading one bits, up to the first byte that is not 0xFF, in which they
    /// count only if it is a mask byte (0xFE, 0xFC ... 0x80). Later bytes are not looked at, so holes are not refused:
    /// "255.0.255.0" gives 8.
    ///
    /// Throws `std::invalid_argument`: "invalid mask" if the text is not an address of the family (or null), "invalid
    /// address family" for AF_ANY.
    static int mask2len(const AddressFamily& family, const char* mask);

    /// The netmask text of a prefix length, such as "255.255.255.0" or "ffff:ffff:ffff:ffff::". There is no range
    /// check: a length that is negative or too long gives all ones.
    ///
    /// Throws `std::invalid_argument` "invalid address family" for AF_ANY.
    static std::string len2mask(const AddressFamily& family, int length);

    /// -1, 0 or 1. The order is that of family and selectorType ascending, then length, addr1 and addr2 DESCENDING
    /// (texts byte by byte): a longer prefix comes first. Groups keep and write their selectors in this order.
    int compare(const HostSelector& other) const;

    bool operator<(const HostSelector& other) const { return compare(other) < 0; }
    bool operator<=(const HostSelector& other) const { return compare(other) < 1; }
    bool operator>(const HostSelector& other) const { return compare(other) > 0; }
    bool operator>=(const HostSelector& other) const { return compare(other) >= 0; }

    /// All fields but `length` are equal. Unlike compare(), which tells selectors apart that differ in length alone.
    bool operator==(const HostSelector& other) const;
    bool operator!=(const HostSelector& other) const { return !(*this == other); }

    /// Reads one <hostSelector> element. Throws ParseError, but for an unknown family or type `std::invalid_argument`
    /// "to_int", which the group's reader turns into a ParseError.
    static HostSelector importXML(XMLParser& parser);

    /// Writes the <hostSelector> element and returns `os`, whose state is the caller's to test.
    std::ostream& exportXML(std::ostream& os) const;

    AddressFamily family;       ///< AF_INET, AF_INET6 or AF_ANY
    AddressType   selectorType; ///< which of the other fields are meant
    std::string   addr1;        ///< the address, the range's first, or the subnet's
    std::string   addr2;        ///< the range's last address, or the subnet's mask
    int           length;       ///< prefix length in bits
};

/// Names a kind of traffic by protocol, ports, direction, and whether the reply flow is meant too.
///
/// A value, with one oddity that is deliberate: assignment leaves the target its own `name`, construction from
/// another selector takes the name along. Where `protocol` is 0, comparison, equality and output ignore the ports.
///
/// Give it a name: a selector whose name is empty is written as any other, but its reader refuses an empty <name>, so
/// that the document cannot be loaded again. The same holds for a name of white space alone.
class IPSECIMPL_API ProtocolSelector {
  public:
    /// Stores the arguments; nothing is checked.
    ProtocolSelector(std::string name, unsigned short protocol, unsigned short dstPort, unsigned short srcPort,
                     Direction direction, bool mirrored);

    /// The same with the name "Protocol".
    ProtocolSelector(unsigned short protocol, unsigned short dstPort, unsigned short srcPort, Direction direction,
                     bool mirrored);

    ProtocolSelector(const ProtocolSelector&)     = default;
    ProtocolSelector(ProtocolSelector&&) noexcept = default;

    /// Takes everything over but the name. A set that is assigned to may do this with the elements that it has, as
    /// libc++'s does: to replace all, assign a new set by moving, or clear() it first.
    ProtocolSelector& operator=(const ProtocolSelector& other) noexcept;

    ~ProtocolSelector() = default;

    /// -1, 0 or 1. Any protocol (0) comes after each single one, any port (0) after each single one, and mirrored
    /// selectors after the others; then direction, protocol and ports ascending. For OUT the source port is looked at
    /// first, else the destination port. The name takes no part.
    int compare(const ProtocolSelector& other) const;

    bool operator<(const ProtocolSelector& other) const { return compare(other) < 0; }
    bool operator<=(const ProtocolSelector& other) const { return compare(other) < 1; }
    bool operator>(const ProtocolSelector& other) const { return compare(other) > 0; }
    bool operator>=(const ProtocolSelector& other) const { return compare(other) >= 0; }

    /// All fields but the name are equal; the ports do not count where both protocols are 0.
    bool operator==(const ProtocolSelector& other) const;
    bool operator!=(const ProtocolSelector& other) const { return !(*this == other); }

    /// Reads one <protocolSelector> element, its children in any order. Throws ParseError, but for an unknown
    /// direction `std::invalid_argument` "to_int", which the group's reader turns into a ParseError.
    static ProtocolSelector importXML(XMLParser& parser);

    /// Writes the <protocolSelector> element and returns `os`, whose state is the caller's to test.
    std::ostream& exportXML(std::ostream& os) const;

    std::string    name;      ///< for display only
    unsigned short protocol;  ///< IP protocol number; 0 is any
    unsigned short dstPort;   ///< destination port; 0 is any
    unsigned short srcPort;   ///< source port; 0 is any
    Direction      direction; ///< IN, OUT or INOUT
    bool           mirrored;  ///< the mirrored (reply) flow is meant too
};

/// A named, described, ordered set of selectors: a HostGroup or a ProtocolGroup.
///
/// A plain value. The fields are read and set directly and the group checks nothing. `Tag` is the address of the
/// element's tag.
template <auto Tag, class Selector>
class IPSECIMPL_API SelectorGroup {
  public:
    /// No texts, no numbers, no selectors.
    SelectorGroup() = default;

    /// A group without selectors.
    SelectorGroup(std::string ownName, int nameNumber, std::string ownDescr, int descrNumber);

    SelectorGroup(const SelectorGroup& other)     = default;
    SelectorGroup(SelectorGroup&& other) noexcept = default;
    SelectorGroup& operator=(const SelectorGroup& other); ///< if it throws, the target is as it was
    SelectorGroup& operator=(SelectorGroup&& other) noexcept; ///< `other` stays a group, with any content
    IPSECIMPL_API ~SelectorGroup();

    /// Reads one group element. Throws ParseError, also for a selector's unknown word ("bad value: to_int").
    /// A selector that equals (`compare` gives 0) one read before is dropped silently.
    IPSECIMPL_API static SelectorGroup importXML(XMLParser& parser);

    /// Writes the group element, the selectors in their order, and returns `os`, whose state is the caller's to test.
    IPSECIMPL_API std::ostream& exportXML(std::ostream& os) const;

    std::string        name;             ///< the group's own name
    int                builtinName  = 0; ///< number of a text that the user interface shows instead; 0 is none
    std::string        descr;            ///< the group's own description
    int                builtinDescr = 0; ///< number of a text that the user interface shows instead; 0 is none
    std::set<Selector> selectors;        ///< without duplicates, in the order of `Selector::compare`
};

using HostGroup     = SelectorGroup<&__hostGroupTag, HostSelector>;         ///< whose traffic a policy is for
using ProtocolGroup = SelectorGroup<&__protocolGroupTag, ProtocolSelector>; ///< which traffic a policy is for

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>::SelectorGroup(std::string ownName, int nameNumber, std::string ownDescr, int descrNumber)
    : name(std::move(ownName))
    , builtinName(nameNumber)
    , descr(std::move(ownDescr))
    , builtinDescr(descrNumber)
{
}

template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>& SelectorGroup<Tag, Selector>::operator=(const SelectorGroup& other)
{
    if (this != &other)
        *this = SelectorGroup(other);
    return *this;
}

// By swapping: the set's own assignment may assign to selectors that are there, and a protocol selector would keep its
// name then.
template <auto Tag, class Selector>
SelectorGroup<Tag, Selector>& SelectorGroup<Tag, Selector>::operator=(SelectorGroup&& other) noexcept
{
    name.swap(other.name);
    builtinName = other.builtinName;
    descr.swap(other.descr);
    builtinDescr = other.builtinDescr;
    selectors.swap(other.selectors);
    return *this;
}

extern template IPSECIMPL_API SelectorGroup<&__hostGroupTag, HostSelector>::~SelectorGroup();
extern template IPSECIMPL_API HostGroup SelectorGroup<&__hostGroupTag, HostSelector>::importXML(XMLParser&);
extern template IPSECIMPL_API std::ostream&
SelectorGroup<&__hostGroupTag, HostSelector>::exportXML(std::ostream&) const;

extern template IPSECIMPL_API SelectorGroup<&__protocolGroupTag, ProtocolSelector>::~SelectorGroup();
extern template IPSECIMPL_API ProtocolGroup SelectorGroup<&__protocolGroupTag, ProtocolSelector>::importXML(XMLParser&);
extern template IPSECIMPL_API std::ostream&
SelectorGroup<&__protocolGroupTag, ProtocolSelector>::exportXML(std::ostream&) const;

/// \name Built-in groups
/// Each function returns its own object, the same one at every call. It is made at the first call, which threads may
/// race for, and destroyed when the program ends. The library never adds it to a configuration: copy it into one. What
/// a caller changes in it stays changed for all.
/// @{
IPSECIMPL_API HostGroup& HostGroupAny();     ///< "Any": every remote host
IPSECIMPL_API HostGroup& HostGroupLocal();   ///< "Local Subnet": every host on the node's own subnets
IPSECIMPL_API HostGroup& HostGroupAnyv4();   ///< "Any IPv4"
IPSECIMPL_API HostGroup& HostGroupLocalv4(); ///< "Local IPv4 Subnet"
IPSECIMPL_API HostGroup& HostGroupAnyv6();   ///< "Any IPv6"
IPSECIMPL_API HostGroup& HostGroupLocalv6(); ///< "Local IPv6 Subnet"
IPSECIMPL_API HostGroup& HostGroupMcast();   ///< "Broadcast or Multicast"
IPSECIMPL_API HostGroup& HostGroupMcastv4(); ///< "IPv4 Broadcast or Multicast"

/// "IPv6 Broadcast or Multicast". Its selector is, deliberately, that of HostGroupMcastv4(): the family is AF_INET.
IPSECIMPL_API HostGroup& HostGroupMcastv6();

/// "All": every protocol, every port, with the reply flow.
IPSECIMPL_API ProtocolGroup& ProtocolGroupAll();

/// "System Services": IKE, DHCP, and DNS over TCP and UDP.
IPSECIMPL_API ProtocolGroup& ProtocolGroupSystem();
/// @}

} // namespace ipsecimpl

#endif
