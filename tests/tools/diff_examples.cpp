#include "program.h"
#include "support/golden.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

using testing::HasSubstr;

namespace {

const std::string EXAMPLES = EXAMPLES_DIR "/configs/";

/// Ordered pairs of the samples.
class DiffExamples : public testing::TestWithParam<std::pair<std::string, std::string>> {
  protected:
    static Outcome compared(std::vector<std::string> options = {})
    {
        const auto& [before, after] = GetParam();
        options.insert(options.begin(), {"diff", EXAMPLES + before + ".xml", EXAMPLES + after + ".xml"});
        return run(options);
    }

    static void expectGoldenOutcome(const Outcome& outcome, const std::string& suffix)
    {
        const auto& [before, after] = GetParam();
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, "");
        expectGolden("diff/" + before + "-" + after + suffix, outcome.out);
    }
};

TEST_P(DiffExamples, AreToldInLines)
{
    expectGoldenOutcome(compared(), ".txt");
}

TEST_P(DiffExamples, AreToldInEditCommands)
{
    expectGoldenOutcome(compared({"--script"}), ".edit");
}

INSTANTIATE_TEST_SUITE_P(Diff, DiffExamples,
                         testing::Values(std::pair("home-router", "branch-office"),
                                         std::pair("branch-office", "server-farm"),
                                         std::pair("server-farm", "home-router")));

/// A sample before and after an edit.
class DiffOfAnEdit : public InFolder {
  protected:
    DiffOfAnEdit()
    {
        writeFile("old.xml", contentOf(EXAMPLES + "home-router.xml"));
        writeFile("new.xml", contentOf(EXAMPLES + "home-router.xml"));
        EXPECT_EQ(run({"edit", "new.xml", "-"}, R"(set host-group 3 descr="File servers at work"
remove selector host-group 3 10.20.0.0/16
add selector host-group 3 10.21.0.0/16
set action 4 tunnelEndpoint=198.51.100.20 ikePhase1/presharedKey=q7TzWm2kPd9xLs4v ikePhase2/saProposal=ESP:12:5
set policy 5 actionID="Office tunnel"
remove action "Cottage tunnel"
add host-group Guests selectors=192.168.2.0/24
add policy Guests All Discard
)"),
                  printed(""));
    }
};

TEST_F(DiffOfAnEdit, IsToldInJson)
{
    const Outcome outcome = run({"diff", "--json", "old.xml", "new.xml"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    expectGolden("diff/edit.json", outcome.out);
}

TEST_F(DiffOfAnEdit, IsTheExampleOfTheManual)
{
    const std::string manual = contentOf(EXAMPLES_DIR "/../docs/diff.md");
    EXPECT_THAT(manual, HasSubstr("\n```\n" + run({"diff", "old.xml", "new.xml"}).out + "```\n"));
    EXPECT_THAT(manual, HasSubstr("\n```\n" + run({"diff", "--script", "old.xml", "new.xml"}).out + "```\n"));
}

} // namespace
