#include "huge_pages.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <malloc.h>
#include <sys/mman.h>

namespace {

const std::size_t PAGE = std::size_t{2} * 1024 * 1024;

/// The greatest block that malloc() can be made to take from the heap instead of mapping it alone.
const std::size_t GREATEST_BLOCK = std::size_t{32} * 1024 * 1024;

void useHugePages(void* memory, std::size_t size)
{
    if (std::align(PAGE, PAGE, memory, size) != nullptr)
        static_cast<void>(madvise(memory, size / PAGE * PAGE, MADV_HUGEPAGE));
}

} // namespace

void useHugePages(std::string& text)
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
