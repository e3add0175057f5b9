#include "diff.h"
#include "document.h"
#include "program.h"

#include <ostream>
#include <string>

using namespace ipsecimpl;

namespace {

/// Without keys.
std::string scriptFor(const std::string& before, const std::string& after)
{
    const IPsecConfig old   = parseDocument(before, "old.xml");
    const IPsecConfig fresh = parseDocument(after, "new.xml");
    return scriptOf(difference(old, fresh, {}), "new.xml");
}

std::string passing(unsigned int id, const std::string& name, unsigned int builtInName)
{
    return entry("action", id,
                 "<action><changeCount>0</changeCount><name>" + name + "</name><builtinName>" +
                     std::to_string(builtInName) +
                     "</builtinName><descr></descr><builtinDescr>0</builtinDescr><type>7</type><state>0</state>"
                     "<spdAction>BYPASS</spdAction></action>");
}

TEST(DiffScript, ReplacesABuiltInActionThatIsRenamed)
{
    EXPECT_EQ(scriptFor(document("", "", passing(1, "a", 17)), document("", "", passing(1, "b", 17))),
              "# action 1 'a'\nreplace action 1 b builtinName=17 type=7 state=0 spdAction=BYPASS\n");
    EXPECT_EQ(scriptFor(document("", "", passing(1, "a", 0)), document("", "", passing(1, "b", 0))),
              "# action 1 'a'\nset action 1 name=b\n");
    EXPECT_EQ(scriptFor(document("", "", passing(1, "a", 0)), document("", "", passing(1, "a", 17))),
              "# action 1 'a'\nreplace action 1 a builtinName=17 type=7 state=0 spdAction=BYPASS\n");
}

TEST(DiffScript, LetsGoOfAnActionThatPoliciesGoOnToReferTo)
{
    EXPECT_EQ(scriptFor(document("", "", passing(1, "a", 0) + passing(2, "b", 0), entry("policy", 3, policy(0, 0, 2))),
                        "<ipsec><hostGroups/><protocolGroups/><actions><nextaction>3</nextaction>" +
                            passing(1, "a", 0) + "</actions><policies>" + entry("policy", 3, policy(0, 0, 2)) +
                            entry("policy", 4, policy(0, 0, 2)) + "</policies></ipsec>"),
              "set policy 3 actionID=0\n\n"
              "remove action 2  # 'b'\n\n"
              "set policy 3 actionID=missing=2  # 2 'b' -> 2 (missing)\n"
              "add policy 0 0 missing=2 id=4  # 0 (none), 0 (none), 2 (missing)\n");
}

TEST(DiffScript, LeavesReferencesAloneThatWereMissingBefore)
{
    EXPECT_EQ(scriptFor(document("", "", "", entry("policy", 3, policy(0, 0, 2))),
                        document("", "", passing(2, "b", 0), entry("policy", 3, policy(0, 0, 2)))),
              "add action b id=2 type=7 spdAction=BYPASS\n");
}

struct Unreachable {
    std::string document;
    std::string message;
};

std::ostream& operator<<(std::ostream& out, const Unreachable& unreachable)
{
    return out << unreachable.message;
}

class DiffScriptTo : public InFolder, public testing::WithParamInterface<Unreachable> {};

TEST_P(DiffScriptTo, WhatCannotBeStoredIsRefused)
{
    writeFile("old.xml", document());
    writeFile("new.xml", GetParam().document);
    const std::string refusal = ": no edit leads to this: " + GetParam().message;
    EXPECT_EQ(run({"diff", "--script", "--show-keys", "old.xml", "new.xml"}), refused("new.xml" + refusal));
    EXPECT_EQ(run({"diff", "--script", "old.xml", "-"}, GetParam().document), refused("standard input" + refusal));
}

const char MARKUP[]   = "a document cannot hold a text with '<' in it";
const char BLANK[]    = "a document cannot hold a text with white space at an end";
const char NAMELESS[] = "a document cannot hold a selector without a name";

std::string described(const std::string& descr)
{
    return "<actionEntry><id>1</id><action><changeCount>0</changeCount><name/><builtinName>0</builtinName><descr "
           "value='" +
           descr +
           "'/><builtinDescr>0</builtinDescr><type>0</type><state>0</state><spdAction>NONE</spdAction></action></"
           "actionEntry>";
}

std::string withHosts(const std::string& selector)
{
    return document(
        entry("hostGroup", 2, group("hostGroup", "a", "", "<hostSelector>" + selector + "</hostSelector>")));
}

// clang-format off
const Unreachable UNREACHABLE[] = {
    {document("", "", described("a < b")), "actions/1/descr: " + std::string(MARKUP)},
    {document("", "", described(" a")),    "actions/1/descr: " + std::string(BLANK)},
    {document("", "", described("a\v")),   "actions/1/descr: " + std::string(BLANK)},
    {withHosts("<family>AF_INET</family><selectorType>SINGLE</selectorType><addr1 value='a<'/>"),
     "hostGroups/2/selectors: " + std::string(MARKUP)},
    {withHosts("<family>AF_INET</family><selectorType>RANGE</selectorType><addr1/><addr2 value=' '/>"),
     "hostGroups/2/selectors: " + std::string(BLANK)},
    {document("", entry("protocolGroup", 3, group("protocolGroup", "a", "",
                                                  "<protocolSelector><protocol>6</protocol><direction>IN</direction>"
                                                  "<mirrored>MIRRORED</mirrored></protocolSelector>"))),
     "protocolGroups/3/selectors: " + std::string(NAMELESS)},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Diff, DiffScriptTo, testing::ValuesIn(UNREACHABLE));

} // namespace
