// Writing into what takes less than it is offered, while signals come in.

#include "files.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <string>
#include <thread>

#include <sys/time.h>
#include <unistd.h>

namespace {

/// A timer whose signals interrupt system calls, as long as it lives.
class Interruptions {
  public:
    Interruptions()
    {
        struct sigaction action = {};
        action.sa_handler       = [](int) {}; // without SA_RESTART
        sigaction(SIGALRM, &action, &before_);
        const struct itimerval often = {{0, 200}, {0, 200}};
        setitimer(ITIMER_REAL, &often, nullptr);
    }

    Interruptions(const Interruptions&)            = delete;
    Interruptions& operator=(const Interruptions&) = delete;

    ~Interruptions()
    {
        const struct itimerval never = {{0, 0}, {0, 0}};
        setitimer(ITIMER_REAL, &never, nullptr);
        sigaction(SIGALRM, &before_, nullptr);
    }

  private:
    struct sigaction before_ = {};
};

/// Takes what comes through the pipe in small pieces.
std::string takeSlowly(int descriptor)
{
    sigset_t alarm;
    sigemptyset(&alarm);
    sigaddset(&alarm, SIGALRM);
    pthread_sigmask(SIG_BLOCK, &alarm, nullptr);

    std::string            text;
    std::array<char, 5000> piece = {};
    for (ssize_t count = 0; (count = read(descriptor, piece.data(), piece.size())) > 0;)
        text.append(piece.data(), static_cast<std::size_t>(count));
    close(descriptor);
    return text;
}

TEST(StoringWrites, ArriveWholeThroughShortWritesAndSignals)
{
    std::string text;
    for (int i = 0; i < 500'000; ++i)
        text += std::to_string(i);

    std::array<int, 2> pipe = {};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    std::string received;
    std::thread reader([&] { received = takeSlowly(pipe[0]); });
    {
        const Interruptions interruptions;
        writeAll(pipe[1], text, "pipe");
    }
    close(pipe[1]);
    reader.join();
    EXPECT_TRUE(received == text);
}

} // namespace
