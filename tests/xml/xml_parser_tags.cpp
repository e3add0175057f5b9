#include "document.h"

namespace ipsecimpl {
namespace {

// What `>`, `/>` or anything else is left for is another operation's business: see the rests.

std::string parseTag(XMLParser& parser)
{
    std::string name   = "old";
    const bool  result = parser.parse_tag(name);
    return (result ? "start " : "end ") + name;
}

std::string parseTagEnd(XMLParser& parser)
{
    return std::to_string(parser.parse_tag_end());
}

std::string parseEndTag(XMLParser& parser)
{
    parser.parse_end_tag();
    return "";
}

std::string parseSimpleTag(XMLParser& parser)
{
    return std::to_string(parser.parse_simple_tag("a"));
}

// clang-format off

TEST(ParseTag, ReadsTheNameAndOpensTheElement)
{
    const std::vector<Accepted> rows = {
        {"<a>x",               "start a",    ">x",    "\nfrom <a>\nfrom <out>"},
        {"<a/>",               "start a",    "/>",    "\nfrom <a>\nfrom <out>"},
        {"<a >",               "start a",    " >",    "\nfrom <a>\nfrom <out>"},
        {"<a v='x'>",          "start a",    " v='x'>", "\nfrom <a>\nfrom <out>"},
        {"<a<b>",              "start a",    "<b>",   "\nfrom <a>\nfrom <out>"},
        {"<a",                 "start a",    "",      "\nfrom <a>\nfrom <out>"},
        {" \t\n\v\f\r<a>",     "start a",    ">",     "\nfrom <a>\nfrom <out>"},
        {"<x:y-1._>",          "start x:y-1._", ">",  "\nfrom <x:y-1._>\nfrom <out>"},
        {"<a&amp;b>",          "start a&amp", ";b>",  "\nfrom <a&amp>\nfrom <out>"},
        {"<&>",                "start &",    ">",     "\nfrom <&>\nfrom <out>"},
        {"<out>",              "start out",  ">",     "\nfrom <out>\nfrom <out>"},
    };
    expectEach(rows, parseTag);
}

TEST(ParseTag, LeavesAnEndTagWhereItIs)
{
    const std::vector<Accepted> rows = {
        {"</out>",         "end ", "</out>"},
        {" \t\n\v\f\r</x", "end ", "</x"},
        {"</",             "end ", "</"},
        {"</>",            "end ", "</>"},
    };
    expectEach(rows, parseTag);
}

TEST(ParseTag, RefusesWhatIsNoTag)
{
    const std::vector<Refused> rows = {
        {"x<a>",     "parse_tag: expected '<', found 'x'\nfrom <out>",    "<a>"},
        {"  &lt;",   "parse_tag: expected '<', found '&'\nfrom <out>",    "lt;"},
        {">",        "parse_tag: expected '<', found '>'\nfrom <out>",    ""},
        {"'",        "parse_tag: expected '<', found '''\nfrom <out>",    ""},
        {"",         "parse_tag: expected '<', found '\xFF'\nfrom <out>", ""},
        {" \n",      "parse_tag: expected '<', found '\xFF'\nfrom <out>", ""},
        {"\xFF<a>",  "parse_tag: expected '<', found '\xFF'\nfrom <out>", "<a>"},
        {"\xEF\xBB\xBF<a>", "parse_tag: expected '<', found '\xEF'\nfrom <out>", "\xBB\xBF<a>"},
        {std::string("\0<a>", 4), std::string("parse_tag: expected '<', found '"), "<a>"}, // what() ends at the NUL
    };
    expectEach(rows, parseTag);
}

TEST(ParseTag, RefusesATagWithoutAName)
{
    const std::vector<Refused> rows = {
        {"< a>",                    "parse_tag: unnamed tag\nfrom <out>", " a>"},
        {"<>",                      "parse_tag: unnamed tag\nfrom <out>", ">"},
        {"<<a>",                    "parse_tag: unnamed tag\nfrom <out>", "<a>"},
        {"<",                       "parse_tag: unnamed tag\nfrom <out>", ""},
        {"< /out>",                 "parse_tag: unnamed tag\nfrom <out>", " /out>"},
        {"<\n",                     "parse_tag: unnamed tag\nfrom <out>", "\n"},
        {"<\xFF",                   "parse_tag: unnamed tag\nfrom <out>", "\xFF"},
        {"<?xml version=\"1.0\"?>", "parse_tag: unnamed tag\nfrom <out>", "?xml version=\"1.0\"?>"},
        {"<!-- c -->",              "parse_tag: unnamed tag\nfrom <out>", "!-- c -->"},
        {"<!DOCTYPE ipsec>",        "parse_tag: unnamed tag\nfrom <out>", "!DOCTYPE ipsec>"},
        {"<![CDATA[x]]>",           "parse_tag: unnamed tag\nfrom <out>", "![CDATA[x]]>"},
    };
    expectEach(rows, parseTag);
}

TEST(ParseTag, LeavesTheNameEmptyWhenItFails)
{
    for (const char* text : {"x", "", "< a>"}) {
        Document    document(text);
        std::string name = "old";
        EXPECT_THROW(document.parser.parse_tag(name), ParseError) << text;
        EXPECT_EQ(name, "") << text;
    }
}

TEST(ParseTagEnd, TellsContentFromACompleteElement)
{
    const std::vector<Accepted> rows = {
        {">x",                "4", "x",  "\nfrom <out>"},
        {" \t\n\v\f\r> x",    "4", " x", "\nfrom <out>"},
        {">",                 "4", "",   "\nfrom <out>"},
        {"/>x",               "5", "x",  ""},
        {" \t\n\v\f\r/> x",   "5", " x", ""},
        {"/>",                "5", "",   ""},
        {">>",                "4", ">",  "\nfrom <out>"},
    };
    expectEach(rows, parseTagEnd);
}

TEST(ParseTagEnd, RefusesAnythingElse)
{
    const std::vector<Refused> rows = {
        {"x>",   "parse_tag_end: invalid attribute or missing '>'\nfrom <out>", ">"},
        {"=1>",  "parse_tag_end: invalid attribute or missing '>'\nfrom <out>", "1>"},
        {"<b>",  "parse_tag_end: invalid attribute or missing '>'\nfrom <out>", "b>"},
        {"\xFF", "parse_tag_end: invalid attribute or missing '>'\nfrom <out>", ""},
        {"",     "parse_tag_end: invalid attribute or missing '>'\nfrom <out>", ""},
        {"  ",   "parse_tag_end: invalid attribute or missing '>'\nfrom <out>", ""},
    };
    expectEach(rows, parseTagEnd);
}

TEST(ParseTagEnd, TakesTheElementForClosedOnceItSawTheSlash)
{
    const std::vector<Refused> rows = {
        {"/ >",    "parse_tag_end: invalid attribute or missing '>'", ">"},
        {"/x>",    "parse_tag_end: invalid attribute or missing '>'", ">"},
        {"//>",    "parse_tag_end: invalid attribute or missing '>'", ">"},
        {" /",     "parse_tag_end: invalid attribute or missing '>'", ""},
        {"/\xFF>", "parse_tag_end: invalid attribute or missing '>'", ">"},
    };
    expectEach(rows, parseTagEnd);
}

TEST(ParseTagEnd, RefusesASlashWithNothingOpen)
{
    Document document("/>");
    EXPECT_EQ(errorOf([&] { document.parser.parse_tag_end(); }), "parse_tag_end: invalid attribute or missing '>'");
}

TEST(ParseTagEnd, AcceptsAClosingBracketWithNothingOpen)
{
    Document document(" >x");
    EXPECT_EQ(document.parser.parse_tag_end(), PARSE_CONTENT);
    EXPECT_EQ(document.rest(), "x");
}

TEST(ParseEndTag, ClosesTheInnermostElement)
{
    const std::vector<Accepted> rows = {
        {"</out>",                "", "",      ""},
        {"</out> <x>",            "", " <x>",  ""},
        {" \t\n\v\f\r</out></x>", "", "</x>",  ""},
    };
    expectEach(rows, parseEndTag);

    Document document("<a><b></b></a>");
    document.parser.parse_simple_tag("a");
    document.parser.parse_simple_tag("b");
    document.parser.parse_end_tag();
    EXPECT_EQ(document.open(), "\nfrom <a>");
    document.parser.parse_end_tag();
    EXPECT_EQ(document.open(), "");
}

TEST(ParseEndTag, RefusesWhatIsNoEndTag)
{
    const std::vector<Refused> rows = {
        {"x</out>",     "parse_end_tag: expected '<', got 'x'\nfrom <out>",    "</out>"},
        {" >",          "parse_end_tag: expected '<', got '>'\nfrom <out>",    ""},
        {"",            "parse_end_tag: expected '<', got '\xFF'\nfrom <out>", ""},
        {" \n ",        "parse_end_tag: expected '<', got '\xFF'\nfrom <out>", ""},
        {"<out>",       "parse_end_tag: expected '/', got 'o'\nfrom <out>",    "ut>"},
        {"< /out>",     "parse_end_tag: expected '/', got ' '\nfrom <out>",    "/out>"},
        {"<!-- -->",    "parse_end_tag: expected '/', got '!'\nfrom <out>",    "-- -->"},
        {"<",           "parse_end_tag: expected '/', got '\xFF'\nfrom <out>", ""},
        {"</>",         "parse_end_tag: missing tag name\nfrom <out>",         ">"},
        {"</",          "parse_end_tag: missing tag name\nfrom <out>",         ""},
        {"</ out>",     "parse_end_tag: missing tag name\nfrom <out>",         " out>"},
        {"<//out>",     "parse_end_tag: missing tag name\nfrom <out>",         "/out>"},
        {"</out",       "parse_end_tag: malformed end tag\nfrom <out>",        ""},
        {"</out >",     "parse_end_tag: malformed end tag\nfrom <out>",        ">"},
        {"</out/>",     "parse_end_tag: malformed end tag\nfrom <out>",        ">"},
        {"</out\xC3>",  "parse_end_tag: malformed end tag\nfrom <out>",        ">"},
        {"</out</out>", "parse_end_tag: malformed end tag\nfrom <out>",        "/out>"},
    };
    expectEach(rows, parseEndTag);
}

TEST(ParseEndTag, RefusesAnyOtherNameThanTheInnermost)
{
    const std::vector<Refused> rows = {
        {"</a>x",    "parse_end_tag: begin/end tags don't match\nfrom <out>", "x"},
        {"</ou>",    "parse_end_tag: begin/end tags don't match\nfrom <out>", ""},
        {"</outs>",  "parse_end_tag: begin/end tags don't match\nfrom <out>", ""},
        {"</Out>",   "parse_end_tag: begin/end tags don't match\nfrom <out>", ""},
        {"</&out>",  "parse_end_tag: begin/end tags don't match\nfrom <out>", ""},
    };
    expectEach(rows, parseEndTag);
}

TEST(ParseEndTag, SeesAMalformedTagBeforeAWrongName)
{
    const std::vector<Refused> rows = {
        {"</wrong >", "parse_end_tag: malformed end tag\nfrom <out>", ">"},
        {"</wrong",   "parse_end_tag: malformed end tag\nfrom <out>", ""},
    };
    expectEach(rows, parseEndTag);
}

TEST(ParseEndTag, NamesTheElementThatIsStillOpenFirst)
{
    Document document("<a><b></a>");
    document.parser.parse_simple_tag("a");
    document.parser.parse_simple_tag("b");
    EXPECT_EQ(errorOf([&] { document.parser.parse_end_tag(); }),
              "parse_end_tag: begin/end tags don't match\nfrom <b>\nfrom <a>");
}

TEST(ParseEndTag, MatchesNoNameWithNothingOpen)
{
    for (const char* text : {"</a>", " </out>", "</&>"}) {
        Document document(text);
        EXPECT_EQ(errorOf([&] { document.parser.parse_end_tag(); }), "parse_end_tag: begin/end tags don't match")
            << text;
        EXPECT_EQ(document.rest(), "") << text;
    }
}

TEST(ParseEndTag, RefusesAnElementThatIsClosedAlready)
{
    Document document("<a></a></a>");
    document.parser.parse_simple_tag("a");
    document.parser.parse_end_tag();
    EXPECT_EQ(errorOf([&] { document.parser.parse_end_tag(); }), "parse_end_tag: begin/end tags don't match");
}

TEST(ParseSimpleTag, ReadsAStartTagWithoutAttributes)
{
    const std::vector<Accepted> rows = {
        {"<a>x",         "4", "x",  "\nfrom <a>\nfrom <out>"},
        {"<a >x",        "4", "x",  "\nfrom <a>\nfrom <out>"},
        {"\n<a\n>\nx",   "4", "\nx", "\nfrom <a>\nfrom <out>"},
        {"<a/>x",        "5", "x",  "\nfrom <out>"},
        {" <a />x",      "5", "x",  "\nfrom <out>"},
    };
    expectEach(rows, parseSimpleTag);
}

TEST(ParseSimpleTag, RefusesAnEndTagAsAMissingTag)
{
    expectEach(std::vector<Refused>{{" </out>", "parse_simple_tag: missing tag; expected <a>\nfrom <out>", "</out>"}},
               parseSimpleTag);
}

TEST(ParseSimpleTag, NamesTheWrongTagAmongTheOpenElements)
{
    const std::vector<Refused> rows = {
        {"<b>",    "parse_simple_tag: wrong tag; expected <a>, found <b>\nfrom <b>\nfrom <out>",   ">"},
        {"<ab/>",  "parse_simple_tag: wrong tag; expected <a>, found <ab>\nfrom <ab>\nfrom <out>", "/>"},
        {"<A>",    "parse_simple_tag: wrong tag; expected <a>, found <A>\nfrom <A>\nfrom <out>",   ">"},
        {"<a&>",   "parse_simple_tag: wrong tag; expected <a>, found <a&>\nfrom <a&>\nfrom <out>", ">"},
        {"<b x!",  "parse_simple_tag: wrong tag; expected <a>, found <b>\nfrom <b>\nfrom <out>",   " x!"},
    };
    expectEach(rows, parseSimpleTag);
}

TEST(ParseSimpleTag, RefusesAnAttributeAndAnUnfinishedTag)
{
    const std::vector<Refused> rows = {
        {"<a v='1'>", "parse_tag_end: invalid attribute or missing '>'\nfrom <a>\nfrom <out>", "='1'>"},
        {"<a",        "parse_tag_end: invalid attribute or missing '>'\nfrom <a>\nfrom <out>", ""},
        {"<a/ >",     "parse_tag_end: invalid attribute or missing '>'\nfrom <out>",           ">"},
        {"<a<b>",     "parse_tag_end: invalid attribute or missing '>'\nfrom <a>\nfrom <out>", "b>"},
    };
    expectEach(rows, parseSimpleTag);
}

TEST(ParseSimpleTag, PassesOnWhatParseTagRefuses)
{
    const std::vector<Refused> rows = {
        {"x",                       "parse_tag: expected '<', found 'x'\nfrom <out>",    ""},
        {"",                        "parse_tag: expected '<', found '\xFF'\nfrom <out>", ""},
        {"<?xml version=\"1.0\"?>", "parse_tag: unnamed tag\nfrom <out>",                "?xml version=\"1.0\"?>"},
    };
    expectEach(rows, parseSimpleTag);
}

// clang-format on

TEST(XMLParser, ListsEveryOpenElementOfADeepDocument)
{
    std::string text;
    std::string expected = "parse_tag: expected '<', found '\xFF'";
    for (int depth = 1; depth <= 1000; ++depth)
        text += "<e" + std::to_string(depth) + ">";
    for (int depth = 1000; depth >= 1; --depth)
        expected += "\nfrom <e" + std::to_string(depth) + ">";

    Document document(text);
    for (int depth = 1; depth <= 1000; ++depth)
        document.parser.parse_simple_tag("e" + std::to_string(depth));
    EXPECT_EQ(errorOf([&] { document.parser.parse_simple_tag("x"); }), expected);
}

} // namespace
} // namespace ipsecimpl
