#include "program.h"

#include <gmock/gmock.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

using testing::HasSubstr;

namespace {

const char HINT[] = "\nRun with --help for more information.";

TEST(Arguments, VersionIsThatOfTheBuild)
{
    EXPECT_EQ(run({"--version"}), printed("ipsec-policy " PROGRAM_VERSION "\n"));
}

TEST(Arguments, HelpListsEveryCommandAndTheExitStatus)
{
    EXPECT_EQ(run({"--help"}), printed(R"(Manages IPsec security-policy configurations.
Usage: ipsec-policy [OPTION ...] COMMAND ...

Options:
  -h,--help             Print this help message and exit
  --version             Print the version and exit

Commands:
  new                   Print a starter configuration.
  show                  Show a configuration as tables, without its keys.
  format                Load a configuration and store it in the written form.

'ipsec-policy COMMAND --help' tells more about a command.

Exit status: 0 if all is well, 1 for a configuration that does not load,
2 for wrong usage and for what cannot be read or written.
)"));
}

TEST(Arguments, HelpOfFormatTellsItsOptionsAndGivesExamples)
{
    EXPECT_EQ(run({"format", "--help"}), printed(R"(Load a configuration and store it in the written form.
Usage: ipsec-policy format [OPTION ...] FILE

Arguments:
  FILE REQUIRED         The configuration; - is standard input

Options:
  -h,--help             Print this help message and exit
  -o,--output OUT       Where to store it; standard output if not given

Examples:
  ipsec-policy format policy.xml
  ipsec-policy format policy.xml -o policy.xml
)"));
}

class EveryCommand : public testing::TestWithParam<std::string> {};

TEST_P(EveryCommand, HasHelpWithAnExampleThatFitsEightyColumns)
{
    const Outcome help = run({GetParam(), "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    EXPECT_THAT(help.out, HasSubstr("\nUsage: ipsec-policy " + GetParam() + " "));
    EXPECT_THAT(help.out, HasSubstr("\nExamples:\n  ipsec-policy " + GetParam() + " "));
    std::istringstream lines(help.out);
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(line.size(), 80U) << line;
}

INSTANTIATE_TEST_SUITE_P(Arguments, EveryCommand, testing::Values("new", "show", "format"));

struct WrongUsage {
    std::vector<std::string> arguments;
    std::string              message;
};

std::ostream& operator<<(std::ostream& out, const WrongUsage& usage)
{
    return out << usage.message;
}

class Usage : public testing::TestWithParam<WrongUsage> {};

TEST_P(Usage, IsRefusedWithAHint)
{
    EXPECT_EQ(run(GetParam().arguments), troubled(GetParam().message + HINT));
}

// clang-format off
const WrongUsage WRONG_USAGES[] = {
    {{},                                   "a command is required"},
    {{"sho"},                              "expected a command, got 'sho'"},
    {{"--show-keys"},                      "expected a command, got '--show-keys'"},
    {{"new", "x"},                         "The following argument was not expected: x"},
    {{"show"},                             "FILE is required"},
    {{"show", "a", "b"},                   "The following argument was not expected: b"},
    {{"show", "--keys", "a"},              "The following argument was not expected: --keys"},
    {{"format"},                           "FILE is required"},
    {{"format", "a", "-o"},                "--output: 1 required OUT missing"},
    {{"format", "a", "b\x1b[31m\n"},       "The following argument was not expected: b\\x1b[31m\\n"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Arguments, Usage, testing::ValuesIn(WRONG_USAGES));

} // namespace
