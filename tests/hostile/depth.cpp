// Elements in elements, as deep as a document likes. Neither reading them nor telling where an error is recurses: all
// of it is done on a stack that would not do for a call for each of them.

#include "hostile/growth_cases.h"

#include <support/xml.h>

#include <ipsecimpl/config.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>

#include <pthread.h>

namespace ipsecimpl {
namespace {

constexpr std::size_t depth = 1'000'000;

/// Runs `work` on a stack of 256 kB: less than a byte for each element.
void onSmallStack(std::function<void()> work)
{
    pthread_attr_t attributes;
    pthread_t      thread{};
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, std::size_t(256) << 10U), 0);
    const auto start = [](void* function) -> void* {
        (*static_cast<std::function<void()>*>(function))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, start, &work), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    ASSERT_EQ(pthread_attr_destroy(&attributes), 0);
}

std::string times(std::size_t count, const std::string& unit)
{
    std::string text;
    text.reserve(count * unit.size());
    while (count-- != 0)
        text += unit;
    return text;
}

TEST(Depth, OfAMillionUnknownElementsIsWalkedThrough)
{
    onSmallStack([] {
        std::istringstream in(times(depth, "<a>") + times(depth, "</a>") + "x");
        readAnything(in);
        EXPECT_EQ(in.get(), 'x');
    });
}

TEST(Depth, OfAMillionUnknownElementsIsToldOfAsAWholeWhereTheLastIsBroken)
{
    onSmallStack([] {
        std::istringstream in(times(depth, "<a>") + "</b>");
        const std::string  message = errorOf([&] { readAnything(in); });
        EXPECT_TRUE(message == "parse_end_tag: begin/end tags don't match" + times(depth, "\nfrom <a>"));
    });
}

TEST(Depth, OfAMillionElementsInsteadOfAConfigurationIsRefusedAtTheFirst)
{
    onSmallStack([] {
        std::istringstream in(times(depth, "<ipsec>"));
        XMLParser          parser(in);
        EXPECT_EQ(errorOf([&] { IPsecConfig::importXML(parser); }),
                  "parse_simple_tag: wrong tag; expected <hostGroups>, found <ipsec>\nfrom <ipsec>\nfrom <ipsec>");
        EXPECT_EQ(in.tellg(), std::istringstream::pos_type(13)); // behind the second one's name
    });
}

} // namespace
} // namespace ipsecimpl
