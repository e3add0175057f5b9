// The operator new that the tests here stand on: each of its forms fails when it is told to, and is counted.

#include "faults/failing_new.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <new>

// Not every compiler declares these by itself.
void operator delete(void* block, std::size_t size) noexcept;
void operator delete[](void* block, std::size_t size) noexcept;
void operator delete(void* block, std::size_t size, std::align_val_t alignment) noexcept;
void operator delete[](void* block, std::size_t size, std::align_val_t alignment) noexcept;

namespace ipsecimpl {
namespace {

constexpr std::align_val_t ALIGNMENT{256};

struct Form {
    const char* name;
    void* (*allocate)(std::size_t size);
    void (*release)(void* block);
    bool throws;
    bool aligns;
};

// clang-format off
const Form forms[] = {
    {"new",              [](std::size_t n) { return operator new(n); },
                         [](void* b) { operator delete(b); }, true, false},
    {"new, sized",       [](std::size_t n) { return operator new(n); },
                         [](void* b) { operator delete(b, std::size_t{1}); }, true, false},
    {"new[]",            [](std::size_t n) { return operator new[](n); },
                         [](void* b) { operator delete[](b); }, true, false},
    {"new[], sized",     [](std::size_t n) { return operator new[](n); },
                         [](void* b) { operator delete[](b, std::size_t{1}); }, true, false},
    {"nothrow",          [](std::size_t n) { return operator new(n, std::nothrow); },
                         [](void* b) { operator delete(b, std::nothrow); }, false, false},
    {"nothrow[]",        [](std::size_t n) { return operator new[](n, std::nothrow); },
                         [](void* b) { operator delete[](b, std::nothrow); }, false, false},
    {"aligned",          [](std::size_t n) { return operator new(n, ALIGNMENT); },
                         [](void* b) { operator delete(b, ALIGNMENT); }, true, true},
    {"aligned, sized",   [](std::size_t n) { return operator new(n, ALIGNMENT); },
                         [](void* b) { operator delete(b, std::size_t{1}, ALIGNMENT); }, true, true},
    {"aligned[]",        [](std::size_t n) { return operator new[](n, ALIGNMENT); },
                         [](void* b) { operator delete[](b, ALIGNMENT); }, true, true},
    {"aligned[], sized", [](std::size_t n) { return operator new[](n, ALIGNMENT); },
                         [](void* b) { operator delete[](b, std::size_t{1}, ALIGNMENT); }, true, true},
    {"aligned nothrow",  [](std::size_t n) { return operator new(n, ALIGNMENT, std::nothrow); },
                         [](void* b) { operator delete(b, ALIGNMENT, std::nothrow); }, false, true},
    {"aligned nothrow[]", [](std::size_t n) { return operator new[](n, ALIGNMENT, std::nothrow); },
                         [](void* b) { operator delete[](b, ALIGNMENT, std::nothrow); }, false, true},
};
// clang-format on

/// That an allocation which is to fail does so as its form says it does.
bool fails(const Form& form)
{
    const FailingAllocation first(0, Shortage::Once);
    try {
        return form.allocate(1) == nullptr && !form.throws && first.happened();
    } catch (const std::bad_alloc&) {
        return form.throws && first.happened();
    }
}

TEST(FailingNew, FailsInEachForm)
{
    for (const Form& form : forms) {
        const MemoryInUse before = memoryInUse();
        EXPECT_TRUE(fails(form)) << form.name;
        EXPECT_EQ(memoryInUse(), before) << form.name;
    }
}

TEST(FailingNew, CountsEachForm)
{
    for (const Form& form : forms) {
        const MemoryInUse before = memoryInUse();
        void* const       block  = form.allocate(1);
        EXPECT_EQ(memoryInUse().blocks, before.blocks + 1) << form.name;
        EXPECT_GT(memoryInUse().bytes, before.bytes) << form.name;
        form.release(block);
        EXPECT_EQ(memoryInUse(), before) << form.name;
    }
}

TEST(FailingNew, Aligns)
{
    for (const Form& form : forms) {
        if (!form.aligns)
            continue;
        void* const block = form.allocate(1);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % static_cast<std::size_t>(ALIGNMENT), 0U) << form.name;
        form.release(block);
    }
}

} // namespace
} // namespace ipsecimpl
