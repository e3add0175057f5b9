// Stores into sinks that fail or throw, at every byte and every flush.
//
// What a sink has taken is the beginning of the whole document, up to the byte where it failed and no further. The
// stream tells of it: it is bad, and throws if its exception mask asks for that. The configuration is written as before
// when it is stored again.

#include "hostile/small_documents.h"
#include "hostile/sweep.h"

#include "support/samples.h"

#include <algorithm>
#include <functional>
#include <ios>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

/// How a sink fails when it has taken all that it can.
enum class Fault { Refuses, Throws };

/// Takes `capacity` bytes, one by one or in pieces as they come.
class LimitedSink : public std::streambuf {
  public:
    LimitedSink(std::size_t capacity, Fault fault, bool inPieces)
        : capacity_(capacity)
        , fault_(fault)
        , inPieces_(inPieces)
    {
    }

    const std::string& taken() const { return taken_; }

  protected:
    int_type overflow(int_type c) override
    {
        if (taken_.size() == capacity_)
            return refuse(traits_type::eof());
        taken_ += traits_type::to_char_type(c);
        return traits_type::not_eof(c);
    }

    std::streamsize xsputn(const char* text, std::streamsize size) override
    {
        if (!inPieces_)
            return std::streambuf::xsputn(text, size);
        const std::size_t room = std::min(static_cast<std::size_t>(size), capacity_ - taken_.size());
        taken_.append(text, room);
        return static_cast<std::streamsize>(room) == size ? size : refuse(static_cast<std::streamsize>(room));
    }

  private:
    template <class Result>
    Result refuse(Result result)
    {
        if (fault_ == Fault::Throws)
            throw BufferFault();
        return result;
    }

    std::size_t capacity_;
    Fault       fault_;
    bool        inPieces_;
    std::string taken_;
};

/// Takes everything, and fails at the flush number `last`, counted from 0, and at all that follow.
class UnflushableSink : public std::stringbuf {
  public:
    UnflushableSink(std::size_t last, Fault fault)
        : flushes_(last)
        , fault_(fault)
    {
    }

  protected:
    int sync() override
    {
        if (flushes_ != 0)
            return --flushes_, 0;
        if (fault_ == Fault::Throws)
            throw BufferFault();
        return -1;
    }

  private:
    std::size_t flushes_;
    Fault       fault_;
};

/// Holds up to `size` bytes until it is flushed or full, as a file's buffer does, which ends wherever it ends.
class RoomySink : public std::streambuf {
  public:
    explicit RoomySink(std::size_t size)
        : room_(size, '\0')
    {
        empty();
    }

    const std::string& taken() const { return taken_; }

  protected:
    int_type overflow(int_type c) override
    {
        sync();
        if (!traits_type::eq_int_type(c, traits_type::eof()))
            sputc(traits_type::to_char_type(c));
        return traits_type::not_eof(c);
    }

    int sync() override
    {
        taken_.append(pbase(), pptr());
        empty();
        return 0;
    }

  private:
    void empty() { setp(room_.data(), room_.data() + room_.size()); }

    std::string room_;
    std::string taken_;
};

enum class Seen { Nothing, StreamFailure, BufferFault };

/// What storing into `sink` under `mask` throws. The stream is bad unless all was taken, and is returned.
Seen storeInto(std::streambuf& sink, IPsecConfig& config, std::ios_base::iostate mask, bool whole)
{
    std::ostream out(&sink);
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
