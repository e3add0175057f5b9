#include "edit_keying.h"

#include "plain_number.h"

#include <list>
#include <string>

using namespace ipsecimpl;

namespace {

IPsecProposal readProposal(const GivenValue& value, const std::string& text)
{
    const std::size_t first  = text.find(':');
    const std::size_t second = first == std::string::npos ? first : text.find(':', first + 1);
    const auto        encryption =
        second == std::string::npos ? std::nullopt : plainNumber(text.substr(first + 1, second - first - 1));
    const auto hash = second == std::string::npos ? std::nullopt : plainNumber(text.substr(second + 1));
    const auto is32 = [](const auto& number) { return number && *number >= 0 && *number <= 0xFFFFFFFF; };
    if (!is32(encryption) || !is32(hash))
        throw commandFailure(value.shown(text) +
                             " is no PROTOCOL:ENCRYPTION:HASH, such as ESP:12:5 (numbers are 0 to 4294967295)");
    const std::string protocol = text.substr(0, first);
    return IPsecProposal(readEnum<IPsecProtocol>(protocol, "protocol", value.shown(protocol)),
                         static_cast<unsigned long>(*encryption), static_cast<unsigned long>(*hash));
}

std::list<IPsecProposal> proposals(const GivenValue& value)
{
    std::string              text;
    std::list<IPsecProposal> result;
    for (const std::string_view member : value.members(text))
        result.push_back(readProposal(value, unquoted(member)));
    return result;
}

std::list<IKEPhase1Transform> transforms(const GivenValue& value)
{
    std::string                   text;
    std::list<IKEPhase1Transform> result;
    for (const std::string_view member : value.members(text))
        result.push_back(value.word<IKEPhase1Transform>(unquoted(member)));
    return result;
}

// clang-format off

const FieldSetter<MKM> MANUAL_KEY[] = {
    {"manualKey/saProposal/protocol",
     [](MKM& key, const GivenValue& value) { key.saProposal.protocol = value.word<IPsecProtocol>(); }},
    {"manualKey/saProposal/encryption",
     [](MKM& key, const GivenValue& value) { key.saProposal.encryption = value.number(); }},
    {"manualKey/saProposal/hash",
     [](MKM& key, const GivenValue& value) { key.saProposal.hash = value.number(); }},
};

const FieldSetter<MKM> ESP_PART[] = {
    {"manualKey/inboundESPSPI",   [](MKM& key, const GivenValue& value) { key.inboundESPSPI  = value.spi(); }},
    {"manualKey/outboundESPSPI",  [](MKM& key, const GivenValue& value) { key.outboundESPSPI = value.spi(); }},
};

const FieldSetter<MKM> AH_PART[] = {
    {"manualKey/inboundAHSPI",    [](MKM& key, const GivenValue& value) { key.inboundAHSPI  = value.spi(); }},
    {"manualKey/outboundAHSPI",   [](MKM& key, const GivenValue& value) { key.outboundAHSPI = value.spi(); }},
};

const FieldSetter<MKM> ENCRYPTION_KEYS[] = {
    {"manualKey/inboundDecrKey",  [](MKM& key, const GivenValue& value) { key.inboundDecrKey  = value.secret(); }, true},
    {"manualKey/outboundEncrKey", [](MKM& key, const GivenValue& value) { key.outboundEncrKey = value.secret(); }, true},
    {"manualKey/outboundEncrIV",  [](MKM& key, const GivenValue& value) { key.outboundEncrIV  = value.secret(); }, true},
};

const FieldSetter<MKM> AUTHENTICATION_KEYS[] = {
    {"manualKey/inboundAuthKey",  [](MKM& key, const GivenValue& value) { key.inboundAuthKey  = value.secret(); }, true},
    {"manualKey/outboundAuthKey", [](MKM& key, const GivenValue& value) { key.outboundAuthKey = value.secret(); }, true},
};

const FieldSetter<IKEPhase1> PHASE_1[] = {
    {"ikePhase1/authType",
     [](IKEPhase1& phase1, const GivenValue& value) { phase1.authTypeSet(value.word<IKEAuthType>()); }},
    {"ikePhase1/presharedKey",
     [](IKEPhase1& phase1, const GivenValue& value) {
         phase1.presharedKeyGet(); // nobody is to be asked for a key that is then refused
         phase1.presharedKeySet(value.secret());
     }, true},
    {"ikePhase1/localCert",
     [](IKEPhase1& phase1, const GivenValue& value) { phase1.localCertSet(value.text()); }},
    {"ikePhase1/peerTrust",
     [](IKEPhase1& phase1, const GivenValue& value) { phase1.peerTrustSet(value.text()); }},
};

const FieldSetter<IKEPhase1Proposal> PHASE_1_PROPOSAL[] = {
    {"ikePhase1/proposal/dhGroup",
     [](IKEPhase1Proposal& proposal, const GivenValue& value) { proposal.dhGroup = value.word<DHGroup>(); }},
    {"ikePhase1/proposal/keyLifetime",
     [](IKEPhase1Proposal& proposal, const GivenValue& value) { proposal.keyLifetime = value.number(); }},
    {"ikePhase1/proposal/keyLifetimeUnits",
     [](IKEPhase1Proposal& proposal, const GivenValue& value) {
         proposal.keyLifetimeUnits = value.word<KeyLifetimeUnits>();
     }},
    {"ikePhase1/proposal/transform",
     [](IKEPhase1Proposal& proposal, const GivenValue& value) { proposal.transforms = transforms(value); }},
};

const FieldSetter<IKEPhase2> PHASE_2[] = {
    {"ikePhase2/dhGroup",
     [](IKEPhase2& phase2, const GivenValue& value) { phase2.dhGroup = value.word<DHGroup>(); }},
    {"ikePhase2/keyLifetime",
     [](IKEPhase2& phase2, const GivenValue& value) { phase2.keyLifetime = value.number(); }},
    {"ikePhase2/keyLifetimeUnits",
     [](IKEPhase2& phase2, const GivenValue& value) { phase2.keyLifetimeUnits = value.word<KeyLifetimeUnits>(); }},
    {"ikePhase2/saProposal",
     [](IKEPhase2& phase2, const GivenValue& value) { phase2.proposals = proposals(value); }},
};

// clang-format on

/// Sets a part of the manual key that the document holds only if its proposal asks for it.
template <class Setters>
void applyIf(bool isHeld, const char* condition, const Setters& setters, const GivenFields& fields, MKM& key)
{
    for (const auto& setter : setters)
        if (!isHeld && fields.find(setter.path) != nullptr)
            throw commandFailure(std::string(setter.path) + ": a document holds it only " + condition);
    fields.apply(setters, key);
}

bool concernsManualKey(const GivenFields& fields)
{
    return fields.hasAny(MANUAL_KEY) || fields.hasAny(ESP_PART) || fields.hasAny(AH_PART) ||
           fields.hasAny(ENCRYPTION_KEYS) || fields.hasAny(AUTHENTICATION_KEYS);
}

bool concernsPhase1(const GivenFields& fields)
{
    return fields.hasAny(PHASE_1) || fields.hasAny(PHASE_1_PROPOSAL);
}

void setManualKey(IPsecAction& action, const GivenFields& fields)
{
    MKM key = action.manualKeyGet();
    fields.apply(MANUAL_KEY, key);
    const IPsecProposal& proposal = key.saProposal;
    const bool           both     = proposal.protocol == IPSEC_ESP_AH;
    applyIf(both || proposal.protocol == IPSEC_ESP, "for ESP and ESP+AH", ESP_PART, fields, key);
    applyIf(both || proposal.protocol == IPSEC_AH, "for AH and ESP+AH", AH_PART, fields, key);
    applyIf(proposal.encryption > 1, "where the encryption is above 1", ENCRYPTION_KEYS, fields, key);
    applyIf(proposal.hash > 1, "where the hash is above 1", AUTHENTICATION_KEYS, fields, key);
    action.manualKeySet(key);
}

void setPhase1(IPsecAction& action, const GivenFields& fields)
{
    IKEPhase1 phase1 = action.ikePhase1Get();
    fields.apply(PHASE_1, phase1);
    IKEPhase1Proposal proposal = phase1.proposalGet();
    fields.apply(PHASE_1_PROPOSAL, proposal);
    phase1.proposalSet(proposal);
    action.ikePhase1Set(phase1);
}

void setPhase2(IPsecAction& action, const GivenFields& fields)
{
    IKEPhase2 phase2 = action.ikePhase2Get();
    fields.apply(PHASE_2, phase2);
    action.ikePhase2Set(phase2);
}

} // namespace

void appendKeying(KnownFields& known)
{
    append(known, MANUAL_KEY);
    append(known, ESP_PART);
    append(known, AH_PART);
    append(known, ENCRYPTION_KEYS);
    append(known, AUTHENTICATION_KEYS);
    append(known, PHASE_1);
    append(known, PHASE_1_PROPOSAL);
    append(known, PHASE_2);
}

bool hasKeying(const GivenFields& fields)
{
    return concernsManualKey(fields) || concernsPhase1(fields) || fields.hasAny(PHASE_2);
}

void setKeying(IPsecAction& action, const GivenFields& fields)
{
    if (concernsManualKey(fields))
        setManualKey(action, fields);
    if (concernsPhase1(fields))
        setPhase1(action, fields);
    if (fields.hasAny(PHASE_2))
        setPhase2(action, fields);
}
