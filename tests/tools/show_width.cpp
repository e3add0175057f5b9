#include "program.h"
#include "text.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

using testing::Not;

namespace {

Outcome shownIn(const std::string& columns, const std::string& text, const std::vector<std::string>& arguments = {})
{
    std::vector<std::string> all = {"show", "-"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return run(all, text, [&columns] { setenv("COLUMNS", columns.c_str(), 1); });
}

/// Long words and long texts in every column, and a character that is two columns wide.
std::string wideDocument()
{
    const std::string word = std::string(50, 'w') + "\xe6\x9d\xb1" + std::string(50, 'q');
    const std::string name = "A name that goes on and on until it reaches the very end of its long, long line";
    return document(entry("hostGroup", 1, group("hostGroup", name, word, "")) +
                        entry("hostGroup", 2,
                              group("hostGroup", word, name,
                                    "<hostSelector><family>AF_INET6</family><selectorType>RANGE"
                                    "</selectorType><addr1>2001:db8:1111:2222:3333:4444:5555:6666"
                                    "</addr1><addr2>2001:db8:1111:2222:3333:4444:5555:7777</addr2>"
                                    "</hostSelector>")),
                    "", entry("action", 2147483646, action(word, name, "<spdAction>NONE</spdAction>")),
                    entry("policy", 1, policy(1, 4294967295U, 2147483646)));
}

class ShowWidth : public testing::TestWithParam<std::size_t> {
  protected:
    static void expectToFit(const Outcome& outcome)
    {
        ASSERT_EQ(outcome.status, 0) << outcome;
        std::istringstream lines(outcome.out);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(columnsOf(line), GetParam()) << line;
            EXPECT_THAT(line, Not(testing::EndsWith(" ")));
        }
    }
};

TEST_P(ShowWidth, IsNeverExceeded)
{
    const std::string columns = std::to_string(GetParam());
    expectToFit(shownIn(columns, wideDocument()));
    expectToFit(shownIn(columns, wideDocument(), {"host-groups", "2"}));
    expectToFit(shownIn(columns, wideDocument(), {"actions", "2147483646"}));
    expectToFit(shownIn(columns, wideDocument(), {"policies", "1"}));
}

TEST_P(ShowWidth, CutsNothing)
{
    const std::string out   = shownIn(std::to_string(GetParam()), wideDocument()).out;
    const auto        count = [&out](char c) { return std::count(out.begin(), out.end(), c); };
    EXPECT_EQ(count('w'), 4 * 50) << "in a description, two names, and the policy's action";
    EXPECT_EQ(count('q'), 4 * 50);
    EXPECT_EQ(count('5'), 4 + 4 + 1) << "the addresses, and the ID that is missing";
}

INSTANTIATE_TEST_SUITE_P(Show, ShowWidth, testing::Values(20, 40, 79, 80, 132, 10000));

TEST(ShowWidth, IsEightyWhereNothingElseIsSaid)
{
    EXPECT_EQ(run({"show", "-"}, wideDocument()), shownIn("80", wideDocument()));
}

class UnusableWidth : public testing::TestWithParam<std::string> {};

TEST_P(UnusableWidth, IsAsIfThereWereNone)
{
    EXPECT_EQ(shownIn(GetParam(), wideDocument()), shownIn("80", wideDocument()));
}

INSTANTIATE_TEST_SUITE_P(Show, UnusableWidth,
                         testing::Values("", "0", "19", "10001", "99999999999999999999", "-40", "40x", " 40", "wide"));

} // namespace
