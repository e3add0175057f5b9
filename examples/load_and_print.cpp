// Loads a configuration and prints its policies, names instead of IDs:
//
//     load_and_print CONFIG
//
// Exit status: 0, 1 if CONFIG does not load, 2 for wrong usage or a file that cannot be read or written.

#include <ipsecimpl/ipsecimpl.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

using namespace ipsecimpl;

namespace {

// A policy names what it ties together by ID, and nothing checks that there is such a thing.
std::string missing(unsigned int id)
{
    return "(missing " + std::to_string(id) + ")";
}

template <class Groups>
std::string nameOf(const Groups& groups, unsigned int id)
{
    const auto* group = groups.find(id); // null if there is none; at() would throw
    return group != nullptr ? group->name : missing(id);
}

void printAction(const Actions& actions, unsigned int id, std::ostream& out)
{
    const IPsecAction* action = actions.find(id);
    if (action == nullptr) {
        out << missing(id);
        return;
    }
    out << action->nameGet() << " (" << action->spdActionGet(); // an enumeration's value is written as its word
    if (action->spdActionGet() == SPD_TUNNEL)
        out << " to " << action->tunnelEndpointGet(); // of any other action this would throw invalid_operation
    out << ')';
}

void print(const IPsecConfig& config, std::ostream& out)
{
    for (const auto& [id, policy] : config.policies) { // in ascending order of the IDs
        out << id << ": " << nameOf(config.hostGroups, policy.hostGroupID) << ", "
            << nameOf(config.protocolGroups, policy.protocolGroupID) << ": ";
        printAction(config.actions, policy.actionID, out);
        out << '\n';
    }
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "usage: load_and_print CONFIG\n";
        return 2;
    }
    std::ifstream in(argv[1]);
    if (!in) {
        std::cerr << argv[1] << ": " << std::strerror(errno) << '\n';
        return 2;
    }
    try {
        XMLParser parser(in);
        print(IPsecConfig::importXML(parser), std::cout);
    } catch (const ParseError&) {
        std::cerr << argv[1] << ": does not load\n"; // report_error.cpp says more
        return 1;
    }
    return std::cout.flush() ? 0 : 2;
}
