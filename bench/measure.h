#ifndef IPSECIMPL_BENCH_MEASURE_H
#define IPSECIMPL_BENCH_MEASURE_H

#include <vector>

namespace bench {

/// The time that this thread has been at work, in milliseconds. On a machine with other work to do it differs from the
/// time of day. What the kernel does for the thread, such as giving it fresh pages, is part of it.
double threadTime();

/// Gives the free pages of the heap back, so that what is measured next begins as in a fresh process, whatever was
/// measured before it.
void freshHeap();

/// Milliseconds that `work` takes, from a fresh heap.
template <class Work>
double milliseconds(Work work)
{
    freshHeap();
    const double start = threadTime();
    work();
    return threadTime() - start;
}

/// The middle value, or of an even number the mean of the two. There must be one.
double median(std::vector<double> values);

} // namespace bench

#endif
