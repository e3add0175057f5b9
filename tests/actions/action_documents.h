#ifndef IPSECIMPL_TESTS_ACTIONS_ACTION_DOCUMENTS_H
#define IPSECIMPL_TESTS_ACTIONS_ACTION_DOCUMENTS_H

/// \file
/// The documents of actions in every shape.

#include "support/documents.h"
#include "actions/samples.h"

#include <string>
#include <vector>

namespace ipsecimpl {

/// The leaves that every action has, in their order.
inline const std::vector<std::string> HEAD_TAGS = {"changeCount",  "name", "builtinName", "descr",
                                                   "builtinDescr", "type", "state",       "spdAction"};

inline const std::string ENDPOINT = "<tunnelEndpoint>192.0.2.1</tunnelEndpoint>\n";

/// An action with this SPD action and `inForce` behind it.
inline std::string document(const std::string& spdAction, const std::string& inForce)
{
    return "<action>\n"
           "<changeCount>1</changeCount>\n"
           "<name>name</name>\n"
           "<builtinName>2</builtinName>\n"
           "<descr>descr</descr>\n"
           "<builtinDescr>3</builtinDescr>\n"
           "<type>4</type>\n"
           "<state>5</state>\n"
           "<spdAction>" +
           spdAction + "</spdAction>\n" + inForce + "</action>\n";
}

inline std::string keyMgr(const std::string& word)
{
    return leaf("keyMgr", word) + "\n";
}

/// One document for each set of children that an action can have, and one with an empty text.
inline const std::vector<std::string>& shapes()
{
    static const std::vector<std::string> all = {
        document("NONE", ""),
        document("BYPASS", ""),
        document("DISCARD", ""),
        document("TRANSPORT", keyMgr("NONE")),
        document("TRANSPORT", keyMgr("MKM") + KEY_DOCUMENT),
        document("TRANSPORT", keyMgr("IKE") + PSK_DOCUMENT + PHASE2_DOCUMENT),
        document("TRANSPORT", keyMgr("IKE") + RSA_DOCUMENT + PHASE2_DOCUMENT),
        document("TUNNEL", ENDPOINT + keyMgr("NONE")),
        document("TUNNEL", ENDPOINT + keyMgr("MKM") + KEY_DOCUMENT),
        document("TUNNEL", ENDPOINT + keyMgr("IKE") + PSK_DOCUMENT + PHASE2_DOCUMENT),
        document("TUNNEL", ENDPOINT + keyMgr("IKE") + RSA_DOCUMENT + PHASE2_DOCUMENT),
        document("TUNNEL", "<tunnelEndpoint></tunnelEndpoint>\n" + keyMgr("NONE")),
    };
    return all;
}

} // namespace ipsecimpl

#endif
