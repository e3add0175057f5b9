#include "key_text.h"

#include "model.h"

using namespace ipsecimpl;

std::vector<KeyText> keysIn(const MKM& key)
{
    std::vector<KeyText> keys;
    keys.reserve(4);
    if (hasEncryption(key.saProposal)) {
        keys.push_back({"manualKey/inboundDecrKey", "inbound decryption key", &key.inboundDecrKey});
        keys.push_back({"manualKey/outboundEncrKey", "outbound encryption key", &key.outboundEncrKey});
    }
    if (hasHash(key.saProposal)) {
        keys.push_back({"manualKey/inboundAuthKey", "inbound authentication key", &key.inboundAuthKey});
        keys.push_back({"manualKey/outboundAuthKey", "outbound authentication key", &key.outboundAuthKey});
    }
    return keys;
}

std::string_view withoutPrefix(std::string_view key)
{
    const bool hasPrefix = key.size() > 2 && key[0] == '0' && (key[1] == 'x' || key[1] == 'X');
    return hasPrefix ? key.substr(2) : key;
}

bool isHexadecimal(std::string_view key)
{
    return !key.empty() && key.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}
