// The state in which an operation leaves its stream: that in which the stream's own functions would.

#include "document.h"

#include <cstddef>
#include <functional>
#include <ios>
#include <istream>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

namespace ipsecimpl {
namespace {

constexpr auto good = std::ios_base::goodbit;
constexpr auto eof  = std::ios_base::eofbit;
constexpr auto fail = std::ios_base::failbit;
constexpr auto bad  = std::ios_base::badbit;

void parseName(XMLParser& parser)
{
    std::string name;
    parser.parse_name(name);
}

void parseTag(XMLParser& parser)
{
    std::string name;
    parser.parse_tag(name);
}

void parseData(XMLParser& parser)
{
    std::string data;
    parser.parse_data(data);
}

void parseTagEnd(XMLParser& parser) { parser.parse_tag_end(); }

void parseBody(XMLParser& parser) { parser.parse_body(); }

void parseEndTag(XMLParser& parser) { parser.parse_end_tag(); }

struct Row {
    const char*           text;
    void                  (*call)(XMLParser&);
    std::ios_base::iostate state;
};

/// The state in which `call` leaves a stream on `buffer`, whether it succeeds or not.
std::ios_base::iostate stateAfter(std::streambuf* buffer, void (*call)(XMLParser&))
{
    std::istream in(buffer);
    XMLParser    parser(in);
    try {
        call(parser);
    } catch (const ParseError&) { // the state is what is looked at
    }
    return in.rdstate();
}

TEST(StreamState, HasItsEofbitWhereTheEndWasSeenAndItsFailbitWhereItWasReadOrLookedAtAgain)
{
    const std::vector<Row> rows = {
        {"a", parseName, eof},
        {"a<", parseName, good},
        {"", parseName, eof},
        {"", parseTag, eof | fail},
        {" ", parseTag, eof | fail},
        {"<", parseTag, eof | fail},
        {"<a", parseTag, eof},
        {"<a ", parseTag, good},
        {"/", parseTagEnd, good}, // no tag is open that it could end
        {"<a/", [](XMLParser& parser) { parser.parse_simple_tag("a"); }, eof | fail},
        {">", parseTagEnd, good},
        {"x", parseData, eof},
        {"x<", parseData, good},
        {"", parseData, eof | fail},
        {"", parseBody, eof | fail},
        {" ", parseBody, eof | fail},
        {"x", parseBody, good},
        {"<", parseEndTag, eof | fail},
        {"</", parseEndTag, eof},
        {"</a", parseEndTag, eof | fail},
    };
    for (const Row& row : rows) {
        std::stringbuf whole(row.text);
        EXPECT_EQ(stateAfter(&whole, row.call), row.state) << row.text;
    }
}

TEST(StreamState, IsBadWhereThereIsNoBuffer)
{
    EXPECT_EQ(stateAfter(nullptr, parseName), bad | fail);
    EXPECT_EQ(stateAfter(nullptr, parseTag), bad | fail);
}

TEST(StreamState, IsBadAndNotThatOfAnEndWhereTheBufferThrows)
{
    ThrowingBuffer seen("", 0);
    EXPECT_EQ(stateAfter(&seen, parseName), bad);
    ThrowingBuffer again("", 0);
    EXPECT_EQ(stateAfter(&again, parseBody), bad | fail);
    ThrowingBuffer read("<", 1);
    EXPECT_EQ(stateAfter(&read, parseEndTag), bad | fail);
}

TEST(StreamState, IsBadWhereABracketCannotBePutBack)
{
    OneWayBuffer tag("</a>");
    EXPECT_EQ(stateAfter(&tag, parseTag), bad);
    OneWayBuffer body("<");
    EXPECT_EQ(stateAfter(&body, parseBody), bad);
}

/// Shows a character that it then does not give: `uflow` says how.
class WithdrawingBuffer : public std::streambuf {
  public:
    explicit WithdrawingBuffer(std::function<void()> uflow)
        : uflow_(std::move(uflow))
    {
    }

  protected:
    int_type underflow() override { return 'a'; }
    int_type uflow() override
    {
        uflow_();
        return traits_type::eof();
    }

  private:
    std::function<void()> uflow_;
};

TEST(StreamState, IsThatOfAnEndWhereTheBufferWithdrawsWhatItHasShown)
{
    WithdrawingBuffer buffer([] {});
    std::istream      itself(&buffer);
    itself.get();
    EXPECT_EQ(itself.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);

    std::istream in(&buffer);
    std::string  name;
    EXPECT_FALSE(XMLParser(in).parse_name(name));
    EXPECT_EQ(in.rdstate(), itself.rdstate());
}

TEST(StreamState, IsBadWhereTheBufferThrowsInsteadOfGivingWhatItHasShown)
{
    WithdrawingBuffer buffer([] { throw std::runtime_error("withdrawn"); });
    std::istream      in(&buffer);
    std::string       name;
    EXPECT_FALSE(XMLParser(in).parse_name(name));
    EXPECT_EQ(in.rdstate(), std::ios_base::badbit | std::ios_base::failbit);
}

/// Shows what is next, and gives some of it.
class TakingBackBuffer : public std::streambuf {
  public:
    /// Shows one character of `shown` after the other, gives those of `given`, and ends for once in between.
    TakingBackBuffer(std::string shown, std::size_t given)
        : shown_(std::move(shown))
        , given_(given)
    {
    }

  protected:
    int_type underflow() override
    {
        return next_ == shown_.size() ? traits_type::eof() : traits_type::to_int_type(shown_[next_]);
    }

    int_type uflow() override
    {
        const int_type c = underflow();
        return next_++ == given_ ? traits_type::eof() : c;
    }

  private:
    std::string shown_;
    std::size_t given_;
    std::size_t next_ = 0;
};

TEST(StreamState, IsThatOfAnEndWhereABufferWithdrawsAndGoesOn)
{
    for (const std::size_t given : {0U, 1U, 2U, 3U}) {
        TakingBackBuffer buffer("  xy<", given);
        std::istream     in(&buffer);
        XMLParser        parser(in);
        std::string      data;
        EXPECT_EQ(errorOf([&] { parser.parse_data(data); }), "parse_data: unmatched tag ''") << given;
        EXPECT_EQ(data, given == 3 ? "x" : "") << given;
        EXPECT_EQ(in.rdstate() & (eof | bad), eof) << given;
    }
}

TEST(TiedStream, IsFlushedBeforeItsParserReads)
{
    for (auto* call : {parseName, parseTag, parseData, parseBody}) {
        FlushRecorder      sink;
        std::ostream       prompt(&sink);
        std::istringstream in("<a>");
        in.tie(&prompt);
        XMLParser parser(in);
        prompt << "> ";
        EXPECT_TRUE(sink.pieces().empty());
        try {
            call(parser);
        } catch (const ParseError&) { // the other stream is what is looked at
        }
        EXPECT_EQ(sink.pieces(), std::vector<std::string>{"> "});
    }
}

TEST(TiedStream, IsReadAsAnyOtherAndSkipsNoWhiteSpaceByItself)
{
    std::ostringstream prompt;
    std::istringstream in(" a");
    in.tie(&prompt);
    XMLParser parser(in);
    in.setf(std::ios_base::skipws);
    std::string name;
    EXPECT_FALSE(parser.parse_name(name));
    EXPECT_EQ(in.get(), ' ');
    EXPECT_TRUE(parser.parse_name(name));
    EXPECT_EQ(name, "a");
}

} // namespace
} // namespace ipsecimpl
