// What holds for every rule: codes and texts are part of the interface.

#include "check_report.h"
#include "program.h"
#include "rules.h"
#include "text.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

using testing::ElementsAreArray;

namespace {

TEST(CheckRules, HaveCodesOfTheirOwn)
{
    std::set<std::string> codes;
    for (const Rule* const rule : allRules()) {
        EXPECT_TRUE(codes.insert(rule->code).second) << rule->code;
        EXPECT_TRUE(std::regex_match(rule->code, std::regex("[a-z0-9]+(-[a-z0-9]+)*"))) << rule->code;
        EXPECT_EQ(&findRule(rule->code), rule);
    }
    EXPECT_GT(codes.size(), 70U);
}

TEST(CheckRules, HaveASummaryLikeATitle)
{
    for (const Rule* const rule : allRules())
        EXPECT_TRUE(std::regex_match(rule->summary, std::regex("[A-Z].{10,70}[^.]"))) << rule->code << rule->summary;
}

TEST(CheckRules, HaveAnExplanationInSentencesOfEightyColumns)
{
    for (const Rule* const rule : allRules()) {
        const std::string text = rule->explanation;
        EXPECT_TRUE(std::regex_search(text, std::regex("^[A-Z0-9<][^]*[.)]$"))) << rule->code;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 80U) << rule->code << ": " << line;
    }
}

TEST(CheckRules, NameTheirReasonsInOneForm)
{
    const std::string one = "RFC [0-9]+( (section|sections|appendix) [^,]*)?";
    const std::regex  form("|" + one + "( and " + one + ")?");
    for (const Rule* const rule : allRules())
        EXPECT_TRUE(std::regex_match(rule->reference, form)) << rule->code << ": " << rule->reference;
}

/// The text in lines, each but the last as long as words allow, with a newline behind each.
std::string inLines(std::string text, std::size_t width, std::size_t hanging)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::string lines;
    for (const std::string& line : wrapped(text, width, hanging))
        lines += line + '\n';
    return lines;
}

class CheckExplanations : public testing::TestWithParam<std::size_t> {};

TEST_P(CheckExplanations, AreWrappedToTheTerminalsWidth)
{
    const std::size_t width = GetParam();
    for (const Rule* const rule : allRules()) {
        const std::string title = std::string(rule->code) + " (" + wordOf(rule->level) + "): " + rule->summary;
        const std::string reference =
            *rule->reference == '\0' ? "" : '\n' + inLines(std::string("See ") + rule->reference + '.', width, 0);
        EXPECT_EQ(runCopy({"check", "--explain", rule->code}, "",
                          [width] { setenv("COLUMNS", std::to_string(width).c_str(), 1); }),
                  printed(inLines(title, width, 2) + '\n' + inLines(rule->explanation, width, 0) + reference));
    }
}

INSTANTIATE_TEST_SUITE_P(CheckRules, CheckExplanations, testing::Values(40, 60, 80, 132));

TEST(CheckRules, AreExplainedInEightyColumnsWhereThereIsNoTerminal)
{
    EXPECT_EQ(run({"check", "--explain", "unauthenticated-encryption"}),
              printed(R"(unauthenticated-encryption (error): Encryption without authentication

Whoever can change packets can find out what is encrypted without being
authenticated: there are attacks that work. Encryption numbers above 1 encrypt,
hash numbers 0 and 1 are none, and there is no AH around it. An authenticated
cipher (AEAD) needs no hash: if the number is that of one, say so in the file of
--algorithms. Add a hash.

See RFC 8221 section 4.
)"));
}

TEST(CheckRules, AreListedByTheProgram)
{
    std::vector<std::string> expected = {"CODE"};
    for (const Rule* const rule : allRules())
        expected.push_back(std::string(rule->code) + ' ' + wordOf(rule->level));

    const Outcome outcome = run({"check", "--list"}, "", [] { setenv("COLUMNS", "200", 1); });
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    std::vector<std::string> listed;
    std::istringstream       lines(outcome.out);
    for (std::string line; std::getline(lines, line);) {
        std::string code;
        std::string level;
        std::istringstream(line) >> code >> level;
        listed.push_back(code == "CODE" ? code : code + ' ' + level);
    }
    EXPECT_THAT(listed, ElementsAreArray(expected));
}

/// The rows of the table of codes in the document, such as "| `code` | level | summary | reference |".
std::vector<std::string> rowsIn(const std::string& fileName)
{
    const std::string text = contentOf(fileName);

    std::vector<std::string> rows;
    std::istringstream       lines(text.substr(text.find("\n## Codes\n")));
    for (std::string line; std::getline(lines, line);)
        if (line.compare(0, 3, "| `") == 0)
            rows.push_back(line);
    return rows;
}

TEST(CheckRules, AreThoseOfTheDocumentation)
{
    std::vector<std::string> expected;
    for (const Rule* const rule : allRules())
        expected.push_back(std::string("| `") + rule->code + "` | " + wordOf(rule->level) + " | " + rule->summary +
                           " | " + rule->reference + (*rule->reference == '\0' ? "|" : " |"));
    EXPECT_THAT(rowsIn(DOCS_DIR "/check.md"), ElementsAreArray(expected));
}

} // namespace
