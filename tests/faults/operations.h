#ifndef IPSECIMPL_TESTS_FAULTS_OPERATIONS_H
#define IPSECIMPL_TESTS_FAULTS_OPERATIONS_H

/// \file
/// Every operation of the public headers, with an example of its use to run out of memory in.

#include "faults/out_of_memory.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace ipsecimpl {

/// Whether an operation allocates. Some do so with one standard library and not with another.
enum class Memory { Needed, NotNeeded, PerhapsNeeded };

/// One use of one operation.
struct Operation {
    std::string                          declaration; ///< as publicOperations() gives it; more in [] is our own
    Memory                               memory;      ///< whether there is something to fail
    std::function<std::size_t(Shortage)> failures;    ///< tries it; the number of allocations that failed
};

/// The operations of one class.
class Operations {
  public:
    explicit Operations(std::string className)
        : className_(std::move(className))
    {
    }

    /// `call(target)` on what `make()` makes. It allocates.
    template <class Make, class Call>
    Operations& fails(const std::string& declaration, Make make, Call call)
    {
        return add(declaration, Memory::Needed,
                   [make, call](Shortage shortage) { return failEachAllocation(make, call, shortage); });
    }

    /// The same where no memory is needed, so that shortage does not matter.
    template <class Make, class Call>
    Operations& cannotFail(const std::string& declaration, Make make, Call call)
    {
        return add(declaration, Memory::NotNeeded,
                   [make, call](Shortage shortage) { return failEachAllocation(make, call, shortage); });
    }

    /// The same where that is the standard library's affair.
    template <class Make, class Call>
    Operations& mayFail(const std::string& declaration, Make make, Call call)
    {
        return add(declaration, Memory::PerhapsNeeded,
                   [make, call](Shortage shortage) { return failEachAllocation(make, call, shortage); });
    }

    /// `T::importXML` of `text`, at hand and byte by byte. It may also be text that is refused.
    template <class T>
    Operations& reads(const std::string& declaration, const std::string& text)
    {
        const auto read = [](auto& source) { return T::importXML(source.parser); };
        return add(declaration, Memory::Needed, [read, text](Shortage shortage) {
            return failEachAllocation([&] { return Source(text); }, read, shortage) +
                   failEachAllocation([&] { return ByteSource(text); }, read, shortage);
        });
    }

    /// `write(object, out)` of what `make()` makes.
    template <class Make, class Write>
    Operations& stores(const std::string& declaration, Make make, Write write)
    {
        return add(declaration, Memory::Needed, [make, write](Shortage shortage) {
            auto object = make();
            return failEachAllocationOfAStore(object, write, shortage, false) +
                   failEachAllocationOfAStore(object, write, shortage, true);
        });
    }

    const std::vector<Operation>& all() const { return all_; }

  private:
    Operations& add(const std::string& declaration, Memory memory, std::function<std::size_t(Shortage)> failures)
    {
        all_.push_back({className_ + declaration, memory, std::move(failures)});
        return *this;
    }

    std::string            className_;
    std::vector<Operation> all_;
};

inline std::vector<Operation> joined(const std::vector<std::vector<Operation>>& lists)
{
    std::vector<Operation> all;
    for (const std::vector<Operation>& list : lists)
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

std::vector<Operation> xmlOperations();
std::vector<Operation> enumOperations();
std::vector<Operation> selectorOperations();
std::vector<Operation> groupOperations();
std::vector<Operation> keyingOperations();
std::vector<Operation> actionOperations();
std::vector<Operation> collectionOperations();
std::vector<Operation> configOperations();

/// The functions whose first calls are tried.
std::vector<std::string> firstCalls();

} // namespace ipsecimpl

#endif
