#ifndef IPSECIMPL_TESTS_TOOLS_SOURCE_DOCUMENTS_H
#define IPSECIMPL_TESTS_TOOLS_SOURCE_DOCUMENTS_H

#include "program.h"

#include <string>

inline const std::string PROPOSAL = "<proposal><dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime>"
                                    "<keyLifetimeUnits>MINS</keyLifetimeUnits><transform>IKE_AES_SHA</transform>"
                                    "<transform>IKE_3DES_SHA</transform></proposal>";

inline const std::string PHASES =
    "<ikePhase1><authType>PSK</authType><presharedKey>Kq7Zm</presharedKey>" + PROPOSAL +
    "</ikePhase1><ikePhase2><dhGroup>G14</dhGroup><keyLifetime>5</keyLifetime>"
    "<keyLifetimeUnits>KB</keyLifetimeUnits><saProposal><protocol>ESP</protocol>"
    "<encryption>12</encryption><hash>3</hash></saProposal><saProposal><protocol>AH</protocol>"
    "<encryption>0</encryption><hash>4</hash></saProposal></ikePhase2>";

/// A document with action 3, whose phases are given.
inline std::string ikeAction(const std::string& phases)
{
    return document(
        "", "", entry("action", 3, action("a", "", "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr>" + phases)));
}

#endif
