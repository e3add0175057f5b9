#include "check_samples.h"

using namespace ipsecimpl;

namespace {

struct SPIs {
    IPsecProtocol protocol;
    unsigned long in;
    unsigned long out;
};

IPsecAction with(IPsecAction action, const SPIs& spis)
{
    MKM key                 = action.manualKeyGet();
    key.saProposal.protocol = spis.protocol;
    key.inboundESPSPI       = spis.in;
    key.inboundAHSPI        = spis.in;
    key.outboundESPSPI      = spis.out;
    key.outboundAHSPI       = spis.out;
    action.manualKeySet(key);
    return action;
}

IPsecConfig one(const SPIs& spis)
{
    return having(with(transport(KEYMGR_MKM), spis));
}

/// Two tunnels.
IPsecConfig tunnels(const std::string& firstEnd, const SPIs& first, const std::string& secondEnd, const SPIs& second)
{
    IPsecConfig config = having(with(tunnel(KEYMGR_MKM, firstEnd), first));
    config.actions.add(with(tunnel(KEYMGR_MKM, secondEnd), second));
    return config;
}

/// Two transports, for one host group or two.
IPsecConfig transports(const SPIs& first, const SPIs& second, unsigned int secondGroup)
{
    IPsecConfig config = having(with(transport(KEYMGR_MKM), first));
    config.actions.add(with(transport(KEYMGR_MKM), second));
    config.hostGroups.add(config.hostGroups.at(1));
    config.protocolGroups.add(config.protocolGroups.at(1));
    config.policies.add(Policy(secondGroup, 2, 2));
    return config;
}

/// Two transports for the same two host groups.
IPsecConfig sharing(const SPIs& first, const SPIs& second)
{
    IPsecConfig config = transports(first, second, 1);
    config.policies.add(Policy(2, 1, 1));
    config.policies.add(Policy(2, 2, 2));
    return config;
}

const std::string IN_TWICE  = " receives. Choose another, and the same at the peer.";
const std::string OUT_TWICE = " sends to the same peers. Choose another, and the same at the peer.";

Samples inboundSamples()
{
    const char* const CODE = "repeated-inbound-spi";
    return {
        {CODE,
         {"actions/2/manualKey/inboundESPSPI: ESP SPI 256 is also that of what action 1 'Tunnel'" + IN_TWICE},
         tunnels("192.0.2.1", {IPSEC_ESP, 256, 1000}, "192.0.2.2", {IPSEC_ESP, 256, 1001}),
         tunnels("192.0.2.1", {IPSEC_ESP, 256, 1000}, "192.0.2.2", {IPSEC_ESP, 257, 256})},
        {CODE,
         {"actions/2/manualKey/inboundAHSPI: AH SPI 4294967295 is also that of what action 1 'Tunnel'" + IN_TWICE},
         tunnels("192.0.2.1", {IPSEC_ESP_AH, 4294967295U, 1000}, "192.0.2.2", {IPSEC_AH, 4294967295U, 1001}),
         tunnels("192.0.2.1", {IPSEC_ESP, 4294967295U, 1000}, "192.0.2.2", {IPSEC_AH, 4294967295U, 1001})},
        {CODE,
         {"actions/2/manualKey/inboundESPSPI: ESP SPI 256 is also that of what action 1 'Protect'" + IN_TWICE,
          "actions/2/manualKey/inboundAHSPI: AH SPI 256 is also that of what action 1 'Protect'" + IN_TWICE},
         transports({IPSEC_ESP_AH, 256, 1000}, {IPSEC_ESP_AH, 256, 1001}, 2),
         transports({IPSEC_ESP_AH, 256, 1000}, {IPSEC_ESP_AH, 1000, 1001}, 2)},
        {CODE,
         {"actions/2/manualKey/inboundESPSPI: ESP SPI 256 is also that of what action 1 'Protect'" + IN_TWICE},
         transports({IPSEC_ESP, 256, 1000}, {IPSEC_ESP, 256, 1001}, 2),
         transports({IPSEC_ESP, 256, 1000}, {IPSEC_ESP, 255, 1001}, 2)},
        {CODE,
         {"actions/2/manualKey/inboundESPSPI: ESP SPI 255 is also that of what action 1 'Protect'" + IN_TWICE},
         transports({IPSEC_ESP, 255, 1000}, {IPSEC_ESP, 255, 1001}, 2),
         transports({IPSEC_ESP, 255, 1000}, {IPSEC_ESP, 254, 1001}, 2)},
    };
}

Samples outboundSamples()
{
    const char* const CODE = "repeated-outbound-spi";
    return {
        {CODE,
         {"actions/2/manualKey/outboundESPSPI: ESP SPI 1000 is also that of what action 1 'Tunnel'" + OUT_TWICE},
         tunnels("192.0.2.1", {IPSEC_ESP, 256, 1000}, "192.0.2.1", {IPSEC_ESP, 257, 1000}),
         tunnels("192.0.2.1", {IPSEC_ESP, 256, 1000}, "192.0.2.2", {IPSEC_ESP, 257, 1000})},
        {CODE,
         {"actions/2/manualKey/outboundAHSPI: AH SPI 1000 is also that of what action 1 'Tunnel'" + OUT_TWICE},
         tunnels("2001:db8::1", {IPSEC_AH, 256, 1000}, "2001:DB8:0::1", {IPSEC_AH, 257, 1000}),
         tunnels("::192.0.2.1", {IPSEC_AH, 256, 1000}, "192.0.2.1", {IPSEC_AH, 257, 1000})},
        {CODE,
         {"actions/2/manualKey/outboundESPSPI: ESP SPI 1000 is also that of what action 1 'Tunnel'" + OUT_TWICE},
         tunnels("192.0.2.1", {IPSEC_ESP, 256, 1000}, "192.0.2.1", {IPSEC_ESP, 257, 1000}),
         tunnels("gw.example.com", {IPSEC_ESP, 256, 1000}, "gw.example.com", {IPSEC_ESP, 257, 1000})},
        {CODE,
         {"actions/2/manualKey/outboundESPSPI: ESP SPI 1000 is also that of what action 1 'Protect'" + OUT_TWICE},
         transports({IPSEC_ESP, 256, 1000}, {IPSEC_ESP, 257, 1000}, 1),
         transports({IPSEC_ESP, 256, 1000}, {IPSEC_ESP, 257, 1000}, 2)},
        {CODE,
         {"actions/2/manualKey/outboundESPSPI: ESP SPI 1000 is also that of what action 1 'Protect'" + OUT_TWICE,
          "actions/2/manualKey/outboundAHSPI: AH SPI 1000 is also that of what action 1 'Protect'" + OUT_TWICE},
         sharing({IPSEC_ESP_AH, 256, 1000}, {IPSEC_ESP_AH, 257, 1000}),
         sharing({IPSEC_ESP_AH, 256, 1000}, {IPSEC_ESP_AH, 257, 1001})},
        {CODE,
         {"actions/2/manualKey/outboundAHSPI: AH SPI 0 is also that of what action 1 'Tunnel'" + OUT_TWICE},
         tunnels("192.0.2.1", {IPSEC_AH, 256, 0}, "192.0.2.1", {IPSEC_AH, 257, 0}),
         tunnels("192.0.2.1", {IPSEC_AH, 256, 0}, "192.0.2.2", {IPSEC_AH, 257, 0})},
    };
}

} // namespace

Samples spiSamples()
{
    const std::string RESERVED = " is reserved. Write 256 or more, and the same at the peer.";
    Samples           samples  = {
                   {"reserved-spi",
                    {"actions/1/manualKey/inboundESPSPI: SPI 255" + RESERVED,
                     "actions/1/manualKey/outboundESPSPI: SPI 0" + RESERVED},
                    one({IPSEC_ESP, 255, 0}),
                    one({IPSEC_ESP, 256, 256})},
                   {"reserved-spi",
                    {"actions/1/manualKey/inboundAHSPI: SPI 1" + RESERVED,
                     "actions/1/manualKey/outboundAHSPI: SPI 255" + RESERVED},
                    one({IPSEC_AH, 1, 255}),
                    one({IPSEC_NONE, 1, 255})},
    };
    for (const Samples& more : {inboundSamples(), outboundSamples()})
        samples.insert(samples.end(), more.begin(), more.end());
    return samples;
}
