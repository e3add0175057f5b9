#include "field_visitor.h"

#include "word.h"

using namespace ipsecimpl;

namespace {

/// The document holds no number beyond 32 bits.
long long numberOf(unsigned long value)
{
    return static_cast<long long>(value);
}

void visit(const HostSelector& selector, FieldVisitor& visitor)
{
    visitor.begin(selector);
    visitor.word("family", word(selector.family));
    visitor.word("selectorType", word(selector.selectorType));
    if (selector.selectorType == HOST_SINGLE) {
        visitor.text("addr1", selector.addr1);
    } else if (selector.selectorType == HOST_RANGE) {
        visitor.text("addr1", selector.addr1);
        visitor.text("addr2", selector.addr2);
    } else if (selector.selectorType == HOST_SUBNET_LENGTH) {
        visitor.text("addr1", selector.addr1);
        visitor.number("length", selector.length);
    } else if (selector.selectorType == HOST_SUBNET_MASK) {
        visitor.text("addr1", selector.addr1);
        visitor.text("mask", selector.addr2);
    }
    visitor.end();
}

void visit(const ProtocolSelector& selector, FieldVisitor& visitor)
{
    visitor.begin(selector);
    visitor.number("protocol", selector.protocol);
    visitor.text("name", selector.name);
    if (selector.protocol != 0 && (selector.dstPort != 0 || selector.srcPort != 0)) {
        visitor.number("dstPort", selector.dstPort);
        visitor.number("srcPort", selector.srcPort);
    }
    visitor.word("direction", word(selector.direction));
    visitor.word("mirrored", selector.mirrored ? "MIRRORED" : "NOTMIRRORED");
    visitor.end();
}

template <class Group>
void visitGroup(const Group& group, FieldVisitor& visitor)
{
    visitor.text("name", group.name);
    visitor.number("builtinName", group.builtinName);
    visitor.text("descr", group.descr);
    visitor.number("builtinDescr", group.builtinDescr);
    visitor.beginList("selectors");
    for (const auto& selector : group.selectors)
        visit(selector, visitor);
    visitor.endList();
}

void visit(const IPsecProposal& proposal, FieldVisitor& visitor)
{
    visitor.begin("saProposal");
    visitor.word("protocol", word(proposal.protocol));
    visitor.number("encryption", numberOf(proposal.encryption));
    visitor.number("hash", numberOf(proposal.hash));
    visitor.end();
}

/// What both phases have.
template <class Phase>
void visitNegotiation(const Phase& phase, FieldVisitor& visitor)
{
    visitor.word("dhGroup", word(phase.dhGroup));
    visitor.number("keyLifetime", numberOf(phase.keyLifetime));
    visitor.word("keyLifetimeUnits", word(phase.keyLifetimeUnits));
}

void visit(const IKEPhase1& phase1, FieldVisitor& visitor)
{
    visitor.begin("ikePhase1");
    visitor.word("authType", word(phase1.authTypeGet()));
    if (phase1.authTypeGet() == IKE_AUTH_PSK) {
        visitor.secret("presharedKey", phase1.presharedKeyGet());
    } else {
        visitor.text("localCert", phase1.localCertGet());
        visitor.text("peerTrust", phase1.peerTrustGet());
    }
    visitor.begin("proposal");
    visitNegotiation(phase1.proposalGet(), visitor);
    visitor.beginList("transform");
    for (const IKEPhase1Transform& transform : phase1.proposalGet().transforms)
        visitor.word("transform", word(transform));
    visitor.endList();
    visitor.end();
    visitor.end();
}

void visit(const IKEPhase2& phase2, FieldVisitor& visitor)
{
    visitor.begin("ikePhase2");
    visitNegotiation(phase2, visitor);
    visitor.beginList("saProposal");
    for (const IPsecProposal& proposal : phase2.proposals)
        visit(proposal, visitor);
    visitor.endList();
    visitor.end();
}

void visit(const MKM& key, FieldVisitor& visitor)
{
    const IPsecProposal& proposal = key.saProposal;
    visitor.begin("manualKey");
    visit(proposal, visitor);
    if (proposal.protocol == IPSEC_ESP || proposal.protocol == IPSEC_ESP_AH) {
        visitor.number("inboundESPSPI", numberOf(key.inboundESPSPI));
        visitor.number("outboundESPSPI", numberOf(key.outboundESPSPI));
    }
    if (proposal.protocol == IPSEC_AH || proposal.protocol == IPSEC_ESP_AH) {
        visitor.number("inboundAHSPI", numberOf(key.inboundAHSPI));
        visitor.number("outboundAHSPI", numberOf(key.outboundAHSPI));
    }
    if (proposal.encryption > 1) {
        visitor.secret("inboundDecrKey", key.inboundDecrKey);
        visitor.secret("outboundEncrKey", key.outboundEncrKey);
        visitor.secret("outboundEncrIV", key.outboundEncrIV);
    }
    if (proposal.hash > 1) {
        visitor.secret("inboundAuthKey", key.inboundAuthKey);
        visitor.secret("outboundAuthKey", key.outboundAuthKey);
    }
    visitor.end();
}

} // namespace

void visitFields(const HostGroup& group, FieldVisitor& visitor)
{
    visitGroup(group, visitor);
}

void visitFields(const ProtocolGroup& group, FieldVisitor& visitor)
{
    visitGroup(group, visitor);
}

void visitFields(const IPsecAction& action, FieldVisitor& visitor)
{
    visitor.number("changeCount", action.changeCountGet());
    visitor.text("name", action.nameGet());
    visitor.number("builtinName", action.builtinNameGet());
    visitor.text("descr", action.descrGet());
    visitor.number("builtinDescr", action.builtinDescrGet());
    visitor.number("type", action.typeGet());
    visitor.number("state", action.stateGet());
    visitor.word("spdAction", word(action.spdActionGet()));
    if (action.spdActionGet() == SPD_TUNNEL)
        visitor.text("tunnelEndpoint", action.tunnelEndpointGet());
    if (action.spdActionGet() != SPD_TRANSPORT && action.spdActionGet() != SPD_TUNNEL)
        return;
    visitor.word("keyMgr", word(action.keyMgrGet()));
    if (action.keyMgrGet() == KEYMGR_MKM) {
        visit(action.manualKeyGet(), visitor);
    } else if (action.keyMgrGet() == KEYMGR_IKE) {
        visit(action.ikePhase1Get(), visitor);
        visit(action.ikePhase2Get(), visitor);
    }
}

void visitFields(const Policy& policy, FieldVisitor& visitor)
{
    visitor.reference("hostGroupID", Kind::HOST_GROUP, policy.hostGroupID);
    visitor.reference("protocolGroupID", Kind::PROTOCOL_GROUP, policy.protocolGroupID);
    visitor.reference("actionID", Kind::ACTION, policy.actionID);
}
