#include "secrets.h"

#include "descriptor.h"
#include "failure.h"
#include "files.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {

const char TERMINAL[] = "/dev/tty";

// What a keyboard or an operator sends, and what stops a job: none of it may leave the terminal without echo.
const std::array<int, 8> SIGNALS = {SIGALRM, SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGTSTP, SIGTTIN, SIGTTOU};

// Set by the signal handler.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
volatile sig_atomic_t caught = 0;

void remember(int signal)
{
    caught = signal;
}

/// Lets signals do no more than interrupt a read, as long as it exists.
class CaughtSignals {
  public:
    CaughtSignals()
    {
        caught                  = 0;
        struct sigaction action = {};
        action.sa_handler       = remember; // without SA_RESTART
        for (std::size_t i = 0; i < SIGNALS.size(); ++i) {
            sigaction(SIGNALS[i], nullptr, &before_[i]);
            if (before_[i].sa_handler != SIG_IGN)
                sigaction(SIGNALS[i], &action, nullptr);
        }
    }

    CaughtSignals(const CaughtSignals&)            = delete;
    CaughtSignals& operator=(const CaughtSignals&) = delete;

    ~CaughtSignals()
    {
        for (std::size_t i = 0; i < SIGNALS.size(); ++i)
            sigaction(SIGNALS[i], &before_[i], nullptr);
    }

  private:
    std::array<struct sigaction, SIGNALS.size()> before_ = {};
};

/// A terminal that does not show what is typed, as long as this exists.
class WithoutEcho {
  public:
    explicit WithoutEcho(int terminal)
        : terminal_(terminal)
    {
        if (tcgetattr(terminal_, &before_) != 0)
            throw systemFailure(TERMINAL, errno);
        struct termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL);
        while (!isSilent_ && caught == 0) { // a job in the background gets a signal for trying
            isSilent_ = tcsetattr(terminal_, TCSAFLUSH, &silent) == 0;
            if (!isSilent_ && errno != EINTR)
                throw systemFailure(TERMINAL, errno);
        }
    }

    WithoutEcho(const WithoutEcho&)            = delete;
    WithoutEcho& operator=(const WithoutEcho&) = delete;

    ~WithoutEcho()
    {
        // A signal that comes just now must not leave the terminal silent.
        while (isSilent_ && tcsetattr(terminal_, TCSAFLUSH, &before_) != 0 && errno == EINTR) {
        }
    }

  private:
    int            terminal_;
    struct termios before_   = {};
    bool           isSilent_ = false;
};

/// Reads up to the end of the line or of the input, or until a signal is caught. False at the end of the input.
bool readLine(int terminal, std::string& line)
{
    for (;;) {
        char          c     = '\0';
        const ssize_t count = caught == 0 ? read(terminal, &c, 1) : -1;
        if (count == 0)
            return false;
        if (count < 0 && caught != 0)
            return true;
        if (count < 0 && errno != EINTR)
            throw systemFailure(TERMINAL, errno);
        if (count > 0 && c == '\n')
            return true;
        if (count > 0)
            line += c;
    }
}

/// Asks once; what was typed counts if no signal was caught meanwhile.
std::string askedOnce(int terminal, const std::string& prompt)
{
    const CaughtSignals signals;
    const WithoutEcho   silence(terminal);
    std::string         line;
    bool                ended = false;
    if (caught == 0) {
        writeAll(terminal, prompt, TERMINAL);
        ended = !readLine(terminal, line);
        writeAll(terminal, "\n", TERMINAL);
    }
    if (ended)
        throw Failure(ExitStatus::TROUBLE, "nothing was typed");
    return line;
}

} // namespace

std::string promptedSecret(const std::string& prompt)
{
    const Descriptor terminal(open(TERMINAL, O_RDWR | O_CLOEXEC | O_NOCTTY), TERMINAL);
    for (;;) {
        std::string line = askedOnce(terminal.number(), prompt);
        if (caught == 0)
            return line;
        // The signal now does what it would have done. If the program goes on, it was stopped, and asks again.
        kill(getpid(), caught);
    }
}
