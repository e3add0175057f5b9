#include "measure.h"

#include <algorithm>
#include <cstddef>

#include <malloc.h>
#include <time.h>

namespace bench {

double threadTime()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

void freshHeap()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

} // namespace bench
