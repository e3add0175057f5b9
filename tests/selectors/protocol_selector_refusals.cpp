#include "selectors/documents.h"
#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <stdexcept>
#include <string>

namespace ipsecimpl {
namespace {

using Selector = ProtocolSelector;

const std::string open  = "<protocolSelector>";
const std::string close = "</protocolSelector>\n";
const std::string from  = "\nfrom <protocolSelector>";

TEST(ProtocolSelectorRefusal, RefusesPortsOfAnyProtocol)
{
    const std::string message = "nonzero 'srcPort'/'dstProt' requires nonzero 'protocol'";
    for (const char* protocol : {"0", "65536", "x", "-2147483649"}) {
        const std::string document = withText(webSelector, "protocol", protocol);
        EXPECT_EQ(refusalOf<Selector>(document), message);
        EXPECT_EQ(refusalOf<Selector>(withText(document, "dstPort", "0")), message);
        EXPECT_EQ(refusalOf<Selector>(withText(document, "srcPort", "0")), message);
        EXPECT_EQ(refusalOf<Selector>(changed(document, "<srcPort>1024</srcPort>", "")), message);
    }
}

TEST(ProtocolSelectorRefusal, NeedsProtocolDirectionAndMirroredInThisOrder)
{
    const std::string protocol  = "<protocol>6</protocol>";
    const std::string direction = "<direction>OUT</direction>";
    const std::string mirrored  = "<mirrored>MIRRORED</mirrored>";
    const std::string port      = "<dstPort>80</dstPort>";
    // clang-format off
    expectRefused<Selector>({
        {open + close,                                            "attribute 'protocol' is required"},
        {open + port + close,                                     "attribute 'protocol' is required"},
        {open + port + direction + mirrored + close,              "attribute 'protocol' is required"},
        {open + "<protocol>0</protocol>" + port + close,
         "nonzero 'srcPort'/'dstProt' requires nonzero 'protocol'"},
        {open + protocol + close,                                 "attribute 'direction' is required"},
        {open + protocol + mirrored + close,                      "attribute 'direction' is required"},
        {open + protocol + port + direction + close,              "attribute 'mirrored' is required"},
    });
    // clang-format on
}

TEST(ProtocolSelectorRefusal, RefusesASecondChildOfTheSameName)
{
    for (const char* tag : {"protocol", "name", "dstPort", "srcPort", "direction", "mirrored"}) {
        const std::string message = "attribute '" + std::string(tag) + "' can only appear once";
        for (const std::string& second : {leafIn(webSelector, tag), leaf(tag, "0"), leaf(tag, "no such word")}) {
            EXPECT_EQ(
                refusalOf<Selector>(changed(webSelector, leafIn(webSelector, tag), leafIn(webSelector, tag) + second)),
                message);
            EXPECT_EQ(refusalOf<Selector>(changed(webSelector, close, second + close)), message);
        }
    }
    EXPECT_EQ(refusalOf<Selector>(changed(anySelector, close, leaf("protocol", "0") + close)),
              "attribute 'protocol' can only appear once");
}

TEST(ProtocolSelectorRefusal, SeesThatAChildIsBadlyFormedBeforeItSeesThatItIsTheSecond)
{
    // clang-format off
    expectRefused<Selector>(webSelector, {
        {close, "<name></name>" + close, "missing data for <name>"},
        {close, "<name/>" + close,       "invalid attributes or closing tag in <name>"},
        {close, "<name>a</x>" + close,   "parse_end_tag: begin/end tags don't match\nfrom <name>" + from},
    });
    // clang-format on
}

TEST(ProtocolSelectorRefusal, RefusesUnknownChildren)
{
    for (const char* tag : {"x", "Protocol", "port", "dstProt", "proto&col", "id", "protocolSelector"})
        EXPECT_EQ(refusalOf<Selector>(changed(webSelector, close, leaf(tag, "1") + close)),
                  "unknown attribute: '" + std::string(tag) + "'");
}

TEST(ProtocolSelectorRefusal, RefusesAChildWithoutAName)
{
    const std::string unnamed = "parse_tag: unnamed tag" + from;
    // clang-format off
    expectRefused<Selector>(webSelector, {
        {open,  open + "<>6</>",     unnamed},
        {close, "<>1</>" + close,    unnamed},
        {close, "<></>" + close,     unnamed},
        {close, "< x>1</x>" + close, unnamed},
    });
    // clang-format on
}

TEST(ProtocolSelectorRefusal, SeesThatAChildIsBadlyFormedBeforeItSeesThatItIsUnknown)
{
    // clang-format off
    expectRefused<Selector>(webSelector, {
        {close, "<x/>" + close,       "invalid attributes or closing tag in <x>"},
        {close, "<x></x>" + close,    "missing data for <x>"},
        {close, "<x y='1'/>" + close, "parse_tag_end: invalid attribute or missing '>'\nfrom <x>" + from},
        {close, "<x>1</y>" + close,   "parse_end_tag: begin/end tags don't match\nfrom <x>" + from},
        {close, "<x>1",               "parse_data: unmatched tag 'x'\nfrom <x>" + from},
        {close, "<x><y/></x>",        "missing data for <x>"},
        {close, "<x>1<y/></x>",       "parse_end_tag: expected '/', got 'y'\nfrom <x>" + from},
    });
    // clang-format on
}

TEST(ProtocolSelectorRefusal, RefusesChildrenInTheOtherFormsOfALeaf)
{
    for (const char* name : {"protocol", "name", "dstPort", "srcPort", "direction", "mirrored"}) {
        const std::string tag       = name;
        const std::string line      = leafIn(webSelector, tag);
        const std::string text      = textIn(webSelector, tag);
        const std::string inside    = "\nfrom <" + tag + ">";
        const std::string attribute = "parse_tag_end: invalid attribute or missing '>'";
        // clang-format off
        expectRefused<Selector>(webSelector, {
            {line, "<" + tag + "/>",                      "invalid attributes or closing tag in <" + tag + ">"},
            {line, "<" + tag + "></" + tag + ">",         "missing data for <" + tag + ">"},
            {line, "<" + tag + "> \n </" + tag + ">",     "missing data for <" + tag + ">"},
            {line, "<" + tag + " value='" + text + "'/>", attribute + inside + from},
            {line, "<" + tag + " value='1'></" + tag + ">", attribute + inside + from},
            {line, "<" + tag + "/ >",                     attribute + from},
            {line, "<" + tag + ">1</" + tag + " >",       "parse_end_tag: malformed end tag" + inside + from},
            {line, "<" + tag + ">1" + close,              "parse_end_tag: begin/end tags don't match" + inside + from},
        });
        // clang-format on
    }
}

TEST(ProtocolSelectorRefusal, RefusesAnUnknownDirectionAsTheEnumerationDoes)
{
    for (const char* direction : {"in", "Out", "INOUT2", "BOTH", "0", "IN OUT"})
        EXPECT_EQ(
            errorOf<std::invalid_argument>([&] { read<Selector>(withText(webSelector, "direction", direction)); }),
            "to_int")
            << direction;
}

TEST(ProtocolSelectorRefusal, RefusesAnUnknownDirectionBeforeItReadsOn)
{
    EXPECT_EQ(errorOf<std::invalid_argument>([] { read<Selector>(open + leaf("direction", "x") + "<y"); }), "to_int");
}

TEST(ProtocolSelectorRefusal, RefusesOtherWordsForMirrored)
{
    for (const char* mirrored : {"mirrored", "notmirrored", "true", "1", "MIRRORED NOTMIRRORED", "NOT MIRRORED"})
        EXPECT_EQ(refusalOf<Selector>(withText(webSelector, "mirrored", mirrored)),
                  "required attribute 'mirrored' must be MIRRORED or NOTMIRRORED")
            << mirrored;
    EXPECT_EQ(refusalOf<Selector>(open + leaf("mirrored", "x") + "<y"),
              "required attribute 'mirrored' must be MIRRORED or NOTMIRRORED");
}

TEST(ProtocolSelectorRefusal, IsRefusedInAnotherFrame)
{
    const std::string bad = "parse_tag_end: invalid attribute or missing '>'";
    // clang-format off
    expectRefused<Selector>({
        {"",                                     "parse_tag: expected '<', found '\xFF'"},
        {"x" + webSelector,                      "parse_tag: expected '<', found 'x'"},
        {close,                                  "parse_simple_tag: missing tag; expected <protocolSelector>"},
        {"<hostSelector>",
         "parse_simple_tag: wrong tag; expected <protocolSelector>, found <hostSelector>\nfrom <hostSelector>"},
        {open,                                   "parse_tag: expected '<', found '\xFF'" + from},
        {open + "6" + close,                     "parse_tag: expected '<', found '6'" + from},
        {open + "<!-- note -->" + close,         "parse_tag: unnamed tag" + from},
        {"<protocolSelector name='web'>",        bad + from},
        {"<protocolSelector/>",                  "parse_tag: expected '<', found '\xFF'"},
        {"<protocolSelector/>" + close,          "parse_end_tag: begin/end tags don't match"},
    });
    expectRefused<Selector>(webSelector, {
        {open,  "<protocolSelector/>",           "parse_end_tag: begin/end tags don't match"},
        {close, "x" + close,                     "parse_tag: expected '<', found 'x'" + from},
        {close, "",                              "parse_tag: expected '<', found '\xFF'" + from},
        {close, "</x>",                          "parse_end_tag: begin/end tags don't match" + from},
        {close, "</protocolSelector >",          "parse_end_tag: malformed end tag" + from},
        {close, "</>",                           "parse_end_tag: missing tag name" + from},
    });
    // clang-format on
}

TEST(ProtocolSelectorRefusal, ReadsItsEndTagBeforeItMissesChildren)
{
    EXPECT_EQ(refusalOf<Selector>(open + "</x>"), "parse_end_tag: begin/end tags don't match" + from);
    EXPECT_EQ(refusalOf<Selector>(changed(withText(webSelector, "protocol", "0"), close, "</protocolSelector >")),
              "parse_end_tag: malformed end tag" + from);
}

TEST(ProtocolSelectorRefusal, LeavesTheParserInTheElement)
{
    // The parser is not rolled back: the message that comes next still names what is open.
    for (const std::string& child : {leaf("direction", "x"), leaf("mirrored", "x"), leaf("x", "1"),
                                     leaf("protocol", "6") + leaf("protocol", "6")}) {
        std::istringstream in(open + child + "</y>");
        XMLParser          parser(in);
        EXPECT_ANY_THROW(Selector::importXML(parser)) << child;
        EXPECT_EQ(errorOf([&] { parser.parse_end_tag(); }), "parse_end_tag: begin/end tags don't match" + from)
            << child;
    }
}

TEST(ProtocolSelectorRefusal, IsRefusedWhereverItIsCut)
{
    for (std::size_t length = 0; length + 1 < webSelector.size(); ++length)
        EXPECT_THROW(read<Selector>(webSelector.substr(0, length)), ParseError) << webSelector.substr(0, length);
}

} // namespace
} // namespace ipsecimpl
