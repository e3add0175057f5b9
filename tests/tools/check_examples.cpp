// What check says of the sample configurations, to the letter.

#include "program.h"
#include "support/golden.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include <sys/stat.h>

namespace {

struct Report {
    const char* option;
    const char* suffix;
};

std::ostream& operator<<(std::ostream& out, const Report& report)
{
    return out << report.suffix;
}

/// The version is another one in every release.
std::string withoutVersion(std::string text)
{
    const std::string version = "\"version\": \"" PROGRAM_VERSION "\"";
    if (const std::size_t at = text.find(version); at != std::string::npos)
        text.replace(at, version.size(), "\"version\": \"?\"");
    return text;
}

class CheckedExample : public InFolder, public testing::WithParamInterface<std::tuple<std::string, Report>> {
  protected:
    /// As the file `name`, which is for its owner alone.
    static Outcome check(const std::string& name, const std::string& text, const Report& report)
    {
        writeFile(name, text);
        EXPECT_EQ(chmod(name.c_str(), 0600), 0);
        std::vector<std::string> arguments = {"check", name};
        if (*report.option != '\0')
            arguments.emplace_back(report.option);
        return run(arguments);
    }
};

TEST_P(CheckedExample, HasWhatItAlwaysHad)
{
    const auto& [name, report] = GetParam();
    const Outcome outcome      = check(name + ".xml", contentOf(EXAMPLES_DIR "/configs/" + name + ".xml"), report);
    EXPECT_EQ(outcome.err, "");
    expectGolden("check-" + name + report.suffix, withoutVersion(outcome.out));
}

const Report REPORTS[] = {{"", ".txt"}, {"--json", ".json"}, {"--sarif", ".sarif"}};

INSTANTIATE_TEST_SUITE_P(Check, CheckedExample,
                         testing::Combine(testing::Values("home-router", "branch-office", "server-farm"),
                                          testing::ValuesIn(REPORTS)));

class CheckedStarter : public InFolder {};

TEST_F(CheckedStarter, HasNotesAlone)
{
    const std::string text = run({"new"}).out;
    expectGolden("check-new.txt", run({"check", "-"}, text).out);
    EXPECT_EQ(run({"check", "-", "--strict", "--level=warning"}, text), printed("nothing found in 1 file\n"));
}

} // namespace
