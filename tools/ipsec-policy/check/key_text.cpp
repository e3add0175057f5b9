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
    // Keys are most of what is looked at in a configuration. Digits and letters come in no order that a processor could
    // foresee, so there is no branch here.
    unsigned int others = 0;
    for (const char c : key) {
        const auto         byte   = static_cast<unsigned char>(c);
        const unsigned int digit  = byte - static_cast<unsigned int>('0');
        const unsigned int letter = (byte | 0x20U) - static_cast<unsigned int>('a');
        others |= static_cast<unsigned int>(digit > 9) & static_cast<unsigned int>(letter > 5);
    }
    return !key.empty() && others == 0;
}
