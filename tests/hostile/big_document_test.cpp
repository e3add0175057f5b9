// Large documents of which next to nothing is kept. `scripts/big-document` reads some of 2 GB.

#include "hostile/big_buffers.h"
#include "hostile/growth_cases.h"

#include "memory/counting_heap.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>

namespace ipsecimpl {
namespace {

constexpr std::uint64_t large = 10'000'000; // enough to tell, and read soon in an emulator, too

std::string written(IPsecConfig config)
{
    std::ostringstream out;
    config.exportXML(out);
    return out.str();
}

IPsecConfig load(std::streambuf& buffer)
{
    std::istream in(&buffer);
    XMLParser    parser(in);
    return IPsecConfig::importXML(parser);
}

// The most for a document of any size: a few texts, and the blocks of a deque, which are of 4 kB in libc++.
#ifdef _LIBCPP_VERSION
constexpr std::size_t SMALL = 8'000;
#else
constexpr std::size_t SMALL = 2'000;
#endif

/// The heap that `read` takes at most, beside what is there before.
template <class Read>
std::size_t peakOf(const Read& read)
{
    bench::resetPeak();
    const std::size_t before = bench::heap().bytes;
    read();
    return bench::heap().peak - before;
}

TEST(BigDocument, IsLoadedInTheMemoryOfASmallOne)
{
    const auto peak = [](std::uint64_t size) {
        GeneratedBuffer buffer(bigConfig(size));
        const auto      most = peakOf([&] { EXPECT_EQ(load(buffer).policies.nextIDGet(), 9U); });
        EXPECT_GE(buffer.made(), size);
        return most;
    };
    const std::size_t small = peak(10'000);
    EXPECT_LE(peak(large), small + 100); // where pieces end may make a difference
    EXPECT_LE(small, SMALL);
}

TEST(BigDocument, LoadsAsWhatItHolds)
{
    GeneratedBuffer buffer(bigConfig(1'000'000));
    EXPECT_EQ(written(load(buffer)), bigConfigWritten());
}

TEST(BigDocument, IsWalkedThroughInTheMemoryOfASmallOne)
{
    const auto peak = [](std::uint64_t size) {
        GeneratedBuffer buffer(bigElements(size));
        std::istream    in(&buffer);
        const auto      most = peakOf([&] { readAnything(in); });
        EXPECT_GE(buffer.made(), size);
        EXPECT_TRUE(in.good());
        return most;
    };
    const std::size_t small = peak(10'000);
    EXPECT_LE(peak(large), small + 100); // where pieces end may make a difference
    EXPECT_LE(small, SMALL);
}

TEST(BigDocument, HeldReadyInOnePieceOfMoreThan2GBIsReadWhole)
{
    constexpr std::uint64_t size = 2'200'000'000; // more than an int can tell
    if (size > std::numeric_limits<std::size_t>::max() / 2)
        GTEST_SKIP() << "there is no room for it";
    const std::string head = "<hostGroup>\n<name>n</name>\n<builtinName>-7";
    OnePieceBuffer    buffer(
           head, 'x', size,
           "</builtinName>\n<descr>d</descr>\n<builtinDescr>8</builtinDescr>\n<selectors/>\n</hostGroup>the rest");
    std::istream    in(&buffer);
    XMLParser       parser(in);
    const HostGroup group = HostGroup::importXML(parser);
    EXPECT_EQ(group.name, "n");
    EXPECT_EQ(group.builtinName, -7);
    EXPECT_EQ(group.descr, "d");
    EXPECT_EQ(group.builtinDescr, 8);
    std::string rest;
    std::getline(in, rest);
    EXPECT_EQ(rest, "the rest");
}

} // namespace
} // namespace ipsecimpl
