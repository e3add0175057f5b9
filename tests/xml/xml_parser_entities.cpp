#include "document.h"

namespace ipsecimpl {
namespace {

struct Entity {
    std::string text;
    std::string expanded;
};

void expectExpanded(const std::vector<Entity>& rows)
{
    Document document("untouched");
    for (const Entity& row : rows)
        EXPECT_EQ(document.parser.expand_entity(row.text), row.expanded) << testing::PrintToString(row.text);
    EXPECT_EQ(document.rest(), "untouched");
}

void expectUnknown(const std::vector<std::string>& texts)
{
    Document document("<a>untouched");
    document.parser.parse_simple_tag("a");
    for (const std::string& text : texts) {
        EXPECT_EQ(errorOf([&] { document.parser.expand_entity(text); }),
                  "expand_entity: invalid character entity '" + text + "'\nfrom <a>")
            << testing::PrintToString(text);
    }
    EXPECT_EQ(document.rest(), "untouched");
}

const std::string nul(1, '\0');

// clang-format off

TEST(ExpandEntity, KnowsFiveNamesWithoutSemicolon)
{
    expectExpanded({
        {"&gt",   ">"},
        {"&lt",   "<"},
        {"&amp",  "&"},
        {"&apos", "'"},
        {"&quot", "\""},
    });
}

TEST(ExpandEntity, KnowsNoOtherNameAndNoNameWithSemicolon)
{
    expectUnknown({"&gt;", "&lt;", "&amp;", "&apos;", "&quot;", "&GT", "&Gt", "gt", "&g", "&gtx", " &gt", "&gt ",
                   "&nbsp", "&", "", ";", "&;", "x", "&&gt", "#65;", "&a", "&amp;amp", "& #65;"});
}

TEST(ExpandEntity, MakesACharacterOfADecimalNumber)
{
    expectExpanded({
        {"&#65;",     "A"},
        {"&#065;",    "A"},
        {"&#+65;",    "A"},
        {"&# 65;",    "A"},
        {"&#\t\n65;", "A"},
        {"&#65;junk", "A"},
        {"&#65;;",    "A"},
        {"&#0;",      nul},
        {"&#10;",     "\n"},
        {"&#08;",     "\b"},
        {"&#127;",    "\x7F"},
        {"&#128;",    "\x80"},
        {"&#255;",    "\xFF"},
    });
}

TEST(ExpandEntity, MakesACharacterOfAHexadecimalNumberBehindALowerCaseX)
{
    expectExpanded({
        {"&#x41;",     "A"},
        {"&#x0041;",   "A"},
        {"&#x4a;",     "J"},
        {"&#x4A;",     "J"},
        {"&#x 41;",    "A"},
        {"&#x+41;",    "A"},
        {"&#x0x41;",   "A"},
        {"&#x0X41;",   "A"},
        {"&#x41;junk", "A"},
        {"&#xff;",     "\xFF"},
        {"&#x0;",      nul},
    });
}

TEST(ExpandEntity, CutsTheNumberDownToAByte)
{
    expectExpanded({
        {"&#256;",         nul},
        {"&#300;",         ","},
        {"&#x141;",        "A"},
        {"&#8364;",        "\xAC"},
        {"&#-1;",          "\xFF"},
        {"&#-191;",        "A"},
        {"&#x-1;",         "\xFF"},
        {"&#x-bf;",        "A"},
        {"&#2147483647;",  "\xFF"},
        {"&#-2147483648;", nul},
        {"&#x7fffff41;",   "A"},
    });
}

TEST(ExpandEntity, SaturatesTheNumberAt32BitsFirst)
{
    expectExpanded({
        {"&#2147483648;",           "\xFF"},
        {"&#2147483713;",           "\xFF"}, // not the 'A' of a wider number
        {"&#4294967361;",           "\xFF"},
        {"&#-2147483649;",          nul},
        {"&#-4294967231;",          nul},
        {"&#x100000041;",           "\xFF"},
        {"&#xffffff41;",            "\xFF"},
        {"&#18446744073709551681;", "\xFF"},
        {"&#1234567890123456789012345678901234567890;", "\xFF"},
    });
}

TEST(ExpandEntity, TakesNoDigitsForZeroIfTheSemicolonFollowsAtOnce)
{
    expectExpanded({
        {"&#;",      nul},
        {"&#x;",     nul},
        {"&#;65;",   nul},
        {"&#x;41;",  nul},
    });
}

TEST(ExpandEntity, RefusesANumberThatNoSemicolonFollows)
{
    expectUnknown({"&#", "&#x", "&#65", "&#x41", "&# ;", "&#x ;", "&#-;", "&#+;", "&#x-;", "&#65 ;", "&#6 5;", "&#65a;",
                   "&#a;", "&#X41;", "&#0x41;", "&#0b1;", "&#x0x;", "&#xx41;", "&#x4g;", "&#--1;", "&##65;", "&#x 4 1;",
                   "&#\xA0" "65;", "&#65.0;", "&#65,", "&#6_5;"});
}

TEST(ExpandEntity, EndsTheNumberAtANulByte)
{
    Document document("");
    for (const std::string& text : {"&#65" + nul + ";", "&#" + nul + ";", "&#x" + nul + "41;"})
        EXPECT_THROW(document.parser.expand_entity(text), ParseError) << testing::PrintToString(text);
    for (const std::string& text : {"&gt" + nul, nul + "&gt"})
        EXPECT_THROW(document.parser.expand_entity(text), ParseError) << testing::PrintToString(text);
}

std::string parseEntity(XMLParser& parser) { return parser.parse_entity(); }

TEST(ParseEntity, ExpandsWhatComesBeforeTheSemicolonAndConsumesIt)
{
    const std::vector<Accepted> rows = {
        {"&gt;x",      ">",  "x"},
        {"&lt;;",      "<",  ";"},
        {"&amp;amp;",  "&",  "amp;"},
        {"&apos;",     "'",  ""},
        {"&quot; ",    "\"", " "},
    };
    expectEach(rows, parseEntity);
}

TEST(ParseEntity, ExpandsWhatComesBeforeTheEndOfInput)
{
    expectEach(std::vector<Accepted>{{"&gt", ">", ""}}, parseEntity);
}

TEST(ParseEntity, RefusesEveryNumericEntityForItHasLostItsSemicolon)
{
    const std::vector<Refused> rows = {
        {"&#65;x",   "expand_entity: invalid character entity '&#65'\nfrom <out>",  "x"},
        {"&#x41;x",  "expand_entity: invalid character entity '&#x41'\nfrom <out>", "x"},
        {"&#65",     "expand_entity: invalid character entity '&#65'\nfrom <out>",  ""},
        {"&#65;;",   "expand_entity: invalid character entity '&#65'\nfrom <out>",  ";"},
        {"&#;x",     "expand_entity: invalid character entity '&#'\nfrom <out>",    "x"},
    };
    expectEach(rows, parseEntity);
}

TEST(ParseEntity, RefusesWhatIsNoEntity)
{
    const std::vector<Refused> rows = {
        {"",            "expand_entity: invalid character entity ''\nfrom <out>",           ""},
        {";x",          "expand_entity: invalid character entity ''\nfrom <out>",           "x"},
        {" &gt;",       "expand_entity: invalid character entity ' &gt'\nfrom <out>",       ""},
        {"&nbsp;x",     "expand_entity: invalid character entity '&nbsp'\nfrom <out>",      "x"},
        {"text\n<a>;x", "expand_entity: invalid character entity 'text\n<a>'\nfrom <out>",  "x"},
        {"\xFF;x",      "expand_entity: invalid character entity '\xFF'\nfrom <out>",       "x"},
    };
    expectEach(rows, parseEntity);
}

// clang-format on

} // namespace
} // namespace ipsecimpl
