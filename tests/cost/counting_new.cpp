#include "cost/counting_new.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t count = 0;

} // namespace

std::size_t ipsecimpl::blocksAllocated()
{
    return count;
}

void* operator new(std::size_t size)
{
    ++count;
    if (void* const block = std::malloc(size))
        return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}
