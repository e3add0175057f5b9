#include "plain_parser.h"

#include <algorithm>
#include <cstdlib>

namespace ipsecimpl {
namespace {

bool isOneOf(int c, std::string_view characters)
{
    return c >= 0 && characters.find(static_cast<char>(c)) != std::string_view::npos;
}

bool isSpace(int c)
{
    return isOneOf(c, " \t\n\v\f\r");
}

bool isTagCharacter(int c)
{
    return PlainParser::isNameChar(c) || c == '&';
}

} // namespace

int PlainParser::look(std::size_t ahead) const
{
    return position_ + ahead < text_.size() ? static_cast<unsigned char>(text_[position_ + ahead]) : end;
}

int PlainParser::next()
{
    const int c = look();
    if (c != end)
        ++position_;
    return c;
}

void PlainParser::skipSpace()
{
    while (isSpace(look()))
        ++position_;
}

bool PlainParser::isNameChar(int c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || isOneOf(c, ".-_:");
}

void PlainParser::trim(std::string& s)
{
    while (!s.empty() && isSpace(s.back()))
        s.pop_back();
}

bool PlainParser::parse_name(std::string& name)
{
    name.clear();
    while (isTagCharacter(look()))
        name += static_cast<char>(next());
    return !name.empty();
}

bool PlainParser::parse_tag(std::string& name)
{
    name.clear();
    skipSpace();
    const int c = next();
    if (c != '<')
        fail("parse_tag: expected '<', found '" + shown(c) + "'");
    if (look() == '/') {
        --position_;
        return false;
    }
    if (!parse_name(name))
        fail("parse_tag: unnamed tag");
    tags_.push(name);
    return true;
}

bool PlainParser::parse_attr(std::string& name, std::string& value)
{
    value.clear();
    skipSpace();
    if (!parse_name(name))
        return false;
    skipSpace();
    if (look() == '=') {
        next();
        skipSpace();
        parse_value(value);
    }
    return true;
}

bool PlainParser::parse_value(std::string& value)
{
    const int quote = look();
    value.clear();
    if (quote != '\'' && quote != '"') {
        while (look() != end && look() != '>' && !isSpace(look()))
            value += static_cast<char>(next());
        if (!isSpace(look()))
            fail("parse_value: unterminated attribute value");
        return true;
    }
    for (next(); look() != quote; value += static_cast<char>(next()))
        if (look() == end)
            fail("parse_value: unterminated attribute value");
    next();
    return true;
}

int PlainParser::parse_tag_end()
{
    skipSpace();
    int       c      = next();
    const int result = c == '/' ? PARSE_END : PARSE_CONTENT;
    if (result == PARSE_END) {
        if (tags_.empty())
            c = end; // there is no element that could end
        else {
            tags_.pop();
            c = next();
        }
    }
    if (c != '>')
        fail("parse_tag_end: invalid attribute or missing '>'");
    return result;
}

int PlainParser::parse_body()
{
    skipSpace();
    if (look() == end)
        fail("parse_body: unmatched name '" + innermost() + "'");
    if (look() != '<')
        return PARSE_DATA;
    return look(1) == '/' ? PARSE_END : PARSE_CHILD;
}

bool PlainParser::parse_data(std::string& data)
{
    data.clear();
    skipSpace();
    for (; look() != '<'; data += static_cast<char>(next()))
        if (look() == end)
            fail("parse_data: unmatched tag '" + innermost() + "'");
    trim(data);
    return !data.empty();
}

void PlainParser::parse_end_tag()
{
    skipSpace();
    int c = next();
    if (c != '<')
        fail("parse_end_tag: expected '<', got '" + shown(c) + "'");
    c = next();
    if (c != '/')
        fail("parse_end_tag: expected '/', got '" + shown(c) + "'");
    std::string name;
    if (!parse_name(name))
        fail("parse_end_tag: missing tag name");
    if (next() != '>')
        fail("parse_end_tag: malformed end tag");
    if (tags_.empty() || name != tags_.top())
        fail("parse_end_tag: begin/end tags don't match");
    tags_.pop();
}

void PlainParser::openExpected(const std::string& operation, const std::string& name)
{
    std::string found;
    if (!parse_tag(found))
        fail(operation + ": missing tag; expected <" + name + ">");
    if (found != name)
        fail(operation + ": wrong tag; expected <" + name + ">, found <" + found + ">");
}

int PlainParser::parse_simple_tag(const std::string& name)
{
    openExpected("parse_simple_tag", name);
    return parse_tag_end();
}

std::string PlainParser::parse_tagged_value(const std::string& name)
{
    openExpected("parse_tagged_value", name);
    std::string attribute, value;
    const bool  hasAttribute = parse_attr(attribute, value);
    if (hasAttribute && attribute != "value")
        fail("parse_tagged_value: invalid attribute; found '" + attribute + "', expected 'value'");
    if (parse_tag_end() == PARSE_END)
        return value;
    if (!hasAttribute)
        parse_data(value);
    parse_end_tag();
    return value;
}

std::string PlainParser::parse_entity()
{
    std::string entity;
    while (look() != end && look() != ';')
        entity += static_cast<char>(next());
    next();
    return expand_entity(entity);
}

std::string PlainParser::expand_entity(const std::string& entity)
{
    static constexpr const char* named[][2] = {
        {"&gt", ">"}, {"&lt", "<"}, {"&amp", "&"}, {"&apos", "'"}, {"&quot", "\""}};
    for (const auto& [name, character] : named)
        if (entity == name)
            return character;

    if (entity.rfind("&#", 0) == 0) {
        const bool        hexadecimal = entity.rfind("&#x", 0) == 0;
        const char* const digits      = entity.c_str() + (hexadecimal ? 3 : 2);
        char*             after       = nullptr;
        const long long   number      = std::strtoll(digits, &after, hexadecimal ? 16 : 10);
        if (*after == ';') {
            const long long most = 2147483647; // as where `long` has 32 bits
            return std::string(1, static_cast<char>(std::clamp(number, -most - 1, most)));
        }
    }
    fail("expand_entity: invalid character entity '" + entity + "'");
}

std::string PlainParser::innermost() const
{
    return tags_.empty() ? std::string() : tags_.top();
}

void PlainParser::fail(const std::string& message) const
{
    std::string             text = message;
    std::stack<std::string> tags = tags_;
    for (; !tags.empty(); tags.pop())
        text += "\nfrom <" + tags.top() + ">";
    throw ParseError(text);
}

} // namespace ipsecimpl
