#include "program.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

class SystemFailures : public InFolder {};

/// Each command, with arguments under which it prints something.
class Printing : public InFolder, public testing::WithParamInterface<std::vector<std::string>> {
  protected:
    static Outcome runWith(const std::function<void()>& prepare) { return run(GetParam(), document(), prepare); }
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
    const Outcome usual = runWith([] {});
    EXPECT_EQ(usual.status, 0);
    EXPECT_EQ(runWith([] { close(STDERR_FILENO); }), usual);
}

INSTANTIATE_TEST_SUITE_P(SystemFailures, Printing,
                         testing::Values(std::vector<std::string>{"new"}, std::vector<std::string>{"show", "-"},
                                         std::vector<std::string>{"format", "-"}, std::vector<std::string>{"--help"},
                                         std::vector<std::string>{"--version"}));

TEST_F(SystemFailures, AFileThatIsMissingIsReported)
{
    EXPECT_EQ(run({"show", "none.xml"}), troubled("none.xml: No such file or directory"));
    EXPECT_EQ(run({"format", "none.xml"}), troubled("none.xml: No such file or directory"));
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

// The sanitizers' run-time library reserves more memory than any limit that means something here.
#ifndef SANITIZED

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

    for (const std::string command : {"show", "format"}) {
        const Outcome enough = run({command, "in.xml"});
        ASSERT_EQ(enough.status, 0);
        EXPECT_EQ(runWithin(least, {command, "in.xml"}), troubled("out of memory"));
        for (rlim_t megabytes = least;; ++megabytes) {
            const Outcome outcome = runWithin(megabytes, {command, "in.xml"});
            if (outcome == enough)
                break;
            ASSERT_EQ(outcome, troubled("out of memory")) << command << " within " << megabytes << " MiB";
        }
    }
}

#endif

} // namespace
