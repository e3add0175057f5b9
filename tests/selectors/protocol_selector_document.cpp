#include "selectors/documents.h"
#include "selectors/fields.h"
#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

using namespace std::string_literals;

using Selector = ProtocolSelector;
using Numbers  = std::vector<unsigned short>;

const std::string open  = "<protocolSelector>";
const std::string close = "</protocolSelector>\n";

TEST(ProtocolSelectorDocument, HoldsAllFields)
{
    EXPECT_EQ(written(Selector("web", 6, 80, 1024, PROTO_OUT, true)), webSelector);
    EXPECT_EQ(fieldsOf(read<Selector>(webSelector)), "'web' 6 dst 80 src 1024 OUT mirrored");
    EXPECT_EQ(written(Selector("everything", 0, 0, 0, PROTO_INOUT, false)), anySelector);
    EXPECT_EQ(fieldsOf(read<Selector>(anySelector)), "'everything' 0 dst 0 src 0 INOUT");
}

TEST(ProtocolSelectorDocument, HoldsBothPortsIfOneIsNotAny)
{
    EXPECT_EQ(written(Selector("web", 6, 80, 0, PROTO_OUT, true)), withText(webSelector, "srcPort", "0"));
    EXPECT_EQ(written(Selector("web", 6, 0, 1024, PROTO_OUT, true)), withText(webSelector, "dstPort", "0"));
}

TEST(ProtocolSelectorDocument, HoldsNoPortsIfBothAreAnyOrTheProtocolIs)
{
    const std::string portless = changed(webSelector, "<dstPort>80</dstPort>\n<srcPort>1024</srcPort>\n", "");
    EXPECT_EQ(written(Selector("web", 6, 0, 0, PROTO_OUT, true)), portless);
    EXPECT_EQ(written(Selector("web", 0, 80, 1024, PROTO_OUT, true)), withText(portless, "protocol", "0"));
    EXPECT_EQ(written(Selector("web", 0, 80, 0, PROTO_OUT, true)), withText(portless, "protocol", "0"));
}

TEST(ProtocolSelectorDocument, IsTheSameWrittenReadAndWrittenAgain)
{
    for (const unsigned short protocol : Numbers{0, 1, 65535})
        for (const unsigned short dstPort : Numbers{0, 65535})
            for (const unsigned short srcPort : Numbers{0, 32768})
                for (const Direction& direction : {PROTO_IN, PROTO_OUT, PROTO_INOUT})
                    for (const bool mirrored : {true, false}) {
                        const Selector    selector("a name", protocol, dstPort, srcPort, direction, mirrored);
                        const std::string document = written(selector);
                        const Selector    loaded   = read<Selector>(document);
                        EXPECT_EQ(written(loaded), document);
                        EXPECT_TRUE(loaded == selector);
                        EXPECT_EQ(loaded.compare(selector), 0);
                        EXPECT_EQ(loaded.name, selector.name);
                    }
}

TEST(ProtocolSelectorDocument, ComesLineByLine)
{
    expectWrittenByLines(Selector("web", 6, 80, 1024, PROTO_OUT, true));
    expectWrittenByLines(Selector("", 0, 0, 0, PROTO_IN, false));
}

TEST(ProtocolSelectorDocument, WritesNumbersAsTheStreamWritesThem)
{
    std::ostringstream out;
    out << std::hex << std::boolalpha;
    Selector("web", 6, 80, 1024, PROTO_OUT, true).exportXML(out);
    EXPECT_EQ(out.str(), withText(withText(webSelector, "dstPort", "50"), "srcPort", "400"));
}

TEST(ProtocolSelectorDocument, IsReadNoFurtherThanItsEndTag)
{
    expectReadNoFurther<Selector>(webSelector);
    expectReadNoFurther<Selector>(anySelector);
}

TEST(ProtocolSelectorDocument, HoldsItsChildrenInAnyOrder)
{
    std::vector<std::string> children;
    for (const char* tag : {"protocol", "name", "dstPort", "srcPort", "direction", "mirrored"})
        children.push_back(leafIn(webSelector, tag));
    std::sort(children.begin(), children.end());
    do {
        std::string document = open;
        for (const std::string& child : children)
            document += child;
        ASSERT_EQ(rewritten<Selector>(document + close), webSelector) << document;
    } while (std::next_permutation(children.begin(), children.end()));
}

TEST(ProtocolSelectorDocument, MayLackNameAndPorts)
{
    EXPECT_EQ(fieldsOf(read<Selector>(changed(webSelector, "<name>web</name>", ""))),
              "'' 6 dst 80 src 1024 OUT mirrored");
    EXPECT_EQ(fieldsOf(read<Selector>(changed(webSelector, "<dstPort>80</dstPort>", ""))),
              "'web' 6 dst 0 src 1024 OUT mirrored");
    EXPECT_EQ(fieldsOf(read<Selector>(changed(webSelector, "<srcPort>1024</srcPort>", ""))),
              "'web' 6 dst 80 src 0 OUT mirrored");
    EXPECT_EQ(fieldsOf(read<Selector>(open + leaf("mirrored", "MIRRORED") + leaf("direction", "IN") +
                                      leaf("protocol", "50") + close)),
              "'' 50 dst 0 src 0 IN mirrored");
}

TEST(ProtocolSelectorDocument, AllowsBlanksBetweenItsTagsAndAroundItsTexts)
{
    const std::string spaced = "\n\t <protocolSelector \r\n> <protocol\v> 6 \n</protocol>\f<name >\nweb\t</name>"
                               "<dstPort\n>\n80</dstPort><srcPort>1024 </srcPort>\n\n<direction> OUT </direction>"
                               "<mirrored>\r\nMIRRORED\r\n</mirrored>\n </protocolSelector>";
    EXPECT_EQ(rewritten<Selector>(spaced), webSelector);
}

TEST(ProtocolSelectorDocument, HoldsNamesAsTheyAre)
{
    EXPECT_EQ(fieldsOf(read<Selector>(withText(webSelector, "name", "  R&D >  \"1\" &lt;\n "))),
              "'R&D >  \"1\" &lt;' 6 dst 80 src 1024 OUT mirrored");
    EXPECT_EQ(written(Selector("a<b", 6, 80, 1024, PROTO_OUT, true)), withText(webSelector, "name", "a<b"));
    EXPECT_EQ(refusalOf<Selector>(withText(webSelector, "name", "a<b")),
              "parse_end_tag: expected '/', got 'b'\nfrom <name>\nfrom <protocolSelector>");
}

TEST(ProtocolSelectorDocument, IsWrittenButNotReadWithAnEmptyName)
{
    const std::string nameless = written(Selector("", 6, 80, 1024, PROTO_OUT, true));
    EXPECT_EQ(nameless, withText(webSelector, "name", ""));
    EXPECT_EQ(refusalOf<Selector>(nameless), "missing data for <name>");
}

// The number is base 10, saturates at 32 bits, and its low 16 bits are kept.
// clang-format off
const struct {
    std::string    text;
    unsigned short value;
} numbers[] = {
    {"0",                           0},
    {"6",                           6},
    {"+7",                          7},
    {"65535",                       65535},
    {"65536",                       0},
    {"65537",                       1},
    {"-1",                          65535},
    {"-65535",                      1},
    {"-65536",                      0},
    {"0x10",                        0},
    {"010",                         10},
    {"08",                          8},
    {"0b101",                       0},
    {"00000000000000000000000017",  17},
    {"abc",                         0},
    {"12abc",                       12},
    {"1 2",                         1},
    {"1.9",                         1},
    {"1e3",                         1},
    {"-",                           0},
    {"--1",                         0},
    {"+-1",                         0},
    {"- 1",                         0},
    {"+ 1",                         0},
    {"\xC2\xA0" "5",                0},
    {"1\0002"s,                     1},
    {"\0001"s,                      0},
    {"2147483647",                  65535},
    {"2147483648",                  65535},
    {"4294967295",                  65535},
    {"4294967296",                  65535},
    {"4294967302",                  65535},
    {"9223372036854775808",         65535},
    {"99999999999999999999",        65535},
    {"-2147483647",                 1},
    {"-2147483648",                 0},
    {"-2147483649",                 0},
    {"-4294967295",                 0},
    {"-4294967297",                 0},
    {"-99999999999999999999",       0},
};
// clang-format on

TEST(ProtocolSelectorDocument, CutsThePortsDownTo16Bits)
{
    for (const auto& [text, value] : numbers) {
        EXPECT_EQ(fieldsOf(read<Selector>(withText(webSelector, "dstPort", text))),
                  "'web' 6 dst " + std::to_string(value) + " src 1024 OUT mirrored")
            << text;
        EXPECT_EQ(fieldsOf(read<Selector>(withText(webSelector, "srcPort", text))),
                  "'web' 6 dst 80 src " + std::to_string(value) + " OUT mirrored")
            << text;
    }
}

TEST(ProtocolSelectorDocument, CutsTheProtocolDownTo16Bits)
{
    for (const auto& [text, value] : numbers)
        EXPECT_EQ(fieldsOf(read<Selector>(withText(anySelector, "protocol", text))),
                  "'everything' " + std::to_string(value) + " dst 0 src 0 INOUT")
            << text;
}

TEST(ProtocolSelectorDocument, MayHoldPortsOfAnyProtocolIfTheyAreAny)
{
    const std::string portless = withText(withText(webSelector, "dstPort", "0"), "srcPort", "65536");
    EXPECT_EQ(fieldsOf(read<Selector>(withText(portless, "protocol", "0"))), "'web' 0 dst 0 src 0 OUT mirrored");
    EXPECT_EQ(fieldsOf(read<Selector>(withText(portless, "protocol", "any"))), "'web' 0 dst 0 src 0 OUT mirrored");
}

} // namespace
} // namespace ipsecimpl
