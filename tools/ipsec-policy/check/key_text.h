#ifndef IPSEC_POLICY_KEY_TEXT_H
#define IPSEC_POLICY_KEY_TEXT_H

/// \file
/// The texts of manual keys.

#include <ipsecimpl/actions.h>

#include <string>
#include <string_view>
#include <vector>

/// One of an action's manual keys.
struct KeyText {
    const char*        field; ///< its path, such as "manualKey/inboundAuthKey"
    const char*        what;  ///< in a sentence, such as "inbound authentication key"
    const std::string* key;
};

/// The keys that are in force: of each algorithm the inbound one, then the outbound one.
std::vector<KeyText> keysIn(const ipsecimpl::MKM& key);

/// Without the "0x" that may be in front.
std::string_view withoutPrefix(std::string_view key);

/// One digit at least, and nothing else.
bool isHexadecimal(std::string_view key);

#endif
