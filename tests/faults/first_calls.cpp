// Built-in objects are made at the first call of their function. If memory is short then, there is none, and the next
// call makes it. A call can only once be the first, so each try is a process of its own.

#include "faults/operations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ipsecimpl {
namespace {

/// What `work()` returns in a new process.
std::string inNewProcess(const std::function<std::string()>& work)
{
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    EXPECT_GE(child, 0);
    if (child == 0) {
        const std::string text = work();
        const bool        sent = write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
        _exit(sent ? 0 : 1);
    }
    close(ends[1]);
    std::string text;
    char        piece[4096];
    for (ssize_t size = 0; (size = read(ends[0], piece, sizeof piece)) > 0;)
        text.append(piece, static_cast<std::size_t>(size));
    close(ends[0]);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "the process did not end as it should";
    return text;
}

/// The first call in a new process, with memory short at allocation `n`, and a second one if that failed. The text says
/// what happened, and then what the object holds.
template <class T>
std::string firstCall(T& (*function)(), std::size_t n, Shortage shortage)
{
    return inNewProcess([&] {
        T*                object   = nullptr;
        bool              happened = false;
        const MemoryInUse before   = memoryInUse();
        {
            const FailingAllocation failing(n, shortage);
            try {
                object = &function();
            } catch (const std::bad_alloc&) {
            }
            happened = failing.happened();
        }
        if (!happened)
            return "succeeded\n" + contentsOf(*object);
        if (object != nullptr)
            return std::string("hid its failure");
        if (!(memoryInUse() == before))
            return std::string("left memory behind");
        return "failed\n" + contentsOf(function());
    });
}

template <class T>
std::size_t failEachFirstCall(T& (*function)())
{
    const std::string contents = inNewProcess([&] { return contentsOf(function()); });
    EXPECT_NE(contents, "");

    std::size_t failures = 0;
    for (const Shortage shortage : {Shortage::Once, Shortage::Lasting})
        for (std::size_t n = 0; !testing::Test::HasFailure(); ++n, ++failures) {
            const std::string outcome = firstCall(function, n, shortage);
            if (outcome == "succeeded\n" + contents)
                break;
            EXPECT_EQ(outcome, "failed\n" + contents) << "allocation " << n << ", " << shortage;
        }
    return failures;
}

struct Function {
    const char*                  declaration;
    std::function<std::size_t()> failures;
};

template <class T>
Function named(const char* declaration, T& (*function)())
{
    return {declaration, [function] { return failEachFirstCall(function); }};
}

const std::vector<Function>& functions()
{
    static const std::vector<Function> all = {
        named("HostGroupAny()", HostGroupAny),
        named("HostGroupLocal()", HostGroupLocal),
        named("HostGroupAnyv4()", HostGroupAnyv4),
        named("HostGroupLocalv4()", HostGroupLocalv4),
        named("HostGroupAnyv6()", HostGroupAnyv6),
        named("HostGroupLocalv6()", HostGroupLocalv6),
        named("HostGroupMcast()", HostGroupMcast),
        named("HostGroupMcastv4()", HostGroupMcastv4),
        named("HostGroupMcastv6()", HostGroupMcastv6),
        named("ProtocolGroupAll()", ProtocolGroupAll),
        named("ProtocolGroupSystem()", ProtocolGroupSystem),
        named("ActionDiscard()", ActionDiscard),
        named("ActionBypass()", ActionBypass),
        named("IKEPhase1ProposalDefault()", IKEPhase1ProposalDefault),
    };
    return all;
}

TEST(OutOfMemory, LetsTheFirstCallForABuiltInObjectBeRepeated)
{
    std::size_t total = 0;
    for (const Function& function : functions()) {
        SCOPED_TRACE(function.declaration);
        const std::size_t failures = function.failures();
        EXPECT_GT(failures, 0U) << "nothing to fail";
        total += failures;
    }
    report(total);
}

// Each call adds to it, unlike those of the others.
TEST(OutOfMemory, LeavesTheDefaultProposalAsTheCallBeforeMadeIt)
{
    const auto  count = [] { return IKEPhase1ProposalDefault().transforms.size(); };
    std::size_t total = 0;
    for (const Shortage shortage : {Shortage::Once, Shortage::Lasting}) {
        const std::size_t before = count();
        for (std::size_t n = 0;; ++n, ++total) {
            const FailingAllocation failing(n, shortage);
            try {
                IKEPhase1ProposalDefault();
                EXPECT_FALSE(failing.happened());
                break;
            } catch (const std::bad_alloc&) {
            }
            ASSERT_TRUE(failing.happened());
        }
        EXPECT_EQ(count(), before + 4) << "two by the call that succeeded, two by counting";
    }
    EXPECT_GT(total, 0U);
    report(total);
}

} // namespace

std::vector<std::string> firstCalls()
{
    std::vector<std::string> declarations;
    for (const Function& function : functions())
        declarations.emplace_back(function.declaration);
    return declarations;
}

} // namespace ipsecimpl
