#include "describe.h"

#include "enum_text.h"

#include <cstddef>
#include <string>
#include <string_view>

using namespace ipsecimpl;

namespace {

std::string_view orEmpty(const std::string& text)
{
    return text.empty() ? std::string_view(EMPTY) : text;
}

void describeKey(const char* name, const std::string& key, bool showKeys, Lines& lines)
{
    lines << name;
    describeKey(key, showKeys, lines);
    lines.end();
}

void describe(const IPsecProposal& proposal, Lines& lines)
{
    lines << wordOf(proposal.protocol) << ", encryption " << proposal.encryption << ", hash " << proposal.hash;
    lines.end();
}

template <std::size_t N>
void describeSPIs(const char (&protocol)[N], unsigned long inbound, unsigned long outbound, Lines& lines)
{
    lines << "  " << protocol << " SPI in " << inbound << " (0x";
    lines.hex(inbound) << "), out " << outbound << " (0x";
    lines.hex(outbound) << ')';
    lines.end();
}

void describePhase(const char* phase, const DHGroup& group, unsigned long lifetime, const KeyLifetimeUnits& units,
                   Lines& lines)
{
    lines << phase << ": DH group " << wordOf(group) << ", " << lifetime << ' ' << wordOf(units);
    lines.end();
}

void describe(const IKEPhase1& phase1, bool showKeys, Lines& lines)
{
    const IKEPhase1Proposal& proposal = phase1.proposalGet();
    describePhase("phase 1", proposal.dhGroup, proposal.keyLifetime, proposal.keyLifetimeUnits, lines);
    for (const IKEPhase1Transform& transform : proposal.transforms) {
        lines << "  " << wordOf(transform);
        lines.end();
    }
    if (phase1.authTypeGet() == IKE_AUTH_PSK) {
        describeKey("  pre-shared key ", phase1.presharedKeyGet(), showKeys, lines);
        return;
    }
    lines << "  certificate: " << orEmpty(phase1.localCertGet());
    lines.end();
    lines << "  peer trusted by: " << orEmpty(phase1.peerTrustGet());
    lines.end();
}

void describe(const IKEPhase2& phase2, Lines& lines)
{
    describePhase("phase 2", phase2.dhGroup, phase2.keyLifetime, phase2.keyLifetimeUnits, lines);
    for (const IPsecProposal& proposal : phase2.proposals) {
        lines << "  ";
        describe(proposal, lines);
    }
}

/// What the document holds of it, by the rules of MKM.
void describe(const MKM& key, bool showKeys, Lines& lines)
{
    const IPsecProposal& proposal = key.saProposal;
    lines << "manual key: ";
    describe(proposal, lines);
    if (proposal.protocol == IPSEC_ESP || proposal.protocol == IPSEC_ESP_AH)
        describeSPIs("ESP", key.inboundESPSPI, key.outboundESPSPI, lines);
    if (proposal.protocol == IPSEC_AH || proposal.protocol == IPSEC_ESP_AH)
        describeSPIs("AH", key.inboundAHSPI, key.outboundAHSPI, lines);
    if (proposal.encryption > 1) {
        describeKey("  encryption key in ", key.inboundDecrKey, showKeys, lines);
        describeKey("  encryption key out ", key.outboundEncrKey, showKeys, lines);
        describeKey("  encryption IV out ", key.outboundEncrIV, showKeys, lines);
    }
    if (proposal.hash > 1) {
        describeKey("  authentication key in ", key.inboundAuthKey, showKeys, lines);
        describeKey("  authentication key out ", key.outboundAuthKey, showKeys, lines);
    }
}

} // namespace

void describeMode(const IPsecAction& action, Lines& lines)
{
    lines << wordOf(action.spdActionGet());
    if (action.spdActionGet() == SPD_TUNNEL)
        lines << " to " << orEmpty(action.tunnelEndpointGet());
}

void describe(const IPsecAction& action, bool showKeys, Lines& lines)
{
    describeMode(action, lines);
    lines.end();
    if (!action.descrGet().empty()) {
        lines << '"' << action.descrGet() << '"';
        lines.end();
    }
    const SPDAction& spdAction = action.spdActionGet();
    if (spdAction != SPD_TUNNEL && spdAction != SPD_TRANSPORT)
        return;

    if (action.keyMgrGet() == KEYMGR_MKM) {
        describe(action.manualKeyGet(), showKeys, lines);
    } else if (action.keyMgrGet() == KEYMGR_IKE) {
        describe(action.ikePhase1Get(), showKeys, lines);
        describe(action.ikePhase2Get(), lines);
    } else {
        lines << "no key manager";
        lines.end();
    }
}

void describeKey(const std::string& key, bool showKeys, Lines& lines)
{
    if (key.empty())
        lines << EMPTY;
    else if (showKeys)
        lines << '"' << key << '"';
    else
        lines << "(hidden)";
}
