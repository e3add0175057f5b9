#include <ipsecimpl/selectors.h>

#include "enum/read_enum.h"
#include "enum/write_enum.h"
#include "selectors/order.h"
#include "xml/element.h"
#include "xml/number.h"

#include <optional>
#include <string_view>
#include <utility>

namespace ipsecimpl {
namespace {

/// The ports as comparison looks at them: for OUT the source port comes first.
struct Ports {
    unsigned short first;
    unsigned short second;
};

Ports portsOf(const ProtocolSelector& selector)
{
    if (selector.direction == PROTO_OUT)
        return {selector.srcPort, selector.dstPort};
    return {selector.dstPort, selector.srcPort};
}

/// -1 or 1 if just one of the two is the wildcard 0, which comes last; else 0.
int wildcardLast(unsigned short a, unsigned short b)
{
    return order(a == 0, b == 0);
}

/// The children, one after the other. The messages call them attributes.
class Children {
  public:
    explicit Children(XMLParser& parser)
        : element_(parser, "protocolSelector")
    {
    }

    /// Reads the next one, or the end of the element; then there is none.
    bool next()
    {
        if (element_.takeLeaf(tag, text))
            return true;
        if (element_.takeEnd())
            return false;

        XMLParser& parser = element_.parser();
        if (!parser.parse_tag(ownTag_)) {
            parser.parse_end_tag();
            return false;
        }
        if (parser.parse_tag_end() != PARSE_CONTENT)
            throw ParseError("invalid attributes or closing tag in <" + ownTag_ + ">");
        if (!parser.parse_data(ownText_))
            throw ParseError("missing data for <" + ownTag_ + ">");
        parser.parse_end_tag();
        tag  = ownTag_;
        text = ownText_;
        return true;
    }

    std::string_view tag;
    std::string_view text;

  private:
    FlatElement element_;
    std::string ownTag_;
    std::string ownText_;
};

/// The number as 32 bits hold it, of which the low 16 are kept.
unsigned short toNumber(std::string_view text)
{
    return static_cast<unsigned short>(static_cast<unsigned int>(strtol32(text, 10)) & 0xFFFFU);
}

bool toMirrored(std::string_view text)
{
    if (text != "MIRRORED" && text != "NOTMIRRORED")
        throw ParseError("required attribute 'mirrored' must be MIRRORED or NOTMIRRORED");
    return text == "MIRRORED";
}

template <class Value>
void requireOnce(const std::optional<Value>& child, std::string_view tag)
{
    if (child)
        throw ParseError("attribute '" + std::string(tag) + "' can only appear once");
}

} // namespace

ProtocolSelector::ProtocolSelector(std::string selectorName, unsigned short number, unsigned short dst,
                                   unsigned short src, Direction dir, bool mirror)
    : name(std::move(selectorName))
    , protocol(number)
    , dstPort(dst)
    , srcPort(src)
    , direction(dir)
    , mirrored(mirror)
{
}

ProtocolSelector::ProtocolSelector(unsigned short number, unsigned short dst, unsigned short src, Direction dir,
                                   bool mirror)
    : ProtocolSelector("Protocol", number, dst, src, dir, mirror)
{
}

// The name is left out on purpose.
ProtocolSelector& ProtocolSelector::operator=(const ProtocolSelector& other) noexcept
{
    protocol  = other.protocol;
    dstPort   = other.dstPort;
    srcPort   = other.srcPort;
    direction = other.direction;
    mirrored  = other.mirrored;
    return *this;
}

int ProtocolSelector::compare(const ProtocolSelector& other) const
{
    if (const int result = wildcardLast(protocol, other.protocol))
        return result;

    const bool  noPorts = protocol == 0; // and so is the other's
    const Ports ports   = noPorts ? Ports{0, 0} : portsOf(*this);
    const Ports others  = noPorts ? Ports{0, 0} : portsOf(other);
    if (const int result = wildcardLast(ports.first, others.first))
        return result;
    if (const int result = wildcardLast(ports.second, others.second))
        return result;

    if (const int result = order(mirrored, other.mirrored))
        return result;
    if (const int result = order(direction, other.direction))
        return result;
    if (const int result = order(protocol, other.protocol))
        return result;
    if (const int result = order(ports.first, others.first))
        return result;
    return order(ports.second, others.second);
}

bool ProtocolSelector::operator==(const ProtocolSelector& other) const
{
    const bool samePorts = protocol == 0 || (dstPort == other.dstPort && srcPort == other.srcPort);
    return protocol == other.protocol && samePorts && direction == other.direction && mirrored == other.mirrored;
}

ProtocolSelector ProtocolSelector::importXML(XMLParser& parser)
{
    std::optional<unsigned short> protocol;
    std::optional<std::string>    name;
    std::optional<unsigned short> dstPort;
    std::optional<unsigned short> srcPort;
    std::optional<Direction>      direction;
    std::optional<bool>           mirrored;

    for (Children children(parser); children.next();) {
        const std::string_view tag  = children.tag;
        const std::string_view text = children.text;
        if (tag == "protocol") {
            requireOnce(protocol, tag);
            protocol = toNumber(text);
        } else if (tag == "name") {
            requireOnce(name, tag);
            name.emplace(text);
        } else if (tag == "dstPort") {
            requireOnce(dstPort, tag);
            dstPort = toNumber(text);
        } else if (tag == "srcPort") {
            requireOnce(srcPort, tag);
            srcPort = toNumber(text);
        } else if (tag == "direction") {
            requireOnce(direction, tag);
            // An unknown word leaves here as std::invalid_argument: the group's reader has the message for it.
            direction = Direction(Direction::to_int(std::string(text)));
        } else if (tag == "mirrored") {
            requireOnce(mirrored, tag);
            mirrored = toMirrored(text);
        } else {
            throw ParseError("unknown attribute: '" + std::string(tag) + "'");
        }
    }

    if (!protocol)
        throw ParseError("attribute 'protocol' is required");
    if (*protocol == 0 && (dstPort.value_or(0) != 0 || srcPort.value_or(0) != 0))
        throw ParseError("nonzero 'srcPort'/'dstProt' requires nonzero 'protocol'"); // misspelt, as it always was
    if (!direction)
        throw ParseError("attribute 'direction' is required");
    if (!mirrored)
        throw ParseError("attribute 'mirrored' is required");
    return ProtocolSelector(std::move(name).value_or(std::string()), *protocol, dstPort.value_or(0),
                            srcPort.value_or(0), *direction, *mirrored);
}

std::ostream& ProtocolSelector::exportXML(std::ostream& os) const
{
    openTag(os, "protocolSelector");
    writeLeaf(os, "protocol", protocol);
    writeLeaf(os, "name", name);
    if (protocol != 0 && (dstPort != 0 || srcPort != 0)) {
        writeLeaf(os, "dstPort", dstPort);
        writeLeaf(os, "srcPort", srcPort);
    }
    writeLeaf(os, "direction", direction);
    writeLeaf(os, "mirrored", mirrored ? "MIRRORED" : "NOTMIRRORED");
    return closeTag(os, "protocolSelector");
}

} // namespace ipsecimpl
