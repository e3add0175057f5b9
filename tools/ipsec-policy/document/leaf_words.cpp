#include "leaf_words.h"

#include <algorithm>
#include <iterator>

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
