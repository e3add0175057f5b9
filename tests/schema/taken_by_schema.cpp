#include "schema/documents.h"
#include "schema/rules.h"

namespace ipsecimpl {
namespace {

std::string anyFamily(const std::string& type)
{
    return "<hostSelector>\n<family>AF_ANY</family>\n<selectorType>" + type + "</selectorType>\n</hostSelector>\n";
}

} // namespace

// clang-format off

const std::vector<TakenBySchema>& takenBySchema()
{
    static const std::vector<TakenBySchema> rules{
        // What is the same in XML
        {"no declaration", "<ipsec>", "<?xml version=\"1.0\"?><ipsec>", "", "parse_tag: unnamed tag"},
        {"no byte order mark", "<ipsec>", "\xEF\xBB\xBF<ipsec>", "", "parse_tag: expected '<', found '\xEF'"},
        {"no document type", "<ipsec>", "<!DOCTYPE ipsec><ipsec>", "", "parse_tag: unnamed tag"},
        {"no comments", "<hostGroups>", "<hostGroups><!-- ours -->", "", "parse_tag: unnamed tag"},
        {"no processing instructions", "<hostGroups>", "<hostGroups><?ours?>", "", "parse_tag: unnamed tag"},
        {"no CDATA sections", "own.pem", "<![CDATA[own.pem]]>", "", "parse_end_tag: expected '/', got '!'"},
        {"no white space at the end of an end tag", "</length>", "</length >", "", "parse_end_tag: malformed end tag"},
        {"no white space between tags but line ends", "<length>", "  <length>", "<length>", ""},
        {"no white space in start tags", "<length>", "<length >", "<length>", ""},
        {"no references in numbers", ">24<", ">&#50;4<", ">0<", ""},
        {"no references in words", "INOUT", "&#73;NOUT", "", "bad value: to_int"},
        {"no element is closed at once", "<addr2>192.0.2.9</addr2>", "<addr2/>", "<addr2></addr2>", ""},

        // What depends on other texts
        {"an ID is there once", "<id>3</id>\n<policy>", "<id>1</id>\n<policy>", "", "duplicate ID"},
        {"a next ID is greater than all IDs", "<nextpolicy>9<", "<nextpolicy>3<", "<nextpolicy>4<", ""},
        {"a next ID is 2147483648 behind 2147483647 alone",
         "<nextpolicy>9<", "<nextpolicy>2147483648<", "<nextpolicy>2147483647<", ""},
        {"entries are in the order of their IDs",
         FIRST_POLICY + THIRD_POLICY, THIRD_POLICY + FIRST_POLICY, FIRST_POLICY + THIRD_POLICY, ""},
        {"selectors are in their order",
         anyFamily("LOCAL") + anyFamily("ANY"), anyFamily("MCAST") + anyFamily("LOCAL"),
         anyFamily("LOCAL") + anyFamily("MCAST"), ""},
        {"a selector is there once",
         anyFamily("LOCAL"), anyFamily("LOCAL") + anyFamily("LOCAL"), anyFamily("LOCAL"), ""},
    };
    return rules;
}

const std::vector<NoXML>& noXML()
{
    static const std::vector<NoXML> rules{
        {"an ampersand", "A & B"},
        {"the end of a CDATA section", "A]]>B"},
        {"a control character that is no white space", "A\x01" "B"},
        {"a vertical tab or form feed", "A\v\fB"},
        {"bytes that are not UTF-8", "A\xE4" "B"},
    };
    return rules;
}

// clang-format on

} // namespace ipsecimpl
