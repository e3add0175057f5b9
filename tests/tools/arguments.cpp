#include "program.h"

#include <gmock/gmock.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

using testing::HasSubstr;

namespace {

/// Wrong usage of `command`, or without one, of the program.
Outcome misused(const std::string& command, const std::string& message)
{
    const std::string prefix = command.empty() ? "" : command + ": ";
    const std::string name   = command.empty() ? "ipsec-policy" : "ipsec-policy " + command;
    return troubled(prefix + message + "\nRun '" + name + " --help' for more information.");
}

TEST(Arguments, VersionIsThatOfTheBuild)
{
    EXPECT_EQ(run({"--version"}), printed("ipsec-policy " PROGRAM_VERSION "\n"));
    EXPECT_EQ(run({"-V"}), printed("ipsec-policy " PROGRAM_VERSION "\n"));
}

TEST(Arguments, HelpListsEveryCommandAndTheExitStatus)
{
    EXPECT_EQ(run({"--help"}), printed(R"(Manages IPsec security-policy configurations.
Usage: ipsec-policy [OPTION ...] COMMAND ...

Options:
  -h,--help             Print this help message and exit
  -V,--version          Print the version and exit

Commands:
  new                   Make a starter configuration.
  show                  Show a configuration as tables, without its keys.
  format                Load a configuration and store it in the written form.

'ipsec-policy COMMAND --help' tells more about a command.

Exit status: 0 if all is well; 1 for findings or differences, and for a
configuration that does not load, or would not once it is written; 2 for wrong
usage and for what cannot be read or written.
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

The written form is the one in which the library stores: a tag or a whole leaf
on each line, no attributes, no indentation, plain decimal numbers. Formatting
once more changes nothing.

Nothing can be escaped in this format: a text cannot hold '<', or have white
space at an end. A configuration that would not load as the same once written
is refused with exit status 1, just like one that does not load at all.

OUT may be FILE. It is replaced in one step, or left as it was. Its mode, owner
and group are kept, and symbolic links are followed; other hard links keep the
old content, and a read-only file is replaced too if its folder can be written.
A new OUT is for its owner alone (mode 0600), because it may hold keys.

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
    std::string              command;
    std::string              message;
};

std::ostream& operator<<(std::ostream& out, const WrongUsage& usage)
{
    return out << usage.message;
}

class Usage : public testing::TestWithParam<WrongUsage> {};

TEST_P(Usage, IsRefusedWithAHint)
{
    EXPECT_EQ(run(GetParam().arguments), misused(GetParam().command, GetParam().message));
}

// clang-format off
const WrongUsage WRONG_USAGES[] = {
    {{},                                   "", "a command is required\nUsage: ipsec-policy [OPTION ...] COMMAND ..."},
    {{"sho"},                              "", "unknown command 'sho'"},
    {{""},                                 "", "unknown command ''"},
    {{"-"},                                "", "unknown command '-'"},
    {{"x", "show", "a"},                   "", "unknown command 'x'"},
    {{"--show-keys"},                      "", "unknown option '--show-keys'"},
    {{"--show-keys", "show", "a"},         "", "unknown option '--show-keys'"},
    {{"new", "x"},                         "new",    "unexpected argument 'x'"},
    {{"show"},                             "show",   "FILE is required"},
    {{"show", "a", "b"},                   "show",   "unexpected argument 'b'"},
    {{"show", "--keys", "a"},              "show",   "unknown option '--keys'"},
    {{"show", "--show-keys=x", "a"},       "show",   "wrong use of option '--show-keys'"},
    {{"format"},                           "format", "FILE is required"},
    {{"format", "a", "-o"},                "format", "wrong use of option '--output'"},
    {{"format", "a", "-o", "b", "-o", "c"},"format", "wrong use of option '--output'"},
    {{"format", "a", "b\x1b[31m\n"},       "format", "unexpected argument 'b\\x1b[31m\\n'"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Arguments, Usage, testing::ValuesIn(WRONG_USAGES));

} // namespace
