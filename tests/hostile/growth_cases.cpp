#include "hostile/growth_cases.h"

#include <ipsecimpl/ipsecimpl.h>

#include <istream>

namespace ipsecimpl {
namespace {

/// `unit(0)`, `unit(1)`, ... until there are `size` bytes.
template <class Unit>
std::string repeated(std::size_t size, const Unit& unit)
{
    std::string text;
    for (std::size_t i = 0; text.size() < size; ++i)
        text += unit(i);
    return text;
}

std::string repeated(std::size_t size, const char* unit)
{
    return repeated(size, [unit](std::size_t /*index*/) { return unit; });
}

std::string leaf(const std::string& tag, const std::string& text)
{
    return "<" + tag + ">" + text + "</" + tag + ">";
}

std::string config(const std::string& hostGroups, const std::string& protocolGroups, const std::string& actions,
                   const std::string& policies)
{
    return "<ipsec>" + leaf("hostGroups", hostGroups) + leaf("protocolGroups", protocolGroups) +
           leaf("actions", actions) + leaf("policies", policies) + "</ipsec>";
}

std::string withHosts(const std::string& name, const std::string& selectors)
{
    return config(
        leaf("hostGroupEntry", "<id>1</id>" + leaf("hostGroup", name + "<builtinName/><descr/><builtinDescr/>" +
                                                                    leaf("selectors", selectors))),
        "", "", "");
}

std::string withProtocols(const std::string& selectors)
{
    return config("",
                  leaf("protocolGroupEntry", "<id>1</id>" + leaf("protocolGroup", "<name/><builtinName/><descr/>"
                                                                                  "<builtinDescr/>" +
                                                                                      leaf("selectors", selectors))),
                  "", "");
}

std::string withAction(const std::string& transforms, const std::string& proposals)
{
    const std::string lifetime = "<dhGroup>NONE</dhGroup><keyLifetime/><keyLifetimeUnits>KB</keyLifetimeUnits>";
    return config(
        "", "",
        leaf("actionEntry",
             "<id>1</id>" + leaf("action", "<changeCount/><name/><builtinName/><descr/><builtinDescr/><type/><state/>"
                                           "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr>" +
                                               leaf("ikePhase1", "<authType>PSK</authType><presharedKey/>" +
                                                                     leaf("proposal", lifetime + transforms)) +
                                               leaf("ikePhase2", lifetime + proposals))),
        "");
}

std::string policyEntry(const std::string& id)
{
    return leaf("policyEntry", leaf("id", id) + "<policy><hostGroupID/><protocolGroupID/><actionID/></policy>");
}

std::string hostSelector(std::size_t number)
{
    return "<hostSelector>\n<family>AF_INET</family>\n<selectorType>SINGLE</selectorType>\n" +
           leaf("addr1", std::to_string(number)) + "\n</hostSelector>\n";
}

std::string protocolSelector(const std::string& rest)
{
    return leaf("protocolSelector", "<protocol>6</protocol><direction>IN</direction>" + rest);
}

void readConfig(std::istream& in)
{
    XMLParser parser(in);
    IPsecConfig::importXML(parser);
}

std::string nested(std::size_t size)
{
    const std::size_t depth = size / 7;
    return repeated(3 * depth, "<a>") + repeated(4 * depth, "</a>");
}

const std::vector<GrowthCase> cases{
    // clang-format off
    {"nested elements", nested, readAnything, false},
    {"nested elements that do not end",
     [](std::size_t size) { return repeated(size, "<a>"); }, readAnything, true},
    {"elements with nothing in them",
     [](std::size_t size) { return leaf("a", repeated(size, "<b/>")); }, readAnything, false},
    {"attributes of one element",
     [](std::size_t size) { return "<a" + repeated(size, " b='1'") + "/>"; }, readAnything, false},
    {"attributes without a value",
     [](std::size_t size) { return "<a" + repeated(size, " b") + "/>"; }, readAnything, false},
    {"one attribute's quoted value",
     [](std::size_t size) { return "<a b='" + std::string(size, '\"') + "'/>"; }, readAnything, false},
    {"one attribute's value without quotes",
     [](std::size_t size) { return "<a b=" + std::string(size, '/') + " />"; }, readAnything, false},
    {"one attribute's name",
     [](std::size_t size) { return "<a " + std::string(size, 'b') + "/>"; }, readAnything, false},
    {"one element's name",
     [](std::size_t size) { return leaf(std::string(size / 2, 'a'), ""); }, readAnything, false},
    {"white space in front of the document",
     [](std::size_t size) { return std::string(size, ' ') + config("", "", "", ""); }, readConfig, false},
    {"white space in a tag",
     [](std::size_t size) { return "<ipsec" + std::string(size, '\n') + config("", "", "", "").substr(6); },
     readConfig, false},
    {"white space between tags",
     [](std::size_t size) { return config("", "", "", std::string(size, '\t')); }, readConfig, false},
    {"white space between selectors",
     [](std::size_t size) { return withHosts("<name/>", repeated(size, [](std::size_t i) {
                                      return std::string(i % 7 * 1000, ' ') + hostSelector(i % 2); })); },
     readConfig, false},
    {"one text",
     [](std::size_t size) { return withHosts(leaf("name", std::string(size, 'x')), ""); }, readConfig, false},
    {"one text in an attribute",
     [](std::size_t size) { return withHosts("<name value='" + std::string(size, 'x') + "'/>", ""); },
     readConfig, false},
    {"one text of white space",
     [](std::size_t size) { return withHosts(leaf("name", std::string(size, ' ')), ""); }, readConfig, false},
    {"one text with white space before and behind it",
     [](std::size_t size) { return withHosts(leaf("name", std::string(size / 2, ' ') + 'x' +
                                                  std::string(size / 2, ' ')), ""); },
     readConfig, false},
    {"one text of words",
     [](std::size_t size) { return withHosts(leaf("name", repeated(size, "x ")), ""); }, readConfig, false},
    {"equal host selectors",
     [](std::size_t size) { return withHosts("<name/>", repeated(size, [](std::size_t) { return hostSelector(1); })); },
     readConfig, false},
    {"host selectors in no order",
     [](std::size_t size) { return withHosts("<name/>", repeated(size, [](std::size_t i) {
                                      return hostSelector(i * 7919 % 16777213); })); },
     readConfig, false},
    {"equal protocol selectors with names",
     [](std::size_t size) { return withProtocols(repeated(size, [](std::size_t) {
                                return protocolSelector(leaf("name", std::string(100, 'n')) +
                                                        "<mirrored>MIRRORED</mirrored>"); })); },
     readConfig, false},
    {"transforms",
     [](std::size_t size) { return withAction(repeated(size, "<transform>IKE_NONE</transform>"), ""); },
     readConfig, false},
    {"proposals",
     [](std::size_t size) { return withAction("", repeated(size, "<saProposal><protocol>NONE</protocol><encryption/>"
                                                                 "<hash/></saProposal>")); },
     readConfig, false},
    {"entries in ascending order",
     [](std::size_t size) { return config("", "", "", repeated(size, [](std::size_t i) {
                                return policyEntry(std::to_string(1 + i)); })); },
     readConfig, false},
    {"entries in descending order",
     [](std::size_t size) { return config("", "", "", repeated(size, [](std::size_t i) {
                                return policyEntry(std::to_string(2147483647 - i)); })); },
     readConfig, false},
    {"next IDs",
     [](std::size_t size) { return config("", "", "", repeated(size, "<nextpolicy>2147483647</nextpolicy>")); },
     readConfig, false},
    {"the digits of one number",
     [](std::size_t size) { return config("", "", "", leaf("nextpolicy", std::string(size, '9'))); },
     readConfig, false},
    {"an unknown name in a collection",
     [](std::size_t size) { return config("", "", "", leaf(std::string(size / 2, 'x'), "")); }, readConfig, true},
    {"an unknown name in a protocol selector",
     [](std::size_t size) { return withProtocols(protocolSelector(leaf(std::string(size / 2, 'x'), "1"))); },
     readConfig, true},
    {"a wrong name",
     [](std::size_t size) { return leaf(std::string(size / 2, 'x'), ""); }, readConfig, true},
    {"an unknown word",
     [](std::size_t size) { return withAction(leaf("transform", std::string(size, 'x')), ""); }, readConfig, true},
    {"a text that does not end",
     [](std::size_t size) { return "<ipsec><hostGroups><hostGroupEntry><id>" + std::string(size, '1'); },
     readConfig, true},
    // clang-format on
};

} // namespace

void readAnything(std::istream& in)
{
    XMLParser   parser(in);
    std::string name;
    std::string text;
    std::size_t depth = 0;
    do {
        switch (depth == 0 ? PARSE_CHILD : parser.parse_body()) {
        case PARSE_CHILD:
            parser.parse_tag(name);
            while (parser.parse_attr(name, text)) {
            }
            depth += parser.parse_tag_end() == PARSE_CONTENT ? 1U : 0U;
            break;
        case PARSE_END:
            parser.parse_end_tag();
            --depth;
            break;
        default:
            parser.parse_data(text);
        }
    } while (depth != 0);
}

const std::vector<GrowthCase>& growthCases()
{
    return cases;
}

} // namespace ipsecimpl
