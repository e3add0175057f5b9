#include "leaf_words.h"

#include "enum_text.h"

#include <algorithm>
#include <iterator>

using namespace ipsecimpl;

namespace {

const std::string_view SECRETS[] = {
    "presharedKey", "inboundDecrKey", "outboundEncrKey", "outboundEncrIV", "inboundAuthKey", "outboundAuthKey",
};

const std::string_view DECIMAL_NUMBERS[] = {
    "id", "nexthostGroup", "nextprotocolGroup", "nextaction", "nextpolicy", "protocol", "dstPort", "srcPort",
};

const std::string_view OTHER_NUMBERS[] = {
    "builtinName",   "builtinDescr",  "length",          "changeCount",
    "type",          "state",         "keyLifetime",     "encryption",
    "hash",          "inboundESPSPI", "outboundESPSPI",  "inboundAHSPI",
    "outboundAHSPI", "hostGroupID",   "protocolGroupID", "actionID",
};

const struct {
    std::string_view tag;
    std::vector<std::string> (*words)();
} ENUMERATIONS[] = {
    {"family", wordsOf<AddressFamily>},
    {"selectorType", wordsOf<AddressType>},
    {"direction", wordsOf<Direction>},
    {"spdAction", wordsOf<SPDAction>},
    {"keyMgr", wordsOf<IPsecKeyMgr>},
    {"authType", wordsOf<IKEAuthType>},
    {"dhGroup", wordsOf<DHGroup>},
    {"keyLifetimeUnits", wordsOf<KeyLifetimeUnits>},
    {"transform", wordsOf<IKEPhase1Transform>},
    {"protocol", wordsOf<IPsecProtocol>}, // of an SA proposal: elsewhere it is a number, which is never refused
};

template <std::size_t N>
bool isIn(const std::string_view (&words)[N], std::string_view word)
{
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

} // namespace

bool isSecretTag(std::string_view tag)
{
    const std::size_t SHORTEST = 12; // nearly all tags are shorter
    return tag.size() >= SHORTEST && isIn(SECRETS, tag);
}

bool isNumberTag(std::string_view tag)
{
    return isIn(OTHER_NUMBERS, tag) || isDecimalTag(tag);
}

bool isDecimalTag(std::string_view tag)
{
    return isIn(DECIMAL_NUMBERS, tag);
}

std::vector<std::string> wordsIn(std::string_view tag)
{
    for (const auto& enumeration : ENUMERATIONS)
        if (tag == enumeration.tag)
            return enumeration.words();
    return {};
}
