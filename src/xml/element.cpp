#include "xml/element.h"

#include "xml/input.h"
#include "xml/number.h"
#include "xml/written_form.h"

#include <new>
#include <utility>

namespace ipsecimpl {

/// The parser's insides, for the readers here alone.
class ElementAccess {
  public:
    static std::istream&            stream(XMLParser& parser) { return parser.in_; }
    static std::stack<std::string>& tags(XMLParser& parser) { return parser.tags_; }
};

namespace {

/// Reads `<name>` if that comes next; else nothing.
bool takeStartTag(XMLParser& parser, std::string_view name)
{
    Input      in(ElementAccess::stream(parser));
    const Rest rest = matchStartTag(in.atHand(), name);
    if (rest != nullptr)
        in.consume(rest);
    return rest != nullptr;
}

/// Reads `</name>` if that comes next; else nothing.
bool takeEndTag(XMLParser& parser, std::string_view name)
{
    Input      in(ElementAccess::stream(parser));
    const Rest rest = matchEndTag(in.atHand(), name);
    if (rest != nullptr)
        in.consume(rest);
    return rest != nullptr;
}

} // namespace

int openElement(XMLParser& parser, std::string_view name)
{
    if (!takeStartTag(parser, name))
        return parser.parse_simple_tag(std::string(name));
    ElementAccess::tags(parser).emplace(name);
    return PARSE_CONTENT;
}

Leaf::Leaf(XMLParser& parser, std::string_view name)
{
    Input           in(ElementAccess::stream(parser));
    const LeafMatch leaf = matchLeaf(in.atHand(), name);
    if (leaf.rest != nullptr) {
        in.consume(leaf.rest);
        text_ = leaf.text;
    } else {
        own_  = parser.parse_tagged_value(std::string(name));
        text_ = own_;
    }
}

std::string readText(XMLParser& parser, std::string_view name)
{
    return std::string(Leaf(parser, name).text());
}

int readInt(XMLParser& parser, std::string_view name)
{
    return strtol32(Leaf(parser, name).text(), 0);
}

unsigned int readUnsigned(XMLParser& parser, std::string_view name)
{
    return strtoul32(Leaf(parser, name).text(), 0);
}

RepeatedElement::RepeatedElement(std::string name)
    : name_(std::move(name))
    , lent_(name_)
{
}

bool RepeatedElement::open(XMLParser& parser)
{
    if (!takeStartTag(parser, name_))
        return false;
    lent_ = name_; // allocates nothing if it has come back
    ElementAccess::tags(parser).push(std::move(lent_));
    return true;
}

void RepeatedElement::close(XMLParser& parser)
{
    // What is open need not be this element: a self-closed one inside is let through, and its parent's end tag is then
    // taken for its own.
    std::stack<std::string>& tags = ElementAccess::tags(parser);
    if (tags.empty() || tags.top() != name_ || !takeEndTag(parser, name_)) {
        parser.parse_end_tag();
        return;
    }
    lent_ = std::move(tags.top());
    tags.pop();
}

FlatElement::FlatElement(XMLParser& parser, std::string_view name)
    : parser_(parser)
{
    if (takeStartTag(parser, name))
        untold_ = name;
    else
        parser.parse_simple_tag(std::string(name));
}

FlatElement::~FlatElement()
{
    // An exception is on its way. If there is no memory to tell the parser, nobody can have asked for more.
    try {
        this->parser();
    } catch (const std::bad_alloc&) {
    }
}

bool FlatElement::takeLeaf(std::string_view& name, std::string_view& text)
{
    Input                  in(ElementAccess::stream(parser_));
    const std::string_view ahead = in.atHand();
    name                         = matchName(ahead);
    if (name.empty())
        return false;
    const LeafMatch leaf = matchLeaf(ahead, name);
    if (leaf.rest == nullptr || leaf.text.empty())
        return false;
    in.consume(leaf.rest);
    text = leaf.text;
    return true;
}

bool FlatElement::takeEnd()
{
    if (untold_.empty() || !takeEndTag(parser_, untold_))
        return false;
    untold_ = {};
    return true;
}

XMLParser& FlatElement::parser()
{
    if (!untold_.empty())
        ElementAccess::tags(parser_).emplace(std::exchange(untold_, {}));
    return parser_;
}

} // namespace ipsecimpl
