#include "document.h"

namespace ipsecimpl {
namespace {

std::string parseBody(XMLParser& parser)
{
    return std::to_string(parser.parse_body());
}

std::string parseData(XMLParser& parser)
{
    std::string data   = "old";
    const bool  result = parser.parse_data(data);
    return (result ? "true [" : "false [") + data + "]";
}

std::string parseTaggedValue(XMLParser& parser)
{
    return "[" + parser.parse_tagged_value("a") + "]";
}

// clang-format off

TEST(ParseBody, TellsWhatIsNextAndConsumesWhiteSpaceOnly)
{
    const std::vector<Accepted> rows = {
        {"<a>",                 "1", "<a>"},
        {" \t\n\v\f\r<a>",      "1", "<a>"},
        {"<",                   "1", "<"},
        {"< /a>",               "1", "< /a>"},
        {"<<",                  "1", "<<"},
        {"<!-- -->",            "1", "<!-- -->"},
        {"<\xFF",               "1", "<\xFF"},
        {"</out>",              "5", "</out>"},
        {" \t\n\v\f\r</x",      "5", "</x"},
        {"</",                  "5", "</"},
        {"x",                   "6", "x"},
        {" \t\n\v\f\rx <a>",    "6", "x <a>"},
        {"&lt;",                "6", "&lt;"},
        {">",                   "6", ">"},
        {"/",                   "6", "/"},
        {"\xFF",                "6", "\xFF"},
        {"\xA0<a>",             "6", "\xA0<a>"},
        {std::string("\0", 1),  "6", std::string("\0", 1)},
    };
    expectEach(rows, parseBody);
}

TEST(ParseBody, RefusesTheEndOfInput)
{
    const std::vector<Refused> rows = {
        {"",      "parse_body: unmatched name 'out'\nfrom <out>", ""},
        {" \n\t", "parse_body: unmatched name 'out'\nfrom <out>", ""},
    };
    expectEach(rows, parseBody);
}

TEST(ParseBody, QuotesAnEmptyNameAtTheEndOfInputWithNothingOpen)
{
    Document document(" ");
    EXPECT_EQ(errorOf([&] { document.parser.parse_body(); }), "parse_body: unmatched name ''");
}

TEST(ParseBody, QuotesTheInnermostElementOnly)
{
    Document document("<a><b>");
    document.parser.parse_simple_tag("a");
    document.parser.parse_simple_tag("b");
    EXPECT_EQ(errorOf([&] { document.parser.parse_body(); }), "parse_body: unmatched name 'b'\nfrom <b>\nfrom <a>");
}

TEST(ParseBody, GivesTheSameAnswerWhenAskedAgain)
{
    for (const auto& [text, token] : std::vector<std::pair<const char*, int>>{
             {" <a>", PARSE_CHILD}, {" </a>", PARSE_END}, {" a", PARSE_DATA}, {"<", PARSE_CHILD}}) {
        Document document(text);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(document.parser.parse_body(), token) << text;
    }
}

TEST(ParseData, ReadsTextUpToTheNextTag)
{
    const std::vector<Accepted> rows = {
        {"x</out>",               "true [x]",           "</out>"},
        {" \t\n\v\f\rx<",         "true [x]",           "<"},
        {"x \t\n\v\f\r<",         "true [x]",           "<"},
        {"  1 2\n3  <b>",         "true [1 2\n3]",      "<b>"},
        {"&lt;&#65;&amp;<",       "true [&lt;&#65;&amp;]", "<"},
        {"a>b/\"'=<",             "true [a>b/\"'=]",    "<"},
        {"\xFF\xA0<",             "true [\xFF\xA0]",    "<"},
        {"]]><",                  "true []]>]",         "<"},
        {std::string("a\0b<", 4), std::string("true [a\0b]", 10), "<"},
        {std::string("\0 <", 3),  std::string("true [\0]", 8),    "<"},
    };
    expectEach(rows, parseData);
}

TEST(ParseData, IsFalseWhereThereIsNoText)
{
    const std::vector<Accepted> rows = {
        {"</out>",            "false []", "</out>"},
        {" \t\n\v\f\r</out>", "false []", "</out>"},
        {"<",                 "false []", "<"},
    };
    expectEach(rows, parseData);
}

TEST(ParseData, RefusesTheEndOfInput)
{
    const std::vector<Refused> rows = {
        {"",     "parse_data: unmatched tag 'out'\nfrom <out>", ""},
        {"  ",   "parse_data: unmatched tag 'out'\nfrom <out>", ""},
        {"x",    "parse_data: unmatched tag 'out'\nfrom <out>", ""},
        {"x > ", "parse_data: unmatched tag 'out'\nfrom <out>", ""},
    };
    expectEach(rows, parseData);
}

TEST(ParseData, QuotesAnEmptyNameAtTheEndOfInputWithNothingOpen)
{
    Document    document("x");
    std::string data;
    EXPECT_EQ(errorOf([&] { document.parser.parse_data(data); }), "parse_data: unmatched tag ''");
}

TEST(ParseData, ReadsTextWithNothingOpen)
{
    Document document(" x <");
    EXPECT_EQ(parseData(document.parser), "true [x]");
    EXPECT_EQ(document.rest(), "<");
}

TEST(ParseTaggedValue, ReadsEveryFormOfALeaf)
{
    const std::vector<Accepted> rows = {
        {"<a>v</a>x",                   "[v]",      "x"},
        {"\n<a >\nv\n</a>\n",           "[v]",      "\n"},
        {"<a>  1 2  </a>",              "[1 2]",    ""},
        {"<a>&amp;</a>",                "[&amp;]",  ""},
        {"<a></a>",                     "[]",       ""},
        {"<a> \n </a>",                 "[]",       ""},
        {"<a/>x",                       "[]",       "x"},
        {"<a />",                       "[]",       ""},
        {"<a value=\"v\"/>x",           "[v]",      "x"},
        {"<a value='v'></a>x",          "[v]",      "x"},
        {"<a value='v'> \n </a>",       "[v]",      ""},
        {"<a value=v />",               "[v]",      ""},
        {"<a value=v ></a>",            "[v]",      ""},
        {"<a value = \"v\" />",         "[v]",      ""},
        {"<a value='  v  '/>",          "[  v  ]",  ""},
        {"<a value='&amp;'/>",          "[&amp;]",  ""},
        {"<a value='<b>'/>",            "[<b>]",    ""},
        {"<a value=''/>",               "[]",       ""},
        {"<a value/>",                  "[]",       ""},
        {"<a value></a>",               "[]",       ""},
        {"<a>a=\"b\"</a>",              "[a=\"b\"]", ""},
    };
    expectEach(rows, parseTaggedValue);
}

TEST(ParseTaggedValue, RefusesAMissingOrWrongTag)
{
    const std::vector<Refused> rows = {
        {" </out>",   "parse_tagged_value: missing tag; expected <a>\nfrom <out>",                       "</out>"},
        {"<b>v</b>",  "parse_tagged_value: wrong tag; expected <a>, found <b>\nfrom <b>\nfrom <out>",    ">v</b>"},
        {"<ab/>",     "parse_tagged_value: wrong tag; expected <a>, found <ab>\nfrom <ab>\nfrom <out>",  "/>"},
        {"<A/>",      "parse_tagged_value: wrong tag; expected <a>, found <A>\nfrom <A>\nfrom <out>",    "/>"},
        {"<b value=", "parse_tagged_value: wrong tag; expected <a>, found <b>\nfrom <b>\nfrom <out>",    " value="},
        {"v",         "parse_tag: expected '<', found 'v'\nfrom <out>",                                  ""},
        {"",          "parse_tag: expected '<', found '\xFF'\nfrom <out>",                               ""},
        {"<>",        "parse_tag: unnamed tag\nfrom <out>",                                              ">"},
    };
    expectEach(rows, parseTaggedValue);
}

TEST(ParseTaggedValue, RefusesAnyAttributeButValue)
{
    const std::string what = "parse_tagged_value: invalid attribute; found '";
    const std::string from = "', expected 'value'\nfrom <a>\nfrom <out>";
    const std::vector<Refused> rows = {
        {"<a x=\"1\"/>",      what + "x" + from,      "/>"},
        {"<a Value='1'/>",    what + "Value" + from,  "/>"},
        {"<a values='1'/>",   what + "values" + from, "/>"},
        {"<a val='1'/>",      what + "val" + from,    "/>"},
        {"<a & />",           what + "&" + from,      "/>"},
        {"<a x value='1'/>",  what + "x" + from,      "value='1'/>"},
    };
    expectEach(rows, parseTaggedValue);
}

TEST(ParseTaggedValue, ReadsAnAttributesValueBeforeItJudgesTheName)
{
    const std::vector<Refused> rows = {
        {"<a x='1>",    "parse_value: unterminated attribute value\nfrom <a>\nfrom <out>", ""},
        {"<a v=x/>",    "parse_value: unterminated attribute value\nfrom <a>\nfrom <out>", ">"},
        {"<a value=x>", "parse_value: unterminated attribute value\nfrom <a>\nfrom <out>", ">"},
    };
    expectEach(rows, parseTaggedValue);
}

TEST(ParseTaggedValue, WantsNothingBehindTheAttribute)
{
    const std::string malformed = "parse_tag_end: invalid attribute or missing '>'";
    const std::string inA       = "\nfrom <a>\nfrom <out>";
    const std::vector<Refused> rows = {
        {"<a value='1' value='2'/>", malformed + inA,                                     "alue='2'/>"},
        {"<a value='1'x/>",          malformed + inA,                                     "/>"},
        {"<a value='1'",             malformed + inA,                                     ""},
        {"<a value='1'/ >",          malformed + "\nfrom <out>",                          ">"},
        {"<a value='1'>2</a>",       "parse_end_tag: expected '<', got '2'" + inA,        "</a>"},
        {"<a value='1'>",            "parse_end_tag: expected '<', got '\xFF'" + inA,     ""},
        {"<a value='1'></b>",        "parse_end_tag: begin/end tags don't match" + inA,   ""},
        {"<a value='1'><b/></a>",    "parse_end_tag: expected '/', got 'b'" + inA,        "/></a>"},
    };
    expectEach(rows, parseTaggedValue);
}

TEST(ParseTaggedValue, RefusesAnElementThatIsNotClosedOrHasChildren)
{
    const std::vector<Refused> rows = {
        {"<a",            "parse_tag_end: invalid attribute or missing '>'\nfrom <a>\nfrom <out>", ""},
        {"<a/ >",         "parse_tag_end: invalid attribute or missing '>'\nfrom <out>",           ">"},
        {"<a ='1'>",      "parse_tag_end: invalid attribute or missing '>'\nfrom <a>\nfrom <out>", "'1'>"},
        {"<a>",           "parse_data: unmatched tag 'a'\nfrom <a>\nfrom <out>",                   ""},
        {"<a>v",          "parse_data: unmatched tag 'a'\nfrom <a>\nfrom <out>",                   ""},
        {"<a>v<",         "parse_end_tag: expected '/', got '\xFF'\nfrom <a>\nfrom <out>",         ""},
        {"<a>v<b>",       "parse_end_tag: expected '/', got 'b'\nfrom <a>\nfrom <out>",            ">"},
        {"<a><!-- --></a>", "parse_end_tag: expected '/', got '!'\nfrom <a>\nfrom <out>",          "-- --></a>"},
        {"<a>v</>",       "parse_end_tag: missing tag name\nfrom <a>\nfrom <out>",                 ">"},
        {"<a>v</a",       "parse_end_tag: malformed end tag\nfrom <a>\nfrom <out>",                ""},
        {"<a>v</a >",     "parse_end_tag: malformed end tag\nfrom <a>\nfrom <out>",                ">"},
        {"<a>v</out>",    "parse_end_tag: begin/end tags don't match\nfrom <a>\nfrom <out>",       ""},
    };
    expectEach(rows, parseTaggedValue);
}

// clang-format on

TEST(ParseTaggedValue, TakesALongTextWhole)
{
    const std::string text = "x" + std::string(70000, ' ') + "y";
    expectEach(std::vector<Accepted>{{"<a>" + text + "</a>z", "[" + text + "]", "z"}}, parseTaggedValue);
}

TEST(XMLParser, LeavesTheNextDocumentInTheStream)
{
    Document document("<a><b>1</b></a><a><b>2</b></a>\n rest");
    for (const char* text : {"1", "2"}) {
        XMLParser parser(document.in);
        EXPECT_EQ(parser.parse_simple_tag("a"), PARSE_CONTENT);
        EXPECT_EQ(parser.parse_body(), PARSE_CHILD);
        EXPECT_EQ(parser.parse_tagged_value("b"), text);
        EXPECT_EQ(parser.parse_body(), PARSE_END);
        parser.parse_end_tag();
        EXPECT_TRUE(document.in.good());
    }
    EXPECT_EQ(document.rest(), "\n rest");
}

TEST(XMLParser, ReadsWithTheCallerInTurns)
{
    Document document("<a>one\n<b>2</b></a>");
    document.parser.parse_simple_tag("a");
    std::string word;
    std::getline(document.in, word);
    EXPECT_EQ(word, "one");
    EXPECT_EQ(document.parser.parse_tagged_value("b"), "2");
    document.parser.parse_end_tag();
}

} // namespace
} // namespace ipsecimpl
