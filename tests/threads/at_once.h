#ifndef IPSECIMPL_TESTS_THREADS_AT_ONCE_H
#define IPSECIMPL_TESTS_THREADS_AT_ONCE_H

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>
#include <vector>

namespace ipsecimpl {

/// What `work(i)` returns for each `i` below `count`, each called by a thread of its own. No thread begins before all
/// are there.
template <class Result, class Work>
std::vector<Result> atOnce(std::size_t count, const Work& work)
{
    std::mutex              mutex;
    std::condition_variable allThere;
    std::size_t             missing = count;
    std::vector<Result>     results(count);

    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < count; ++i)
        threads.emplace_back([&, i] {
            {
                std::unique_lock<std::mutex> lock(mutex);
                if (--missing == 0)
                    allThere.notify_all();
                allThere.wait(lock, [&] { return missing == 0; });
            }
            results[i] = work(i);
        });
    for (std::thread& thread : threads)
        thread.join();
    return results;
}

} // namespace ipsecimpl

#endif
