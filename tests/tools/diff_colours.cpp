#include "program.h"

#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// A terminal, of which the other end is here.
class Terminal {
  public:
    Terminal()
        : master_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        EXPECT_EQ(grantpt(master_), 0);
        EXPECT_EQ(unlockpt(master_), 0);
        slave_ = open(ptsname(master_), O_RDWR | O_NOCTTY | O_CLOEXEC);
        EXPECT_GE(slave_, 0);
    }

    Terminal(const Terminal&)            = delete;
    Terminal& operator=(const Terminal&) = delete;

    ~Terminal()
    {
        close(master_);
        if (slave_ >= 0)
            close(slave_);
    }

    /// For the new process: prints there.
    void becomeStandardOutput() const { dup2(slave_, STDOUT_FILENO); }

    /// What was printed, with the terminal's line ends.
    std::string shown()
    {
        close(slave_);
        slave_ = -1;
        std::string text;
        char        block[4096];
        for (ssize_t count = 0; (count = read(master_, block, sizeof block)) > 0;)
            text.append(block, static_cast<std::size_t>(count));
        return text;
    }

  private:
    int master_;
    int slave_ = -1;
};

class DiffOnATerminal : public InFolder {
  protected:
    DiffOnATerminal()
    {
        const std::string passing = "<spdAction>BYPASS</spdAction>";
        writeFile("old.xml",
                  document("", "", entry("action", 1, action("a", "x", passing)), entry("policy", 1, policy(0, 0, 1))));
        writeFile("new.xml", document("", "", entry("action", 1, action("a", std::string(80, 'y'), passing)),
                                      entry("policy", 1, policy(0, 0, 0))));
    }

    static std::string shown(const char* noColour)
    {
        Terminal terminal;
        EXPECT_EQ(run({"diff", "old.xml", "new.xml"}, "",
                      [&] {
                          setenv("TERM", "xterm", 1);
                          setenv("COLUMNS", "80", 1);
                          setenv("NO_COLOR", noColour, 1);
                          terminal.becomeStandardOutput();
                      }),
                  (Outcome{1, "", ""}));
        return terminal.shown();
    }
};

TEST_F(DiffOnATerminal, HasColoursToo)
{
    EXPECT_EQ(shown(""),
              "\x1b[1m~ actions/1 'a'\x1b[0m\r\n"
              "\x1b[31m  - descr: 'x'\x1b[0m\r\n"
              "\x1b[32m  + descr:\x1b[0m\r\n"
              "\x1b[32m      'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy\x1b[0m\r\n"
              "\x1b[32m      yyyyyyy'\x1b[0m\r\n"
              "\x1b[1m~ policies/1\x1b[0m\r\n"
              "    hostGroupID: 0 (none)\r\n"
              "    protocolGroupID: 0 (none)\r\n"
              "  ~ actionID: \x1b[31m1 'a'\x1b[0m -> \x1b[32m0 (none)\x1b[0m\r\n");
}

TEST_F(DiffOnATerminal, HasNoColoursIfTheyAreNotWanted)
{
    EXPECT_EQ(shown("1").find('\x1b'), std::string::npos);
}

} // namespace
