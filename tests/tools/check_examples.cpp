// What check says of the sample configurations, to the letter.

#include "program.h"
#include "support/golden.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <map>
#include <ostream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
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

/// The errors and warnings that the examples' README tells of, such as "fixed-iv | actions 7, 8", of one of them.
std::set<std::string> toldOf(const std::string& name)
{
    const std::string     text = contentOf(EXAMPLES_DIR "/README.md");
    const std::size_t     from = text.find("\n### " + name + ".xml\n");
    std::istringstream    section(text.substr(from + 1, text.find("\n### ", from + 1) - from));
    std::set<std::string> told;
    const std::regex      row("[|] `([a-z-]+)` [|] ([a-z ]+[0-9, ]*) [|] [^|]+ [|]");
    std::smatch           parts;
    for (std::string line; std::getline(section, line);)
        if (std::regex_match(line, parts, row))
            told.insert(parts.str(1) + " | " + parts.str(2));
    return told;
}

/// The same as check finds it.
std::set<std::string> foundIn(const std::string& name)
{
    const std::string document = contentOf(EXAMPLES_DIR "/configs/" + name + ".xml");
    const auto        report   = nlohmann::json::parse(run({"check", "-", "--json", "--level=warning"}, document).out);
    std::map<std::pair<std::string, std::string>, std::vector<std::string>> places;
    for (const auto& finding : report["findings"]) {
        const std::string path       = finding["path"];
        const std::size_t slash      = path.find('/');
        const std::string collection = path.substr(0, slash);
        const std::string number     = path.substr(slash + 1, path.find('/', slash + 1) - slash - 1);
        places[{finding["code"], collection}].push_back(number);
    }
    std::set<std::string> found;
    for (const auto& [what, numbers] : places) {
        std::string where = what.second == "actions" ? "action" : what.second == "hostGroups" ? "host group" : "?";
        where += numbers.size() == 1 ? " " : "s ";
        for (const std::string& number : numbers)
            where += (where.back() == ' ' ? "" : ", ") + number;
        found.insert(what.first + " | " + where);
    }
    return found;
}

TEST(CheckedExamples, HaveTheErrorsAndWarningsThatTheirREADMETells)
{
    for (const std::string name : {"home-router", "branch-office", "server-farm"})
        EXPECT_EQ(toldOf(name), foundIn(name)) << name;
    EXPECT_GE(toldOf("branch-office").size(), 5U);
}

class CheckedStarter : public InFolder {};

TEST_F(CheckedStarter, HasNotesAlone)
{
    const std::string text = run({"new"}).out;
    expectGolden("check-new.txt", run({"check", "-"}, text).out);
    EXPECT_EQ(run({"check", "-", "--strict", "--level=warning"}, text),
              printed("nothing found in 1 file; 3 findings of lower levels left out\n"));
}

} // namespace
