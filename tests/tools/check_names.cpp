#include "check_samples.h"

using namespace ipsecimpl;

namespace {

/// With a host group, a protocol group and an action more of these names. "Server", "Web" and "Pass" are there.
IPsecConfig adding(const std::string& hosts, const std::string& protocols, const std::string& action)
{
    return plain([&](IPsecConfig& config) {
        config.hostGroups.add(HostGroup(hosts, 0, "", 0));
        config.protocolGroups.add(ProtocolGroup(protocols, 0, "", 0));
        config.actions.add(IPsecAction(SPD_BYPASS, action, 0, "", 0, KEYMGR_NONE));
    });
}

IPsecConfig groupsNamed(const std::vector<std::string>& names)
{
    return plain([&](IPsecConfig& config) {
        for (const std::string& name : names)
            config.hostGroups.add(HostGroup(name, 0, "", 0));
    });
}

} // namespace

Samples nameSamples()
{
    const char* const CODE  = "repeated-name";
    const std::string OTHER = " has this name too. Give one of the two another.";
    return {
        {CODE,
         {"hostGroups/2/name: Host group 1" + OTHER, "protocolGroups/2/name: Protocol group 1" + OTHER,
          "actions/2/name: Action 1" + OTHER},
         adding("Server", "Web", "Pass"),
         adding("Web", "Pass", "Server")},
        {CODE,
         {"hostGroups/2/name: Host group 1" + OTHER},
         adding("Server", "web", "Pass 2"),
         adding("Serve", "Web ", "")},
        {CODE,
         {"hostGroups/4/name: Host group 2" + OTHER, "hostGroups/5/name: Host group 1" + OTHER,
          "hostGroups/6/name: Host group 2" + OTHER},
         groupsNamed({"a", "b", "a", "Server", "a"}),
         groupsNamed({"a", "b", "", "", "c"})},
    };
}
