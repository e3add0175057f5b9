#include <ipsecimpl/actions.h>

#include "actions/defaults.h"
#include "actions/require.h"
#include "enum/read_enum.h"
#include "enum/write_enum.h"
#include "xml/element.h"

#include <utility>

namespace ipsecimpl {
namespace {

/// The counter wraps as it does where overflow is not undefined: what a document says may be the greatest int.
void countChange(int& changeCount)
{
    changeCount = static_cast<int>(static_cast<unsigned int>(changeCount) + 1U);
}

} // namespace

IPsecAction::IPsecAction()
    : IPsecAction(SPD_NONE, "", 0, "", 0, KEYMGR_NONE)
{
}

IPsecAction::IPsecAction(const SPDAction& spdAction, const std::string& name, int builtinName,
                         const std::string& descr, int builtinDescr, const IPsecKeyMgr& keyMgr)
    : spdAction_(spdAction)
    , name_(name)
    , builtinName_(builtinName)
    , descr_(descr)
    , builtinDescr_(builtinDescr)
    , keyMgr_(keyMgr)
    , ikePhase1_(emptyPhase1())
    , ikePhase2_(emptyPhase2())
{
}

// type_ and state_ are left out on purpose and start at 0.
IPsecAction::IPsecAction(const IPsecAction& other)
    : spdAction_(other.spdAction_)
    , changeCount_(other.changeCount_)
    , name_(other.name_)
    , builtinName_(other.builtinName_)
    , descr_(other.descr_)
    , builtinDescr_(other.builtinDescr_)
    , tunnelEndpoint_(other.tunnelEndpoint_)
    , keyMgr_(other.keyMgr_)
    , manualKey_(other.manualKey_)
    , ikePhase1_(other.ikePhase1_)
    , ikePhase2_(other.ikePhase2_)
{
}

// It is the same action in another place: what was read from a document stays whole on its way into a collection.
IPsecAction::IPsecAction(IPsecAction&&) noexcept = default;

IPsecAction& IPsecAction::operator=(const IPsecAction& other)
{
    if (this != &other)
        *this = IPsecAction(other);
    return *this;
}

// type_ and state_ are left out on purpose and stay.
IPsecAction& IPsecAction::operator=(IPsecAction&& other) noexcept
{
    spdAction_   = other.spdAction_;
    changeCount_ = other.changeCount_;
    name_.swap(other.name_);
    builtinName_ = other.builtinName_;
    descr_.swap(other.descr_);
    builtinDescr_ = other.builtinDescr_;
    tunnelEndpoint_.swap(other.tunnelEndpoint_);
    keyMgr_    = other.keyMgr_;
    manualKey_ = std::move(other.manualKey_);
    ikePhase1_ = std::move(other.ikePhase1_);
    ikePhase2_ = std::move(other.ikePhase2_);
    return *this;
}

IPsecAction::~IPsecAction() = default;

const IPsecKeyMgr& IPsecAction::keyMgrGet() const
{
    require<invalid_operation>(spdAction_ == SPD_TRANSPORT || spdAction_ == SPD_TUNNEL,
            "key manager is only defined for IPSEC-TRANSPORT and IPSEC-TUNNEL");
    return keyMgr_;
}

const std::string& IPsecAction::tunnelEndpointGet() const
{
    require<invalid_operation>(spdAction_ == SPD_TUNNEL, "tunnelEndpoint is only defined for IPSEC-TUNNEL");
    return tunnelEndpoint_;
}

const MKM& IPsecAction::manualKeyGet() const
{
    require<invalid_operation>(keyMgr_ == KEYMGR_MKM, "manualKey is only defined for IPSEC-MKM");
    return manualKey_;
}

const IKEPhase1& IPsecAction::ikePhase1Get() const
{
    require<invalid_operation>(keyMgr_ == KEYMGR_IKE, "ikePhase1 is only defined for IPSEC-IKE");
    return ikePhase1_;
}

const IKEPhase2& IPsecAction::ikePhase2Get() const
{
    require<invalid_operation>(keyMgr_ == KEYMGR_IKE, "ikePhase2 is only defined for IPSEC-IKE");
    return ikePhase2_;
}

const SPDAction& IPsecAction::spdActionSet(const SPDAction& spdAction)
{
    require<invalid_operation>(!isBuiltIn(), "cannot change spd action for a built-in object");
    if (spdAction_ != spdAction) {
        spdAction_ = spdAction;
        countChange(changeCount_);
    }
    return spdAction_;
}

const IPsecKeyMgr& IPsecAction::keyMgrSet(const IPsecKeyMgr& keyMgr)
{
    require<invalid_operation>(!isBuiltIn(), "cannot change key manager for a built-in object");
    if (keyMgr_ != keyMgr) {
        keyMgr_ = keyMgr;
        countChange(changeCount_);
    }
    return keyMgr_;
}

const std::string& IPsecAction::nameSet(const std::string& name)
{
    require<invalid_operation>(!isBuiltIn(), "cannot change name of a built-in object");
    return name_ = name;
}

const std::string& IPsecAction::descrSet(const std::string& descr)
{
    require<invalid_operation>(!isBuiltIn(), "cannot change description of a built-in object");
    return descr_ = descr;
}

const std::string& IPsecAction::tunnelEndpointSet(const std::string& tunnelEndpoint)
{
    require<invalid_operation>(spdAction_ == SPD_TUNNEL, "tunnelEndpoint is only defined for IPSEC-TUNNEL");
    if (tunnelEndpoint_ != tunnelEndpoint) {
        tunnelEndpoint_ = tunnelEndpoint;
        countChange(changeCount_);
    }
    return tunnelEndpoint_;
}

// Unlike the getter's, this message says "key".
const MKM& IPsecAction::manualKeySet(const MKM& manualKey)
{
    require<invalid_operation>(keyMgr_ == KEYMGR_MKM, "key is only defined for IPSEC-MKM");
    manualKey_ = manualKey;
    countChange(changeCount_);
    return manualKey_;
}

const IKEPhase1& IPsecAction::ikePhase1Set(const IKEPhase1& ikePhase1)
{
    require<invalid_operation>(keyMgr_ == KEYMGR_IKE, "ikePhase1 is only defined for IPSEC-IKE");
    ikePhase1_ = ikePhase1;
    countChange(changeCount_);
    return ikePhase1_;
}

const IKEPhase2& IPsecAction::ikePhase2Set(const IKEPhase2& ikePhase2)
{
    require<invalid_operation>(keyMgr_ == KEYMGR_IKE, "ikePhase2 is only defined for IPSEC-IKE");
    ikePhase2_ = ikePhase2;
    countChange(changeCount_);
    return ikePhase2_;
}

// The reader sets the fields directly: the setters' rules are for editing. Its messages say "bad value", those of the
// elements inside "invalid value".
IPsecAction IPsecAction::importXML(XMLParser& parser)
{
    IPsecAction action;
    openElement(parser, "action");
    action.changeCount_  = readInt(parser, "changeCount");
    action.name_         = readText(parser, "name");
    action.builtinName_  = readInt(parser, "builtinName");
    action.descr_        = readText(parser, "descr");
    action.builtinDescr_ = readInt(parser, "builtinDescr");
    action.type_         = readInt(parser, "type");
    action.state_        = readInt(parser, "state");
    action.spdAction_    = readEnum<SPDAction>(parser, "spdAction", "bad value", "<spdAction> in <action>");
    if (action.spdAction_ == SPD_TUNNEL)
        action.tunnelEndpoint_ = readText(parser, "tunnelEndpoint");
    if (action.spdAction_ == SPD_TRANSPORT || action.spdAction_ == SPD_TUNNEL) {
        action.keyMgr_ = readEnum<IPsecKeyMgr>(parser, "keyMgr", "bad value", "<keyMgr> in <action>");
        if (action.keyMgr_ == KEYMGR_MKM) {
            action.manualKey_ = MKM::importXML(parser);
        } else if (action.keyMgr_ == KEYMGR_IKE) {
            action.ikePhase1_ = IKEPhase1::importXML(parser);
            action.ikePhase2_ = IKEPhase2::importXML(parser);
        }
    }
    parser.parse_end_tag();
    return action;
}

std::ostream& IPsecAction::exportXML(std::ostream& out) const
{
    openTag(out, "action");
    writeLeaf(out, "changeCount",  changeCount_);
    writeLeaf(out, "name",         name_);
    writeLeaf(out, "builtinName",  builtinName_);
    writeLeaf(out, "descr",        descr_);
    writeLeaf(out, "builtinDescr", builtinDescr_);
    writeLeaf(out, "type",         type_);
    writeLeaf(out, "state",        state_);
    writeLeaf(out, "spdAction",    spdAction_);
    if (spdAction_ == SPD_TUNNEL)
        writeLeaf(out, "tunnelEndpoint", tunnelEndpoint_);
    if (spdAction_ == SPD_TRANSPORT || spdAction_ == SPD_TUNNEL) {
        writeLeaf(out, "keyMgr", keyMgr_);
        if (keyMgr_ == KEYMGR_MKM) {
            manualKey_.exportXML(out);
        } else if (keyMgr_ == KEYMGR_IKE) {
            ikePhase1_.exportXML(out);
            ikePhase2_.exportXML(out);
        }
    }
    return closeTag(out, "action");
}

} // namespace ipsecimpl
