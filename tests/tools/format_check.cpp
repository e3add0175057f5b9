#include "program.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <ostream>
#include <string>

using testing::ElementsAre;

namespace {

/// A finding of `format --check`.
Outcome changes(const std::string& lines)
{
    return {1, lines, ""};
}

class FormatCheck : public InFolder {
  protected:
    FormatCheck()
    {
        writeFile("in.xml", document());
        writeFile("written.xml", run({"format", "in.xml"}).out);
    }
};

TEST_F(FormatCheck, IsSilentAboutTheWrittenForm)
{
    EXPECT_EQ(run({"format", "--check", "written.xml"}), printed(""));
    EXPECT_EQ(run({"format", "--check", "-"}, contentOf("written.xml")), printed(""));
}

TEST_F(FormatCheck, WritesNothing)
{
    EXPECT_EQ(run({"format", "in.xml", "--check"}), changes("in.xml:1: would change from this line on\n"));
    EXPECT_EQ(contentOf("in.xml"), document());
    EXPECT_THAT(fileNames(), ElementsAre("in.xml", "written.xml"));
}

TEST_F(FormatCheck, GoesThroughAllFilesInTheirOrder)
{
    EXPECT_EQ(run({"format", "--check", "in.xml", "written.xml", "-", "in.xml"}, document()),
              changes("in.xml:1: would change from this line on\nstandard input:1: would change from this line on\n"
                      "in.xml:1: would change from this line on\n"));
}

TEST_F(FormatCheck, GoesOnAfterFilesThatCannotBeReadOrDoNotLoad)
{
    writeFile("bad.xml", "x");
    EXPECT_EQ(run({"format", "--check", "none.xml", "bad.xml", "in.xml"}),
              (Outcome{2, "in.xml:1: would change from this line on\n",
                       "ipsec-policy: none.xml: No such file or directory\n"
                       "ipsec-policy: bad.xml:1:1: parse_tag: expected '<', found (not shown)\n"
                       "A document begins with <ipsec>: remove what stands before it.\n"}));
    EXPECT_EQ(run({"format", "--check", "bad.xml", "written.xml"}).status, 1);
}

TEST_F(FormatCheck, EscapesTheFileName)
{
    std::filesystem::rename("in.xml", "\x1b[2J\n.xml");
    EXPECT_EQ(run({"format", "--check", "\x1b[2J\n.xml"}),
              changes("\\x1b[2J\\n.xml:1: would change from this line on\n"));
}

TEST_F(FormatCheck, RefusesWhatCannotBeWrittenBack)
{
    writeFile("in.xml",
              document(entry(
                  "hostGroup", 1,
                  "<hostGroup><name value='a<b'/><builtinName>0</builtinName><descr/><builtinDescr>0</builtinDescr>"
                  "<selectors/></hostGroup>")));
    EXPECT_EQ(run({"format", "--check", "in.xml"}), run({"format", "in.xml"}));
}

struct Difference {
    const char* what;
    /// Turns a document in the written form into one that is not.
    std::string (*make)(std::string text);
    int line;
};

std::ostream& operator<<(std::ostream& out, const Difference& difference)
{
    return out << difference.what;
}

std::string replaced(std::string text, const std::string& old, const std::string& fresh)
{
    return text.replace(text.find(old), old.size(), fresh);
}

class FormatDifference : public testing::TestWithParam<Difference> {};

TEST_P(FormatDifference, IsFoundInItsLine)
{
    const std::string written = run({"format", "-"}, document()).out;
    EXPECT_EQ(run({"format", "--check", "-"}, GetParam().make(written)),
              changes("standard input:" + std::to_string(GetParam().line) + ": would change from this line on\n"));
}

// clang-format off
const Difference DIFFERENCES[] = {
    {"a blank before",      [](std::string text) { return " " + text; },                              1},
    {"a blank in a tag",    [](std::string text) { return replaced(text, "<actions>", "<actions >"); }, 8},
    {"a number with sign",  [](std::string text) { return replaced(text, "<nextaction>1", "<nextaction>+1"); }, 9},
    {"an indented line",    [](std::string text) { return replaced(text, "<nextpolicy>", "  <nextpolicy>"); }, 12},
    {"another line end",    [](std::string text) { return replaced(text, "<ipsec>\n", "<ipsec>\r\n"); }, 1},
    {"a line too many",     [](std::string text) { return replaced(text, "</ipsec>", "\n</ipsec>"); }, 14},
    {"no line end",         [](std::string text) { return text.substr(0, text.size() - 1); },         14},
    {"an empty line after", [](std::string text) { return text + "\n"; },                             15},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(FormatCheck, FormatDifference, testing::ValuesIn(DIFFERENCES));

} // namespace
