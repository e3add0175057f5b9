#include "program.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

class SystemFailures : public InFolder {};

/// A command with arguments under which it prints something. Standard input and the file in.xml are a small document,
/// which is not in the written form.
struct PrintingCommand {
    std::vector<std::string> arguments;
    int                      status = 0;
};

std::ostream& operator<<(std::ostream& out, const PrintingCommand& command)
{
    return out << testing::PrintToString(command.arguments);
}

const PrintingCommand PRINTING_COMMANDS[] = {
    {{"new"}},
    {{"show", "-"}},
    {{"show", "in.xml"}},
    {{"show", "-", "actions"}},
    {{"show", "-", "--json"}},
    {{"check", "-"}},
    {{"check", "dangling.xml"}, 1},
    {{"check", "--json", "dangling.xml"}, 1},
    {{"check", "--sarif", "dangling.xml"}, 1},
    {{"check", "--list"}},
    {{"graph", "-"}},
    {{"diff", "in.xml", "dangling.xml"}, 1},
    {{"diff", "--script", "in.xml", "dangling.xml"}, 1},
    {{"diff", "--json", "in.xml", "dangling.xml"}, 1},
    {{"edit", "in.xml", "--dry-run", "-e", "add host-group y"}},
    {{"format", "-"}},
    {{"format", "in.xml", "-o", "-"}},
    {{"format", "--check", "in.xml"}, 1},
    {{"--help"}},
    {{"--version"}},
    {{"format", "--help"}},
};

class Printing : public InFolder, public testing::WithParamInterface<PrintingCommand> {
  protected:
    Printing()
    {
        writeFile("in.xml", document());
        writeFile("dangling.xml", document("", "", "", entry("policy", 1, policy(1, 1, 1))));
    }

    static Outcome runWith(const std::function<void()>& prepare)
    {
        return run(GetParam().arguments, document(), prepare);
    }
};

TEST_P(Printing, ToAFullDeviceFails)
{
    EXPECT_EQ(runWith([] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); }),
              troubled("standard output: No space left on device"));
}

TEST_P(Printing, ToAClosedStandardOutputFails)
{
    EXPECT_EQ(runWith([] { close(STDOUT_FILENO); }), troubled("standard output: Bad file descriptor"));
}

TEST_P(Printing, ToAPipeThatNobodyReadsFails)
{
    EXPECT_EQ(runWith([] {
                  std::array<int, 2> pipe = {};
                  if (::pipe(pipe.data()) != 0)
                      _exit(126);
                  close(pipe[0]);
                  dup2(pipe[1], STDOUT_FILENO);
              }),
              troubled("standard output: Broken pipe"));
}

TEST_P(Printing, BeyondTheLimitOfAFileFails)
{
    EXPECT_EQ(runWith([] {
                  const rlimit limit = {4, 4};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  dup2(open("out", O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
                  // Standard error is a file too, which cannot take a message of more than four bytes.
                  dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
              }),
              (Outcome{2, "", ""}));
}

TEST_P(Printing, WorksWithAClosedStandardError)
{
    Outcome usual  = runWith([] {});
    Outcome closed = runWith([] { close(STDERR_FILENO); });
    EXPECT_EQ(usual.status, GetParam().status);
    EXPECT_NE(usual.out, "");
    for (Outcome* const outcome : {&usual, &closed})
        outcome->out = withoutKey(outcome->out);
    EXPECT_EQ(closed, usual);
}

INSTANTIATE_TEST_SUITE_P(SystemFailures, Printing, testing::ValuesIn(PRINTING_COMMANDS));

TEST_F(SystemFailures, AFileThatIsMissingIsReported)
{
    EXPECT_EQ(run({"show", "none.xml"}), troubled("none.xml: No such file or directory"));
    EXPECT_EQ(run({"format", "none.xml"}), troubled("none.xml: No such file or directory"));
    EXPECT_EQ(run({"graph", "none.xml"}), troubled("none.xml: No such file or directory"));
}

TEST_F(SystemFailures, AFolderIsNoConfiguration)
{
    EXPECT_EQ(run({"show", "."}), troubled(".: Is a directory"));
    EXPECT_EQ(run({"format", "."}), troubled(".: Is a directory"));
}

TEST_F(SystemFailures, AFileThatOthersKeepToThemselvesIsReported)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root reads everything";
    writeFile("in.xml", document());
    std::filesystem::permissions("in.xml", std::filesystem::perms::none);
    EXPECT_EQ(run({"show", "in.xml"}), troubled("in.xml: Permission denied"));
}

TEST_F(SystemFailures, AClosedStandardInputIsReported)
{
    EXPECT_EQ(run({"show", "-"}, "", [] { close(STDIN_FILENO); }), troubled("standard input: Bad file descriptor"));
}

TEST_F(SystemFailures, NoFileTakesThePlaceOfAClosedStandardStream)
{
    writeFile("in.xml", document());
    const Outcome outcome = run({"format", "in.xml", "-o", "out.xml"}, "", [] {
        close(STDIN_FILENO);
        close(STDOUT_FILENO);
        close(STDERR_FILENO);
    });
    EXPECT_EQ(outcome, printed(""));
    EXPECT_EQ(run({"format", "-"}, document()), printed(contentOf("out.xml")));
}

/// What the program writes to standard error, call by call.
std::vector<std::string> messagesOf(const std::vector<std::string>& arguments)
{
    std::array<int, 2> ends = {}; // of a socket that keeps apart what is written in different calls
    if (socketpair(AF_UNIX, SOCK_DGRAM, 0, ends.data()) != 0)
        throw std::runtime_error("no pair of sockets");
    run(arguments, "", [&ends] { dup2(ends[1], STDERR_FILENO); });
    close(ends[1]);

    std::vector<std::string> messages;
    std::string              block(4096, '\0');
    for (ssize_t size = 0; (size = recv(ends[0], block.data(), block.size(), MSG_DONTWAIT)) > 0;)
        messages.push_back(block.substr(0, static_cast<std::size_t>(size)));
    close(ends[0]);
    return messages;
}

TEST_F(SystemFailures, EachMessageIsWrittenInOneCallSoThatThoseOfOtherProgramsDoNotMix)
{
    EXPECT_THAT(messagesOf({"check", "a.xml", "b.xml"}),
                testing::ElementsAre("ipsec-policy: a.xml: No such file or directory\n",
                                     "ipsec-policy: b.xml: No such file or directory\n"));
    EXPECT_THAT(messagesOf({"none"}),
                testing::ElementsAre(testing::MatchesRegex("ipsec-policy: unknown command 'none'.*\nRun .*\n")));
}

// The sanitizers' run-time library reserves more memory than any limit that means something here; of an emulator the limit
// leaves the program an unknown part.
#if !defined(SANITIZED) && !defined(EMULATED)

Outcome runWithin(rlim_t megabytes, const std::vector<std::string>& arguments)
{
    return run(arguments, "", [megabytes] {
        const rlimit limit = {megabytes * 1024 * 1024, megabytes * 1024 * 1024};
        setrlimit(RLIMIT_AS, &limit);
    });
}

TEST_F(SystemFailures, RunningOutOfMemoryAnywhereIsReported)
{
    writeFile("in.xml", document(entry("hostGroup", 1, group("hostGroup", std::string(1'000'000, 'x'), "", ""))));
    rlim_t least = 1;
    while (runWithin(least, {"--version"}).status != 0)
        ASSERT_LT(++least, 1000U) << "the program does not start at all";

    const std::vector<std::string> commands[] = {{"show", "in.xml"},
                                                 {"show", "in.xml", "host-groups", "1"},
                                                 {"show", "in.xml", "--json"},
                                                 {"graph", "in.xml"},
                                                 {"check", "in.xml"},
                                                 {"format", "in.xml"},
                                                 {"edit", "in.xml", "--dry-run", "-e", "add host-group y"}};
    for (const std::vector<std::string>& command : commands) {
        const Outcome enough = run(command);
        ASSERT_EQ(enough.status, 0);
        EXPECT_EQ(runWithin(least, command), troubled("out of memory"));
        for (rlim_t megabytes = least;; ++megabytes) {
            const Outcome outcome = runWithin(megabytes, command);
            if (outcome == enough)
                break;
            ASSERT_EQ(outcome, troubled("out of memory"))
                << testing::PrintToString(command) << " within " << megabytes << " MiB";
        }
    }
}

#endif

} // namespace
