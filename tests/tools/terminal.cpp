// What is printed on a terminal: these tests give the program a pseudo-terminal as its standard output.

#include "program.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

using testing::HasSubstr;
using testing::Not;

namespace {

/// A terminal that shows everything as it is printed.
class PseudoTerminal {
  public:
    explicit PseudoTerminal(unsigned short columns)
        : master_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0)
            throw std::runtime_error("no pseudo-terminal");
        slave_               = open(ptsname(master_), O_RDWR | O_NOCTTY | O_CLOEXEC);
        struct winsize size  = {};
        size.ws_col          = columns;
        struct termios modes = {};
        if (slave_ < 0 || ioctl(slave_, TIOCSWINSZ, &size) != 0 || tcgetattr(slave_, &modes) != 0)
            throw std::runtime_error("no pseudo-terminal");
        cfmakeraw(&modes);
        tcsetattr(slave_, TCSANOW, &modes);
    }

    PseudoTerminal(const PseudoTerminal&)            = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    ~PseudoTerminal()
    {
        close(slave_);
        close(master_);
    }

    int slave() const { return slave_; }

    /// Everything that is printed until nobody has the slave open any more.
    std::string readAll()
    {
        std::string            text;
        std::array<char, 4096> block = {};
        for (ssize_t count = 0; (count = read(master_, block.data(), block.size())) > 0;)
            text.append(block.data(), static_cast<std::size_t>(count));
        return text;
    }

    void closeSlave()
    {
        close(slave_);
        slave_ = -1;
    }

  private:
    int master_;
    int slave_ = -1;
};

using Variables = std::vector<std::pair<const char*, const char*>>;

/// What the program prints on a terminal of so many columns.
std::string onTerminal(const std::vector<std::string>& arguments, const std::string& input, unsigned short columns,
                       const Variables& variables = {})
{
    PseudoTerminal terminal(columns);
    std::string    text;
    std::thread    reader([&] { text = terminal.readAll(); });
    const Outcome  outcome = run(arguments, input, [&] {
        dup2(terminal.slave(), STDOUT_FILENO);
        setenv("TERM", "xterm", 1);
        for (const auto& [name, value] : variables)
            setenv(name, value, 1);
    });
    terminal.closeSlave();
    reader.join();
    EXPECT_EQ(outcome, printed(""));
    return text;
}

const std::string DANGLING =
    document(entry("hostGroup", 3, group("hostGroup", "Peers", "", "")), "", "", entry("policy", 1, policy(3, 4, 0)));

TEST(Terminal, DanglingReferencesAreRedInTables)
{
    EXPECT_EQ(onTerminal({"show", "-", "policies"}, DANGLING, 80),
              "Policies: 1 (next ID 2)\n\n"
              "ID  HOST GROUP  PROTOCOL GROUP  ACTION\n"
              " 1  3 Peers     \x1b[31m4 !! missing\x1b[0m    \x1b[31m0 !! missing\x1b[0m\n");
}

TEST(Terminal, DanglingReferencesAreRedInOneObject)
{
    EXPECT_EQ(onTerminal({"show", "-", "policies", "1"}, DANGLING, 80),
              "Policy 1\n\n"
              "FIELD            VALUE\n"
              "hostGroupID      3 Peers\n"
              "protocolGroupID  \x1b[31m4 !! missing\x1b[0m\n"
              "actionID         \x1b[31m0 !! missing\x1b[0m\n");
}

TEST(Terminal, AReferenceThatIsWrappedIsRedOnEachLine)
{
    EXPECT_THAT(onTerminal({"show", "-", "policies", "1"}, DANGLING, 20),
                HasSubstr("actionID   \x1b[31m0 !!\x1b[0m\n"
                          "           \x1b[31mmissing\x1b[0m\n"));
    EXPECT_THAT(onTerminal({"show", "-", "policies"}, DANGLING, 24),
                HasSubstr("ACTION\n  \x1b[31m0 !! missing\x1b[0m\n"));
}

TEST(Terminal, JsonAndGraphsHaveNoColours)
{
    EXPECT_EQ(onTerminal({"show", "--json", "-"}, DANGLING, 80), run({"show", "--json", "-"}, DANGLING).out);
    EXPECT_EQ(onTerminal({"graph", "-"}, DANGLING, 80), run({"graph", "-"}, DANGLING).out);
}

class WithoutColours : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(WithoutColours, NothingIsRed)
{
    const Outcome plain = run({"show", "-"}, DANGLING);
    EXPECT_THAT(plain.out, HasSubstr("4 !! missing"));
    EXPECT_EQ(onTerminal({"show", "-"}, DANGLING, 80, {GetParam()}), plain.out);
}

INSTANTIATE_TEST_SUITE_P(Terminal, WithoutColours,
                         testing::Values(std::pair("NO_COLOR", "1"), std::pair("NO_COLOR", "0"),
                                         std::pair("TERM", "dumb")));

TEST(Terminal, APathThatDoesNotFitStandsBelowTheFinding)
{
    const std::string text  = document(entry("hostGroup", 1, group("hostGroup", "Peers", "", "")));
    const std::string start = "standard input:1:46: note: unused-group:";
    EXPECT_THAT(run({"check", "-"}, text, [] { setenv("COLUMNS", "40", 1); }).out,
                HasSubstr(start + " hostGroups/1\n"));
    const Variables PLAIN = {{"NO_COLOR", "1"}};
    EXPECT_THAT(onTerminal({"check", "-"}, text, 53, PLAIN), HasSubstr(start + " hostGroups/1\n"));
    EXPECT_THAT(onTerminal({"check", "-"}, text, 52, PLAIN), HasSubstr(start + "\n    hostGroups/1\n"));
}

TEST(Terminal, AnEmptyNoColorMeansNothing)
{
    EXPECT_THAT(onTerminal({"show", "-"}, DANGLING, 80, {{"NO_COLOR", ""}}), HasSubstr("\x1b[31m"));
}

TEST(Terminal, APipeHasNoColours)
{
    const Outcome outcome = run({"show", "-"}, DANGLING, [] { setenv("TERM", "xterm", 1); });
    EXPECT_THAT(outcome.out, Not(HasSubstr("\x1b")));
}

class TerminalWidth : public testing::TestWithParam<unsigned short> {};

TEST_P(TerminalWidth, IsThatOfTheTables)
{
    const std::string file = EXAMPLES_DIR "/configs/branch-office.xml";
    const Outcome     same = run({"show", file}, "", [] { setenv("COLUMNS", std::to_string(GetParam()).c_str(), 1); });
    EXPECT_EQ(onTerminal({"show", file}, "", GetParam()), same.out);
    EXPECT_NE(same.out, run({"show", file}).out);
}

INSTANTIATE_TEST_SUITE_P(Terminal, TerminalWidth, testing::Values(40, 60, 132));

TEST(Terminal, ColumnsGoesBeforeTheTerminalsOwnWidth)
{
    const std::string file = EXAMPLES_DIR "/configs/branch-office.xml";
    EXPECT_EQ(onTerminal({"show", file}, "", 40, {{"COLUMNS", "132"}}), onTerminal({"show", file}, "", 132));
    EXPECT_EQ(onTerminal({"show", file}, "", 40, {{"COLUMNS", "x"}}), onTerminal({"show", file}, "", 40));
}

TEST(Terminal, WithoutAWidthCountsAsEightyColumns)
{
    const std::string file = EXAMPLES_DIR "/configs/branch-office.xml";
    EXPECT_EQ(onTerminal({"show", file}, "", 0), run({"show", file}).out);
}

} // namespace
