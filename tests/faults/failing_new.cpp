#include "faults/failing_new.h"

#include <cstdlib>
#include <new>

namespace {

const std::size_t NEVER = static_cast<std::size_t>(-1);

std::size_t inUse     = 0;
std::size_t successes = NEVER;
bool        failed    = false;

} // namespace

ipsecimpl::FailingAllocation::FailingAllocation(std::size_t firstSuccesses)
{
    successes = firstSuccesses;
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

std::size_t ipsecimpl::blocksInUse()
{
    return inUse;
}

void* operator new(std::size_t size)
{
    if (successes == 0 && !failed) {
        failed = true;
        throw std::bad_alloc();
    }
    if (successes != NEVER && successes > 0)
        --successes;
    void* const block = std::malloc(size);
    if (block == nullptr)
        throw std::bad_alloc();
    ++inUse;
    return block;
}

void operator delete(void* block) noexcept
{
    if (block != nullptr)
        --inUse;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}
