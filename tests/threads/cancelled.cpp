// What happens to a stream whose thread is cancelled, or ended, while its buffer is read.

#include <ipsecimpl/xml.h>

#include <gtest/gtest.h>

#include <istream>
#include <streambuf>
#include <string>

#include <pthread.h>

namespace ipsecimpl {
namespace {

#ifdef __GLIBCXX__ // elsewhere a thread cannot be ended below a function that catches everything

/// Ends the thread that reads it.
class EndingBuffer : public std::streambuf {
  protected:
    int_type underflow() override { pthread_exit(nullptr); }
};

struct Reading {
    EndingBuffer buffer;
    std::istream stream{&buffer};
    bool         unwound = false;
};

struct Unwound {
    bool& flag;
    ~Unwound() { flag = true; }
};

void* readName(void* argument)
{
    Reading&      reading = *static_cast<Reading*>(argument);
    const Unwound unwound{reading.unwound};
    XMLParser     parser(reading.stream);
    std::string   name;
    parser.parse_name(name);
    return argument;
}

void* outcomeOf(Reading& reading)
{
    pthread_t thread{};
    EXPECT_EQ(pthread_create(&thread, nullptr, readName, &reading), 0);
    void* result = &reading;
    EXPECT_EQ(pthread_join(thread, &result), 0);
    return result;
}

TEST(CancelledThread, EndsBelowTheParserAndLeavesItsStreamBad)
{
    Reading reading;
    EXPECT_EQ(outcomeOf(reading), nullptr);
    EXPECT_TRUE(reading.unwound);
    EXPECT_EQ(reading.stream.rdstate(), std::ios_base::badbit);
}

TEST(CancelledThread, EndsAlsoWhereItsStreamThrowsWhenItIsBad)
{
    Reading reading;
    reading.stream.exceptions(std::ios_base::badbit);
    EXPECT_EQ(outcomeOf(reading), nullptr);
    EXPECT_TRUE(reading.unwound);
    EXPECT_EQ(reading.stream.rdstate(), std::ios_base::badbit);
}

#endif

} // namespace
} // namespace ipsecimpl
