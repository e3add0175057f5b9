#include "selector_text.h"

#include "address.h"
#include "edit_words.h"
#include "enum_text.h"
#include "plain_number.h"
#include "text.h"

#include <cstddef>
#include <optional>
#include <vector>

using namespace ipsecimpl;

namespace {

struct Symbol {
    const char*   word;
    AddressFamily family;
    AddressType   type;
};

const Symbol SYMBOLS[] = {
    {"any", HOST_INETANY, HOST_ANY},     {"any4", HOST_INET, HOST_ANY},     {"any6", HOST_INET6, HOST_ANY},
    {"local", HOST_INETANY, HOST_LOCAL}, {"local4", HOST_INET, HOST_LOCAL}, {"local6", HOST_INET6, HOST_LOCAL},
    {"mcast", HOST_INETANY, HOST_MCAST}, {"mcast4", HOST_INET, HOST_MCAST}, {"mcast6", HOST_INET6, HOST_MCAST},
    {"none", HOST_INETANY, HOST_NONE},   {"none4", HOST_INET, HOST_NONE},   {"none6", HOST_INET6, HOST_NONE},
};

Address requiredAddress(const std::string& text)
{
    if (const std::optional<Address> address = addressIn(text))
        return *address;
    throw commandFailure('\'' + printable(text) + "' is not an IPv4 or IPv6 address");
}

HostSelector readRange(const std::string& text, std::size_t dash)
{
    const std::string first = text.substr(0, dash);
    const std::string last  = text.substr(dash + 1);
    const Address     from  = requiredAddress(first);
    const Address     to    = requiredAddress(last);
    const std::string wrong = '\'' + printable(text) + "' is not a range: ";
    if (from.family != to.family)
        throw commandFailure(wrong + "one end is IPv4, the other IPv6");
    if (to.bytes < from.bytes)
        throw commandFailure(wrong + "the last address comes before the first");
    return HostSelector(from.family, HOST_RANGE, first, last);
}

HostSelector readSubnet(const std::string& text, std::size_t slash)
{
    const std::string   subnet  = text.substr(0, slash);
    const std::string   extent  = text.substr(slash + 1);
    const Address       address = requiredAddress(subnet);
    const AddressFamily family  = address.family;
    const std::string   wrong   = '\'' + printable(text) + "' is not a subnet: ";
    if (extent.find_first_of(".:") != std::string::npos) {
        const std::optional<Address> mask = addressIn(extent);
        if (!mask || mask->family != family)
            throw commandFailure(wrong + "what follows the / is no " + nameOf(family) + " netmask");
        if (!lengthOf(*mask))
            throw commandFailure(wrong + "the netmask has holes");
        return HostSelector(family, HOST_SUBNET_MASK, subnet, extent);
    }
    const auto length = plainNumber(extent);
    if (!length || *length < 0 || *length > bitsOf(family))
        throw commandFailure(wrong + "a prefix of " + nameOf(family) + " has 0 to " + std::to_string(bitsOf(family)) +
                             " bits");
    return HostSelector(family, HOST_SUBNET_LENGTH, subnet, static_cast<int>(*length));
}

/// The spelling of one word.
HostSelector readPlain(const std::string& text)
{
    for (const Symbol& symbol : SYMBOLS)
        if (text == symbol.word)
            return HostSelector(symbol.family, symbol.type, "", "");
    if (const std::size_t slash = text.find('/'); slash != std::string::npos)
        return readSubnet(text, slash);
    if (const std::size_t dash = text.find('-'); dash != std::string::npos)
        return readRange(text, dash);
    return HostSelector(requiredAddress(text).family, HOST_SINGLE, text, "");
}

/// The tags of what a selector of this type has in a document.
std::vector<const char*> tagsOf(const AddressType& type)
{
    if (type == HOST_SINGLE)
        return {"addr1"};
    if (type == HOST_RANGE)
        return {"addr1", "addr2"};
    if (type == HOST_SUBNET_LENGTH)
        return {"addr1", "length"};
    if (type == HOST_SUBNET_MASK)
        return {"addr1", "mask"};
    return {};
}

/// The spelling for everything, with the words and tags of the document.
HostSelector readExplicit(const std::vector<std::string_view>& words)
{
    if (const std::string first = unquoted(words[0]); addressIn(first))
        throw commandFailure('\'' + first +
                             "' is a selector alone: others follow behind a comma, and a range has no blanks in it");
    const auto family = readEnum<AddressFamily>(unquoted(words[0]), "address family");
    const auto type   = readEnum<AddressType>(unquoted(words[1]), "selectorType");
    const auto tags   = tagsOf(type);

    bool                     fits  = words.size() == tags.size() + 2;
    std::string              usage = wordOf(family) + (' ' + std::string(wordOf(type)));
    std::vector<std::string> texts(2);
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const auto assignment = fits ? assignmentIn(words[i + 2]) : std::nullopt;
        fits                  = assignment && assignment->name == tags[i];
        if (fits)
            texts[i] = unquoted(assignment->value);
        usage += ' ' + std::string(tags[i]) + "=...";
    }
    if (!fits)
        throw commandFailure("such a selector is written " + usage);
    if (type != HOST_SUBNET_LENGTH)
        return HostSelector(family, type, texts[0], texts[1]);

    const auto length = plainNumber(texts[1]);
    if (!length || *length != static_cast<int>(*length))
        throw commandFailure('\'' + printable(texts[1]) + "' is no length (-2147483648 to 2147483647)");
    return HostSelector(family, type, texts[0], static_cast<int>(*length));
}

const char* symbolOf(const HostSelector& selector)
{
    for (const Symbol& symbol : SYMBOLS)
        if (selector.family == symbol.family && selector.selectorType == symbol.type)
            return symbol.word;
    return nullptr;
}

/// Whether the selector is one that the spelling of one word may mean. It is what the reader of that lets pass: to have
/// the text read again would take too long for the many of a large configuration.
bool isPlain(const HostSelector& selector)
{
    const AddressFamily& family = selector.family;
    if (family == HOST_INETANY)
        return false;
    const std::optional<Address> first = addressIn(selector.addr1, family);
    if (!first)
        return false;
    if (selector.selectorType == HOST_SUBNET_LENGTH)
        return selector.length >= 0 && selector.length <= bitsOf(family);
    if (selector.selectorType == HOST_SINGLE)
        return true;
    const std::optional<Address> second = addressIn(selector.addr2, family);
    return second &&
           (selector.selectorType == HOST_RANGE ? first->bytes <= second->bytes : lengthOf(*second).has_value());
}

std::string plainText(const HostSelector& selector)
{
    if (selector.selectorType == HOST_SUBNET_LENGTH)
        return selector.addr1 + '/' + std::to_string(selector.length);
    if (selector.selectorType == HOST_SUBNET_MASK)
        return selector.addr1 + '/' + selector.addr2;
    return selector.selectorType == HOST_RANGE ? selector.addr1 + '-' + selector.addr2 : selector.addr1;
}

std::string explicitText(const HostSelector& selector)
{
    std::string text = wordOf(selector.family) + (' ' + std::string(wordOf(selector.selectorType)));
    const auto  tags = tagsOf(selector.selectorType);
    if (!tags.empty())
        text += " addr1=" + quotedWord(selector.addr1);
    if (selector.selectorType == HOST_SUBNET_LENGTH)
        text += " length=" + std::to_string(selector.length);
    else if (tags.size() > 1)
        text += ' ' + std::string(tags[1]) + '=' + quotedWord(selector.addr2);
    return text;
}

} // namespace

std::string textOf(const HostSelector& selector)
{
    if (const char* const symbol = symbolOf(selector); symbol != nullptr)
        return symbol;
    return isPlain(selector) ? plainText(selector) : explicitText(selector);
}

HostSelector readHostSelector(std::string_view text)
{
    const std::vector<std::string_view> words = splitWords(text);
    if (words.empty())
        throw commandFailure("a selector is missing");
    return words.size() == 1 ? readPlain(unquoted(words[0])) : readExplicit(words);
}
