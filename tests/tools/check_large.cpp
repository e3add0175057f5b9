// Large documents are checked by two threads, where there can be two.

#include "generator.h"
#include "program.h"

#include <nlohmann/json.hpp>

#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>

namespace {

/// Gives every further thread a stack for which there is no room, so that none can be started.
void forbidThreads()
{
    rlimit limit = {};
    getrlimit(RLIMIT_STACK, &limit);
    limit.rlim_cur = std::numeric_limits<std::size_t>::max() / 4 * 3;
    setrlimit(RLIMIT_STACK, &limit);
}

class CheckLarge : public InFolder {
  protected:
    void SetUp() override
    {
        const std::string text = bench::makeDocument(500);
        ASSERT_GT(text.size(), 512U * 1024);
        writeFile("large.xml", text);
        ASSERT_EQ(chmod("large.xml", 0600), 0);
    }
};

/// The headings of a report, such as "large.xml:3:4: note: group-unused: hostGroups/3".
std::vector<std::string> headingsIn(const std::string& report)
{
    std::vector<std::string> headings;
    std::istringstream       lines(report);
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("large.xml:", 0) == 0)
            headings.push_back(line);
    return headings;
}

std::vector<std::string> headingsFor(const nlohmann::json& findings)
{
    std::vector<std::string> headings;
    for (const auto& finding : findings) {
        std::ostringstream heading;
        heading << "large.xml:";
        if (finding.contains("line"))
            heading << finding.at("line") << ':' << finding.at("column") << ':';
        heading << ' ' << finding.at("level").get<std::string>() << ": " << finding.at("code").get<std::string>();
        if (finding.contains("path"))
            heading << ": " << finding.at("path").get<std::string>();
        headings.push_back(heading.str());
    }
    return headings;
}

TEST_F(CheckLarge, ALargeDocumentIsCheckedAlsoWhereThereCanBeOneThreadOnly)
{
    for (const char* const option : {"--strict", "--json"}) {
        const Outcome usual = run({"check", option, "large.xml"});
        EXPECT_EQ(usual.status, 1);
        EXPECT_EQ(usual.err, "");
        EXPECT_EQ(run({"check", option, "large.xml"}, "", forbidThreads), usual);
    }
}

TEST_F(CheckLarge, AReportLaidOutByTwoThreadsTellsEachFindingOnceAndInOrder)
{
    const auto findings = nlohmann::json::parse(run({"check", "--json", "large.xml"}).out).at("findings");
    ASSERT_GT(findings.size(), 700U);
    EXPECT_EQ(headingsIn(run({"check", "large.xml"}).out), headingsFor(findings));
}

} // namespace
