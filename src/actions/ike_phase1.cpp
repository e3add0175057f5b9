#include <ipsecimpl/actions.h>

#include "actions/defaults.h"
#include "actions/require.h"
#include "enum/read_enum.h"
#include "enum/write_enum.h"
#include "xml/element.h"

#include <stdexcept>
#include <utility>

namespace ipsecimpl {
IKEPhase1::IKEPhase1(const IKEAuthType& authType, const std::string& localCert, const std::string& peerTrust,
                     const std::string& presharedKey, const IKEPhase1Proposal& proposal)
    : authType_(authType)
    , localCert_(localCert)
    , peerTrust_(peerTrust)
    , presharedKey_(presharedKey)
    , proposal_(proposal)
{
}

IKEPhase1& IKEPhase1::operator=(const IKEPhase1& other)
{
    if (this != &other)
        *this = IKEPhase1(other);
    return *this;
}

IKEPhase1& IKEPhase1::operator=(IKEPhase1&& other) noexcept
{
    authType_ = other.authType_;
    localCert_.swap(other.localCert_);
    peerTrust_.swap(other.peerTrust_);
    presharedKey_.swap(other.presharedKey_);
    proposal_ = std::move(other.proposal_);
    return *this;
}

const IKEAuthType& IKEPhase1::authTypeSet(const IKEAuthType& authType)
{
    return authType_ = authType;
}

const std::string& IKEPhase1::presharedKeyGet() const
{
    require<std::invalid_argument>(authType_ == IKE_AUTH_PSK, "presharedKey is only valid for IKE_AUTH_PSK");
    return presharedKey_;
}

const std::string& IKEPhase1::presharedKeySet(const std::string& presharedKey)
{
    require<std::invalid_argument>(authType_ == IKE_AUTH_PSK, "presharedKey is only valid for IKE_AUTH_PSK");
    return presharedKey_ = presharedKey;
}

const std::string& IKEPhase1::localCertGet() const
{
    require<std::invalid_argument>(authType_ == IKE_AUTH_RSA, "localCert is only valid for IKE_AUTH_RSA");
    return localCert_;
}

const std::string& IKEPhase1::localCertSet(const std::string& localCert)
{
    require<std::invalid_argument>(authType_ == IKE_AUTH_RSA, "localCert is only valid for IKE_AUTH_RSA");
    return localCert_ = localCert;
}

const std::string& IKEPhase1::peerTrustGet() const
{
    require<std::invalid_argument>(authType_ == IKE_AUTH_RSA, "peerTrust is only valid for IKE_AUTH_RSA");
    return peerTrust_;
}

const std::string& IKEPhase1::peerTrustSet(const std::string& peerTrust)
{
    require<std::invalid_argument>(authType_ == IKE_AUTH_RSA, "peerTrust is only valid for IKE_AUTH_RSA");
    return peerTrust_ = peerTrust;
}

const IKEPhase1Proposal& IKEPhase1::proposalSet(const IKEPhase1Proposal& proposal)
{
    return proposal_ = proposal;
}

// The reader sets the fields directly: the setters' rules are for editing. Its message says <auth>, not <authType>.
IKEPhase1 IKEPhase1::importXML(XMLParser& parser)
{
    IKEPhase1 phase1 = emptyPhase1();
    openElement(parser, "ikePhase1");
    phase1.authType_ = readEnum<IKEAuthType>(parser, "authType", "invalid value", "<auth> in <ikePhase1>");
    if (phase1.authType_ == IKE_AUTH_PSK) {
        phase1.presharedKey_ = readText(parser, "presharedKey");
    } else {
        phase1.localCert_    = readText(parser, "localCert");
        phase1.peerTrust_    = readText(parser, "peerTrust");
    }
    phase1.proposal_ = IKEPhase1Proposal::importXML(parser);
    parser.parse_end_tag();
    return phase1;
}

std::ostream& IKEPhase1::exportXML(std::ostream& out) const
{
    openTag(out, "ikePhase1");
    writeLeaf(out, "authType", authType_);
    if (authType_ == IKE_AUTH_PSK) {
        writeLeaf(out, "presharedKey", presharedKey_);
    } else {
        writeLeaf(out, "localCert",    localCert_);
        writeLeaf(out, "peerTrust",    peerTrust_);
    }
    proposal_.exportXML(out);
    return closeTag(out, "ikePhase1");
}

} // namespace ipsecimpl
