#include "tag.h"

#include <array>
#include <stdexcept>
#include <string>

namespace bench {
namespace {

// clang-format off
constexpr std::array<std::string_view, tagCount> names = {
    "ipsec", "hostGroups", "protocolGroups", "actions", "policies",
    "nexthostGroup", "nextprotocolGroup", "nextaction", "nextpolicy",
    "hostGroupEntry", "protocolGroupEntry", "actionEntry", "policyEntry", "id",
    "hostGroup", "protocolGroup", "action", "policy",
    "name", "builtinName", "descr", "builtinDescr", "selectors",
    "hostSelector", "family", "selectorType", "addr1", "addr2", "length", "mask",
    "protocolSelector", "protocol", "dstPort", "srcPort", "direction", "mirrored",
    "changeCount", "type", "state", "spdAction", "tunnelEndpoint", "keyMgr",
    "manualKey", "inboundESPSPI", "outboundESPSPI", "inboundAHSPI", "outboundAHSPI",
    "inboundDecrKey", "outboundEncrKey", "outboundEncrIV", "inboundAuthKey", "outboundAuthKey",
    "ikePhase1", "authType", "presharedKey", "localCert", "peerTrust", "proposal", "transform",
    "ikePhase2", "saProposal", "dhGroup", "keyLifetime", "keyLifetimeUnits", "encryption", "hash",
    "hostGroupID", "protocolGroupID", "actionID",
};
// clang-format on

/// A small hash table with open addressing: cheaper than a general one for names that are known beforehand.
class Table {
  public:
    constexpr Table()
    {
        for (std::size_t tag = 0; tag < tagCount; ++tag) {
            std::size_t place = placeOf(names[tag]);
            while (tags_[place] != empty)
                place = (place + 1) % size;
            tags_[place] = static_cast<unsigned char>(tag);
        }
    }

    /// The number of the tag, or `empty`.
    std::size_t find(std::string_view name) const
    {
        std::size_t place = placeOf(name);
        while (tags_[place] != empty && names[tags_[place]] != name)
            place = (place + 1) % size;
        return tags_[place];
    }

    static constexpr unsigned char empty = 255;

  private:
    static constexpr std::size_t size = 512;

    static constexpr std::size_t placeOf(std::string_view name)
    {
        std::size_t hash = name.size();
        if (!name.empty())
            hash = hash * 29 + static_cast<unsigned char>(name.front()) * 7 +
                   static_cast<unsigned char>(name[name.size() / 2]) * 3 + static_cast<unsigned char>(name.back());
        return hash % size;
    }

    static constexpr std::array<unsigned char, size> allEmpty()
    {
        std::array<unsigned char, size> tags{};
        for (unsigned char& tag : tags)
            tag = empty;
        return tags;
    }

    std::array<unsigned char, size> tags_ = allEmpty();
};

constexpr Table table;

} // namespace

Tag toTag(std::string_view name)
{
    const std::size_t found = table.find(name);
    if (found == Table::empty)
        throw std::runtime_error("unknown element <" + std::string(name) + ">");
    return static_cast<Tag>(found);
}

} // namespace bench
