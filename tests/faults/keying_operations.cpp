#include "faults/objects.h"
#include "faults/operations.h"
#include "support/xml.h"

#include <string>
#include <utility>

namespace ipsecimpl {
namespace {

/// What all of these classes have. `make(text)` makes an object.
template <class T, class Make>
std::vector<Operation> valueOperations(const std::string& type, const Make& make)
{
    const auto one = [make] { return make(LONG); };
    const auto two = [make] { return Two<T>{make(LONG), make(OTHER)}; };

    const std::string text = written(make(LONG));

    Operations value(type + "::");
    value.fails(type + "(const " + type + "&)", one, [](T& object) { return T(object); })
        .cannotFail(type + "(" + type + "&&)", one, [](T& object) { return T(std::move(object)); })
        .fails(
            "operator=(const " + type + "& other)", two,
            [](auto& objects) -> auto& { return objects.first = objects.second; })
        .cannotFail(
            "operator=(" + type + "&& other)", two,
            [](auto& objects) -> auto& { return objects.first = std::move(objects.second); })
        .template reads<T>("importXML(XMLParser& parser)", text)
        .template reads<T>("importXML(XMLParser& parser) [refused]", text.substr(0, text.rfind("</")) + "x")
        .stores("exportXML(std::ostream& out) const", one,
                [](const T& object, std::ostream& out) { object.exportXML(out); });
    return value.all();
}

std::vector<Operation> proposalOperations()
{
    const auto one = [] { return IPsecProposal(IPSEC_ESP, 12, 5); };
    const auto two = [] { return Two<IPsecProposal>{{IPSEC_ESP, 12, 5}, {IPSEC_AH, 0, 5}}; };

    // Only numbers with many digits need memory.
    const std::string zeros(60, '0');
    const std::string text = "<saProposal><protocol>AH</protocol><encryption>" + zeros + "</encryption><hash>" + zeros +
                             "</hash></saProposal>";

    Operations proposal("IPsecProposal::");
    proposal
        .cannotFail("IPsecProposal(const IPsecProtocol& protocol, unsigned long encryption, unsigned long hash)",
                    nothing, [](Nothing&) { return IPsecProposal(IPSEC_ESP, 12, 5); })
        .cannotFail("IPsecProposal(const IPsecProposal&) [implicit]", one, [](auto& p) { return IPsecProposal(p); })
        .cannotFail(
            "operator=(const IPsecProposal&) [implicit]", two, [](auto& p) -> auto& { return p.first = p.second; })
        .reads<IPsecProposal>("importXML(XMLParser& parser)", text)
        .reads<IPsecProposal>("importXML(XMLParser& parser) [refused]", "<saProposal><protocol>" + LONG + "</protocol>")
        .stores("exportXML(std::ostream& out) const", one, [](const auto& p, std::ostream& out) { p.exportXML(out); });
    return proposal.all();
}

std::vector<Operation> constructors()
{
    Operations made("");
    made.fails("IKEPhase1Proposal::IKEPhase1Proposal(const std::list<IKEPhase1Transform>& transforms, const DHGroup& "
               "dhGroup,"
               " unsigned long keyLifetime, const KeyLifetimeUnits& units)",
               proposal, [](const auto& p) { return IKEPhase1Proposal(p.transforms, DH_GROUP_1, 1, KEYLIFETIME_KB); })
        .fails("IKEPhase2::IKEPhase2(const std::list<IPsecProposal>& proposals, const DHGroup& dhGroup, unsigned long"
               " keyLifetime, const KeyLifetimeUnits& units)",
               phase2, [](const auto& p) { return IKEPhase2(p.proposals, DH_GROUP_1, 1, KEYLIFETIME_KB); })
        .fails("IKEPhase1::IKEPhase1(const IKEAuthType& authType, const std::string& localCert, const std::string&"
               " peerTrust, const std::string& presharedKey, const IKEPhase1Proposal& proposal)",
               proposal, [](const auto& offer) { return IKEPhase1(IKE_AUTH_PSK, LONG, OTHER, LONG, offer); })
        .cannotFail("MKM::MKM()", nothing, [](Nothing&) { return MKM(); });
    return made.all();
}

std::vector<Operation> credentialOperations()
{
    const auto rsa = [] { return certificates(LONG); };
    const auto psk = [] { return sharedKey(LONG); };

    Operations phase("IKEPhase1::");
    phase
        .cannotFail(
            "authTypeGet() const", rsa, [](auto& p) -> auto& { return p.authTypeGet(); })
        .cannotFail(
            "authTypeSet(const IKEAuthType& authType)", rsa,
            [](auto& p) -> auto& { return p.authTypeSet(IKE_AUTH_PSK); })
        .cannotFail(
            "presharedKeyGet() const", psk, [](auto& p) -> auto& { return p.presharedKeyGet(); })
        .fails(
            "presharedKeyGet() const [refused]", rsa, [](auto& p) -> auto& { return p.presharedKeyGet(); })
        .fails(
            "presharedKeySet(const std::string& presharedKey)", psk,
            [](auto& p) -> auto& { return p.presharedKeySet(OTHER); })
        .fails(
            "presharedKeySet(const std::string& presharedKey) [refused]", rsa,
            [](auto& p) -> auto& { return p.presharedKeySet(OTHER); })
        .cannotFail(
            "localCertGet() const", rsa, [](auto& p) -> auto& { return p.localCertGet(); })
        .fails(
            "localCertGet() const [refused]", psk, [](auto& p) -> auto& { return p.localCertGet(); })
        .fails(
            "localCertSet(const std::string& localCert)", rsa, [](auto& p) -> auto& { return p.localCertSet(OTHER); })
        .fails(
            "localCertSet(const std::string& localCert) [refused]", psk,
            [](auto& p) -> auto& { return p.localCertSet(OTHER); })
        .cannotFail(
            "peerTrustGet() const", rsa, [](auto& p) -> auto& { return p.peerTrustGet(); })
        .fails(
            "peerTrustGet() const [refused]", psk, [](auto& p) -> auto& { return p.peerTrustGet(); })
        .fails(
            "peerTrustSet(const std::string& peerTrust)", rsa, [](auto& p) -> auto& { return p.peerTrustSet(OTHER); })
        .fails(
            "peerTrustSet(const std::string& peerTrust) [refused]", psk,
            [](auto& p) -> auto& { return p.peerTrustSet(OTHER); })
        .cannotFail(
            "proposalGet() const", rsa, [](auto& p) -> auto& { return p.proposalGet(); })
        .fails(
            "proposalSet(const IKEPhase1Proposal& proposal)", rsa,
            [other = IKEPhase1Proposal({IKE_NONE}, DH_GROUP_1, 1, KEYLIFETIME_KB)](auto& p) -> auto& {
                return p.proposalSet(other);
            })
        .reads<IKEPhase1>("importXML(XMLParser& parser)", written(sharedKey(LONG)))
        .reads<IKEPhase1>("importXML(XMLParser& parser) [refused]", "<ikePhase1><authType>" + LONG + "</authType>");
    return phase.all();
}

} // namespace

std::vector<Operation> keyingOperations()
{
    return joined({
        proposalOperations(),
        constructors(),
        valueOperations<IKEPhase1Proposal>(
            "IKEPhase1Proposal",
            [](const std::string& text) {
                return IKEPhase1Proposal({IKE_NONE, IKE_NONE}, DH_GROUP_1, text.size(), KEYLIFETIME_KB);
            }),
        valueOperations<IKEPhase1>("IKEPhase1", certificates),
        credentialOperations(),
        valueOperations<IKEPhase2>("IKEPhase2", [](const std::string&) { return phase2(); }),
        valueOperations<MKM>("MKM", manualKey),
    });
}

} // namespace ipsecimpl
