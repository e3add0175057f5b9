#include <ipsecimpl/selectors.h>

#include "enum/read_enum.h"
#include "enum/write_enum.h"
#include "selectors/order.h"
#include "xml/element.h"
#include "xml/joined.h"
#include "xml/number.h"

#include <bitset>
#include <string>
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

/// The children, in the order in which they are written. The messages call them attributes.
enum Child { PROTOCOL, NAME, DST_PORT, SRC_PORT, DIRECTION, MIRRORED };

const char* const childNames[] = {"protocol", "name", "dstPort", "srcPort", "direction", "mirrored"};

/// Reads the children in any order, each once.
class Children {
  public:
    explicit Children(XMLParser& parser)
        : element_(parser, "protocolSelector")
    {
    }

    /// Reads the next one, or the end of the element; then there is none.
    bool next();

    Child            child() const { return child_; } ///< which it is
    std::string_view text() const { return text_; }   ///< its text, not empty

    bool seen(Child child) const { return seen_[child]; }

  private:
    bool readNext();
    void identify();

    FlatElement      element_;
    std::string_view tag_;
    std::string_view text_;
    std::string      ownTag_; // what the views show, if it is not in the stream's buffer
    std::string      ownText_;
    Child            child_ = PROTOCOL;
    std::bitset<6>   seen_;
};

bool Children::next()
{
    if (element_.takeLeaf(tag_, text_) || (!element_.takeEnd() && readNext())) {
        identify();
        return true;
    }
    return false;
}

/// Reads what is not in the written form.
bool Children::readNext()
{
    XMLParser& parser = element_.parser();
    if (!parser.parse_tag(ownTag_)) {
        parser.parse_end_tag();
        return false;
    }
    if (parser.parse_tag_end() != PARSE_CONTENT)
        throw ParseError(joined({"invalid attributes or closing tag in <", ownTag_, ">"}));
    if (!parser.parse_data(ownText_))
        throw ParseError(joined({"missing data for <", ownTag_, ">"}));
    parser.parse_end_tag();
    tag_  = ownTag_;
    text_ = ownText_;
    return true;
}

void Children::identify()
{
    for (child_ = PROTOCOL; tag_ != childNames[child_]; child_ = static_cast<Child>(child_ + 1))
        if (child_ == MIRRORED)
            throw ParseError(joined({"unknown attribute: '", tag_, "'"}));
    if (seen_[child_])
        throw ParseError(joined({"attribute '", tag_, "' can only appear once"}));
    seen_.set(child_);
}

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
    ProtocolSelector selector("", 0, 0, 0, PROTO_IN, false);
    Children         children(parser);
    while (children.next()) {
        const std::string_view text = children.text();
        switch (children.child()) {
        case PROTOCOL:
            selector.protocol = toNumber(text);
            break;
        case NAME:
            selector.name = text;
            break;
        case DST_PORT:
            selector.dstPort = toNumber(text);
            break;
        case SRC_PORT:
            selector.srcPort = toNumber(text);
            break;
        case DIRECTION:
            // An unknown word leaves here as std::invalid_argument: the group's reader has the message for it.
            selector.direction = Direction(numberOf(text, NamesOf<Direction>::table));
            break;
        case MIRRORED:
            selector.mirrored = toMirrored(text);
            break;
        }
    }

    if (!children.seen(PROTOCOL))
        throw ParseError("attribute 'protocol' is required");
    if (selector.protocol == 0 && (selector.dstPort != 0 || selector.srcPort != 0))
        throw ParseError("nonzero 'srcPort'/'dstProt' requires nonzero 'protocol'"); // misspelt, as it always was
    if (!children.seen(DIRECTION))
        throw ParseError("attribute 'direction' is required");
    if (!children.seen(MIRRORED))
        throw ParseError("attribute 'mirrored' is required");
    return selector;
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
