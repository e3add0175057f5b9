#include "faults/objects.h"
#include "faults/operations.h"

#include <stack>
#include <string>
#include <utility>

namespace ipsecimpl {
namespace {

const std::string NAME = "an-element-name-that-no-string-holds-within-itself";
const std::string OPEN = "<" + NAME + ">", CLOSE = "</" + NAME + ">";

/// A parser on `text`.
auto on(const std::string& text)
{
    return [text] { return Source(text); };
}

auto bytewise(const std::string& text)
{
    return [text] { return ByteSource(text); };
}

/// A parser behind a start tag, up to its name, that is followed by `text`.
auto within(const std::string& text)
{
    return [text] { return Source("<" + NAME + text, true); };
}

auto bytewiseWithin(const std::string& text)
{
    return [text] { return ByteSource("<" + NAME + text, true); };
}

const std::stack<std::string>& openElements()
{
    static const std::stack<std::string> tags({NAME, "b", LONG});
    return tags;
}

std::vector<Operation> errorOperations()
{
    Operations error("ParseError::");
    const auto two = [] { return Two<ParseError>{ParseError(LONG), ParseError(OTHER)}; };

    error.fails("ParseError(const std::string& msg)", nothing, [](Nothing&) { return ParseError(LONG); })
        .fails("ParseError(const std::string& msg, const std::stack<std::string>& tags)", nothing,
               [](Nothing&) { return ParseError(LONG, openElements()); })
        .cannotFail("ParseError(const ParseError&)", two, [](auto& errors) { return ParseError(errors.first); })
        .cannotFail(
            "operator=(const ParseError&)", two, [](auto& errors) -> auto& { return errors.first = errors.second; })
        .cannotFail(
            "what() const [inherited]", two, [](auto& errors) -> auto& { return *errors.first.what(); })
        .fails("where(const std::string& msg, const std::stack<std::string>& tags)", nothing,
               [](Nothing&) { return ParseError::where(LONG, openElements()); });
    return error.all();
}

std::vector<Operation> tokenOperations()
{
    Operations token("XMLParser::");

    token.mayFail("XMLParser(std::istream& in)", on(OPEN), [](Source& s) { XMLParser(s.in).parse_body(); })
        .cannotFail("isNameChar(int c)", on(""), [](Source&) { return XMLParser::isNameChar('a'); })
        .cannotFail(
            "trim(std::string& s)", [] { return LONG + " \n"; }, [](std::string& s) { XMLParser::trim(s); });

    const auto name = [](auto& s) {
        std::string found;
        return s.parser.parse_name(found) ? found : "none";
    };
    token.fails("parse_name(std::string& name)", on(NAME + " "), name)
        .fails("parse_name(std::string& name)", bytewise(NAME + " "), name);

    const auto tag = [](auto& s) {
        std::string found;
        return s.parser.parse_tag(found) ? found : "none";
    };
    token.fails("parse_tag(std::string& name)", on(OPEN), tag)
        .fails("parse_tag(std::string& name)", bytewise(OPEN), tag)
        .fails("parse_tag(std::string& name) [refused]", on("<?xml?>"), tag)
        .mayFail("parse_tag(std::string& name) [an end tag]", on(CLOSE), tag);

    const auto attribute = [](auto& s) {
        Two<std::string> found;
        s.parser.parse_attr(found.first, found.second);
        return found;
    };
    token.fails("parse_attr(std::string& name, std::string& value)", within(" " + NAME + "='" + LONG + "'>"), attribute)
        .fails("parse_attr(std::string& name, std::string& value)", bytewise(NAME + "='" + LONG + "'>"), attribute)
        .fails("parse_attr(std::string& name, std::string& value) [refused]", within(" b='" + LONG), attribute);

    const auto value = [](auto& s) {
        std::string found;
        s.parser.parse_value(found);
        return found;
    };
    token.fails("parse_value(std::string& value)", on("'" + LONG + "'"), value)
        .fails("parse_value(std::string& value)", bytewise(NAME + " "), value)
        .fails("parse_value(std::string& value) [refused]", on("'" + LONG), value);

    const auto tagEnd = [](auto& s) { return s.parser.parse_tag_end(); };
    token.cannotFail("parse_tag_end()", within(">"), tagEnd)
        .cannotFail("parse_tag_end()", within("/>"), tagEnd)
        .fails("parse_tag_end() [refused]", within("?"), tagEnd);

    const auto body = [](auto& s) { return s.parser.parse_body(); };
    token.cannotFail("parse_body()", on(OPEN), body)
        .cannotFail("parse_body()", bytewise(" </"), body)
        .fails("parse_body() [refused]", within(""), body);

    const auto data = [](auto& s) {
        std::string found;
        return s.parser.parse_data(found) ? found : "none";
    };
    token.fails("parse_data(std::string& data)", on(LONG + "<"), data)
        .fails("parse_data(std::string& data)", bytewise(LONG + "<"), data)
        .fails("parse_data(std::string& data) [refused]", within(" " + LONG), data);

    const auto endTag = [](auto& s) { s.parser.parse_end_tag(); };
    token.cannotFail("parse_end_tag()", within(CLOSE), endTag)
        .fails("parse_end_tag()", bytewiseWithin(CLOSE), endTag)
        .fails("parse_end_tag() [refused]", within("</b>"), endTag);
    return token.all();
}

std::vector<Operation> elementOperations()
{
    Operations element("XMLParser::");

    const auto simpleTag = [](auto& s) { return s.parser.parse_simple_tag(NAME); };
    element.fails("parse_simple_tag(const std::string& name)", on(OPEN), simpleTag)
        .fails("parse_simple_tag(const std::string& name)", bytewise("<" + NAME + "/>"), simpleTag)
        .fails("parse_simple_tag(const std::string& name) [refused]", on("<b>"), simpleTag);

    const auto taggedValue = [](auto& s) { return s.parser.parse_tagged_value(NAME); };
    element.fails("parse_tagged_value(const std::string& name)", on(OPEN + LONG + CLOSE), taggedValue)
        .fails("parse_tagged_value(const std::string& name)", bytewise(OPEN + LONG + CLOSE), taggedValue)
        .fails("parse_tagged_value(const std::string& name)", on("<" + NAME + " value='" + LONG + "'/>"), taggedValue)
        .fails("parse_tagged_value(const std::string& name) [refused]", on(OPEN + LONG + "</b>"), taggedValue)
        .fails("parse_tagged_value(const std::string& name) [refused]", on("<" + NAME + " " + LONG + "/>"),
               taggedValue);

    const auto entity = [](auto& s) { return s.parser.parse_entity(); };
    element.cannotFail("parse_entity()", on("&amp;"), entity)
        .fails("parse_entity() [refused]", on("&" + NAME + ";"), entity)
        .fails("parse_entity() [refused]", bytewise("&" + NAME + ";"), entity);

    const std::string number = "&#0000000000000000000000000000000000000000065;";
    element
        .cannotFail("expand_entity(const std::string& entity)", on(""),
                    [number](Source& s) { return s.parser.expand_entity(number); })
        .fails("expand_entity(const std::string& entity) [refused]", on(""),
               [](Source& s) { return s.parser.expand_entity(NAME); });
    return element.all();
}

} // namespace

std::vector<Operation> xmlOperations()
{
    return joined({errorOperations(), tokenOperations(), elementOperations()});
}

} // namespace ipsecimpl
