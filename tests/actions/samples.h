#ifndef IPSECIMPL_TESTS_ACTIONS_SAMPLES_H
#define IPSECIMPL_TESTS_ACTIONS_SAMPLES_H

/// \file
/// Elements with no field at its default, as documents, and texts that show every field of an object, in force or not.

#include "support/xml.h"

#include <ipsecimpl/actions.h>

#include <sstream>
#include <string>

namespace ipsecimpl {

inline const std::string KEY_DOCUMENT = "<manualKey>\n"
                                        "<saProposal>\n"
                                        "<protocol>ESP+AH</protocol>\n"
                                        "<encryption>12</encryption>\n"
                                        "<hash>3</hash>\n"
                                        "</saProposal>\n"
                                        "<inboundESPSPI>4096</inboundESPSPI>\n"
                                        "<outboundESPSPI>4097</outboundESPSPI>\n"
                                        "<inboundAHSPI>4098</inboundAHSPI>\n"
                                        "<outboundAHSPI>4099</outboundAHSPI>\n"
                                        "<inboundDecrKey>0xd1</inboundDecrKey>\n"
                                        "<outboundEncrKey>0xe2</outboundEncrKey>\n"
                                        "<outboundEncrIV>0x13</outboundEncrIV>\n"
                                        "<inboundAuthKey>0xa4</inboundAuthKey>\n"
                                        "<outboundAuthKey>0xb5</outboundAuthKey>\n"
                                        "</manualKey>\n";

inline const std::string PROPOSAL_DOCUMENT = "<proposal>\n"
                                             "<dhGroup>G14</dhGroup>\n"
                                             "<keyLifetime>480</keyLifetime>\n"
                                             "<keyLifetimeUnits>MINS</keyLifetimeUnits>\n"
                                             "<transform>IKE_3DES_SHA</transform>\n"
                                             "<transform>IKE_AES_SHA</transform>\n"
                                             "<transform>IKE_3DES_SHA</transform>\n"
                                             "</proposal>\n";

inline const std::string PSK_DOCUMENT = "<ikePhase1>\n"
                                        "<authType>PSK</authType>\n"
                                        "<presharedKey>secret</presharedKey>\n" +
                                        PROPOSAL_DOCUMENT + "</ikePhase1>\n";

inline const std::string RSA_DOCUMENT = "<ikePhase1>\n"
                                        "<authType>RSA</authType>\n"
                                        "<localCert>own.pem</localCert>\n"
                                        "<peerTrust>root.pem</peerTrust>\n" +
                                        PROPOSAL_DOCUMENT + "</ikePhase1>\n";

inline const std::string PHASE2_DOCUMENT = "<ikePhase2>\n"
                                           "<dhGroup>G2</dhGroup>\n"
                                           "<keyLifetime>8</keyLifetime>\n"
                                           "<keyLifetimeUnits>HRS</keyLifetimeUnits>\n"
                                           "<saProposal>\n"
                                           "<protocol>ESP</protocol>\n"
                                           "<encryption>5</encryption>\n"
                                           "<hash>6</hash>\n"
                                           "</saProposal>\n"
                                           "<saProposal>\n"
                                           "<protocol>AH</protocol>\n"
                                           "<encryption>0</encryption>\n"
                                           "<hash>2</hash>\n"
                                           "</saProposal>\n"
                                           "</ikePhase2>\n";

inline MKM sampleKey()
{
    MKM key;
    key.saProposal      = IPsecProposal(IPSEC_ESP_AH, 12, 3);
    key.inboundESPSPI   = 4096;
    key.outboundESPSPI  = 4097;
    key.inboundAHSPI    = 4098;
    key.outboundAHSPI   = 4099;
    key.inboundDecrKey  = "0xd1";
    key.outboundEncrKey = "0xe2";
    key.outboundEncrIV  = "0x13";
    key.inboundAuthKey  = "0xa4";
    key.outboundAuthKey = "0xb5";
    return key;
}

inline IKEPhase1Proposal sampleProposal()
{
    return IKEPhase1Proposal({IKE_3DES_SHA1, IKE_AESCBC_SHA1, IKE_3DES_SHA1}, DH_GROUP_14, 480, KEYLIFETIME_MINS);
}

inline IKEPhase1 samplePhase1(const IKEAuthType& authType)
{
    return IKEPhase1(authType, "own.pem", "root.pem", "secret", sampleProposal());
}

inline IKEPhase2 samplePhase2()
{
    return IKEPhase2({IPsecProposal(IPSEC_ESP, 5, 6), IPsecProposal(IPSEC_AH, 0, 2)}, DH_GROUP_2, 8, KEYLIFETIME_HRS);
}

/// All fields of `key`, one in a line.
inline std::string everythingOf(const MKM& key)
{
    std::ostringstream out;
    out << written(key.saProposal) << key.inboundESPSPI << '\n'
        << key.inboundAHSPI << '\n'
        << key.inboundDecrKey << '\n'
        << key.inboundAuthKey << '\n'
        << key.outboundESPSPI << '\n'
        << key.outboundAHSPI << '\n'
        << key.outboundEncrKey << '\n'
        << key.outboundAuthKey << '\n'
        << key.outboundEncrIV << '\n';
    return out.str();
}

/// Type, proposal, and the credentials of both types.
inline std::string everythingOf(const IKEPhase1& phase1)
{
    IKEPhase1 copy(phase1);
    copy.authTypeSet(IKE_AUTH_PSK);
    const std::string psk = written(copy);
    copy.authTypeSet(IKE_AUTH_RSA);
    return written(phase1) + psk + written(copy);
}

/// The document, and behind it what it leaves out: key manager, end point and keying objects that are not in force. A
/// built-in action shows only those that its getters allow: no call can bring the others to light.
inline std::string everythingOf(const IPsecAction& action)
{
    std::string text = written(action);
    const auto  show = [&text](auto&& get) {
        try {
            text += get();
        } catch (const invalid_operation& error) {
            text += error.what();
        }
        text += '\n';
    };
    const auto showKeying = [&show](const IPsecAction& shown) {
        show([&] { return everythingOf(shown.manualKeyGet()); });
        show([&] { return everythingOf(shown.ikePhase1Get()); });
        show([&] { return written(shown.ikePhase2Get()); });
    };

    show([&] { return action.tunnelEndpointGet(); });
    showKeying(action);
    if (!action.isBuiltIn()) {
        IPsecAction copy(action);
        copy.spdActionSet(SPD_TUNNEL);
        text += written(copy);
        copy.keyMgrSet(KEYMGR_MKM);
        showKeying(copy);
        copy.keyMgrSet(KEYMGR_IKE);
        showKeying(copy);
    }
    return text;
}

} // namespace ipsecimpl

#endif
