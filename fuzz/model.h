#ifndef IPSECIMPL_FUZZ_MODEL_H
#define IPSECIMPL_FUZZ_MODEL_H

/// \file
/// What the rules of a configuration are, told once more in the simplest way: what an object holds, what it writes, and
/// what each change does or why it is refused. Numbers and texts only; enumerations are their words.

#include <ipsecimpl/config.h>

#include <map>
#include <string>

namespace ipsecimpl::model {

/// Why a step is refused; empty if it is not.
using Refusal = std::string;

template <int Num, auto Names>
std::string word(const Enum<Num, Names>& value)
{
    return (*Names)[value.valueGet()];
}

struct Group {
    std::string tag;
    std::string name;
    int         builtinName = 0;
    std::string descr;
    int         builtinDescr = 0;
    std::string selectors; ///< as written

    std::string written() const;
};

struct Policy {
    unsigned int hostGroupID     = 0;
    unsigned int protocolGroupID = 0;
    unsigned int actionID        = 0;

    std::string written() const;
};

struct Phase1 {
    std::string authType = "PSK";
    std::string localCert;
    std::string peerTrust;
    std::string presharedKey;
    std::string proposal; ///< as written

    /// Why the credential `name` cannot be read and changed.
    Refusal refusal(const std::string& name) const;

    std::string written() const;
};

struct Action {
    Action(); ///< as a new one

    std::string spdAction   = "NONE";
    int         changeCount = 0;
    std::string name;
    int         builtinName = 0;
    std::string descr;
    int         builtinDescr = 0;
    int         type         = 0;
    int         state        = 0;
    std::string tunnelEndpoint;
    std::string keyMgr = "NONE";
    std::string manualKey; ///< as written
    Phase1      phase1;
    std::string phase2; ///< as written

    bool isBuiltIn() const { return builtinName > 0 || builtinDescr > 0; }
    bool isProtected() const { return spdAction == "TRANSPORT" || spdAction == "TUNNEL"; }

    Refusal keyMgrGet() const;
    Refusal tunnelEndpointGet() const;
    Refusal keyingGet(const std::string& what, const std::string& keyManager) const;

    Refusal spdActionSet(const std::string& value);
    Refusal keyMgrSet(const std::string& value);
    Refusal nameSet(const std::string& value);
    Refusal descrSet(const std::string& value);
    Refusal tunnelEndpointSet(const std::string& value);
    Refusal manualKeySet(const std::string& value);
    Refusal phase1Set(const Phase1& value);
    Refusal phase2Set(const std::string& value);

    /// What is assigned, or replaces another: not the two free numbers.
    void assign(const Action& other);

    std::string written() const;

  private:
    Refusal notBuiltIn(const std::string& change) const;
    Refusal change(std::string& field, const std::string& value);
    void    count();
};

template <class Entry>
struct Collection {
    std::string               plural;
    std::string               singular;
    std::map<unsigned, Entry> entries;
    unsigned int              nextID = 1;

    std::string written() const;
};

struct Config {
    Collection<Group>  hostGroups{"hostGroups", "hostGroup", {}};
    Collection<Group>  protocolGroups{"protocolGroups", "protocolGroup", {}};
    Collection<Action> actions{"actions", "action", {}};
    Collection<Policy> policies{"policies", "policy", {}};

    std::string written() const;
};

Group  entryOf(const HostGroup& group);
Group  entryOf(const ProtocolGroup& group);
Policy entryOf(const ipsecimpl::Policy& policy);

/// What an action holds whose fields that are not in force are those of a new one.
Action entryOf(const IPsecAction& action);

/// What a configuration that was loaded just now holds: what its document does not show is as in a new action.
Config loaded(const IPsecConfig& config);

} // namespace ipsecimpl::model

#endif
