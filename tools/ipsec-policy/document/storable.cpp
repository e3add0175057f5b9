#include "storable.h"

#include "stored_text.h"

#include <type_traits>

using namespace ipsecimpl;

namespace {

const char* obstacleIn(const HostSelector& selector)
{
    const char* const first = obstacleToStoring(std::string_view(selector.addr1));
    return first != nullptr ? first : obstacleToStoring(std::string_view(selector.addr2));
}

const char* obstacleIn(const ProtocolSelector& selector)
{
    return selector.name.empty() ? "a document cannot hold a selector without a name"
                                 : obstacleToStoring(std::string_view(selector.name));
}

template <class Selector>
const char* obstacleIn(const std::set<Selector>& selectors)
{
    for (const Selector& selector : selectors)
        if (const char* const obstacle = obstacleIn(selector); obstacle != nullptr)
            return obstacle;
    return nullptr;
}

} // namespace

const char* obstacleToStoring(std::string_view text)
{
    if (holdsMarkup(text))
        return "a document cannot hold a text with '<' in it";
    if (hasOuterWhiteSpace(text))
        return "a document cannot hold a text with white space at an end";
    return nullptr;
}

const char* obstacleToStoring(const FieldValue& value)
{
    if (const auto* const text = std::get_if<std::string_view>(&value))
        return obstacleToStoring(*text);
    if (const auto* const hosts = std::get_if<const std::set<HostSelector>*>(&value))
        return obstacleIn(**hosts);
    if (const auto* const traffic = std::get_if<const std::set<ProtocolSelector>*>(&value))
        return obstacleIn(**traffic);
    return nullptr;
}
