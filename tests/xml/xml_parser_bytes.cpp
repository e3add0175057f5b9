// Every byte value at every kind of place in a document.

#include "document.h"

namespace ipsecimpl {
namespace {

bool isSpace(char c)
{
    return std::string(" \t\n\v\f\r").find(c) != std::string::npos;
}

/// What may stand in a name as parse_name() reads it.
bool isNameByte(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           std::string(".-_:&").find(c) != std::string::npos;
}

/// Calls `check(document, c)` for each byte `c` with a fresh document of `before`, `c` and `after`.
template <class Check>
void forEachByte(const std::string& before, const std::string& after, Check check)
{
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE("byte " + std::to_string(byte));
        const char c = static_cast<char>(byte);
        Document   document(before + c + after);
        check(document, c);
    }
}

/// The message as a C string shows it: up to the byte if that is NUL.
std::string shown(const std::string& before, char c, const std::string& after)
{
    return c == '\0' ? before : before + c + after;
}

TEST(EveryByte, BeforeTheRootElement)
{
    forEachByte("", "<a>x", [](Document& document, char c) {
        if (isSpace(c)) {
            EXPECT_EQ(document.parser.parse_simple_tag("a"), PARSE_CONTENT);
            EXPECT_EQ(document.rest(), "x");
            return;
        }
        EXPECT_EQ(errorOf([&] { document.parser.parse_simple_tag("a"); }),
                  c == '<' ? "parse_tag: unnamed tag" : shown("parse_tag: expected '<', found '", c, "'"));
        EXPECT_EQ(document.rest(), "<a>x");
    });
}

TEST(EveryByte, AtTheStartOfATagName)
{
    forEachByte("<", "a>", [](Document& document, char c) {
        std::string name = "old";
        if (c == '/') {
            EXPECT_FALSE(document.parser.parse_tag(name));
            EXPECT_EQ(name, "");
            EXPECT_EQ(document.rest(), "</a>");
        } else if (isNameByte(c)) {
            EXPECT_TRUE(document.parser.parse_tag(name));
            EXPECT_EQ(name, std::string(1, c) + "a");
            EXPECT_EQ(document.rest(), ">");
        } else {
            EXPECT_EQ(errorOf([&] { document.parser.parse_tag(name); }), "parse_tag: unnamed tag");
            EXPECT_EQ(document.rest(), std::string(1, c) + "a>");
        }
    });
}

TEST(EveryByte, InsideATagName)
{
    forEachByte("<a", "b>", [](Document& document, char c) {
        const std::string behind = std::string(1, c) + "b";
        std::string       name;
        EXPECT_TRUE(document.parser.parse_tag(name));
        EXPECT_EQ(name, isNameByte(c) ? "a" + behind : "a");
        EXPECT_EQ(document.rest(), isNameByte(c) ? ">" : behind + ">");
    });
}

TEST(EveryByte, BehindATagName)
{
    const std::string malformed = "parse_tag_end: invalid attribute or missing '>'";
    forEachByte("<a", ">x", [&](Document& document, char c) {
        const auto read = [&] { return document.parser.parse_simple_tag("a"); };
        if (c == '>' || c == '/' || isSpace(c)) {
            EXPECT_EQ(read(), c == '/' ? PARSE_END : PARSE_CONTENT);
            EXPECT_EQ(document.rest(), c == '>' ? ">x" : "x");
        } else if (isNameByte(c)) {
            const std::string name = std::string("a") + c;
            EXPECT_EQ(errorOf(read),
                      "parse_simple_tag: wrong tag; expected <a>, found <" + name + ">\nfrom <" + name + ">");
        } else {
            EXPECT_EQ(errorOf(read), malformed + "\nfrom <a>");
            EXPECT_EQ(document.rest(), ">x");
        }
    });
}

TEST(EveryByte, BetweenTheSlashAndTheEndOfAnEmptyElement)
{
    forEachByte("<a/", ">x", [](Document& document, char c) {
        const auto read = [&] { return document.parser.parse_simple_tag("a"); };
        if (c == '>')
            EXPECT_EQ(read(), PARSE_END);
        else
            EXPECT_EQ(errorOf(read), "parse_tag_end: invalid attribute or missing '>'");
        EXPECT_EQ(document.rest(), ">x");
    });
}

TEST(EveryByte, AtTheStartOfABody)
{
    forEachByte("", "a", [](Document& document, char c) {
        EXPECT_EQ(document.parser.parse_body(), c == '<' ? PARSE_CHILD : PARSE_DATA);
        EXPECT_EQ(document.rest(), isSpace(c) ? "a" : std::string(1, c) + "a");
    });
}

TEST(EveryByte, BehindTheOpeningBracketOfABody)
{
    forEachByte("<", "a", [](Document& document, char c) {
        EXPECT_EQ(document.parser.parse_body(), c == '/' ? PARSE_END : PARSE_CHILD);
        EXPECT_EQ(document.rest(), std::string("<") + c + "a");
    });
}

TEST(EveryByte, InsideData)
{
    forEachByte("x", "y<", [](Document& document, char c) {
        std::string data;
        EXPECT_TRUE(document.parser.parse_data(data));
        EXPECT_EQ(data, c == '<' ? "x" : std::string("x") + c + "y");
        EXPECT_EQ(document.rest(), c == '<' ? "<y<" : "<");
    });
}

TEST(EveryByte, AtBothEndsOfData)
{
    for (const bool first : {true, false}) {
        forEachByte(first ? "" : "x", first ? "x</a>" : "</a>", [&](Document& document, char c) {
            std::string       data = "old";
            const std::string byte(1, c);
            const std::string whole = first ? byte + "x" : "x" + byte;
            const std::string kept  = isSpace(c) ? "x" : c == '<' ? (first ? "" : "x") : whole;
            EXPECT_EQ(document.parser.parse_data(data), !kept.empty());
            EXPECT_EQ(data, kept);
        });
    }
}

TEST(EveryByte, InsideAQuotedValue)
{
    for (const char quote : {'\'', '"'}) {
        const std::string mark(1, quote);
        forEachByte(mark + "x", "y" + mark + ">", [&](Document& document, char c) {
            std::string value;
            EXPECT_TRUE(document.parser.parse_value(value));
            EXPECT_EQ(value, c == quote ? "x" : std::string("x") + c + "y");
            EXPECT_EQ(document.rest(), c == quote ? "y" + mark + ">" : ">");
        });
    }
}

TEST(EveryByte, InsideAnUnquotedValue)
{
    forEachByte("x", "y ", [](Document& document, char c) {
        std::string       value;
        const std::string behind = std::string(1, c) + "y";
        if (c == '>') {
            EXPECT_EQ(errorOf([&] { document.parser.parse_value(value); }),
                      "parse_value: unterminated attribute value");
        } else {
            EXPECT_TRUE(document.parser.parse_value(value));
            EXPECT_EQ(value, isSpace(c) ? "x" : "x" + behind);
        }
        EXPECT_EQ(document.rest(), isSpace(c) || c == '>' ? behind + " " : " ");
    });
}

TEST(EveryByte, BehindAnAttributesName)
{
    forEachByte("v", "x ", [](Document& document, char c) {
        std::string name;
        std::string value;
        EXPECT_TRUE(document.parser.parse_attr(name, value));
        EXPECT_EQ(name, isNameByte(c) ? std::string("v") + c + "x" : "v");
        EXPECT_EQ(value, c == '=' ? "x" : "");
        EXPECT_EQ(document.rest(), isNameByte(c) ? "" : c == '=' ? " " : isSpace(c) ? "x " : std::string(1, c) + "x ");
    });
}

TEST(EveryByte, BehindAnEndTagsName)
{
    forEachByte("<a></a", ">x", [](Document& document, char c) {
        document.parser.parse_simple_tag("a");
        const auto read = [&] { document.parser.parse_end_tag(); };
        if (c == '>') {
            read();
            EXPECT_EQ(document.open(), "");
            EXPECT_EQ(document.rest(), ">x");
            return;
        }
        EXPECT_EQ(errorOf(read), isNameByte(c) ? "parse_end_tag: begin/end tags don't match\nfrom <a>"
                                               : "parse_end_tag: malformed end tag\nfrom <a>");
        EXPECT_EQ(document.rest(), isNameByte(c) ? "x" : ">x");
    });
}

TEST(EveryByte, InTheOpeningOfAnEndTag)
{
    forEachByte("<a>", "/a>", [](Document& document, char c) {
        document.parser.parse_simple_tag("a");
        const auto read = [&] { document.parser.parse_end_tag(); };
        if (c == '<')
            read();
        else
            EXPECT_EQ(errorOf(read), isSpace(c) ? "parse_end_tag: expected '<', got '/'\nfrom <a>"
                                                : shown("parse_end_tag: expected '<', got '", c, "'\nfrom <a>"));
    });
    forEachByte("<a><", "a>", [](Document& document, char c) {
        document.parser.parse_simple_tag("a");
        const auto read = [&] { document.parser.parse_end_tag(); };
        if (c == '/')
            read();
        else
            EXPECT_EQ(errorOf(read), shown("parse_end_tag: expected '/', got '", c, "'\nfrom <a>"));
    });
}

TEST(EveryByte, AsANumericEntity)
{
    Document document("");
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(document.parser.expand_entity("&#" + std::to_string(byte) + ";"),
                  std::string(1, static_cast<char>(byte)));
}

} // namespace
} // namespace ipsecimpl
