// Loads a configuration, edits it, and stores it again:
//
//     edit_config CONFIG [OUTPUT]
//
// The document goes to OUTPUT, or to standard output; what there is to say goes to standard error, and what was changed
// once it is stored. Exit status: 0 if all went well, 1 if CONFIG does not load or has no room for what is added, 2 for
// wrong usage or a file that cannot be read or written.
//
// OUTPUT is simply written over. A program whose files hold keys would rather write a new file for its owner alone, and
// rename it when it is complete.

#include <ipsecimpl/ipsecimpl.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>

using namespace ipsecimpl;

namespace {

// Setters keep the rules: a change that they refuse throws, and the action stays as it was.
void tryToRenameBuiltIns(Actions& actions, std::ostream& report)
{
    for (auto& [id, action] : actions) {
        if (!action.isBuiltIn())
            continue;
        try {
            action.nameSet("Our " + action.nameGet());
        } catch (const invalid_operation& refusal) {
            report << "action " << id << " stays '" << action.nameGet() << "': " << refusal.what() << '\n';
        }
    }
}

// Turns on perfect forward secrecy where IKE makes the keys without it.
void demandForwardSecrecy(Actions& actions, std::ostream& report)
{
    for (auto& [id, action] : actions) {
        // Only these two have a key manager: keyMgrGet() of another action would throw.
        const bool isProtected = action.spdActionGet() == SPD_TRANSPORT || action.spdActionGet() == SPD_TUNNEL;
        if (!isProtected || action.keyMgrGet() != KEYMGR_IKE)
            continue;

        IKEPhase2 phase2 = action.ikePhase2Get(); // a copy: what the action holds changes by its setters alone
        if (phase2.dhGroup != DH_GROUP_NONE)
            continue;
        phase2.dhGroup = DH_GROUP_14;
        action.ikePhase2Set(phase2); // this counts as a change
        report << "action " << id << " '" << action.nameGet() << "': forward secrecy turned on\n";
    }
}

// A configuration holds only what somebody put there, so the built-in action may have to be added first.
unsigned int findOrAddDiscard(Actions& actions)
{
    for (const auto& [id, action] : actions)
        if (action.spdActionGet() == SPD_DISCARD)
            return id;
    return actions.add(ActionDiscard());
}

// Adds what it takes to drop Telnet from the guests' network. The collections give out the IDs by which a policy names
// the things that it ties together.
void dropTelnetFromGuests(IPsecConfig& config, std::ostream& report)
{
    HostGroup guests("Guest network", 0, "Wireless network for visitors", 0);
    guests.selectors.insert(HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "192.168.77.0", 24));
    guests.selectors.insert(HostSelector(HOST_INET6, HOST_SUBNET_LENGTH, "2001:db8:77::", 64));

    ProtocolGroup telnet("Telnet", 0, "Logins that show their passwords", 0);
    telnet.selectors.insert(ProtocolSelector("Telnet", 6, 23, 0, PROTO_IN, true)); // TCP to port 23, from any port

    const unsigned int hostGroupID     = config.hostGroups.add(guests);
    const unsigned int protocolGroupID = config.protocolGroups.add(telnet);
    const unsigned int policyID =
        config.policies.add(Policy(hostGroupID, protocolGroupID, findOrAddDiscard(config.actions)));
    report << "policy " << policyID << " added\n";
}

int cannotOpen(const char* fileName)
{
    std::cerr << fileName << ": " << std::strerror(errno) << '\n';
    return 2;
}

} // namespace

int main(int argc, char* argv[])
{
    const char* const usage = "usage: edit_config CONFIG [OUTPUT]\n";
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
        std::cout << usage;
        return 0;
    }
    if (argc != 2 && argc != 3) {
        std::cerr << usage;
        return 2;
    }

    std::ifstream in(argv[1]);
    if (!in)
        return cannotOpen(argv[1]);

    IPsecConfig        config;
    std::ostringstream report;
    try {
        XMLParser parser(in);
        config = IPsecConfig::importXML(parser); // all or nothing: if this throws, `config` is as it was

        tryToRenameBuiltIns(config.actions, report);
        demandForwardSecrecy(config.actions, report);
        dropTelnetFromGuests(config, report);
    } catch (const ParseError&) {
        // To the parser a read error is the end of the document; the stream knows better.
        //
        // What the exception says is kept back: it quotes what the parser did not expect, and where a tag of a key is
        // mistyped, that is the key. Show it only to those who may see the document.
        std::cerr << argv[1] << ": " << (in.bad() ? "cannot be read" : "does not load") << '\n';
        return in.bad() ? 2 : 1;
    } catch (const invalid_operation& error) {
        std::cerr << argv[1] << ": " << error.what() << '\n';
        return 1;
    }

    std::ofstream file;
    if (argc == 3) {
        file.open(argv[2]);
        if (!file)
            return cannotOpen(argv[2]);
    }
    std::ostream& out = argc == 3 ? file : std::cout;

    // Storing throws nothing. Whatever goes wrong shows in the state of the stream.
    if (!config.exportXML(out)) {
        std::cerr << (argc == 3 ? argv[2] : "standard output") << ": cannot be written\n";
        return 2;
    }
    std::cerr << report.str();
    return 0;
}
