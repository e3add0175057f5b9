#include "huge_pages.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include <malloc.h>
#include <sys/mman.h>

namespace {

const std::size_t PAGE = 2 * 1024 * 1024;

/// The greatest block that malloc() can be made to take from the heap instead of mapping it alone.
const std::size_t GREATEST_BLOCK = 32 * 1024 * 1024;

void useHugePages(const void* memory, std::size_t size)
{
    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const auto begin   = (address + PAGE - 1) / PAGE * PAGE;
    const auto end     = (address + size) / PAGE * PAGE;
    if (begin < end)
        static_cast<void>(madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE));
}

} // namespace

void useHugePages(const std::string& text)
{
    useHugePages(text.data(), text.capacity());
}

void useHugePagesForHeap(std::size_t size)
{
#ifdef __GLIBC__
    // A block that is given back at once, but stays in the heap: what is allocated next is taken from it.
    const std::size_t block = std::min(size, GREATEST_BLOCK - PAGE);
    if (block < PAGE || mallopt(M_MMAP_THRESHOLD, GREATEST_BLOCK) == 0 ||
        mallopt(M_TRIM_THRESHOLD, 2 * GREATEST_BLOCK) == 0)
        return;
    if (void* const memory = std::malloc(block)) {
        useHugePages(memory, block);
        std::free(memory);
    }
#else
    static_cast<void>(size);
#endif
}
