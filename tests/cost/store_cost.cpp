// What a store costs, counted and not timed: insertions into the stream's buffer, flushes, heap blocks.

#include "cost/counting_new.h"
#include "cost/sample.h"

#include <support/xml.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <streambuf>
#include <string>

namespace ipsecimpl {
namespace {

/// Takes everything and counts how it came.
class CountingSink : public std::streambuf {
  public:
    std::size_t insertions = 0;
    std::size_t flushes    = 0;

  protected:
    std::streamsize xsputn(const char*, std::streamsize size) override { return ++insertions, size; }
    int_type        overflow(int_type c) override { return ++insertions, traits_type::not_eof(c); }
    int             sync() override { return ++flushes, 0; }
};

TEST(Store, InsertsAndFlushesOnceForEachLine)
{
    IPsecConfig       config = sample(20);
    const std::string text   = written(config);
    const auto        lines  = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));

    CountingSink sink;
    std::ostream out(&sink);
    config.exportXML(out);
    EXPECT_EQ(sink.insertions, lines);
    EXPECT_EQ(sink.flushes, lines);
}

TEST(Store, AllocatesNothing)
{
    IPsecConfig  config = sample(20);
    CountingSink sink;
    std::ostream out(&sink);
    EXPECT_EQ(blocksOf([&] { config.exportXML(out); }), 0U);
}

} // namespace
} // namespace ipsecimpl
