#include "fields.h"

#include "enum_text.h"
#include "selector_text.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

using namespace ipsecimpl;

namespace {

/// Collects the fields of one object.
class FieldList {
  public:
    explicit FieldList(std::size_t expected) { fields_.reserve(expected); }

    void text(const char* path, const std::string& value) { fields_.push_back({path, std::string_view(value)}); }
    void secret(const char* path, const std::string& value)
    {
        fields_.push_back({path, std::string_view(value), true});
    }

    // What a document can carry fits.
    void number(const char* path, long long value) { fields_.push_back({path, value}); }
    void number(const char* path, unsigned long value) { number(path, static_cast<long long>(value)); }
    void number(const char* path, int value) { number(path, static_cast<long long>(value)); }

    void reference(const char* path, Kind kind, unsigned int id)
    {
        fields_.push_back({path, static_cast<long long>(id), false, kind});
    }

    template <int Num, auto Names>
    void word(const char* path, const Enum<Num, Names>& value)
    {
        fields_.push_back({path, Word{wordOf(value)}});
    }

    template <class List>
    void list(const char* path, const List& value)
    {
        fields_.push_back({path, &value});
    }

    std::vector<Field> take() { return std::move(fields_); }

  private:
    std::vector<Field> fields_;
};

template <class Group>
std::vector<Field> fieldsOfGroup(const Group& group)
{
    FieldList fields(5);
    fields.text("name", group.name);
    fields.number("builtinName", group.builtinName);
    fields.text("descr", group.descr);
    fields.number("builtinDescr", group.builtinDescr);
    fields.list("selectors", group.selectors);
    return fields.take();
}

void add(const MKM& key, FieldList& fields)
{
    const IPsecProposal& proposal = key.saProposal;
    fields.word("manualKey/saProposal/protocol", proposal.protocol);
    fields.number("manualKey/saProposal/encryption", proposal.encryption);
    fields.number("manualKey/saProposal/hash", proposal.hash);
    if (proposal.protocol == IPSEC_ESP || proposal.protocol == IPSEC_ESP_AH) {
        fields.number("manualKey/inboundESPSPI", key.inboundESPSPI);
        fields.number("manualKey/outboundESPSPI", key.outboundESPSPI);
    }
    if (proposal.protocol == IPSEC_AH || proposal.protocol == IPSEC_ESP_AH) {
        fields.number("manualKey/inboundAHSPI", key.inboundAHSPI);
        fields.number("manualKey/outboundAHSPI", key.outboundAHSPI);
    }
    if (proposal.encryption > 1) {
        fields.secret("manualKey/inboundDecrKey", key.inboundDecrKey);
        fields.secret("manualKey/outboundEncrKey", key.outboundEncrKey);
        fields.secret("manualKey/outboundEncrIV", key.outboundEncrIV);
    }
    if (proposal.hash > 1) {
        fields.secret("manualKey/inboundAuthKey", key.inboundAuthKey);
        fields.secret("manualKey/outboundAuthKey", key.outboundAuthKey);
    }
}

void add(const IKEPhase1& phase1, FieldList& fields)
{
    fields.word("ikePhase1/authType", phase1.authTypeGet());
    if (phase1.authTypeGet() == IKE_AUTH_PSK) {
        fields.secret("ikePhase1/presharedKey", phase1.presharedKeyGet());
    } else {
        fields.text("ikePhase1/localCert", phase1.localCertGet());
        fields.text("ikePhase1/peerTrust", phase1.peerTrustGet());
    }
    const IKEPhase1Proposal& proposal = phase1.proposalGet();
    fields.word("ikePhase1/proposal/dhGroup", proposal.dhGroup);
    fields.number("ikePhase1/proposal/keyLifetime", proposal.keyLifetime);
    fields.word("ikePhase1/proposal/keyLifetimeUnits", proposal.keyLifetimeUnits);
    fields.list("ikePhase1/proposal/transform", proposal.transforms);
}

void add(const IKEPhase2& phase2, FieldList& fields)
{
    fields.word("ikePhase2/dhGroup", phase2.dhGroup);
    fields.number("ikePhase2/keyLifetime", phase2.keyLifetime);
    fields.word("ikePhase2/keyLifetimeUnits", phase2.keyLifetimeUnits);
    fields.list("ikePhase2/saProposal", phase2.proposals);
}

void addKeying(const IPsecAction& action, FieldList& fields)
{
    fields.word("keyMgr", action.keyMgrGet());
    if (action.keyMgrGet() == KEYMGR_MKM) {
        add(action.manualKeyGet(), fields);
    } else if (action.keyMgrGet() == KEYMGR_IKE) {
        add(action.ikePhase1Get(), fields);
        add(action.ikePhase2Get(), fields);
    }
}

/// Equality of what stands in lists: all of it that a document carries, which the library's own need not look at.
bool isSameMember(const IKEPhase1Transform& a, const IKEPhase1Transform& b)
{
    return a == b;
}

bool isSameMember(const IPsecProposal& a, const IPsecProposal& b)
{
    return a.protocol == b.protocol && a.encryption == b.encryption && a.hash == b.hash;
}

bool isSameMember(const HostSelector& a, const HostSelector& b)
{
    return a.compare(b) == 0;
}

bool isSameMember(const ProtocolSelector& a, const ProtocolSelector& b)
{
    return a.compare(b) == 0 && a.name == b.name;
}

template <class List>
bool isSameList(const List& a, const List& b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](const auto& one, const auto& other) {
               return isSameMember(one, other);
           });
}

template <class Selector>
std::vector<std::string> onlyIn(const std::set<Selector>& selectors, const std::set<Selector>* others)
{
    std::vector<std::string> texts;
    for (const Selector& selector : selectors) {
        const auto same = others == nullptr ? typename std::set<Selector>::const_iterator() : others->find(selector);
        if (others == nullptr || same == others->end() || !isSameMember(selector, *same))
            texts.push_back(textOf(selector));
    }
    return texts;
}

} // namespace

std::vector<Field> fieldsOf(const HostGroup& group)
{
    return fieldsOfGroup(group);
}

std::vector<Field> fieldsOf(const ProtocolGroup& group)
{
    return fieldsOfGroup(group);
}

std::vector<Field> fieldsOf(const IPsecAction& action)
{
    FieldList fields(24);
    fields.number("changeCount", action.changeCountGet());
    fields.text("name", action.nameGet());
    fields.number("builtinName", action.builtinNameGet());
    fields.text("descr", action.descrGet());
    fields.number("builtinDescr", action.builtinDescrGet());
    fields.number("type", action.typeGet());
    fields.number("state", action.stateGet());
    const SPDAction& spdAction = action.spdActionGet();
    fields.word("spdAction", spdAction);
    if (spdAction == SPD_TUNNEL)
        fields.text("tunnelEndpoint", action.tunnelEndpointGet());
    if (spdAction == SPD_TUNNEL || spdAction == SPD_TRANSPORT)
        addKeying(action, fields);
    return fields.take();
}

std::vector<Field> fieldsOf(const Policy& policy)
{
    FieldList fields(3);
    fields.reference("hostGroupID", Kind::HOST_GROUP, policy.hostGroupID);
    fields.reference("protocolGroupID", Kind::PROTOCOL_GROUP, policy.protocolGroupID);
    fields.reference("actionID", Kind::ACTION, policy.actionID);
    return fields.take();
}

bool isSame(const FieldValue& a, const FieldValue& b)
{
    if (a.index() != b.index())
        return false;
    return std::visit(
        [&b](const auto& value) {
            using Value        = std::decay_t<decltype(value)>;
            const Value& other = std::get<Value>(b);
            if constexpr (std::is_pointer_v<Value>)
                return isSameList(*value, *other);
            else if constexpr (std::is_same_v<Value, Word>)
                return std::strcmp(value.text, other.text) == 0;
            else
                return value == other;
        },
        a);
}

bool isSame(const Field& a, const Field& b)
{
    return std::strcmp(a.path, b.path) == 0 && isSame(a.value, b.value);
}

std::string textOf(const IPsecProposal& proposal)
{
    return std::string(wordOf(proposal.protocol)) + ", encryption " + std::to_string(proposal.encryption) + ", hash " +
           std::to_string(proposal.hash);
}

bool holdsSelectors(const FieldValue& value)
{
    return std::holds_alternative<const std::set<HostSelector>*>(value) ||
           std::holds_alternative<const std::set<ProtocolSelector>*>(value);
}

std::vector<std::string> selectorsOnlyIn(const FieldValue& value, const std::optional<FieldValue>& other)
{
    if (const auto* const hosts = std::get_if<const std::set<HostSelector>*>(&value))
        return onlyIn(**hosts, other ? std::get<const std::set<HostSelector>*>(*other) : nullptr);
    return onlyIn(*std::get<const std::set<ProtocolSelector>*>(value),
                  other ? std::get<const std::set<ProtocolSelector>*>(*other) : nullptr);
}
