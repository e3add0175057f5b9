// Threads may race for the first call of the functions of built-in objects. This is a program of its own, so that the
// calls below are the first ones; it is the thread sanitizer that looks closest (scripts/tsan).

#include "support/contents.h"
#include "threads/at_once.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

/// A call, the object that it came to, and what that held right then.
struct Made {
    const void* object = nullptr;
    std::string contents;
};

template <class T, T& (*function)()>
Made call()
{
    const T& object = function();
    return {&object, contentsOf(object)};
}

using Function = Made (*)();

const std::array<Function, 13> functions = {
    call<HostGroup, HostGroupAny>,         call<HostGroup, HostGroupLocal>,          call<HostGroup, HostGroupAnyv4>,
    call<HostGroup, HostGroupLocalv4>,     call<HostGroup, HostGroupAnyv6>,          call<HostGroup, HostGroupLocalv6>,
    call<HostGroup, HostGroupMcast>,       call<HostGroup, HostGroupMcastv4>,        call<HostGroup, HostGroupMcastv6>,
    call<ProtocolGroup, ProtocolGroupAll>, call<ProtocolGroup, ProtocolGroupSystem>, call<IPsecAction, ActionDiscard>,
    call<IPsecAction, ActionBypass>,
};

// Half of the threads call them in order, so that they meet at each; the others begin at another one each.
TEST(FirstCalls, MayBeRacedForAndComeToOneWholeObjectEach)
{
    using All                    = std::array<Made, functions.size()>;
    const std::size_t      count = 16;
    const std::vector<All> all   = atOnce<All>(count, [](std::size_t thread) {
        All made;
        for (std::size_t i = 0; i < functions.size(); ++i) {
            const std::size_t which = (i + (thread < count / 2 ? 0 : thread)) % functions.size();
            made[which]             = functions[which]();
        }
        return made;
    });

    for (std::size_t which = 0; which < functions.size(); ++which) {
        const Made now = functions[which]();
        for (const All& made : all) {
            EXPECT_EQ(made[which].object, now.object);
            EXPECT_EQ(made[which].contents, now.contents);
        }
    }
}

// What the header warns of. scripts/tsan runs this to see that the thread sanitizer finds what there is to find.
TEST(FirstCalls, DISABLED_MustNotBeRacedForWhereEachCallChangesTheObject)
{
    atOnce<Made>(2, [](std::size_t) { return call<IKEPhase1Proposal, IKEPhase1ProposalDefault>(); });
}

} // namespace
} // namespace ipsecimpl
