#include <ipsecimpl/xml.h>

#include "xml/character.h"
#include "xml/input.h"
#include "xml/joined.h"
#include "xml/number.h"
#include "xml/written_form.h"

#include <cstddef>

namespace ipsecimpl {
namespace {

/// A character for a message; the end of input shows as the byte 0xFF.
std::string shown(int c)
{
    return std::string(1, std::char_traits<char>::to_char_type(c));
}

bool readName(Input& in, std::string& name)
{
    name.clear();
    in.appendUntil(name, [](int c) { return !isTagChar(c); });
    return !name.empty();
}

} // namespace

XMLParser::XMLParser(std::istream& in)
    : in_(in)
{
    in_.unsetf(std::ios_base::skipws);
}

XMLParser::~XMLParser() = default;

bool XMLParser::isNameChar(int c)
{
    return ipsecimpl::isNameChar(c);
}

void XMLParser::trim(std::string& s)
{
    while (!s.empty() && isSpace(toByte(s.back())))
        s.pop_back();
}

bool XMLParser::parse_name(std::string& name)
{
    Input in(in_);
    return readName(in, name);
}

bool XMLParser::parse_tag(std::string& name)
{
    Input in(in_);
    name.clear();
    in.skipSpace();
    if (const int c = in.get(); c != '<')
        fail({"parse_tag: expected '<', found '", shown(c), "'"});

    if (in.peek() == '/') {
        if (!in.putBack())
            fail({"parse_tag: cannot put back '<'"});
        return false;
    }
    if (!readName(in, name))
        fail({"parse_tag: unnamed tag"});
    tags_.push(name);
    return true;
}

bool XMLParser::parse_attr(std::string& name, std::string& value)
{
    Input in(in_);
    value.clear();
    in.skipSpace();
    if (!readName(in, name))
        return false;
    in.skipSpace();
    if (in.peek() == '=') {
        in.get();
        in.skipSpace();
        parse_value(value);
    }
    return true;
}

bool XMLParser::parse_value(std::string& value)
{
    Input     in(in_);
    const int quote = in.peek();
    value.clear();
    if (quote == '\'' || quote == '"') {
        in.get();
        if (in.appendUntil(value, [quote](int c) { return c == quote; }) != quote)
            fail({"parse_value: unterminated attribute value"});
        in.get();
    } else if (!isSpace(in.appendUntil(value, [](int c) { return isSpace(c) || c == '>'; }))) {
        fail({"parse_value: unterminated attribute value"});
    }
    return true;
}

int XMLParser::parse_tag_end()
{
    static constexpr char malformed[] = "parse_tag_end: invalid attribute or missing '>'";

    Input in(in_);
    in.skipSpace();
    int       c      = in.get();
    const int result = c == '/' ? PARSE_END : PARSE_CONTENT;
    if (result == PARSE_END) {
        if (tags_.empty())
            fail({malformed});
        tags_.pop(); // before the `>` is seen: an element that ends so badly is not part of the message
        c = in.get();
    }
    if (c != '>')
        fail({malformed});
    return result;
}

int XMLParser::parse_body()
{
    Input in(in_);
    if (const std::string_view ahead = in.atHand(); ahead.size() >= 2) {
        in.consume(ahead.data());
        return ahead[0] != '<' ? PARSE_DATA : ahead[1] == '/' ? PARSE_END : PARSE_CHILD;
    }
    in.skipSpace();
    const int c = in.peek();
    if (c == Input::end)
        fail({"parse_body: unmatched name '", innermost(), "'"});
    if (c != '<')
        return PARSE_DATA;
    in.get();
    const bool isEnd = in.peek() == '/';
    if (!in.putBack())
        fail({"parse_body: cannot put back '<'"});
    return isEnd ? PARSE_END : PARSE_CHILD;
}

bool XMLParser::parse_data(std::string& data)
{
    Input in(in_);
    data.clear();
    in.skipSpace();
    if (in.appendUntil(data, [](int c) { return c == '<'; }) == Input::end)
        fail({"parse_data: unmatched tag '", innermost(), "'"});
    trim(data);
    return !data.empty();
}

void XMLParser::parse_end_tag()
{
    Input in(in_);
    if (!tags_.empty()) {
        if (const Rest rest = matchEndTag(in.atHand(), tags_.top())) {
            in.consume(rest);
            tags_.pop();
            return;
        }
    }
    in.skipSpace();
    if (const int c = in.get(); c != '<')
        fail({"parse_end_tag: expected '<', got '", shown(c), "'"});

    if (const int c = in.get(); c != '/')
        fail({"parse_end_tag: expected '/', got '", shown(c), "'"});

    std::string name;
    if (!readName(in, name))
        fail({"parse_end_tag: missing tag name"});
    if (in.get() != '>')
        fail({"parse_end_tag: malformed end tag"});
    if (name != innermost())
        fail({"parse_end_tag: begin/end tags don't match"});
    tags_.pop();
}

int XMLParser::parse_simple_tag(const std::string& name)
{
    std::string found;
    if (!parse_tag(found))
        fail({"parse_simple_tag: missing tag; expected <", name, ">"});
    if (found != name)
        fail({"parse_simple_tag: wrong tag; expected <", name, ">, found <", found, ">"});
    return parse_tag_end();
}

std::string XMLParser::parse_tagged_value(const std::string& name)
{
    std::string found;
    if (!parse_tag(found))
        fail({"parse_tagged_value: missing tag; expected <", name, ">"});
    if (found != name)
        fail({"parse_tagged_value: wrong tag; expected <", name, ">, found <", found, ">"});

    std::string attribute;
    std::string value;
    if (parse_attr(attribute, value)) {
        if (attribute != "value")
            fail({"parse_tagged_value: invalid attribute; found '", attribute, "', expected 'value'"});
        if (parse_tag_end() != PARSE_END)
            parse_end_tag();
    } else if (parse_tag_end() != PARSE_END) {
        parse_data(value);
        parse_end_tag();
    }
    return value;
}

std::string XMLParser::parse_entity()
{
    Input       in(in_);
    std::string entity;
    if (in.appendUntil(entity, [](int c) { return c == ';'; }) == ';')
        in.get();
    return expand_entity(entity);
}

std::string XMLParser::expand_entity(const std::string& entity)
{
    if (entity == "&gt")
        return ">";
    if (entity == "&lt")
        return "<";
    if (entity == "&amp")
        return "&";
    if (entity == "&apos")
        return "'";
    if (entity == "&quot")
        return "\"";

    if (entity.compare(0, 2, "&#") == 0) {
        const bool        hexadecimal = entity.size() > 2 && entity[2] == 'x';
        const std::size_t start       = hexadecimal ? 3 : 2;
        std::size_t       used        = 0;
        const auto        number      = strtol32(std::string_view(entity).substr(start), hexadecimal ? 16 : 10, &used);
        if (start + used < entity.size() && entity[start + used] == ';')
            return std::string(1, static_cast<char>(number));
    }
    fail({"expand_entity: invalid character entity '", entity, "'"});
}

std::string_view XMLParser::innermost() const
{
    return tags_.empty() ? std::string_view() : tags_.top();
}

void XMLParser::fail(std::initializer_list<std::string_view> message) const
{
    throw ParseError(joined(message), tags_);
}

} // namespace ipsecimpl
