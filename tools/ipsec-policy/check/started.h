#ifndef IPSEC_POLICY_STARTED_H
#define IPSEC_POLICY_STARTED_H

#include <functional>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

/// Work that goes on at the same time as what follows, where it is worth a thread and there can be one; else it is done
/// when it is waited for. It is at its end when this is destroyed.
template <class Work>
class Started {
  public:
    using Result = decltype(std::declval<Work&>()());

    // Not std::async(): where there can be no thread, libc++'s waits for one for ever.
    Started(Work work, bool isWorthAThread)
        : task_(std::move(work))
        , result_(task_.get_future())
    {
        if (!isWorthAThread)
            return;
        try {
            thread_ = std::thread(std::ref(task_));
        } catch (const std::system_error&) { // no thread to be had
        }
    }

    Started(const Started&)            = delete;
    Started& operator=(const Started&) = delete;

    ~Started()
    {
        if (thread_.joinable())
            thread_.join();
    }

    /// The result, once. Throws what the work has thrown.
    Result get()
    {
        if (thread_.joinable())
            thread_.join();
        else
            task_();
        return result_.get();
    }

  private:
    std::packaged_task<Result()> task_;
    std::future<Result>          result_;
    std::thread                  thread_;
};

#endif
