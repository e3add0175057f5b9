#include "check_samples.h"

using namespace ipsecimpl;

namespace {

IPsecConfig tunnelTo(const std::string& endPoint)
{
    return having(tunnel(KEYMGR_IKE, endPoint));
}

/// A tunnel for hosts of these families.
IPsecConfig tunnelFor(const std::vector<HostSelector>& hosts, const std::string& endPoint)
{
    IPsecConfig config                = tunnelTo(endPoint);
    config.hostGroups.at(1).selectors = {hosts.begin(), hosts.end()};
    return config;
}

HostSelector any(const AddressFamily& family)
{
    return HostSelector(family, HOST_ANY, "", "");
}

const HostSelector NOBODY(HOST_INET6, HOST_NONE, "", "");

Samples specialSamples()
{
    const char* const CODE  = "special-tunnel-end-point";
    const auto        fault = [](const std::string& sentence) {
        return std::vector<std::string>{"actions/1/tunnelEndpoint: " + sentence +
                                        ". Write the address of the tunnel's far end."};
    };
    return {
        {CODE, fault("0.0.0.0 stands for no address"), tunnelTo("0.0.0.0"), tunnelTo("0.0.0.1")},
        {CODE, fault(":: stands for no address"), tunnelTo("::"), tunnelTo("::2")},
        {CODE, fault("::1 is each node's own loopback address"), tunnelTo("::1"), tunnelTo("::1:1")},
        {CODE, fault("127.0.0.1 is each node's own loopback address"), tunnelTo("127.0.0.1"), tunnelTo("126.0.0.1")},
        {CODE, fault("127.255.255.255 is each node's own loopback address"), tunnelTo("127.255.255.255"),
         tunnelTo("128.0.0.0")},
        {CODE, fault("224.0.0.0 is a multicast address"), tunnelTo("224.0.0.0"), tunnelTo("223.255.255.255")},
        {CODE, fault("239.255.255.255 is a multicast address"), tunnelTo("239.255.255.255"), tunnelTo("240.0.0.0")},
        {CODE, fault("ff02::1 is a multicast address"), tunnelTo("ff02::1"), tunnelTo("feff::1")},
        {CODE, fault("255.255.255.255 is the broadcast address"), tunnelTo("255.255.255.255"),
         tunnelTo("255.255.255.254")},
        {CODE, fault("0.0.0.0 stands for no address"), tunnelTo("0.0.0.0"),
         plain([](IPsecConfig& config) { config.hostGroups.at(1).descr = "0.0.0.0"; })},
    };
}

} // namespace

Samples tunnelSamples()
{
    const std::string V4_TO_V6 = "policies/1/actionID: The end point of action 1 'Tunnel' is an IPv4 address, but host "
                                 "group 1 'Server' has IPv6 hosts alone. Correct one of the two, or see that both ends "
                                 "of the tunnel mean it so.";
    const std::string V6_TO_V4 = "policies/1/actionID: The end point of action 1 'Tunnel' is an IPv6 address, but host "
                                 "group 1 'Server' has IPv4 hosts alone. Correct one of the two, or see that both ends "
                                 "of the tunnel mean it so.";
    Samples           samples  = {
                   {"no-tunnel-end-point",
                    {"actions/1/tunnelEndpoint: The tunnel has no end point. Write the address of its far end."},
                    tunnelTo(""),
                    tunnelTo("192.0.2.1")},
                   {"no-tunnel-end-point",
                    {"actions/1/tunnelEndpoint: The tunnel has no end point. Write the address of its far end."},
                    tunnelTo(""),
                    having(transport(KEYMGR_IKE))},
                   {"bad-tunnel-end-point",
                    {"actions/1/tunnelEndpoint: 'gw.example.com' is no address. Write the IPv4 or IPv6 address of the tunnel's "
                                "far "
                                "end."},
                    tunnelTo("gw.example.com"),
                    tunnelTo("2001:db8::1")},
                   {"bad-tunnel-end-point",
                    {"actions/1/tunnelEndpoint: '2001:db8:::1' is no address. Write the IPv4 or IPv6 address of the tunnel's far "
                                "end."},
                    tunnelTo("2001:db8:::1"),
                    tunnelTo("")},
                   {"tunnel-family",
                    {V6_TO_V4},
                    tunnelFor({any(HOST_INET)}, "2001:db8::1"),
                    tunnelFor({any(HOST_INET)}, "192.0.2.1")},
                   {"tunnel-family",
                    {V4_TO_V6},
                    tunnelFor({any(HOST_INET6)}, "192.0.2.1"),
                    tunnelFor({any(HOST_INET6), any(HOST_INET)}, "192.0.2.1")},
                   {"tunnel-family",
                    {V6_TO_V4},
                    tunnelFor({any(HOST_INET), NOBODY}, "2001:db8::1"),
                    tunnelFor({any(HOST_INETANY)}, "2001:db8::1")},
                   {"tunnel-family",
                    {V4_TO_V6},
                    tunnelFor({any(HOST_INET6)}, "192.0.2.1"),
                    tunnelFor({any(HOST_INET6)}, "gw.example.com")},
                   {"tunnel-family", {V4_TO_V6}, tunnelFor({any(HOST_INET6)}, "192.0.2.1"), tunnelFor({NOBODY}, "192.0.2.1")},
    };
    const Samples special = specialSamples();
    samples.insert(samples.end(), special.begin(), special.end());
    return samples;
}
