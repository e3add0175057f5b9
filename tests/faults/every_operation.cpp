// Every operation of the public headers runs out of memory at each of its allocations.

#include "faults/operations.h"
#include "faults/public_operations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

using testing::IsEmpty;

void tryAll(const std::vector<Operation>& operations)
{
    std::size_t total = 0;
    for (const Operation& operation : operations) {
        for (const Shortage shortage : {Shortage::Once, Shortage::Lasting}) {
            SCOPED_TRACE(operation.declaration);
            SCOPED_TRACE(shortage);
            const std::size_t failures = operation.failures(shortage);
            EXPECT_TRUE(failures > 0 || operation.memory != Memory::Needed) << "nothing to fail";
            EXPECT_TRUE(failures == 0 || operation.memory != Memory::NotNeeded) << "allocates";
            if (testing::Test::HasFailure())
                return;
            total += failures;
        }
    }
    report(total);
}

TEST(OutOfMemory, LeavesNoTraceInTheParser)
{
    tryAll(xmlOperations());
}

TEST(OutOfMemory, LeavesNoTraceInEnumerations)
{
    tryAll(enumOperations());
}

TEST(OutOfMemory, LeavesNoTraceInSelectors)
{
    tryAll(selectorOperations());
}

TEST(OutOfMemory, LeavesNoTraceInGroups)
{
    tryAll(groupOperations());
}

TEST(OutOfMemory, LeavesNoTraceInKeyingObjects)
{
    tryAll(keyingOperations());
}

TEST(OutOfMemory, LeavesNoTraceInActions)
{
    tryAll(actionOperations());
}

TEST(OutOfMemory, LeavesNoTraceInCollections)
{
    tryAll(collectionOperations());
}

TEST(OutOfMemory, LeavesNoTraceInConfigurations)
{
    tryAll(configOperations());
}

// The list of what is tried is held against the headers, so that an operation that is added to them is not forgotten.
TEST(OutOfMemory, IsTriedInEveryOperationOfThePublicHeaders)
{
    const std::vector<std::string> calls = firstCalls();
    std::set<std::string>          tried(calls.begin(), calls.end());
    std::size_t                    uses = calls.size();
    for (const auto& list : {xmlOperations(), enumOperations(), selectorOperations(), groupOperations(),
                             keyingOperations(), actionOperations(), collectionOperations(), configOperations()})
        for (const Operation& operation : list) {
            tried.insert(operation.declaration);
            ++uses;
        }

    std::size_t              count = 0;
    std::vector<std::string> forgotten;
    for (const char* const header : {"xml", "enums", "selectors", "actions", "config"}) {
        std::ifstream      file(std::string(HEADERS_DIR) + "/ipsecimpl/" + header + ".h");
        std::ostringstream text;
        text << file.rdbuf();
        for (const std::string& declaration : publicOperations(text.str())) {
            if (declaration.find('~') != std::string::npos)
                continue; // destructors are part of every try
            if (tried.count(declaration) == 0)
                forgotten.push_back(declaration);
            ++count;
        }
    }
    EXPECT_THAT(forgotten, IsEmpty());
    EXPECT_GT(count, 190U) << "the headers declare more than that";
    std::cout << "operations that are declared: " << count << ", uses of them that are tried: " << uses << '\n';
}

} // namespace
} // namespace ipsecimpl
