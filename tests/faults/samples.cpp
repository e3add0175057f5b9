// Loading and storing the example configurations, with memory short at each allocation.

#include "faults/objects.h"
#include "faults/operations.h"
#include "support/xml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace ipsecimpl {
namespace {

// Where short texts take no memory, as in libc++ up to 22 bytes, there is less that can fail.
#ifdef _LIBCPP_VERSION
const std::size_t LEAST_OF_A_LOAD = 45;
#else
const std::size_t LEAST_OF_A_LOAD = 50;
#endif

// The parser's own texts, beside what is kept.
const std::size_t LEAST_OF_A_LOAD_BYTE_FOR_BYTE = 50;

class SampleOutOfMemory : public ::testing::TestWithParam<const char*> {};

/// Loads `text` into a configuration that exists, from a stream on `Buffer`.
template <class Buffer>
std::size_t failEachLoad(const std::string& text, Shortage shortage)
{
    return failEachAllocation(
        configuration,
        [&text](IPsecConfig& config) {
            SourceOn<Buffer> source(text);
            config = IPsecConfig::importXML(source.parser);
        },
        shortage);
}

/// Loads `text` with memory short once, and for good. More than `least` failures are to be possible each time.
template <class Buffer>
void loadsWholeOrNotAtAll(const std::string& text, std::size_t least)
{
    std::size_t failures = 0;
    for (const Shortage shortage : {Shortage::Once, Shortage::Lasting}) {
        const std::size_t count = failEachLoad<Buffer>(text, shortage);
        EXPECT_GT(count, least) << shortage;
        failures += count;
    }
    report(failures);
}

TEST_P(SampleOutOfMemory, LoadsWholeOrNotAtAll)
{
    loadsWholeOrNotAtAll<std::stringbuf>(sample(GetParam()), LEAST_OF_A_LOAD);
}

TEST_P(SampleOutOfMemory, LoadsByteForByteWholeOrNotAtAll)
{
    loadsWholeOrNotAtAll<ByteBuffer>(sample(GetParam()), LEAST_OF_A_LOAD_BYTE_FOR_BYTE);
}

TEST_P(SampleOutOfMemory, IsStoredWholeOrTheStreamTellsOfIt)
{
    IPsecConfig config   = read<IPsecConfig>(sample(GetParam()));
    std::size_t failures = 0;
    for (const Shortage shortage : {Shortage::Once, Shortage::Lasting})
        for (const bool throws : {false, true})
            failures += failEachAllocationOfAStore(
                config, [](IPsecConfig& c, std::ostream& out) { c.exportXML(out); }, shortage, throws);
    EXPECT_GT(failures, 12U);
    report(failures);
}

INSTANTIATE_TEST_SUITE_P(Configs, SampleOutOfMemory, ::testing::Values("home-router", "branch-office", "server-farm"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

} // namespace
} // namespace ipsecimpl
