#include "program.h"
#include "support/golden.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>

using testing::HasSubstr;
using testing::Not;

namespace {

const std::string HOST  = "\"hostGroups/1\" [label=";
const std::string LOOKS = ", fillcolor=\"#dbe9f6\"]\n";

std::string host(const std::string& address)
{
    return "<hostSelector><family>AF_INET</family><selectorType>SINGLE</selectorType><addr1>" + address +
           "</addr1></hostSelector>";
}

/// One host group with this name and these selectors, and a policy that uses it.
std::string withGroup(const std::string& name, const std::string& selectors = "")
{
    return document(entry("hostGroup", 1, group("hostGroup", name, "", selectors)), "", "",
                    entry("policy", 1, policy(1, 2, 3)));
}

/// Whether Graphviz is here to be asked.
bool hasDot()
{
    return std::system("dot -V >/dev/null 2>&1") == 0;
}

/// Expects that Graphviz draws it without a word.
void expectDrawable(const std::string& graph)
{
    writeFile("graph.dot", graph);
    EXPECT_EQ(std::system("dot -Tsvg graph.dot >graph.svg 2>messages"), 0);
    EXPECT_EQ(std::filesystem::file_size("messages"), 0U) << std::ifstream("messages").rdbuf();
    EXPECT_THAT(contentOf("graph.svg"), HasSubstr("</svg>"));
}

TEST(Graph, OfAnEmptyConfigurationHasNoNodes)
{
    EXPECT_EQ(run({"graph", "-"}, document()), printed(R"(digraph "IPsec policies" {
  graph [rankdir=LR, nodesep=0.15, ranksep=0.8]
  node [shape=box, style=filled, fontname="sans-serif", fontsize=10, margin="0.1,0.05"]
  edge [color="#555555", arrowsize=0.6]
}
)"));
}

TEST(Graph, DrawsMissingObjectsRedAndUnusedOnesGrey)
{
    const Outcome outcome =
        run({"graph", "-"}, document(entry("hostGroup", 3, group("hostGroup", "Peers", "", "")),
                                     entry("protocolGroup", 4, group("protocolGroup", "Web", "", "")),
                                     entry("action", 5, action("Pass", "", "<spdAction>BYPASS</spdAction>")),
                                     entry("policy", 1, policy(3, 9, 0)) + entry("policy", 2, policy(3, 9, 5))));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, testing::EndsWith(R"(
  "hostGroups/3" [label="3 Peers", fillcolor="#dbe9f6"]
  "protocolGroups/4" [label="4 Web", color=grey, fontcolor=grey, fillcolor="#ffffff"]
  "actions/5" [label="5 Pass\nBYPASS", fillcolor="#dff0d8"]
  "protocolGroups/9" [label="no protocol group 9", color=red, fontcolor=red, fillcolor="#ffffff", style=dashed]
  "actions/0" [label="no action 0", color=red, fontcolor=red, fillcolor="#ffffff", style=dashed]
  "policies/1" [label="1", shape=circle, fillcolor="#ffffff"]
  "hostGroups/3" -> "policies/1"
  "protocolGroups/9" -> "policies/1" [color=red]
  "policies/1" -> "actions/0" [color=red]
  "policies/2" [label="2", shape=circle, fillcolor="#ffffff"]
  "hostGroups/3" -> "policies/2"
  "protocolGroups/9" -> "policies/2" [color=red]
  "policies/2" -> "actions/5"
}
)"));
}

TEST(Graph, LeavesOutWhatNobodyUsesOnDemand)
{
    const Outcome outcome =
        run({"graph", "--used-only", "-"}, document(entry("hostGroup", 3, group("hostGroup", "Peers", "", "")) +
                                                        entry("hostGroup", 8, group("hostGroup", "Idle", "", "")),
                                                    "", "", entry("policy", 1, policy(3, 4, 5))));
    EXPECT_THAT(outcome.out, HasSubstr("3 Peers"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("Idle")));
    EXPECT_THAT(outcome.out, HasSubstr("no action 5"));
}

TEST(Graph, LabelsHoldFourSelectorsAndSayHowManyThereAre)
{
    std::string selectors;
    for (const char* address : {"10.0.0.9", "10.0.0.8", "10.0.0.7", "10.0.0.6"})
        selectors += host(address);
    const std::string four = HOST + R"("1 g\n10.0.0.9\n10.0.0.8\n10.0.0.7\n10.0.0.6)";
    EXPECT_THAT(run({"graph", "-"}, withGroup("g", selectors)).out, HasSubstr(four + "\"" + LOOKS));
    EXPECT_THAT(run({"graph", "-"}, withGroup("g", selectors + host("10.0.0.5") + host("10.0.0.4"))).out,
                HasSubstr(four + "\\nand 2 more\"" + LOOKS));
}

struct Name {
    std::string name;
    std::string label;
};

std::ostream& operator<<(std::ostream& out, const Name& name)
{
    return out << testing::PrintToString(name.name);
}

class GraphName : public InFolder, public testing::WithParamInterface<Name> {};

TEST_P(GraphName, IsDrawnAsItIsShown)
{
    const Outcome outcome = run({"graph", "-"}, withGroup(GetParam().name));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr(HOST + '"' + GetParam().label + '"' + LOOKS));
    if (!hasDot())
        GTEST_SKIP() << "Graphviz is not installed: nobody could draw the graph";
    expectDrawable(outcome.out);
}

// clang-format off
const Name NAMES[] = {
    {"plain",                  "1 plain"},
    {"",                       "1"},
    {"a \"quoted\" name",      "1 a \\\"quoted\\\" name"},
    {"back\\slash",            "1 back\\\\\\\\slash"},
    {"ends with \\",           "1 ends with \\\\\\\\"},
    {"ends with \\\"",         "1 ends with \\\\\\\\\\\""},
    {"\\N \\G \\L",            "1 \\\\\\\\N \\\\\\\\G \\\\\\\\L"},
    {"two\nlines",             "1 two\\\\nlines"},
    {"tab\tand nul" + std::string(1, '\0'), "1 tab\\\\tand nul\\\\x00"},
    {"\x1b[31m",               "1 \\\\x1b[31m"},
    {"raw \xff byte",          "1 raw \\\\xff byte"},
    {"Z\xc3\xbcrich",          "1 Z\xc3\xbcrich"},
    {"R&D &lt; &amp; &#65;",   "1 R&amp;D &amp;lt; &amp;amp; &amp;#65;"},
    {"> {record | fields}",    "1 > {record | fields}"},
    {"/* no */ // comment",    "1 /* no */ // comment"},
    {"a name that is far too long to be drawn on one line", "1 a name that is far too long to be\\ndrawn on one line"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Graph, GraphName, testing::ValuesIn(NAMES));

class GraphSample : public InFolder, public testing::WithParamInterface<std::string> {
  protected:
    static Outcome drawn() { return run({"graph", EXAMPLES_DIR "/configs/" + GetParam() + ".xml"}); }
};

TEST_P(GraphSample, IsDrawnAsItAlwaysWas)
{
    const Outcome outcome = drawn();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    expectGolden("graph/" + GetParam() + ".dot", outcome.out);
}

TEST_P(GraphSample, IsAcceptedByGraphviz)
{
    if (!hasDot())
        GTEST_SKIP() << "Graphviz is not installed: nobody could draw the graph";
    expectDrawable(drawn().out);
}

INSTANTIATE_TEST_SUITE_P(Graph, GraphSample, testing::Values("home-router", "branch-office", "server-farm"));

class GraphDrawing : public InFolder {};

TEST_F(GraphDrawing, OfAnEmptyOrADanglingConfigurationIsAcceptedByGraphviz)
{
    if (!hasDot())
        GTEST_SKIP() << "Graphviz is not installed: nobody could draw the graph";
    expectDrawable(run({"graph", "-"}, document()).out);
    expectDrawable(run({"graph", "-"}, withGroup("g")).out);
    expectDrawable(run({"graph", "-"}, withGroup(std::string(100'000, 'x'))).out);
}

} // namespace
