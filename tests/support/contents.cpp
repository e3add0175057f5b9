#include "support/contents.h"

#include <cstddef>
#include <string>
#include <utility>

namespace ipsecimpl {
namespace {

/// Puts the lines together. The name of a field begins with those of the objects that it is in.
class Contents {
  public:
    std::string take() { return std::move(text_); }

    void add(const std::string& name, const std::string& text)
    {
        text_ += prefix_ + name + " = " + std::to_string(text.size()) + ":" + text + "\n";
    }

    template <int Num, auto Names>
    void add(const std::string& name, const Enum<Num, Names>& value)
    {
        add(name, value.valueGet());
    }

    void add(const std::string& name, int value) { addNumber(name, std::to_string(value)); }
    void add(const std::string& name, unsigned int value) { addNumber(name, std::to_string(value)); }
    void add(const std::string& name, unsigned long value) { addNumber(name, std::to_string(value)); }

    void add(const std::string& name, const HostSelector& selector);
    void add(const std::string& name, const ProtocolSelector& selector);
    void add(const std::string& name, const IPsecProposal& proposal);
    void add(const std::string& name, const IKEPhase1Proposal& proposal);
    void add(const std::string& name, IKEPhase1 phase);
    void add(const std::string& name, const IKEPhase2& phase);
    void add(const std::string& name, const MKM& key);
    void add(const std::string& name, const IPsecAction& action);
    void add(const std::string& name, const Policy& policy);
    void add(const std::string& name, const IPsecConfig& config);

    template <auto Tag, class Selector>
    void add(const std::string& name, const SelectorGroup<Tag, Selector>& group)
    {
        const Within within(*this, name);
        add("name", group.name);
        add("builtinName", group.builtinName);
        add("descr", group.descr);
        add("builtinDescr", group.builtinDescr);
        addEach("selectors", group.selectors);
    }

    template <class T, auto pluralTag, auto singularTag>
    void add(const std::string& name, const IndexedCollection<T, pluralTag, singularTag>& collection)
    {
        const Within within(*this, name);
        add("nextID", collection.nextIDGet());
        for (const auto& [id, element] : collection)
            add(std::to_string(id), element);
    }

  private:
    /// The fields of the object `name`, as long as this lives.
    class Within {
      public:
        Within(Contents& contents, const std::string& name)
            : prefix_(contents.prefix_)
            , size_(prefix_.size())
        {
            if (!name.empty())
                prefix_ += name + ".";
        }

        Within(const Within&)            = delete;
        Within& operator=(const Within&) = delete;
        ~Within() { prefix_.resize(size_); }

      private:
        std::string& prefix_;
        std::size_t  size_;
    };

    void addNumber(const std::string& name, const std::string& digits)
    {
        text_ += prefix_ + name + " = " + digits + "\n";
    }

    /// What an action tells, unless its mode forbids that.
    template <class Get>
    void addIfShown(const std::string& name, Get get)
    {
        try {
            add(name, get());
        } catch (const invalid_operation&) {
            text_ += prefix_ + name + " is hidden\n";
        }
    }

    template <class Elements>
    void addEach(const std::string& name, const Elements& elements)
    {
        std::size_t i = 0;
        for (const auto& element : elements)
            add(name + "[" + std::to_string(i++) + "]", element);
    }

    std::string prefix_;
    std::string text_;
};

void Contents::add(const std::string& name, const HostSelector& selector)
{
    const Within within(*this, name);
    add("family", selector.family);
    add("selectorType", selector.selectorType);
    add("addr1", selector.addr1);
    add("addr2", selector.addr2);
    add("length", selector.length);
}

void Contents::add(const std::string& name, const ProtocolSelector& selector)
{
    const Within within(*this, name);
    add("name", selector.name);
    add("protocol", static_cast<unsigned int>(selector.protocol));
    add("dstPort", static_cast<unsigned int>(selector.dstPort));
    add("srcPort", static_cast<unsigned int>(selector.srcPort));
    add("direction", selector.direction);
    add("mirrored", selector.mirrored ? 1 : 0);
}

void Contents::add(const std::string& name, const IPsecProposal& proposal)
{
    const Within within(*this, name);
    add("protocol", proposal.protocol);
    add("encryption", proposal.encryption);
    add("hash", proposal.hash);
}

void Contents::add(const std::string& name, const IKEPhase1Proposal& proposal)
{
    const Within within(*this, name);
    add("dhGroup", proposal.dhGroup);
    add("keyLifetime", proposal.keyLifetime);
    add("keyLifetimeUnits", proposal.keyLifetimeUnits);
    addEach("transforms", proposal.transforms);
}

// Each text shows under its own authentication type alone, but is there under both: hence the copy.
void Contents::add(const std::string& name, IKEPhase1 phase)
{
    const Within within(*this, name);
    add("authType", phase.authTypeGet());
    phase.authTypeSet(IKE_AUTH_PSK);
    add("presharedKey", phase.presharedKeyGet());
    phase.authTypeSet(IKE_AUTH_RSA);
    add("localCert", phase.localCertGet());
    add("peerTrust", phase.peerTrustGet());
    add("proposal", phase.proposalGet());
}

void Contents::add(const std::string& name, const IKEPhase2& phase)
{
    const Within within(*this, name);
    add("dhGroup", phase.dhGroup);
    add("keyLifetime", phase.keyLifetime);
    add("keyLifetimeUnits", phase.keyLifetimeUnits);
    addEach("proposals", phase.proposals);
}

void Contents::add(const std::string& name, const MKM& key)
{
    const Within within(*this, name);
    add("saProposal", key.saProposal);
    add("inboundESPSPI", key.inboundESPSPI);
    add("inboundAHSPI", key.inboundAHSPI);
    add("inboundDecrKey", key.inboundDecrKey);
    add("inboundAuthKey", key.inboundAuthKey);
    add("outboundESPSPI", key.outboundESPSPI);
    add("outboundAHSPI", key.outboundAHSPI);
    add("outboundEncrKey", key.outboundEncrKey);
    add("outboundAuthKey", key.outboundAuthKey);
    add("outboundEncrIV", key.outboundEncrIV);
}

// What the mode hides shows in a copy that has another mode. A built-in action refuses that.
void Contents::add(const std::string& name, const IPsecAction& action)
{
    const Within within(*this, name);
    add("spdAction", action.spdActionGet());
    add("changeCount", action.changeCountGet());
    add("name", action.nameGet());
    add("builtinName", action.builtinNameGet());
    add("descr", action.descrGet());
    add("builtinDescr", action.builtinDescrGet());
    add("type", action.typeGet());
    add("state", action.stateGet());

    IPsecAction copy     = action;
    const auto  switchTo = [&](const IPsecKeyMgr& keyMgr) {
        if (!copy.isBuiltIn())
            copy.keyMgrSet(keyMgr);
    };
    if (!copy.isBuiltIn())
        copy.spdActionSet(SPD_TUNNEL);
    addIfShown(
        "keyMgr", [&]() -> auto& { return copy.keyMgrGet(); });
    addIfShown(
        "tunnelEndpoint", [&]() -> auto& { return copy.tunnelEndpointGet(); });
    switchTo(KEYMGR_MKM);
    addIfShown(
        "manualKey", [&]() -> auto& { return copy.manualKeyGet(); });
    switchTo(KEYMGR_IKE);
    addIfShown(
        "ikePhase1", [&]() -> auto& { return copy.ikePhase1Get(); });
    addIfShown(
        "ikePhase2", [&]() -> auto& { return copy.ikePhase2Get(); });
}

void Contents::add(const std::string& name, const Policy& policy)
{
    const Within within(*this, name);
    add("hostGroupID", policy.hostGroupID);
    add("protocolGroupID", policy.protocolGroupID);
    add("actionID", policy.actionID);
}

void Contents::add(const std::string& name, const IPsecConfig& config)
{
    const Within within(*this, name);
    add("hostGroups", config.hostGroups);
    add("protocolGroups", config.protocolGroups);
    add("actions", config.actions);
    add("policies", config.policies);
}

} // namespace

template <class T>
std::string contentsOf(const T& object)
{
    Contents contents;
    contents.add("", object);
    return contents.take();
}

template std::string contentsOf(const HostSelector&);
template std::string contentsOf(const ProtocolSelector&);
template std::string contentsOf(const HostGroup&);
template std::string contentsOf(const ProtocolGroup&);
template std::string contentsOf(const IPsecProposal&);
template std::string contentsOf(const IKEPhase1Proposal&);
template std::string contentsOf(const IKEPhase1&);
template std::string contentsOf(const IKEPhase2&);
template std::string contentsOf(const MKM&);
template std::string contentsOf(const IPsecAction&);
template std::string contentsOf(const Policy&);
template std::string contentsOf(const HostGroups&);
template std::string contentsOf(const ProtocolGroups&);
template std::string contentsOf(const Actions&);
template std::string contentsOf(const Policies&);
template std::string contentsOf(const IPsecConfig&);

} // namespace ipsecimpl
