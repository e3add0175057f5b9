// Which elements there are depends on what others say. Every combination is either in the written form and valid, or
// neither.

#include "schema/documents.h"
#include "support/documents.h"

#include <ipsecimpl/enums.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

std::string line(const std::string& tag, const std::string& text)
{
    return leaf(tag, text) + "\n";
}

std::string element(const std::string& tag, const std::string& content)
{
    return line(tag, "\n" + content);
}

const std::string EXCHANGE = "<dhGroup>G2</dhGroup>\n"
                             "<keyLifetime>8</keyLifetime>\n"
                             "<keyLifetimeUnits>HRS</keyLifetimeUnits>\n";

const std::string PROPOSAL = element("proposal", EXCHANGE);
const std::string PHASE1   = element("ikePhase1", line("authType", "PSK") + line("presharedKey", "key") + PROPOSAL);
const std::string PHASE2   = element("ikePhase2", EXCHANGE);

std::string saProposal(const std::string& protocol, const std::string& encryption, const std::string& hash)
{
    return element("saProposal", line("protocol", protocol) + line("encryption", encryption) + line("hash", hash));
}

const std::string KEY = element("manualKey", saProposal("NONE", "0", "1"));

TEST(SchemaAndReader, AgreeOnWhatEachTypeOfHostSelectorHas)
{
    const std::string              addr1 = line("addr1", "192.0.2.0");
    const std::vector<std::string> contents{
        "",
        addr1,
        line("addr2", "192.0.2.9"),
        addr1 + line("addr2", "192.0.2.9"),
        line("addr2", "192.0.2.9") + addr1,
        addr1 + line("length", "24"),
        line("length", "24"),
        addr1 + line("mask", "255.255.255.0"),
        addr1 + line("mask", "ffff:ffff::"),
        addr1 + line("mask", "none"),
        addr1 + line("length", "24") + line("mask", "255.255.255.0"),
        addr1 + line("addr2", "192.0.2.9") + line("length", "24"),
    };
    std::vector<std::string> documents;
    for (const char* family : __AddressFamilyNames__)
        for (const char* type : __AddressTypeNames__)
            for (const std::string& content : contents)
                documents.push_back(withHostSelector(
                    element("hostSelector", line("family", family) + line("selectorType", type) + content)));
    // Three families of NONE, LOCAL, ANY, MCAST, SINGLE and RANGE; two that have lengths, and masks.
    expectAgreement(documents, 3 * 6 + 2 + 2);
}

TEST(SchemaAndReader, AgreeOnTheOrderOfAProtocolSelectorWithPortsOrWithout)
{
    std::vector<std::string> documents;
    for (const char* protocol : {"0", "1", "6", "65535"})
        for (const char* dstPort : {"0", "80", "65535"})
            for (const char* srcPort : {"0", "1024"}) {
                const std::string ports = line("dstPort", dstPort) + line("srcPort", srcPort);
                const std::string ends  = line("direction", "IN") + line("mirrored", "MIRRORED");
                const std::string begin = line("protocol", protocol);
                for (const std::string& content :
                     {begin + line("name", "x") + ports + ends, begin + line("name", "x") + ends,
                      begin + ports + line("name", "x") + ends,
                      begin + line("name", "x") + line("dstPort", "80") + ends,
                      begin + line("name", "") + ports + ends})
                    documents.push_back(withProtocolSelector(element("protocolSelector", content)));
            }
    // Three protocols with five pairs of ports; and without any, which comes again with each of the six pairs.
    expectAgreement(documents, 3 * 5 + 4 * 6);
}

TEST(SchemaAndReader, AgreeOnWhatEachSPDActionAndKeyManagerHas)
{
    std::vector<std::string> contents{"", KEY, PHASE1 + PHASE2};
    for (const char* keyMgr : __IPsecKeyMgrNames__)
        for (const std::string& keying :
             {std::string(), KEY, PHASE1 + PHASE2, PHASE1, PHASE2, PHASE2 + PHASE1, KEY + KEY, KEY + PHASE1 + PHASE2})
            contents.push_back(line("keyMgr", keyMgr) + keying);
    contents.push_back(line("keyMgr", "NONE") + line("tunnelEndpoint", "192.0.2.1"));

    std::vector<std::string> documents;
    for (const char* spdAction : __SPDActionNames__)
        for (const std::string& endPoint : {std::string(), line("tunnelEndpoint", "192.0.2.1")})
            for (const std::string& content : contents)
                documents.push_back(withAction(line("spdAction", spdAction) + endPoint + content));
    // Three that have nothing, and two that have each of the three key managers.
    expectAgreement(documents, 3 + 2 * 3);
}

TEST(SchemaAndReader, AgreeOnTheCredentialsOfEachAuthenticationType)
{
    const std::string        psk = line("presharedKey", "key"), cert = line("localCert", "own.pem");
    const std::string        trust = line("peerTrust", "root.pem");
    std::vector<std::string> documents;
    for (const char* authType : __IKEAuthTypeNames__)
        for (const std::string& credentials : {std::string(), psk, cert, trust, cert + trust, trust + cert,
                                               psk + cert + trust, cert + trust + psk, psk + psk})
            for (const std::string& proposal : {std::string(), PROPOSAL, PROPOSAL + PROPOSAL})
                documents.push_back(
                    withAction(line("spdAction", "TRANSPORT") + line("keyMgr", "IKE") +
                               element("ikePhase1", line("authType", authType) + credentials + proposal) + PHASE2));
    expectAgreement(documents, 2);
}

TEST(SchemaAndReader, AgreeOnTheKeysOfEachProposal)
{
    const std::vector<std::string> parts{
        line("inboundESPSPI", "1") + line("outboundESPSPI", "2"),
        line("inboundAHSPI", "1") + line("outboundAHSPI", "2"),
        line("inboundDecrKey", "1") + line("outboundEncrKey", "2") + line("outboundEncrIV", "3"),
        line("inboundAuthKey", "1") + line("outboundAuthKey", "2"),
    };
    std::vector<std::string> documents;
    for (const char* protocol : __IPsecProtocolNames__)
        for (const char* encryption : {"0", "1", "2", "4294967295"})
            for (const char* hash : {"0", "1", "2", "4294967295"})
                for (unsigned int set = 0; set < 16; ++set) {
                    std::string content = saProposal(protocol, encryption, hash);
                    for (unsigned int part = 0; part < parts.size(); ++part)
                        content += (set >> part & 1U) != 0 ? parts[part] : "";
                    documents.push_back(withAction(line("spdAction", "TRANSPORT") + line("keyMgr", "MKM") +
                                                   element("manualKey", content)));
                }
    expectAgreement(documents, 4 * 4 * 4);
}

TEST(SchemaAndReader, AgreeOnPhasesWithAndWithoutOffers)
{
    const std::string        transform = line("transform", "IKE_AES_SHA"), offer = saProposal("ESP", "12", "1");
    std::vector<std::string> documents;
    for (const std::string& transforms : {std::string(), transform, transform + transform, offer})
        for (const std::string& offers : {std::string(), offer, offer + offer, transform})
            documents.push_back(withAction(line("spdAction", "TRANSPORT") + line("keyMgr", "IKE") +
                                           element("ikePhase1", line("authType", "PSK") + line("presharedKey", "key") +
                                                                    element("proposal", EXCHANGE + transforms)) +
                                           element("ikePhase2", EXCHANGE + offers)));
    expectAgreement(documents, 3 * 3);
}

} // namespace
} // namespace ipsecimpl
