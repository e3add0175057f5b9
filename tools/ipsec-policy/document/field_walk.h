#ifndef IPSEC_POLICY_FIELD_WALK_H
#define IPSEC_POLICY_FIELD_WALK_H

/// \file
/// The fields of an object, one after the other: all that the document holds of it, by their paths below the object and
/// in the document's order. What an action's mode, its authentication type and its SA proposal decide stands here
/// alone.
///
/// `fields` is told of them: text(path, text), secret(path, text) for a key, pre-shared key or IV, number(path,
/// number), word(path, value of an enumeration), list(path, list) and reference(path, kind, ID), and by begin(tag) and
/// end() where an element of the document has its beginning and its end.

#include "model.h"
#include "objects.h"

#include <ipsecimpl/config.h>

namespace field_walk {

template <class Group, class Fields>
void walkGroup(const Group& group, Fields& fields)
{
    fields.text("name", group.name);
    fields.number("builtinName", group.builtinName);
    fields.text("descr", group.descr);
    fields.number("builtinDescr", group.builtinDescr);
    fields.list("selectors", group.selectors);
}

template <class Fields>
void walk(const ipsecimpl::MKM& key, Fields& fields)
{
    const ipsecimpl::IPsecProposal& proposal = key.saProposal;
    fields.begin("manualKey");
    fields.begin("saProposal");
    fields.word("manualKey/saProposal/protocol", proposal.protocol);
    fields.number("manualKey/saProposal/encryption", proposal.encryption);
    fields.number("manualKey/saProposal/hash", proposal.hash);
    fields.end();
    if (hasESP(proposal)) {
        fields.number("manualKey/inboundESPSPI", key.inboundESPSPI);
        fields.number("manualKey/outboundESPSPI", key.outboundESPSPI);
    }
    if (hasAH(proposal)) {
        fields.number("manualKey/inboundAHSPI", key.inboundAHSPI);
        fields.number("manualKey/outboundAHSPI", key.outboundAHSPI);
    }
    if (hasEncryption(proposal)) {
        fields.secret("manualKey/inboundDecrKey", key.inboundDecrKey);
        fields.secret("manualKey/outboundEncrKey", key.outboundEncrKey);
        fields.secret("manualKey/outboundEncrIV", key.outboundEncrIV);
    }
    if (hasHash(proposal)) {
        fields.secret("manualKey/inboundAuthKey", key.inboundAuthKey);
        fields.secret("manualKey/outboundAuthKey", key.outboundAuthKey);
    }
    fields.end();
}

template <class Fields>
void walk(const ipsecimpl::IKEPhase1& phase1, Fields& fields)
{
    fields.begin("ikePhase1");
    fields.word("ikePhase1/authType", phase1.authTypeGet());
    if (phase1.authTypeGet() == ipsecimpl::IKE_AUTH_PSK) {
        fields.secret("ikePhase1/presharedKey", phase1.presharedKeyGet());
    } else {
        fields.text("ikePhase1/localCert", phase1.localCertGet());
        fields.text("ikePhase1/peerTrust", phase1.peerTrustGet());
    }
    const ipsecimpl::IKEPhase1Proposal& proposal = phase1.proposalGet();
    fields.begin("proposal");
    fields.word("ikePhase1/proposal/dhGroup", proposal.dhGroup);
    fields.number("ikePhase1/proposal/keyLifetime", proposal.keyLifetime);
    fields.word("ikePhase1/proposal/keyLifetimeUnits", proposal.keyLifetimeUnits);
    fields.list("ikePhase1/proposal/transform", proposal.transforms);
    fields.end();
    fields.end();
}

template <class Fields>
void walk(const ipsecimpl::IKEPhase2& phase2, Fields& fields)
{
    fields.begin("ikePhase2");
    fields.word("ikePhase2/dhGroup", phase2.dhGroup);
    fields.number("ikePhase2/keyLifetime", phase2.keyLifetime);
    fields.word("ikePhase2/keyLifetimeUnits", phase2.keyLifetimeUnits);
    fields.list("ikePhase2/saProposal", phase2.proposals);
    fields.end();
}

} // namespace field_walk

template <class Fields>
void walkFields(const ipsecimpl::HostGroup& group, Fields& fields)
{
    field_walk::walkGroup(group, fields);
}

template <class Fields>
void walkFields(const ipsecimpl::ProtocolGroup& group, Fields& fields)
{
    field_walk::walkGroup(group, fields);
}

template <class Fields>
void walkFields(const ipsecimpl::IPsecAction& action, Fields& fields)
{
    fields.number("changeCount", action.changeCountGet());
    fields.text("name", action.nameGet());
    fields.number("builtinName", action.builtinNameGet());
    fields.text("descr", action.descrGet());
    fields.number("builtinDescr", action.builtinDescrGet());
    fields.number("type", action.typeGet());
    fields.number("state", action.stateGet());
    fields.word("spdAction", action.spdActionGet());
    if (action.spdActionGet() == ipsecimpl::SPD_TUNNEL)
        fields.text("tunnelEndpoint", action.tunnelEndpointGet());
    if (!needsKeys(action))
        return;
    fields.word("keyMgr", action.keyMgrGet());
    if (action.keyMgrGet() == ipsecimpl::KEYMGR_MKM) {
        field_walk::walk(action.manualKeyGet(), fields);
    } else if (action.keyMgrGet() == ipsecimpl::KEYMGR_IKE) {
        field_walk::walk(action.ikePhase1Get(), fields);
        field_walk::walk(action.ikePhase2Get(), fields);
    }
}

template <class Fields>
void walkFields(const ipsecimpl::Policy& policy, Fields& fields)
{
    fields.reference("hostGroupID", Kind::HOST_GROUP, policy.hostGroupID);
    fields.reference("protocolGroupID", Kind::PROTOCOL_GROUP, policy.protocolGroupID);
    fields.reference("actionID", Kind::ACTION, policy.actionID);
}

#endif
