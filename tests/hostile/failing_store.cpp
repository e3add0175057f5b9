// Stores into sinks that fail or throw, at every byte and every flush.
//
// What a sink has taken is the beginning of the whole document, up to the byte where it failed and no further. The
// stream tells of it: it is bad, and throws if its exception mask asks for that. The configuration is written as before
// when it is stored again.

#include "hostile/faulty_sinks.h"
#include "hostile/small_documents.h"
#include "hostile/sweep.h"

#include "support/samples.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <ios>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

enum class Seen { Nothing, StreamFailure, BufferFault };

/// What storing into `out` under `mask` throws. The stream is bad unless all was taken, and is returned.
Seen storeInto(std::ostream& out, IPsecConfig& config, std::ios_base::iostate mask, bool whole)
{
    out.exceptions(mask);
    Seen seen = Seen::Nothing;
    try {
        EXPECT_EQ(&config.exportXML(out), &out);
    } catch (const BufferFault&) {
        seen = Seen::BufferFault;
    } catch (const std::ios_base::failure&) {
        seen = Seen::StreamFailure;
    }
    EXPECT_EQ(out.bad(), !whole);
    return seen;
}

Seen storeInto(std::streambuf& sink, IPsecConfig& config, std::ios_base::iostate mask, bool whole)
{
    std::ostream out(&sink);
    return storeInto(out, config, mask, whole);
}

class FailingStore : public ::testing::TestWithParam<std::string> {
  protected:
    FailingStore()
        : text(sampleText(GetParam()))
        , config(read<IPsecConfig>(text))
    {
    }

    ~FailingStore() override { EXPECT_EQ(written(config), text); }

    std::string text;
    IPsecConfig config;
};

INSTANTIATE_TEST_SUITE_P(Configs, FailingStore, ::testing::ValuesIn(sampleNames()),
                         [](const auto& sample) { return testName(sample.param); });

TEST_P(FailingStore, StopsAtTheByteThatTheSinkDoesNotTakeAndTheStreamIsBad)
{
    std::size_t cases = 0;
    for (const std::size_t capacity : places(0, text.size(), 211)) {
        const bool whole = capacity == text.size();
        for (const bool inPieces : {false, true}) {
            for (const Fault fault : {Fault::Refuses, Fault::Throws}) {
                for (const std::ios_base::iostate mask : {std::ios_base::goodbit, std::ios_base::badbit}) {
                    LimitedSink sink(capacity, fault, inPieces);
                    const Seen  seen  = storeInto(sink, config, mask, whole);
                    const Seen  asked = fault == Fault::Throws ? Seen::BufferFault : Seen::StreamFailure;
                    ASSERT_EQ(seen, whole || mask == std::ios_base::goodbit ? Seen::Nothing : asked) << capacity;
                    ASSERT_EQ(sink.taken(), text.substr(0, capacity));
                    ++cases;
                }
            }
        }
    }
    reportCases(cases);
}

TEST_P(FailingStore, StopsAtTheLineThatTheSinkDoesNotFlushAndTheStreamIsBad)
{
    std::vector<std::size_t> ends; // of the lines
    for (std::size_t end = 0; (end = text.find('\n', end) + 1) != 0;)
        ends.push_back(end);

    std::size_t cases = 0;
    for (const std::size_t line : places(0, ends.size() - 1, 17)) {
        for (const Fault fault : {Fault::Refuses, Fault::Throws}) {
            for (const std::ios_base::iostate mask : {std::ios_base::goodbit, std::ios_base::badbit}) {
                UnflushableSink sink(line, fault);
                const Seen      seen  = storeInto(sink, config, mask, false);
                const Seen      asked = fault == Fault::Throws ? Seen::BufferFault : Seen::StreamFailure;
                ASSERT_EQ(seen, mask == std::ios_base::goodbit ? Seen::Nothing : asked) << line;
                ASSERT_EQ(sink.str(), text.substr(0, ends[line])) << line;
                ++cases;
            }
        }
    }
    reportCases(cases);
}

TEST_P(FailingStore, StopsAtTheByteThatABufferedSinkDoesNotPassOnAndTheStreamIsBad)
{
    std::size_t cases = 0;
    for (const std::size_t capacity : places(0, text.size(), 211)) {
        const bool whole = capacity == text.size();
        // Some rooms are full within a line, so that writing fails; the last holds every line, so that flushing does.
        for (const std::size_t room : {1U, 10U, 1000U}) {
            for (const Fault fault : {Fault::Refuses, Fault::Throws}) {
                for (const std::ios_base::iostate mask : {std::ios_base::goodbit, std::ios_base::badbit}) {
                    RoomySink  sink(room, capacity, fault);
                    const Seen seen  = storeInto(sink, config, mask, whole);
                    const Seen asked = fault == Fault::Throws ? Seen::BufferFault : Seen::StreamFailure;
                    ASSERT_EQ(seen, whole || mask == std::ios_base::goodbit ? Seen::Nothing : asked) << capacity;
                    ASSERT_EQ(sink.taken(), text.substr(0, capacity)) << room;
                    ++cases;
                }
            }
        }
    }
    reportCases(cases);
}

TEST_P(FailingStore, OnAFullDiskMakesTheStreamBad)
{
    const std::string full = "/dev/full";
    if (!std::filesystem::is_character_file(full))
        GTEST_SKIP() << "no " << full;
    for (const std::ios_base::iostate mask : {std::ios_base::goodbit, std::ios_base::badbit}) {
        std::ofstream file(full);
        ASSERT_TRUE(file.is_open());
        const Seen seen = storeInto(file, config, mask, false);
        EXPECT_EQ(seen, mask == std::ios_base::goodbit ? Seen::Nothing : Seen::StreamFailure);
    }
}

TEST_P(FailingStore, IsTheSameWhateverRoomTheSinkHas)
{
    const std::vector<std::size_t> sizes = places(1, 600, 23);
    for (const std::size_t size : sizes) {
        RoomySink sink(size);
        storeInto(sink, config, std::ios_base::goodbit, true);
        ASSERT_EQ(sink.taken(), text) << size;
    }
    reportCases(sizes.size());
}

TEST_P(FailingStore, ThrowsNothingWhereTheMaskAsksForAnotherState)
{
    LimitedSink sink(100, Fault::Throws, true);
    EXPECT_EQ(storeInto(sink, config, std::ios_base::eofbit, false), Seen::Nothing);
    EXPECT_EQ(sink.taken(), text.substr(0, 100));
}

} // namespace
} // namespace ipsecimpl
