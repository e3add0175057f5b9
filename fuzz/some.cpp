#include "some.h"

#include <list>

namespace ipsecimpl {
namespace {

unsigned long someNumber(Program& program)
{
    static constexpr unsigned long numbers[] = {0, 1, 2, 3, 28800, 2147483647, 2147483648, 4294967295};
    return numbers[program.below(8)];
}

IPsecProposal someProposal(Program& program)
{
    const auto          protocol   = someWord<IPsecProtocol>(program, __IPsecProtocolNum__);
    const unsigned long encryption = someNumber(program);
    return {protocol, encryption, someNumber(program)};
}

template <class Group>
Group someGroup(Program& program)
{
    const std::string& name       = someText(program);
    const int          nameNumber = someBuiltinNumber(program);
    const std::string& descr      = someText(program);
    return Group(name, nameNumber, descr, someBuiltinNumber(program));
}

HostSelector someHostSelector(Program& program)
{
    const AddressFamily family = someWord<AddressFamily>(program, 2);
    const unsigned int  type   = program.below(4);
    if (type == 0)
        return {family, HOST_SINGLE, someText(program), ""};
    if (type == 1)
        return {family, HOST_SUBNET_LENGTH, someText(program), static_cast<int>(program.take()) - 8};
    if (type == 2)
        return {HOST_INET, HOST_SUBNET_MASK, someText(program), "255.255.0.255"};
    return {family, HOST_MCAST, "", ""};
}

ProtocolSelector someProtocolSelector(Program& program)
{
    const auto number   = [&program] { return static_cast<unsigned short>(program.below(4)); };
    const auto protocol = number(), dstPort = number(), srcPort = number();
    const auto direction = someWord<Direction>(program, __DirectionNum__);
    if (protocol == 0) // as read: without ports
        return {"any", 0, 0, 0, direction, program.below(2) == 0};
    return {"one", protocol, dstPort, srcPort, direction, program.below(2) == 0};
}

} // namespace

const std::string& someText(Program& program)
{
    static const std::string texts[] = {"", "a", "b & c", "10.0.0.1", "0x00 \"'>", "\xC3\xA9\xFF"};
    return texts[program.below(6)];
}

int someBuiltinNumber(Program& program)
{
    static constexpr int numbers[] = {0, 0, 0, -1, -2147483647 - 1, 1, 2147483647};
    return numbers[program.below(7)];
}

MKM someManualKey(Program& program)
{
    MKM key;
    key.saProposal      = someProposal(program);
    key.inboundESPSPI   = someNumber(program);
    key.outboundAHSPI   = someNumber(program);
    key.inboundDecrKey  = someText(program);
    key.outboundAuthKey = someText(program);
    return key;
}

IKEPhase1Proposal somePhase1Proposal(Program& program)
{
    std::list<IKEPhase1Transform> transforms;
    for (unsigned int count = program.below(3); count > 0; --count)
        transforms.push_back(someWord<IKEPhase1Transform>(program, __IKEPhase1TransformNum__));
    const auto          group    = someWord<DHGroup>(program, __DHGroupNum__);
    const unsigned long lifetime = someNumber(program);
    return {transforms, group, lifetime, someWord<KeyLifetimeUnits>(program, __KeyLifetimeUnitsNum__)};
}

IKEPhase2 somePhase2(Program& program)
{
    std::list<IPsecProposal> proposals;
    for (unsigned int count = program.below(3); count > 0; --count)
        proposals.push_back(someProposal(program));
    const auto          group    = someWord<DHGroup>(program, __DHGroupNum__);
    const unsigned long lifetime = someNumber(program);
    return {proposals, group, lifetime, someWord<KeyLifetimeUnits>(program, __KeyLifetimeUnitsNum__)};
}

HostGroup someHostGroup(Program& program)
{
    auto group = someGroup<HostGroup>(program);
    for (unsigned int count = program.below(4); count > 0; --count)
        group.selectors.insert(someHostSelector(program));
    return group;
}

ProtocolGroup someProtocolGroup(Program& program)
{
    auto group = someGroup<ProtocolGroup>(program);
    for (unsigned int count = program.below(4); count > 0; --count)
        group.selectors.insert(someProtocolSelector(program));
    return group;
}

Policy somePolicy(Program& program)
{
    static constexpr unsigned int ids[] = {0, 1, 2, 7, 2147483647, 2147483648, 4294967295};

    const unsigned int hosts = ids[program.below(7)], protocols = ids[program.below(7)];
    return {hosts, protocols, ids[program.below(7)]};
}

} // namespace ipsecimpl
