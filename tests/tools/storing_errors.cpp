// Every system call on the way of a document into its file is made to fail, or to be interrupted by a signal.

#include "storing_operations.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace {

/// Whether it is one line that names a file, or what else was to be read, and the error.
bool tells(const std::string& message, int error)
{
    const std::string end = std::string(": ") + std::strerror(error) + "\n";
    if (message.size() < end.size() || message.substr(message.size() - end.size()) != end ||
        std::count(message.begin(), message.end(), '\n') != 1)
        return false;
    for (const char* name : {"policy.xml", "link.xml", "in.xml", "policy.xml~", "standard input", "random numbers"})
        if (message.rfind(std::string("ipsec-policy: ") + name + ':', 0) == 0)
            return true;
    return false;
}

/// Calls whose failure need not be told: what was written is already safe when the file is closed, a label that cannot
/// be compared is set, and the others cannot fail.
const std::set<std::string> HARMLESS = {"close",     "fgetxattr",    "getpid",         "gettid",
                                        "exit_group", "rt_sigaction", "rt_sigprocmask"};

/// The C library draws a number for its heap, too, but does not wait for it, and can do without.
bool isHarmless(const SystemCall& call)
{
    return HARMLESS.count(call.name) != 0 ||
           (call.name == "getrandom" && call.shown.find("GRND_NONBLOCK") != std::string::npos);
}

class StoringErrors : public StoringFaults {
  protected:
    void expectEachTold(const std::string& name, int error) const
    {
        forEachCall("error=" + name, [this, error](const SystemCall& call, const Outcome& outcome) {
            expectOldOrNewAlone();
            if (isHarmless(call) && outcome == printed("")) {
                expectNew();
                return;
            }
            EXPECT_EQ(outcome.status, 2) << outcome;
            EXPECT_TRUE(tells(outcome.err, error)) << outcome;
            EXPECT_EQ(isNew(),
                      outcome.err.find(": it is stored, but a power failure may undo it: ") != std::string::npos);
        });
    }
};

TEST_P(StoringErrors, AFullDiskIsToldAndNothingIsTouched)
{
    expectEachTold("ENOSPC", ENOSPC);
}

TEST_P(StoringErrors, AnErrorOfTheDeviceIsToldAndNothingIsTouched)
{
    expectEachTold("EIO", EIO);
}

TEST_P(StoringErrors, ASignalInBetweenChangesNothing)
{
    forEachCall("error=EINTR", [this](const SystemCall&, const Outcome& outcome) {
        EXPECT_EQ(outcome, printed(""));
        expectNew();
    });
}

/// How many calls have that name.
std::ptrdiff_t countOf(const std::string& name, const std::vector<SystemCall>& calls)
{
    return std::count_if(calls.begin(), calls.end(), [&](const SystemCall& call) { return call.name == name; });
}

TEST_P(StoringErrors, CloseIsNotCalledAgainAfterASignalButFsyncIs)
{
    for (const std::string name : {"close", "fsync"}) {
        prepare();
        const auto first =
            std::find_if(calls().begin(), calls().end(), [&](const auto& call) { return call.name == name; });
        ASSERT_NE(first, calls().end());
        const auto after = systemCallsOf(
            GetParam().traced, {"-e", "inject=" + name + ":error=EINTR:when=" + std::to_string(first->number)});
        EXPECT_EQ(countOf(name, after), countOf(name, calls()) + (name == "fsync" ? 1 : 0));
    }
}

TEST_P(StoringErrors, WritesThatDoNotArriveAreToldAndNothingIsTouched)
{
    const auto isNoWrite = [](const SystemCall& call) { return call.name.find("write") == std::string::npos; };
    calls().erase(std::remove_if(calls().begin(), calls().end(), isNoWrite), calls().end());
    ASSERT_FALSE(calls().empty());
    for (const std::string fault : {"retval=1", "retval=0"}) {
        forEachCall(fault, [&](const SystemCall&, const Outcome& outcome) {
            EXPECT_EQ(outcome.status, 2) << outcome;
            const std::string why =
                fault == "retval=0" ? "No space left on device" : "the file system does not give back what was written";
            EXPECT_THAT(outcome.err, testing::MatchesRegex(".*[.]xml~?: " + why + "\n"));
            EXPECT_TRUE(isOld());
            expectOldOrNewAlone();
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Storing, StoringErrors, testing::ValuesIn(storingOperations()));

} // namespace
