#ifndef IPSECIMPL_TESTS_FAULTS_OUT_OF_MEMORY_H
#define IPSECIMPL_TESTS_FAULTS_OUT_OF_MEMORY_H

/// \file
/// What must hold when an operation runs out of memory: the failure is seen or the result is whole, nothing leaks, the
/// target is as it was, and the same operation succeeds afterwards.

#include "faults/failing_new.h"
#include "faults/targets.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <exception>
#include <iostream>
#include <new>
#include <optional>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

namespace ipsecimpl {

/// What a call comes to: a result, an exception that is its result, or running out of memory.
template <class Call, class T>
class Outcome {
  public:
    /// Allocates nothing by itself.
    void of(const Call& call, T& target)
    {
        try {
            if constexpr (std::is_void_v<Result>)
                call(target);
            else if constexpr (std::is_reference_v<Result>)
                reference_ = &call(target);
            else
                value_.emplace(call(target));
        } catch (const std::bad_alloc&) {
            isOutOfMemory_ = true;
        } catch (...) {
            error_ = std::current_exception();
        }
    }

    bool isOutOfMemory() const { return isOutOfMemory_; }

    /// The result or the exception.
    std::string text() const
    {
        try {
            if (error_)
                std::rethrow_exception(error_);
        } catch (const std::exception& error) {
            return std::string("throws: ") + error.what();
        }
        if constexpr (std::is_void_v<Result>)
            return "";
        else if constexpr (std::is_reference_v<Result>)
            return reference_ == nullptr ? "nothing" : shown(*reference_);
        else
            return value_ ? shown(*value_) : "nothing";
    }

  private:
    using Result = std::invoke_result_t<const Call&, T&>;
    using Object = std::remove_const_t<std::remove_reference_t<Result>>;

    bool                                                                    isOutOfMemory_ = false;
    std::exception_ptr                                                      error_;
    const Object*                                                           reference_ = nullptr;
    std::optional<std::conditional_t<std::is_void_v<Object>, bool, Object>> value_;
};

/// The outcome of one call and what the target is like afterwards.
template <class Call, class T>
std::string afterwards(const Call& call, T& target)
{
    Outcome<Call, T> outcome;
    outcome.of(call, target);
    const std::string text = outcome.text();
    return text + "\n" + shown(target);
}

/// Calls `call(target)` again and again, each time on a new target from `make()`, with the first, the second, the third
/// ... allocation failing, until none is left to fail. Returns the number of failures.
template <class Make, class Call>
std::size_t failEachAllocation(const Make& make, const Call& call, Shortage shortage)
{
    using T = std::invoke_result_t<const Make&>;

    const auto makeAndCall = [&] {
        auto target = make();
        return afterwards(call, target);
    };
    const std::string expected = makeAndCall();

    for (std::size_t n = 0;; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        const MemoryInUse before   = memoryInUse();
        bool              happened = false;
        {
            auto              target      = make();
            const std::string stateBefore = shown(target);
            const MemoryInUse untouched   = memoryInUse();
            Outcome<Call, T>  outcome;
            {
                const FailingAllocation failing(n, shortage);
                outcome.of(call, target);
                happened = failing.happened();
            }
            if (!outcome.isOutOfMemory()) {
                EXPECT_EQ(outcome.text() + "\n" + shown(target), expected) << "neither whole nor seen to fail";
            } else if (isSpentByFailure<T>) {
                EXPECT_EQ(makeAndCall(), expected);
            } else {
                EXPECT_EQ(memoryInUse(), untouched) << "left behind";
                EXPECT_EQ(shown(target), stateBefore) << "the target has changed";
                EXPECT_EQ(afterwards(call, target), expected) << "another time";
            }
            EXPECT_TRUE(happened || !outcome.isOutOfMemory()) << "memory was not short";
        }
        EXPECT_EQ(memoryInUse(), before) << "left behind when all is gone";
        if (!happened || testing::Test::HasFailure())
            return n;
    }
}

/// The same for what is written: by `write(object, out)`, where standard streams swallow the exception and become bad,
/// unless `out` is told to throw.
template <class T, class Write>
std::size_t failEachAllocationOfAStore(T& object, const Write& write, Shortage shortage, bool throws)
{
    const std::string state = shown(object);
    std::string       whole;
    {
        std::ostringstream out;
        write(object, out);
        whole = out.str();
    }

    for (std::size_t n = 0;; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        const MemoryInUse before   = memoryInUse();
        bool              happened = false;
        bool              seen     = false;
        {
            std::ostringstream out;
            if (throws)
                out.exceptions(std::ios_base::badbit);
            {
                const FailingAllocation failing(n, shortage);
                try {
                    write(object, out);
                } catch (const std::bad_alloc&) {
                    seen = true;
                } catch (const std::ios_base::failure&) { // where the buffer swallows it already
                    seen = true;
                }
                happened = failing.happened();
            }
            EXPECT_EQ(out.bad(), happened);
            EXPECT_EQ(seen, happened && throws);
            EXPECT_EQ(whole.compare(0, out.str().size(), out.str()), 0) << out.str();
            EXPECT_EQ(out.str().size() == whole.size(), !happened) << out.str();
        }
        EXPECT_EQ(memoryInUse(), before) << "left behind";
        EXPECT_EQ(shown(object), state) << "the object has changed";
        if (!happened || testing::Test::HasFailure())
            return n;
    }
}

/// Prints how many failures a test has injected, for whoever collects the figures.
inline void report(std::size_t failures)
{
    testing::Test::RecordProperty("failures", std::to_string(failures));
    std::cout << "allocations that failed: " << failures << '\n';
}

} // namespace ipsecimpl

#endif
