#include <ipsecimpl/selectors.h>

#include <initializer_list>

namespace ipsecimpl {
namespace {

HostGroup makeGroup(const char* name, int builtinName, const char* descr, int builtinDescr, AddressFamily family,
                    AddressType type)
{
    HostGroup group(name, builtinName, descr, builtinDescr);
    group.selectors.emplace(family, type, "", "");
    return group;
}

ProtocolGroup makeGroup(const char* name, int builtinName, const char* descr, int builtinDescr,
                        std::initializer_list<ProtocolSelector> selectors)
{
    ProtocolGroup group(name, builtinName, descr, builtinDescr);
    group.selectors.insert(selectors);
    return group;
}

} // namespace

HostGroup& HostGroupAny()
{
    static HostGroup group = makeGroup("Any", 1, "Any remote host", 2, HOST_INETANY, HOST_ANY);
    return group;
}

HostGroup& HostGroupLocal()
{
    static HostGroup group =
        makeGroup("Local Subnet", 3, "Any host on local subnets", 4, HOST_INETANY, HOST_LOCAL);
    return group;
}

HostGroup& HostGroupAnyv4()
{
    static HostGroup group = makeGroup("Any IPv4", 5, "Any IPv4 remote hosts", 6, HOST_INET, HOST_ANY);
    return group;
}

HostGroup& HostGroupLocalv4()
{
    static HostGroup group =
        makeGroup("Local IPv4 Subnet", 7, "Any hosts on local IPv4 subnets", 8, HOST_INET, HOST_LOCAL);
    return group;
}

HostGroup& HostGroupAnyv6()
{
    static HostGroup group = makeGroup("Any IPv6", 9, "Any IPv6 remote hosts", 10, HOST_INET6, HOST_ANY);
    return group;
}

HostGroup& HostGroupLocalv6()
{
    static HostGroup group =
        makeGroup("Local IPv6 Subnet", 11, "Any hosts on local IPv6 subnets", 12, HOST_INET6, HOST_LOCAL);
    return group;
}

HostGroup& HostGroupMcast()
{
    static HostGroup group = makeGroup("Broadcast or Multicast", 13, "Broadcast and multicast addresses", 14,
                                       HOST_INETANY, HOST_MCAST);
    return group;
}

HostGroup& HostGroupMcastv4()
{
    static HostGroup group = makeGroup("IPv4 Broadcast or Multicast", 15, "IPv4 broadcast and multicast addresses", 16,
                                       HOST_INET, HOST_MCAST);
    return group;
}

HostGroup& HostGroupMcastv6()
{
    // The family is that of IPv4: the group has always been defined so, and documents rely on it.
    static HostGroup group = makeGroup("IPv6 Broadcast or Multicast", 17, "IPv6 broadcast and multicast addresses", 18,
                                       HOST_INET, HOST_MCAST);
    return group;
}

ProtocolGroup& ProtocolGroupAll()
{
    static ProtocolGroup group = makeGroup("All", 13, "This group includes all protocols and packets.", 14,
                                           {ProtocolSelector(0, 0, 0, PROTO_IN, true)});
    return group;
}

ProtocolGroup& ProtocolGroupSystem()
{
    static ProtocolGroup group = makeGroup(
        "System Services", 15,
        "This group matches all protocols required for basic network services such as DHCP and DNS.", 16,
        {
            ProtocolSelector(17, 500, 500, PROTO_IN, true), // IKE
            ProtocolSelector(17, 67, 68, PROTO_OUT, true),  // DHCP, client to server
            ProtocolSelector(17, 53, 0, PROTO_OUT, true),   // DNS over UDP
            ProtocolSelector(6, 53, 0, PROTO_OUT, true),    // DNS over TCP
        });
    return group;
}

} // namespace ipsecimpl
