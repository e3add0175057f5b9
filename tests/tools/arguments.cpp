#include "program.h"
#include "support/golden.h"

#include <gmock/gmock.h>

#include <algorithm>
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

TEST(Arguments, VersionIsThatOfTheBuildWithTheLibraryTheCompilerAndTheTarget)
{
    const std::string version =
        "ipsec-policy " PROGRAM_VERSION "\nlibrary: ipsecimpl " PROGRAM_VERSION ", " PROGRAM_LIBRARY
        "\ncompiler: " PROGRAM_COMPILER "\nbuild: " PROGRAM_BUILD_TYPE ", ";
    const Outcome outcome = run({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, testing::StartsWith(version));
    EXPECT_THAT(outcome.out.substr(std::min(version.size(), outcome.out.size())),
                testing::MatchesRegex("[A-Za-z0-9_-]+, " + std::to_string(8 * sizeof(void*)) + " bits\n"));
    EXPECT_EQ(run({"-V"}), outcome);
}

TEST(Arguments, HelpListsEveryCommandAndTheExitStatus)
{
    EXPECT_EQ(run({"--help"}), printed(R"(Manages IPsec security-policy configurations.
Usage: ipsec-policy [OPTION ...] COMMAND ...

Options:
  -h,--help             Print this help message and exit
  -V,--version          Print the version and how it was built, and exit

Commands:
  new                   Make a starter configuration.
  show                  Show a configuration as tables, without its keys.
  check                 Find what is wrong or weak in configurations.
  format                Load a configuration and store it in the written form.
  diff                  Tell what differs between two configurations.
  edit                  Change a configuration with commands, all or nothing.
  graph                 Draw which policies tie what, for Graphviz.
  help                  Tell how a command is used, as its --help does.

'ipsec-policy COMMAND --help', or 'help COMMAND', tells more about a command.

Exit status: 0 if all is well; 1 for findings or differences, and for a
configuration that does not load, or would not once it is written; 2 for wrong
usage and for what cannot be read or written.
)"));
}

TEST(Arguments, HelpOfFormatTellsItsOptionsAndGivesExamples)
{
    EXPECT_EQ(run({"format", "--help"}), printed(R"(Load a configuration and store it in the written form.
Usage: ipsec-policy format [OPTION ...] FILE...

Arguments:
  FILE ... REQUIRED     The configuration; - is standard input

Options:
  -h,--help             Print this help message and exit
  -o,--output OUT       Where to store it; standard output if not given
  --in-place            Store each FILE where it was
  --check               Store nothing; tell which FILEs would change
  --json                With --check, tell it in JSON
  --force               Store values as they were understood, also where
                        the document says something else
  --max-size SIZE       Refuse larger files; bytes, or with K, M, G (64M)

The written form is the one in which the library stores: a tag or a whole leaf
on each line, no attributes, no indentation, plain decimal numbers. Formatting
once more changes nothing.

Nothing can be escaped in this format: a text cannot hold '<', or have white
space at an end. A configuration that would not load as the same once written
is refused with exit status 1, just like one that does not load at all. So is,
unless --force is given, one with a value that was not understood as written,
such as a number with something behind it, an octal or an empty one, or with a
selector that a group has twice: 'check' tells of all of them.

--check exits with 1 if a file is not in the written form, and names the first
line that would change. With --check and --in-place there may be several FILEs.
With --check --json, an object with two lists: files (file, written; if that is
false, message, and the line and column that would change first, or where the
document does not load, with the elements that are open there, and first, the
place of an ID that another repeats) and unread (file, message).

OUT may be FILE, which is --in-place. A file is replaced in one step, or left
as it was; one that would not change is not touched. Its mode, owner, group and
attributes are kept, and symbolic links are followed; other hard links keep the
old content, and a read-only file is replaced too if its folder can be written.
A file that another ipsec-policy edits, or that changes meanwhile, is refused.
A new OUT is for its owner alone (mode 0600), because it may hold keys.

Examples:
  ipsec-policy format policy.xml
  ipsec-policy format policy.xml -o tidy.xml
  ipsec-policy format --in-place /etc/ipsec/*.xml
  ipsec-policy format --check policy.xml && echo as written
  ipsec-policy format --check --json *.xml | jq '.files[] | select(.line)'
)"));
}

TEST(Arguments, HelpOfEditTellsItsCommandsAndGivesExamples)
{
    const Outcome help = run({"edit", "--help"});
    EXPECT_EQ(help, printed(help.out));
    expectGolden("edit/help.txt", help.out);
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

INSTANTIATE_TEST_SUITE_P(Arguments, EveryCommand,
                         testing::Values("new", "show", "check", "format", "diff", "edit", "graph", "help"));

TEST(Arguments, HelpMayBeAskedForAsACommand)
{
    EXPECT_EQ(run({"help"}), run({"--help"}));
    for (const std::string command : {"new", "show", "check", "format", "diff", "edit", "graph", "help"})
        EXPECT_EQ(run({"help", command}), run({command, "--help"})) << command;
}

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

std::string badSize(const std::string& size, const std::string& reason)
{
    return "wrong use of option '--max-size': '" + size + "' " + reason;
}

std::string notASize(const std::string& size)
{
    return badSize(size, "is not a size: a number of bytes, or with K, M or G behind it, such as 64M");
}

std::string tooLarge(const std::string& size)
{
    return badSize(size, "is more than this program can address");
}

std::string noLevel(const std::string& level)
{
    return "wrong use of option '--level': '" + level + "' is none of error, warning, note";
}

const std::string ALL_COMMANDS = "there are new, show, check, format, diff, edit, graph, help";
const std::string LATE         = " (the options of a command stand behind its name)";

const std::string COMMAND_FOR_FILE = "a command stands where a file is expected: -e goes before each command";

// clang-format off
const WrongUsage WRONG_USAGES[] = {
    {{},                                   "", "a command is required\nUsage: ipsec-policy [OPTION ...] COMMAND ..."},
    {{"sho"},                              "", "unknown command 'sho' (did you mean 'show'?)"},
    {{"fromat", "a"},                      "", "unknown command 'fromat' (did you mean 'format'?)"},
    {{""},                                 "", "unknown command '': " + ALL_COMMANDS},
    {{"-"},                                "", "unknown command '-': " + ALL_COMMANDS},
    {{"x", "show", "a"},                   "", "unknown command 'x': " + ALL_COMMANDS},
    {{"--verison"},                        "", "unknown option '--verison' (did you mean '--version'?)"},
    {{"--version=x"},                      "", "option '--version' takes no value"},
    {{"--show-keys"},                      "", "unknown option '--show-keys'" + LATE},
    {{"--show-keys", "show", "a"},         "", "unknown option '--show-keys'" + LATE},
    {{"--none", "show", "a"},              "", "unknown option '--none'"},
    {{"bogus", "--help"},                  "", "unknown command 'bogus': " + ALL_COMMANDS},
    {{"--help", "bogus"},                  "", "unknown command 'bogus': " + ALL_COMMANDS},
    {{"-", "--help"},                      "", "unknown command '-': " + ALL_COMMANDS},
    {{"set action 4 presharedKey=x"},      "", "unknown command 'set': " + ALL_COMMANDS},
    {{"--version", "extra\x1b"},           "", "unexpected argument 'extra\\x1b' behind '--version'"},
    {{"-V", "show"},                       "", "unexpected argument 'show' behind '--version'"},
    {{"help", "bogus"},                    "", "unknown command 'bogus': " + ALL_COMMANDS},
    {{"help", "eddit"},                    "", "unknown command 'eddit' (did you mean 'edit'?)"},
    {{"help", "show", "edit"},             "help",   "unexpected argument 'edit'"},
    {{"new", "-o", ""},                    "new",    "option '--output' has an empty value"},
    {{"new", "x"},                         "new",    "unexpected argument 'x'"},
    {{"show"},                             "show",   "FILE is required"},
    {{"show", "a", "actions", "1", "x"},   "show",   "unexpected argument 'x'"},
    {{"show", "a", "--json=x"},            "show",   "option '--json' takes no value"},
    {{"show", "a", "--json="},             "show",   "option '--json' takes no value"},
    {{"show", "a", "--json={}"},           "show",   "option '--json' takes no value"},
    {{"show", "a", "--json=true"},         "show",   "option '--json' takes no value"},
    {{"show", "--help=x"},                 "show",   "option '--help' takes no value"},
    {{"show", "a", "-json"},               "show",   "unknown option '-json' (did you mean '--json'?)"},
    {{"graph"},                            "graph",  "FILE is required"},
    {{"graph", "a", "b"},                  "graph",  "unexpected argument 'b'"},
    {{"show", "--keys", "a"},              "show",   "unknown option '--keys' (did you mean '--show-keys'?)"},
    {{"show", "--none=secret", "a"},       "show",   "unknown option '--none'"},
    {{"show", "--show-keys=x", "a"},       "show",   "option '--show-keys' takes no value"},
    {{"check"},                            "check",  "FILE is required"},
    {{"check", "--level=fatal", "a"},      "check",  noLevel("fatal")},
    {{"check", "--level", "Error", "a"},   "check",  noLevel("Error")},
    {{"check", "--level=\x1b[2J", "a"},    "check",  noLevel("\\x1b[2J")},
    {{"check", "--level=", "error", "a"},  "check",  "option '--level' has an empty value"},
    {{"check", "a", "--level", ""},        "check",  "option '--level' has an empty value"},
    {{"check", "--level=note", "--level=error", "a"}, "check", "option '--level' is given more than once"},
    {{"check", "--algorithm=x", "a"},      "check",  "unknown option '--algorithm' (did you mean '--algorithms'?)"},
    {{"check", "--algorithms=", "a"},      "check",  "option '--algorithms' has an empty value"},
    {{"check", "--json", "--sarif", "a"},  "check",  "--json and --sarif exclude each other"},
    {{"check", "--list", "a"},             "check",  "unexpected argument 'a'"},
    {{"check", "--explain=x", "a\x1b"},     "check",  "unexpected argument 'a\\x1b'"},
    {{"check", "--list", "--sarif"},       "check",  "--list and --sarif exclude each other"},
    {{"check", "--explain=x", "--sarif"},  "check",  "--explain and --sarif exclude each other"},
    {{"check", "--list", "--explain=x"},   "check",  "--list and --explain exclude each other"},
    {{"check", "-", "a", "-"},             "check",  "standard input can be read only once"},
    {{"check", "--explain"},               "check",  "option '--explain' needs a value"},
    {{"check", "--explain", ""},           "check",  "option '--explain' has an empty value"},
    {{"check", "--explain="},              "check",  "option '--explain' has an empty value"},
    {{"format"},                           "format", "FILE is required"},
    {{"format", "a", "-o"},                "format", "option '--output' needs a value"},
    {{"format", "a", "-o", ""},            "format", "option '--output' has an empty value"},
    {{"format", "a", "--output=", "b"},    "format", "option '--output' has an empty value"},
    {{"format", "a", "-o", "b", "-o", "c"},"format", "option '--output' is given more than once"},
    {{"format", "a", "b\x1b[31m\n"},       "format", "unexpected argument 'b\\x1b[31m\\n'"},
    {{"format", "a", "b", "-o", "c"},      "format", "unexpected argument 'b'"},
    {{"format", "a", "--check", "--in-place"},   "format", "--check and --in-place exclude each other"},
    {{"format", "a", "--check", "-o", "b"},      "format", "--check and --output exclude each other"},
    {{"format", "a", "--in-place", "-o", "-"},   "format", "--in-place and --output exclude each other"},
    {{"format", "--check", "-", "a", "-"}, "format", "standard input can be read only once"},
    {{"format", "--check", "--", "-", "-"},"format", "standard input can be read only once"},
    {{"format", "--in-place", "-", "-"},   "format", "standard input can be read only once"},
    {{"diff", "-", "-"},                   "diff",   "OLD and NEW cannot both be standard input"},
    {{"format", "--json", "a"},            "format", "--json is for --check alone"},
    {{"format", "--json", "--in-place", "a"},    "format", "--json is for --check alone"},
    {{"format", "--check"},                "format", "FILE is required"},
    {{"format", "a", "--check=no"},        "format", "option '--check' takes no value"},
    {{"format", "a", "--max-size", "64 M"},"format", notASize("64 M")},
    {{"format", "a", "--max-size", "64m"}, "format", notASize("64m")},
    {{"format", "a", "--max-size", "64MiB"},     "format", notASize("64MiB")},
    {{"format", "a", "--max-size", "M"},   "format", notASize("M")},
    {{"format", "a", "--max-size", "-1"},  "format", notASize("-1")},
    {{"format", "a", "--max-size", "+1"},  "format", notASize("+1")},
    {{"format", "a", "--max-size", "0x10"},"format", notASize("0x10")},
    {{"format", "a", "--max-size", "1.5G"},"format", notASize("1.5G")},
    {{"format", "a", "--max-size="},       "format", "option '--max-size' has an empty value"},
    {{"format", "--max-size=", "1M", "a"}, "format", "option '--max-size' has an empty value"},
    {{"format", "a", "--max-size", "\x1b"},"format", notASize("\\x1b")},
    {{"format", "a", "--max-size", "00K"}, "format", badSize("00K", "leaves nothing to read")},
    {{"format", "a", "--max-size", "18446744073709551616"},  "format", tooLarge("18446744073709551616")},
    {{"format", "a", "--max-size", "18014398509481984K"},    "format", tooLarge("18014398509481984K")},
    {{"format", "a", "--max-size"},        "format", "option '--max-size' needs a value"},
    {{"edit"},                             "edit",   "FILE is required"},
    {{"edit", "a"},                        "edit",   "commands are required, with -e or in a SCRIPT (not both)"},
    {{"edit", "a", "b", "-e", "c"},        "edit",   "commands are required, with -e or in a SCRIPT (not both)"},
    {{"edit", "a", "--backup", "b", "-e", "c"}, "edit",
     "commands are required, with -e or in a SCRIPT (not both); a backup is named by --backup=NAME, in one word"},
    {{"edit", "a", "b", "c"},              "edit",   "unexpected argument (a command with blanks must be in quotes)"},
    {{"edit", "a", "-e", "b", "c", "d"},   "edit",   "unexpected argument (a command with blanks must be in quotes)"},
    {{"edit", "a", "set action 1 ikePhase1/presharedKey=x"}, "edit", COMMAND_FOR_FILE},
    {{"edit", "add action x", "-e", "y"},  "edit",   COMMAND_FOR_FILE},
    {{"edit", "a", "ikePhase1/presharedKey=x"}, "edit", COMMAND_FOR_FILE},
    {{"edit", "manualKey/outboundEncrIV=x", "-e", "y"}, "edit", COMMAND_FOR_FILE},
    {{"edit", "a", "-e"},                  "edit",   "option '--command' needs a value"},
    {{"edit", "a", "-e", ""},              "edit",   "option '--command' has an empty value"},
    {{"edit", "a", "--comand=b"},          "edit",   "unknown option '--comand' (did you mean '--command'?)"},
    {{"edit", "a", "b", "--backup="},      "edit",   "option '--backup' has an empty value"},
    {{"edit", "a", "b", "--backup", "--backup=x"}, "edit", "option '--backup' is given more than once"},
    {{"edit", "-", "-e", "b"},             "edit",   "standard input cannot be edited: FILE must be a file"},
    {{"edit", "-", "b", "--dry-run"},      "edit",   "standard input cannot be edited: FILE must be a file"},
    {{"edit", "a", "b", "--dry-run=no"},   "edit",   "option '--dry-run' takes no value"},
    {{"edit", "a", "b", "--cascade=no"},   "edit",   "option '--cascade' takes no value"},
    {{"edit", "a", "b", "--max-size", "x"},"edit",   notASize("x")},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Arguments, Usage, testing::ValuesIn(WRONG_USAGES));

} // namespace
