#include "event_reader.h"

#include "peer.h"

#include <cstdlib>
#include <utility>

namespace bench {

using namespace ipsecimpl;

IKEPhase1 EventReader::noPhase1()
{
    return IKEPhase1(IKE_AUTH_PSK, "", "", "", IKEPhase1Proposal({}, DH_GROUP_NONE, 0, KEYLIFETIME_SECS));
}

template <class Event>
void EventReader::guarded(Event event) noexcept
{
    if (failed())
        return;
    try {
        event();
    } catch (...) {
        error_ = std::current_exception();
    }
}

void EventReader::start(std::string_view name) noexcept
{
    guarded([this, name] {
        const Tag tag = toTag(name);
        open_.push_back(tag);
        text_ = &texts_[static_cast<std::size_t>(tag)];
        text_->clear();
        startElement(tag);
    });
}

void EventReader::text(const char* text, std::size_t size) noexcept
{
    guarded([this, text, size] {
        if (text_ != nullptr) // else it is white space between elements
            text_->append(text, size);
    });
}

void EventReader::end() noexcept
{
    guarded([this] {
        endElement(open_.back());
        open_.pop_back();
        text_ = nullptr;
    });
}

IPsecConfig EventReader::take()
{
    if (failed())
        std::rethrow_exception(error_);
    return std::move(config_);
}

int EventReader::numberOf(Tag tag) const
{
    return static_cast<int>(std::strtol(textOf(tag).c_str(), nullptr, 0));
}

unsigned int EventReader::unsignedOf(Tag tag) const
{
    return static_cast<unsigned int>(std::strtoul(textOf(tag).c_str(), nullptr, 0));
}

template <class E>
E EventReader::wordOf(Tag tag) const
{
    return E(E::to_int(textOf(tag)));
}

void EventReader::startElement(Tag tag)
{
    if (tag == Tag::selectors) { // selectors have names of their own
        if (open_[open_.size() - 2] == Tag::hostGroup)
            hostGroup_ = group<HostGroup>();
        else
            protocolGroup_ = group<ProtocolGroup>();
    } else if (tag == Tag::protocolSelector) { // its ports may be left out
        texts_[static_cast<std::size_t>(Tag::dstPort)].clear();
        texts_[static_cast<std::size_t>(Tag::srcPort)].clear();
    }
}

void EventReader::endElement(Tag tag)
{
    switch (tag) {
    case Tag::id:
        id_ = unsignedOf(Tag::id);
        break;
    case Tag::hostSelector:
        hostGroup_.selectors.insert(hostGroup_.selectors.end(), hostSelector());
        break;
    case Tag::protocolSelector:
        protocolGroup_.selectors.insert(protocolGroup_.selectors.end(), protocolSelector());
        break;
    case Tag::transform:
        transforms_.push_back(wordOf<IKEPhase1Transform>(Tag::transform));
        break;
    case Tag::saProposal:
        saProposals_.emplace_back(wordOf<IPsecProtocol>(Tag::protocol), unsignedOf(Tag::encryption),
                                  unsignedOf(Tag::hash));
        break;
    case Tag::hostGroup:
        addEntry(config_.hostGroups, id_, std::move(hostGroup_));
        break;
    case Tag::protocolGroup:
        addEntry(config_.protocolGroups, id_, std::move(protocolGroup_));
        break;
    case Tag::ikePhase1:
        phase1_ = phase1();
        break;
    case Tag::action:
        addEntry(config_.actions, id_, action());
        break;
    case Tag::policy:
        addEntry(config_.policies, id_,
                 Policy(unsignedOf(Tag::hostGroupID), unsignedOf(Tag::protocolGroupID), unsignedOf(Tag::actionID)));
        break;
    default:
        break;
    }
}

template <class Group>
Group EventReader::group() const
{
    return Group(textOf(Tag::name), numberOf(Tag::builtinName), textOf(Tag::descr), numberOf(Tag::builtinDescr));
}

HostSelector EventReader::hostSelector() const
{
    const auto family = wordOf<AddressFamily>(Tag::family);
    const auto type   = wordOf<AddressType>(Tag::selectorType);
    if (type == HOST_SINGLE)
        return HostSelector(family, type, textOf(Tag::addr1), "");
    if (type == HOST_RANGE)
        return HostSelector(family, type, textOf(Tag::addr1), textOf(Tag::addr2));
    if (type == HOST_SUBNET_LENGTH)
        return HostSelector(family, type, textOf(Tag::addr1), numberOf(Tag::length));
    if (type == HOST_SUBNET_MASK)
        return HostSelector(family, type, textOf(Tag::addr1), textOf(Tag::mask));
    return HostSelector(family, type, "", "");
}

ProtocolSelector EventReader::protocolSelector() const
{
    const auto number = [this](Tag tag) { return static_cast<unsigned short>(unsignedOf(tag)); };
    return ProtocolSelector(textOf(Tag::name), number(Tag::protocol), number(Tag::dstPort), number(Tag::srcPort),
                            wordOf<Direction>(Tag::direction), textOf(Tag::mirrored) == "MIRRORED");
}

MKM EventReader::manualKey()
{
    MKM key;
    key.saProposal = saProposals_.back();
    saProposals_.clear();
    const auto protocol = key.saProposal.protocol;
    if (protocol == IPSEC_ESP || protocol == IPSEC_ESP_AH) {
        key.inboundESPSPI  = unsignedOf(Tag::inboundESPSPI);
        key.outboundESPSPI = unsignedOf(Tag::outboundESPSPI);
    }
    if (protocol == IPSEC_AH || protocol == IPSEC_ESP_AH) {
        key.inboundAHSPI  = unsignedOf(Tag::inboundAHSPI);
        key.outboundAHSPI = unsignedOf(Tag::outboundAHSPI);
    }
    if (key.saProposal.encryption > 1) {
        key.inboundDecrKey  = textOf(Tag::inboundDecrKey);
        key.outboundEncrKey = textOf(Tag::outboundEncrKey);
        key.outboundEncrIV  = textOf(Tag::outboundEncrIV);
    }
    if (key.saProposal.hash > 1) {
        key.inboundAuthKey  = textOf(Tag::inboundAuthKey);
        key.outboundAuthKey = textOf(Tag::outboundAuthKey);
    }
    return key;
}

// Called when its <proposal> has just been read, so that the texts are those of this one.
IKEPhase1 EventReader::phase1()
{
    const auto        authType = wordOf<IKEAuthType>(Tag::authType);
    const bool        shared   = authType == IKE_AUTH_PSK;
    IKEPhase1Proposal proposal({}, wordOf<DHGroup>(Tag::dhGroup), unsignedOf(Tag::keyLifetime),
                               wordOf<KeyLifetimeUnits>(Tag::keyLifetimeUnits));
    proposal.transforms.swap(transforms_);
    return IKEPhase1(authType, shared ? std::string() : textOf(Tag::localCert),
                     shared ? std::string() : textOf(Tag::peerTrust),
                     shared ? textOf(Tag::presharedKey) : std::string(), proposal);
}

IKEPhase2 EventReader::phase2()
{
    IKEPhase2 phase2({}, wordOf<DHGroup>(Tag::dhGroup), unsignedOf(Tag::keyLifetime),
                     wordOf<KeyLifetimeUnits>(Tag::keyLifetimeUnits));
    phase2.proposals.swap(saProposals_);
    return phase2;
}

IPsecAction EventReader::action()
{
    const auto spdAction = wordOf<SPDAction>(Tag::spdAction);
    const bool protects  = spdAction == SPD_TUNNEL || spdAction == SPD_TRANSPORT;
    const auto keyMgr    = protects ? wordOf<IPsecKeyMgr>(Tag::keyMgr) : KEYMGR_NONE;

    IPsecAction action(spdAction, textOf(Tag::name), numberOf(Tag::builtinName), textOf(Tag::descr),
                       numberOf(Tag::builtinDescr), keyMgr);
    action.typeSet(numberOf(Tag::type));
    action.stateSet(numberOf(Tag::state));
    if (spdAction == SPD_TUNNEL)
        action.tunnelEndpointSet(textOf(Tag::tunnelEndpoint));
    if (keyMgr == KEYMGR_MKM) {
        action.manualKeySet(manualKey());
    } else if (keyMgr == KEYMGR_IKE) {
        action.ikePhase1Set(phase1_);
        action.ikePhase2Set(phase2());
    }
    return action;
}

} // namespace bench
