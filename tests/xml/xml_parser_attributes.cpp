#include "document.h"

namespace ipsecimpl {
namespace {

std::string parseAttr(XMLParser& parser)
{
    std::string name   = "old";
    std::string value  = "old";
    const bool  result = parser.parse_attr(name, value);
    return result ? name + "=[" + value + "]" : "none" + name + value;
}

std::string parseValue(XMLParser& parser)
{
    std::string value = "old";
    EXPECT_TRUE(parser.parse_value(value));
    return "[" + value + "]";
}

// clang-format off

TEST(ParseAttr, ReadsANameAndAValue)
{
    const std::vector<Accepted> rows = {
        {"v='x'>",                  "v=[x]",   ">"},
        {"v=\"x\"/>",               "v=[x]",   "/>"},
        {"v=x >",                   "v=[x]",   " >"},
        {" \t\n\v\f\rv='x' w='y'>", "v=[x]",   " w='y'>"},
        {"v \t\n\v\f\r= \t\n\v\f\r'x'>", "v=[x]", ">"},
        {"v= x >",                  "v=[x]",   " >"},
        {"v=''>",                   "v=[]",    ">"},
        {"a:b.c-d_e&='x'>",         "a:b.c-d_e&=[x]", ">"},
        {"v='x'w='y'>",             "v=[x]",   "w='y'>"},
        {"v==1 >",                  "v=[=1]",  " >"},
        {"v='1'='2'>",              "v=[1]",   "='2'>"},
    };
    expectEach(rows, parseAttr);
}

TEST(ParseAttr, TakesANameWithoutEqualsSignForAnAttributeWithoutValue)
{
    const std::vector<Accepted> rows = {
        {"v>",       "v=[]", ">"},
        {"v />",     "v=[]", "/>"},
        {"v w='1'>", "v=[]", "w='1'>"},
        {"v",        "v=[]", ""},
        {"v \n",     "v=[]", ""},
        {"v'x'",     "v=[]", "'x'"},
    };
    expectEach(rows, parseAttr);
}

TEST(ParseAttr, FindsNoneWhereNoNameIsAndConsumesWhiteSpaceOnly)
{
    const std::vector<Accepted> rows = {
        {">",               "none", ">"},
        {"/>",              "none", "/>"},
        {" \t\n\v\f\r/>",   "none", "/>"},
        {" ='1'>",          "none", "='1'>"},
        {"'x'>",            "none", "'x'>"},
        {"\xA0v='x'",       "none", "\xA0v='x'"},
        {"",                "none", ""},
        {"  ",              "none", ""},
    };
    expectEach(rows, parseAttr);
}

TEST(ParseAttr, PassesOnWhatParseValueRefuses)
{
    const std::vector<Refused> rows = {
        {"v=",     "parse_value: unterminated attribute value\nfrom <out>", ""},
        {"v= ",    "parse_value: unterminated attribute value\nfrom <out>", ""},
        {"v=>",    "parse_value: unterminated attribute value\nfrom <out>", ">"},
        {"v='x",   "parse_value: unterminated attribute value\nfrom <out>", ""},
        {"v=x/>",  "parse_value: unterminated attribute value\nfrom <out>", ">"},
    };
    expectEach(rows, parseAttr);
}

TEST(ParseAttr, DrivesAStartTagReadByHand)
{
    Document    document("<a one='1' two three=3 ></a>");
    std::string name;
    std::string value;
    std::string seen;
    EXPECT_TRUE(document.parser.parse_tag(name));
    while (document.parser.parse_attr(name, value))
        seen += name + "=[" + value + "] ";
    EXPECT_EQ(seen, "one=[1] two=[] three=[3] ");
    EXPECT_EQ(document.parser.parse_tag_end(), PARSE_CONTENT);
    document.parser.parse_end_tag();
    EXPECT_EQ(document.open(), "");
}

TEST(ParseValue, ReadsAQuotedValueUpToTheSameQuote)
{
    const std::vector<Accepted> rows = {
        {"'x'>",              "[x]",           ">"},
        {"\"x\">",            "[x]",           ">"},
        {"''",                "[]",            ""},
        {"\"\"x",             "[]",            "x"},
        {"'a\"b'c",           "[a\"b]",        "c"},
        {"\"a'b\"c",          "[a'b]",         "c"},
        {"' a \n b '>",       "[ a \n b ]",    ">"},
        {"'<a/>='>",          "[<a/>=]",       ">"},
        {"'&lt;&#65;'>",      "[&lt;&#65;]",   ">"},
        {"'\xFF\x85\xA0'>",   "[\xFF\x85\xA0]", ">"},
        {std::string("'a\0b'", 5), std::string("[a\0b]", 5), ""},
        {"'x''y'",            "[x]",           "'y'"},
    };
    expectEach(rows, parseValue);
}

TEST(ParseValue, ReadsAnUnquotedValueUpToWhiteSpaceWhichStays)
{
    const std::vector<Accepted> rows = {
        {"x >",          "[x]",        " >"},
        {"x\t>",         "[x]",        "\t>"},
        {"x\v",          "[x]",        "\v"},
        {"x/ >",         "[x/]",       " >"},
        {"a'b\"c ",      "[a'b\"c]",   " "},
        {"<a=&lt; />",   "[<a=&lt;]",  " />"},
        {"\xFF\xA0 ",    "[\xFF\xA0]", " "},
        {" x",           "[]",         " x"},
        {"\n",           "[]",         "\n"},
    };
    expectEach(rows, parseValue);
}

TEST(ParseValue, RefusesAValueWithoutEnd)
{
    const std::vector<Refused> rows = {
        {"'x",         "parse_value: unterminated attribute value\nfrom <out>", ""},
        {"'",          "parse_value: unterminated attribute value\nfrom <out>", ""},
        {"'x\">",      "parse_value: unterminated attribute value\nfrom <out>", ""},
        {"\"x'></a>",  "parse_value: unterminated attribute value\nfrom <out>", ""},
        {"x>",         "parse_value: unterminated attribute value\nfrom <out>", ">"},
        {"x/>",        "parse_value: unterminated attribute value\nfrom <out>", ">"},
        {">x ",        "parse_value: unterminated attribute value\nfrom <out>", ">x "},
        {"x",          "parse_value: unterminated attribute value\nfrom <out>", ""},
        {"",           "parse_value: unterminated attribute value\nfrom <out>", ""},
    };
    expectEach(rows, parseValue);
}

// clang-format on

TEST(ParseValue, TakesALongValueWhole)
{
    const std::string value(70000, '>');
    expectEach(std::vector<Accepted>{{"'" + value + "'>", "[" + value + "]", ">"}}, parseValue);
}

} // namespace
} // namespace ipsecimpl
