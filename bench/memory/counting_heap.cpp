#include "counting_heap.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace {

bench::Heap now{}; // the programs have one thread

} // namespace

namespace bench {

Heap heap()
{
    return now;
}

void resetPeak()
{
    now.peak = now.bytes;
}

} // namespace bench

// The library's containers and strings all end here: the other forms of new and delete call these.

void* operator new(std::size_t size)
{
    void* const block = std::malloc(std::max<std::size_t>(size, 1));
    if (block == nullptr)
        throw std::bad_alloc();
    const std::size_t usable = malloc_usable_size(block);
    ++now.blocks;
    now.total += usable;
    now.bytes += usable;
    now.peak = std::max(now.peak, now.bytes);
    return block;
}

void operator delete(void* block) noexcept
{
    if (block != nullptr)
        now.bytes -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    operator delete(block);
}
