#include "document.h"

#include <cstdio>
#include <locale>
#include <vector>

namespace ipsecimpl {
namespace {

const std::string nameCharacters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_:";

std::string parseName(XMLParser& parser)
{
    std::string name   = "old";
    const bool  result = parser.parse_name(name);
    return (result ? "true " : "false ") + name;
}

TEST(XMLParser, GivesTokensTheirNumbers)
{
    EXPECT_EQ(PARSE_CHILD, 1);
    EXPECT_EQ(PARSE_CONTENT, 4);
    EXPECT_EQ(PARSE_END, 5);
    EXPECT_EQ(PARSE_DATA, 6);
}

TEST(XMLParser, ReadsNothingWhenConstructed)
{
    Document document(" \n<a>");
    EXPECT_TRUE(document.in.good());
    EXPECT_EQ(document.rest(), " \n<a>");
    EXPECT_EQ(document.open(), "");
}

TEST(XMLParser, SwitchesOffSkippingOfWhiteSpaceForGood)
{
    std::istringstream in(" x");
    {
        XMLParser parser(in);
        EXPECT_EQ(in.flags() & std::ios_base::skipws, 0);
    }
    char c = 0;
    in >> c;
    EXPECT_EQ(c, ' ');
}

TEST(XMLParser, LeavesTheStreamsOtherFlagsAndItsStateAlone)
{
    std::istringstream in("x");
    in.setf(std::ios_base::hex | std::ios_base::boolalpha);
    in.setstate(std::ios_base::failbit);
    const std::ios_base::fmtflags before = in.flags();
    {
        XMLParser parser(in);
    }
    EXPECT_EQ(in.flags(), before & ~std::ios_base::skipws);
    EXPECT_EQ(in.rdstate(), std::ios_base::failbit);
    EXPECT_EQ(in.exceptions(), std::ios_base::goodbit);
}

TEST(XMLParser, HasSixtySixNameCharacters)
{
    for (int byte = 0; byte < 256; ++byte) {
        const bool expected = nameCharacters.find(static_cast<char>(byte)) != std::string::npos;
        EXPECT_EQ(XMLParser::isNameChar(byte), expected) << "byte " << byte;
    }
    EXPECT_EQ(nameCharacters.size(), 66u);
}

TEST(XMLParser, DoesNotTakeTheEndOfAFileForANameCharacter)
{
    EXPECT_FALSE(XMLParser::isNameChar(EOF));
}

TEST(XMLParser, TrimsWhiteSpaceAtTheEndOnly)
{
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"", ""},
        {"a", "a"},
        {"a ", "a"},
        {"a \t\n\v\f\r", "a"},
        {"  a b  ", "  a b"},
        {" \t\n\v\f\r", ""},
        {" ", ""},
        {" a", " a"},
        {"a\xA0", "a\xA0"},
        {"a\x85 ", "a\x85"},
        {std::string("a\0 ", 3), std::string("a\0", 2)},
        {std::string(1000, ' '), ""},
    };
    for (const auto& [text, trimmed] : rows) {
        std::string s = text;
        XMLParser::trim(s);
        EXPECT_EQ(s, trimmed) << "text " << testing::PrintToString(text);
    }
}

TEST(XMLParser, TrimsSixOfTheBytes)
{
    for (int byte = 0; byte < 256; ++byte) {
        const bool        isSpace = byte == ' ' || (byte >= 9 && byte <= 13);
        const std::string text    = std::string("x") + static_cast<char>(byte);
        std::string       s       = text;
        XMLParser::trim(s);
        EXPECT_EQ(s, isSpace ? "x" : text) << "byte " << byte;
    }
}

TEST(ParseName, ReadsAsFarAsNameCharactersGo)
{
    const std::vector<Accepted> rows = {
        {"abc>", "true abc", ">"},
        {"abc", "true abc", ""},
        {"a b", "true a", " b"},
        {"a/>", "true a", "/>"},
        {"a=1", "true a", "=1"},
        {"1-.:_a<", "true 1-.:_a", "<"},
        {nameCharacters + "\n", "true " + nameCharacters, "\n"},
        {"\xC3\xA4", "false ", "\xC3\xA4"},
        {"a\xC3\xA4", "true a", "\xC3\xA4"},
        {"a\xFF", "true a", "\xFF"},
        {"a#", "true a", "#"},
    };
    expectEach(rows, parseName);
}

TEST(ParseName, CountsAnAmpersandAsPartOfAName)
{
    EXPECT_FALSE(XMLParser::isNameChar('&'));
    const std::vector<Accepted> rows = {
        {"&", "true &", ""},
        {"a&b>", "true a&b", ">"},
        {"&amp;", "true &amp", ";"},
        {"&#65;", "true &", "#65;"},
    };
    expectEach(rows, parseName);
}

TEST(ParseName, ClearsTheNameAndConsumesNothingWhereThereIsNone)
{
    const std::vector<Accepted> rows = {
        {"", "false ", ""},   {" a", "false ", " a"}, {"\ta", "false ", "\ta"},
        {">", "false ", ">"}, {"<a", "false ", "<a"},
    };
    expectEach(rows, parseName);
}

TEST(ParseName, TakesALongNameWhole)
{
    const std::string name(70000, 'n');
    expectEach(std::vector<Accepted>{{name + ">", "true " + name, ">"}}, parseName);
}

/// Takes letters for white space, and white space and umlauts for letters.
class OddCharacters : public std::ctype<char> {
  public:
    OddCharacters()
        : std::ctype<char>(oddTable())
    {
    }

  private:
    static const mask* oddTable()
    {
        static mask table[table_size]             = {};
        table[static_cast<unsigned char>('a')]    = space;
        table[static_cast<unsigned char>(' ')]    = alpha;
        table[static_cast<unsigned char>('\xE4')] = alpha;
        table[static_cast<unsigned char>('\xA0')] = space;
        return table;
    }
};

TEST(XMLParser, ReadsTheSameWhateverTheStreamsLocale)
{
    Document document(" <a> a \xE4\xA0 </a>\xA0<b>");
    document.in.imbue(std::locale(std::locale::classic(), new OddCharacters));
    EXPECT_EQ(document.parser.parse_tagged_value("a"), "a \xE4\xA0");
    EXPECT_EQ(errorOf([&] { document.parser.parse_body(), document.parser.parse_end_tag(); }),
              "parse_end_tag: expected '<', got '\xA0'");
}

} // namespace
} // namespace ipsecimpl
