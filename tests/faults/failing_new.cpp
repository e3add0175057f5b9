#include "faults/failing_new.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

#include <malloc.h>

namespace {

const std::size_t NEVER = static_cast<std::size_t>(-1);

ipsecimpl::MemoryInUse inUse     = {0, 0};
std::size_t            peakBytes = 0;
std::size_t            successes = NEVER; // that are left
ipsecimpl::Shortage    kind      = ipsecimpl::Shortage::Once;
bool                   failed    = false;

bool isToFail()
{
    if (successes == NEVER)
        return false;
    if (successes > 0) {
        --successes;
        return false;
    }
    if (kind == ipsecimpl::Shortage::Once)
        successes = NEVER;
    failed = true;
    return true;
}

// Counts `block`, which may be none, and returns it.
void* counted(void* block) noexcept
{
    if (block != nullptr) {
        ++inUse.blocks;
        inUse.bytes += malloc_usable_size(block);
        peakBytes = std::max(peakBytes, inUse.bytes);
    }
    return block;
}

void* allocate(std::size_t size) noexcept
{
    return counted(isToFail() ? nullptr : std::malloc(size));
}

void* allocate(std::size_t size, std::align_val_t alignment) noexcept
{
    void* block = nullptr;
    if (isToFail() || posix_memalign(&block, static_cast<std::size_t>(alignment), size) != 0)
        return nullptr;
    return counted(block);
}

void release(void* block) noexcept
{
    if (block == nullptr)
        return;
    --inUse.blocks;
    inUse.bytes -= malloc_usable_size(block);
    std::free(block);
}

void* require(void* block)
{
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

} // namespace

ipsecimpl::FailingAllocation::FailingAllocation(std::size_t firstSuccesses, Shortage shortage)
{
    successes = firstSuccesses;
    kind      = shortage;
    failed    = false;
}

ipsecimpl::FailingAllocation::~FailingAllocation()
{
    successes = NEVER;
}

bool ipsecimpl::FailingAllocation::happened() const
{
    return failed;
}

ipsecimpl::MemoryInUse ipsecimpl::memoryInUse()
{
    return inUse;
}

std::size_t ipsecimpl::takePeakBytes()
{
    return std::exchange(peakBytes, inUse.bytes);
}

std::ostream& ipsecimpl::operator<<(std::ostream& out, const MemoryInUse& memory)
{
    return out << memory.blocks << " blocks of " << memory.bytes << " bytes";
}

std::ostream& ipsecimpl::operator<<(std::ostream& out, Shortage shortage)
{
    return out << (shortage == Shortage::Once ? "once" : "lasting");
}

// All forms, so that nothing is allocated past the count.

// clang-format off
void* operator new(std::size_t size)                                   { return require(allocate(size)); }
void* operator new[](std::size_t size)                                 { return require(allocate(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept   { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }

void* operator new(std::size_t size, std::align_val_t alignment)                                   { return require(allocate(size, alignment)); }
void* operator new[](std::size_t size, std::align_val_t alignment)                                 { return require(allocate(size, alignment)); }
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept   { return allocate(size, alignment); }
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept { return allocate(size, alignment); }

void operator delete(void* block) noexcept                             { release(block); }
void operator delete[](void* block) noexcept                           { release(block); }
void operator delete(void* block, std::size_t) noexcept                { release(block); }
void operator delete[](void* block, std::size_t) noexcept              { release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept      { release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept    { release(block); }

void operator delete(void* block, std::align_val_t) noexcept                          { release(block); }
void operator delete[](void* block, std::align_val_t) noexcept                        { release(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept             { release(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept           { release(block); }
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept   { release(block); }
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept { release(block); }
// clang-format on
