#include "selectors/documents.h"
#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

const std::string from      = "\nfrom <hostGroup>";
const std::string selectors = "\nfrom <selectors>" + from;

/// Every beginning of `document` is refused, but for that which lacks the last line end only.
template <class Group>
void expectRefusedWhereverItIsCut(const std::string& document)
{
    for (std::size_t length = 0; length + 1 < document.size(); ++length)
        EXPECT_THROW(read<Group>(document.substr(0, length)), ParseError) << document.substr(0, length);
}

TEST(SelectorGroupRefusal, NeedsItsLeavesInTheirOrder)
{
    const std::vector<std::string> inOrder = {"name", "builtinName", "descr", "builtinDescr"};
    expectLeavesChecked<HostGroup>(hosts, "hostGroup", inOrder);
    expectLeavesChecked<ProtocolGroup>(protocols, "protocolGroup", inOrder);
}

TEST(SelectorGroupRefusal, IsRefusedInAnotherFrame)
{
    const std::string open = "<hostGroup>", close = "</hostGroup>\n";
    const std::string bad = "parse_tag_end: invalid attribute or missing '>'";
    // clang-format off
    expectRefused<HostGroup>({
        {"",                           "parse_tag: expected '<', found '\xFF'"},
        {close,                        "parse_simple_tag: missing tag; expected <hostGroup>"},
        {"<hostGroup/>",               "hostGroup missing required data"},
        {"<hostGroup />" + hosts,      "hostGroup missing required data"},
        {"<hostGroup/ >",              bad},
        {protocols,
         "parse_simple_tag: wrong tag; expected <hostGroup>, found <protocolGroup>\nfrom <protocolGroup>"},
        {open + close,                 "parse_tagged_value: missing tag; expected <name>" + from},
    });
    expectRefused<HostGroup>(hosts, {
        {open,  "<hostGroup id='1'>",  bad + from},
        {open,  "<hostGroup",          bad + from},
        {close, "",                    "parse_end_tag: expected '<', got '\xFF'" + from},
        {close, "x" + close,           "parse_end_tag: expected '<', got 'x'" + from},
        {close, "<x/>" + close,        "parse_end_tag: expected '/', got 'x'" + from},
        {close, "<selectors/>" + close, "parse_end_tag: expected '/', got 's'" + from},
        {close, "</protocolGroup>",    "parse_end_tag: begin/end tags don't match" + from},
        {close, "</hostGroup >",       "parse_end_tag: malformed end tag" + from},
    });
    expectRefused<ProtocolGroup>({
        {"<protocolGroup/>",           "protocolGroup missing required data"},
        {hosts,
         "parse_simple_tag: wrong tag; expected <protocolGroup>, found <hostGroup>\nfrom <hostGroup>"},
    });
    // clang-format on
}

TEST(SelectorGroupRefusal, NeedsTheElementOfItsSelectors)
{
    const std::string open = "<selectors>\n", close = "</selectors>\n";
    // clang-format off
    expectRefused<HostGroup>(hosts, {
        {open,  "",
         "parse_simple_tag: wrong tag; expected <selectors>, found <hostSelector>\nfrom <hostSelector>" + from},
        {open,  "</hostGroup>",             "parse_simple_tag: missing tag; expected <selectors>" + from},
        {open,  "x" + open,                 "parse_tag: expected '<', found 'x'" + from},
        {open,  "<selectors value='1'>",    "parse_tag_end: invalid attribute or missing '>'" + selectors},
        {open,  "<selectors/>",             "parse_end_tag: expected '/', got 'h'" + from},
        {open,  "<selectors/></selectors>", "parse_end_tag: begin/end tags don't match" + from},
        {close, "",                         "parse_end_tag: begin/end tags don't match" + selectors},
        {close, "</selectors >",            "parse_end_tag: malformed end tag" + selectors},
    });
    // clang-format on
}

TEST(SelectorGroupRefusal, HoldsNothingButItsKindOfSelectors)
{
    const std::string wrong = "parse_simple_tag: wrong tag; expected ";
    // clang-format off
    expectRefused<HostGroup>({
        {groupOf("hostGroup", service("6", "x")),
         wrong + "<hostSelector>, found <protocolSelector>\nfrom <protocolSelector>" + selectors},
        {groupOf("hostGroup", "<x/>"),              wrong + "<hostSelector>, found <x>\nfrom <x>" + selectors},
        {groupOf("hostGroup", "<!-- note -->"),     "parse_tag: unnamed tag" + selectors},
        {groupOf("hostGroup", "text"),              "parse_end_tag: expected '<', got 't'" + selectors},
        {groupOf("hostGroup", subnet("a", "1") + "text" + subnet("b", "1")),
         "parse_end_tag: expected '<', got 't'" + selectors},
    });
    expectRefused<ProtocolGroup>({
        {groupOf("protocolGroup", subnet("10.1.0.0", "24")),
         wrong + "<protocolSelector>, found <hostSelector>\nfrom <hostSelector>\nfrom <selectors>"
                 "\nfrom <protocolGroup>"},
    });
    // clang-format on
}

TEST(SelectorGroupRefusal, RefusesSelfClosedSelectorsByWhatFollows)
{
    EXPECT_EQ(refusalOf<HostGroup>(groupOf("hostGroup", "<hostSelector/>")),
              "parse_tagged_value: missing tag; expected <family>" + selectors);
    EXPECT_EQ(refusalOf<ProtocolGroup>(groupOf("protocolGroup", "<protocolSelector/>")),
              "attribute 'protocol' is required");
}

TEST(SelectorGroupRefusal, SaysWhereItEndsTooEarly)
{
    const std::string unfinished = hosts.substr(0, hosts.find("</selectors>"));
    EXPECT_EQ(refusalOf<HostGroup>(unfinished), "parse_body: unmatched name 'selectors'" + selectors);
    expectRefusedWhereverItIsCut<HostGroup>(hosts);
    expectRefusedWhereverItIsCut<ProtocolGroup>(protocols);
}

TEST(SelectorGroupRefusal, RefusesUnknownWordsInItsSelectors)
{
    const std::string bad = "bad value: to_int";
    EXPECT_EQ(refusalOf<HostGroup>(changed(hosts, ">AF_INET<", ">AF_INET4<")), bad);
    EXPECT_EQ(refusalOf<HostGroup>(changed(hosts, ">SUBNET_LENGTH<", ">subnet<")), bad);
    EXPECT_EQ(refusalOf<HostGroup>(changed(hosts, "<family>AF_INET6</family>", "<family/>")), bad);
    EXPECT_EQ(refusalOf<ProtocolGroup>(changed(protocols, ">OUT<", ">out<")), bad);
}

TEST(SelectorGroupRefusal, PassesOnWhyItsSelectorsAreRefused)
{
    EXPECT_EQ(refusalOf<HostGroup>(changed(hosts, "<family>AF_INET6</family>", "<family>AF_ANY</family>")),
              "bad value in <hostSelector>");
    EXPECT_EQ(refusalOf<HostGroup>(changed(hosts, "<length>64</length>", "")),
              "parse_tagged_value: missing tag; expected <length>\nfrom <hostSelector>" + selectors);
    EXPECT_EQ(refusalOf<ProtocolGroup>(changed(protocols, "<protocol>6</protocol>", "")),
              "attribute 'protocol' is required");
    EXPECT_EQ(refusalOf<ProtocolGroup>(changed(protocols, "<protocol>6</protocol>", "<protocol value='6'/>")),
              "parse_tag_end: invalid attribute or missing '>'\nfrom <protocol>\nfrom <protocolSelector>"
              "\nfrom <selectors>\nfrom <protocolGroup>");
}

} // namespace
} // namespace ipsecimpl
