#include "check_samples.h"

using namespace ipsecimpl;

namespace {

IPsecConfig selecting(unsigned short protocol, unsigned short dstPort, unsigned short srcPort)
{
    return plain([&](IPsecConfig& config) {
        config.protocolGroups.at(1).selectors = {ProtocolSelector(protocol, dstPort, srcPort, PROTO_OUT, true)};
    });
}

} // namespace

Samples protocolSelectorSamples()
{
    const std::string AT       = "protocolGroups/1/selectors/1/";
    const std::string NUMBER   = " is no protocol number. Write one from 0 to 255, such as 6 for TCP.";
    const std::string NO_PORTS = " has no ports. Write 0, or correct the protocol.";

    Samples samples = {
        {"protocol-number", {AT + "protocol: 256" + NUMBER}, selecting(256, 0, 0), selecting(255, 0, 0)},
        {"protocol-number", {AT + "protocol: 443" + NUMBER}, selecting(443, 6, 0), selecting(6, 443, 0)},
        {"protocol-number", {AT + "protocol: 65535" + NUMBER}, selecting(65535, 0, 65535), selecting(0, 0, 0)},
        {"meaningless-port", {AT + "dstPort: Protocol 50" + NO_PORTS}, selecting(50, 443, 0), selecting(50, 0, 0)},
        {"meaningless-port", {AT + "srcPort: Protocol 47" + NO_PORTS}, selecting(47, 0, 1), selecting(17, 0, 1)},
        {"meaningless-port", {AT + "dstPort: Protocol 89" + NO_PORTS}, selecting(89, 1, 2), selecting(132, 1, 2)},
    };
    // Type and code of ICMP may stand in their place, and what 255 and the unknown ones have is not known.
    for (const unsigned short protocol :
         std::initializer_list<unsigned short>{1, 6, 17, 33, 58, 132, 135, 136, 255, 306})
        samples.push_back({"meaningless-port",
                           {AT + "dstPort: Protocol 2" + NO_PORTS},
                           selecting(2, 8, 0),
                           selecting(protocol, 8, 0)});
    return samples;
}
