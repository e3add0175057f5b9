#ifndef IPSECIMPL_BENCH_PEERS_TREE_READER_H
#define IPSECIMPL_BENCH_PEERS_TREE_READER_H

#include "peer.h"

#include <ipsecimpl/config.h>

#include <cstdlib>
#include <cstring>
#include <list>
#include <stdexcept>
#include <string>

namespace bench {

// Builds the configuration from a parser's tree. `Node` is a thin cover over the parser's own element:
//
//     explicit operator bool() const;     is there an element?
//     const char* name() const;
//     const char* text() const;           empty if there is none
//     Node        firstChild() const;     the first child element
//     Node        next() const;           the next sibling element

/// The children of an element, each once, in their order: nobody searches from the first one again.
template <class Node>
class Children {
  public:
    explicit Children(Node parent)
        : next_(parent.firstChild())
    {
    }

    explicit operator bool() const { return static_cast<bool>(next_); }

    /// Throws std::runtime_error if the next child is called otherwise.
    Node take(const char* name)
    {
        if (!next_ || std::strcmp(next_.name(), name) != 0)
            throw std::runtime_error(std::string("expected <") + name + ">");
        const Node child = next_;
        next_            = next_.next();
        return child;
    }

    bool nextIs(const char* name) const { return next_ && std::strcmp(next_.name(), name) == 0; }

    const char* text(const char* name) { return take(name).text(); }

    int number(const char* name) { return static_cast<int>(std::strtol(text(name), nullptr, 0)); }

    unsigned int unsignedNumber(const char* name)
    {
        return static_cast<unsigned int>(std::strtoul(text(name), nullptr, 0));
    }

    unsigned short shortNumber(const char* name) { return static_cast<unsigned short>(unsignedNumber(name)); }

    /// Throws std::invalid_argument if it is none of the enumeration's words.
    template <class E>
    E word(const char* name)
    {
        return E(E::to_int(text(name)));
    }

  private:
    Node next_;
};

template <class Node>
class TreeReader {
  public:
    static ipsecimpl::IPsecConfig config(Node root)
    {
        Children<Node>         children(root);
        ipsecimpl::IPsecConfig config;
        entries(children.take("hostGroups"), "hostGroup", config.hostGroups, hostGroup);
        entries(children.take("protocolGroups"), "protocolGroup", config.protocolGroups, protocolGroup);
        entries(children.take("actions"), "action", config.actions, action);
        entries(children.take("policies"), "policy", config.policies, policy);
        return config;
    }

  private:
    using HostSelector = ipsecimpl::HostSelector;

    template <class Collection, class ReadElement>
    static void entries(Node parent, const std::string& tag, Collection& collection, ReadElement readElement)
    {
        const std::string entryTag = tag + "Entry";
        Children<Node>    children(parent);
        children.take(("next" + tag).c_str());
        while (children) {
            Children<Node>     entry(children.take(entryTag.c_str()));
            const unsigned int id = entry.unsignedNumber("id");
            addEntry(collection, id, readElement(entry.take(tag.c_str())));
        }
    }

    template <class Group, class ReadSelector>
    static Group group(Node node, const char* selectorTag, ReadSelector readSelector)
    {
        Children<Node> children(node);
        Group          group;
        group.name         = children.text("name");
        group.builtinName  = children.number("builtinName");
        group.descr        = children.text("descr");
        group.builtinDescr = children.number("builtinDescr");

        Children<Node> selectors(children.take("selectors"));
        while (selectors)
            group.selectors.insert(group.selectors.end(), readSelector(selectors.take(selectorTag)));
        return group;
    }

    static ipsecimpl::HostGroup hostGroup(Node node)
    {
        return group<ipsecimpl::HostGroup>(node, "hostSelector", hostSelector);
    }

    static ipsecimpl::ProtocolGroup protocolGroup(Node node)
    {
        return group<ipsecimpl::ProtocolGroup>(node, "protocolSelector", protocolSelector);
    }

    static HostSelector hostSelector(Node node)
    {
        Children<Node> children(node);
        const auto     family = children.template word<ipsecimpl::AddressFamily>("family");
        const auto     type   = children.template word<ipsecimpl::AddressType>("selectorType");
        if (type == ipsecimpl::HOST_SINGLE)
            return HostSelector(family, type, children.text("addr1"), "");
        if (type == ipsecimpl::HOST_RANGE)
            return HostSelector{family, type, children.text("addr1"), children.text("addr2")};
        if (type == ipsecimpl::HOST_SUBNET_LENGTH)
            return HostSelector{family, type, children.text("addr1"), children.number("length")};
        if (type == ipsecimpl::HOST_SUBNET_MASK)
            return HostSelector{family, type, children.text("addr1"), children.text("mask")};
        return HostSelector(family, type, "", "");
    }

    static ipsecimpl::ProtocolSelector protocolSelector(Node node)
    {
        Children<Node> children(node);
        const auto     protocol = children.shortNumber("protocol");
        const char*    name     = children.text("name");
        const bool     ports    = children.nextIs("dstPort");
        const auto     dstPort  = ports ? children.shortNumber("dstPort") : static_cast<unsigned short>(0);
        const auto     srcPort  = ports ? children.shortNumber("srcPort") : static_cast<unsigned short>(0);
        const auto     towards  = children.template word<ipsecimpl::Direction>("direction");
        const bool     mirrored = std::strcmp(children.text("mirrored"), "MIRRORED") == 0;
        return ipsecimpl::ProtocolSelector(name, protocol, dstPort, srcPort, towards, mirrored);
    }

    static ipsecimpl::Policy policy(Node node)
    {
        Children<Node> children(node);
        return ipsecimpl::Policy{children.unsignedNumber("hostGroupID"), children.unsignedNumber("protocolGroupID"),
                                 children.unsignedNumber("actionID")};
    }

    static ipsecimpl::IPsecAction action(Node node)
    {
        using namespace ipsecimpl;

        Children<Node> children(node);
        children.take("changeCount"); // the setters arrive at it
        const char* const name         = children.text("name");
        const int         builtinName  = children.number("builtinName");
        const char* const descr        = children.text("descr");
        const int         builtinDescr = children.number("builtinDescr");
        const int         type         = children.number("type");
        const int         state        = children.number("state");
        const auto        spdAction    = children.template word<SPDAction>("spdAction");
        const char* const endpoint     = spdAction == SPD_TUNNEL ? children.text("tunnelEndpoint") : "";
        const bool        protects     = spdAction == SPD_TUNNEL || spdAction == SPD_TRANSPORT;
        const auto        keyMgr       = protects ? children.template word<IPsecKeyMgr>("keyMgr") : KEYMGR_NONE;

        IPsecAction action(spdAction, name, builtinName, descr, builtinDescr, keyMgr);
        action.typeSet(type);
        action.stateSet(state);
        if (spdAction == SPD_TUNNEL)
            action.tunnelEndpointSet(endpoint);
        if (keyMgr == KEYMGR_MKM) {
            action.manualKeySet(manualKey(children.take("manualKey")));
        } else if (keyMgr == KEYMGR_IKE) {
            action.ikePhase1Set(phase1(children.take("ikePhase1")));
            action.ikePhase2Set(phase2(children.take("ikePhase2")));
        }
        return action;
    }

    static ipsecimpl::IPsecProposal saProposal(Node node)
    {
        Children<Node> children(node);
        return ipsecimpl::IPsecProposal{children.template word<ipsecimpl::IPsecProtocol>("protocol"),
                                        children.unsignedNumber("encryption"), children.unsignedNumber("hash")};
    }

    static ipsecimpl::MKM manualKey(Node node)
    {
        using namespace ipsecimpl;

        Children<Node> children(node);
        MKM            key;
        key.saProposal      = saProposal(children.take("saProposal"));
        const auto protocol = key.saProposal.protocol;
        if (protocol == IPSEC_ESP || protocol == IPSEC_ESP_AH) {
            key.inboundESPSPI  = children.unsignedNumber("inboundESPSPI");
            key.outboundESPSPI = children.unsignedNumber("outboundESPSPI");
        }
        if (protocol == IPSEC_AH || protocol == IPSEC_ESP_AH) {
            key.inboundAHSPI  = children.unsignedNumber("inboundAHSPI");
            key.outboundAHSPI = children.unsignedNumber("outboundAHSPI");
        }
        if (key.saProposal.encryption > 1) {
            key.inboundDecrKey  = children.text("inboundDecrKey");
            key.outboundEncrKey = children.text("outboundEncrKey");
            key.outboundEncrIV  = children.text("outboundEncrIV");
        }
        if (key.saProposal.hash > 1) {
            key.inboundAuthKey  = children.text("inboundAuthKey");
            key.outboundAuthKey = children.text("outboundAuthKey");
        }
        return key;
    }

    static ipsecimpl::IKEPhase1 phase1(Node node)
    {
        using namespace ipsecimpl;

        Children<Node>    children(node);
        const auto        authType = children.template word<IKEAuthType>("authType");
        const bool        shared   = authType == IKE_AUTH_PSK;
        const char* const key      = shared ? children.text("presharedKey") : "";
        const char* const cert     = shared ? "" : children.text("localCert");
        const char* const trust    = shared ? "" : children.text("peerTrust");
        return IKEPhase1(authType, cert, trust, key, phase1Proposal(children.take("proposal")));
    }

    static ipsecimpl::IKEPhase1Proposal phase1Proposal(Node node)
    {
        using namespace ipsecimpl;

        Children<Node>    children(node);
        IKEPhase1Proposal proposal{{},
                                   children.template word<DHGroup>("dhGroup"),
                                   children.unsignedNumber("keyLifetime"),
                                   children.template word<KeyLifetimeUnits>("keyLifetimeUnits")};
        while (children)
            proposal.transforms.push_back(children.template word<IKEPhase1Transform>("transform"));
        return proposal;
    }

    static ipsecimpl::IKEPhase2 phase2(Node node)
    {
        using namespace ipsecimpl;

        Children<Node> children(node);
        IKEPhase2      phase2{{},
                         children.template word<DHGroup>("dhGroup"),
                         children.unsignedNumber("keyLifetime"),
                         children.template word<KeyLifetimeUnits>("keyLifetimeUnits")};
        while (children)
            phase2.proposals.push_back(saProposal(children.take("saProposal")));
        return phase2;
    }
};

} // namespace bench

#endif
