// Bytes are compared and copied in words that overlap: every size on both sides of each word's, and every place.

#include "xml/short_bytes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace ipsecimpl {
namespace {

constexpr std::size_t sizes  = 41;
constexpr std::size_t margin = 20;

/// `size` bytes, all different, between bytes that are none of them.
std::string between(char around, std::size_t size)
{
    std::string text;
    for (std::size_t i = 0; i < size; ++i)
        text += static_cast<char>('0' + i);
    return std::string(margin, around) + text + std::string(margin, around);
}

bool sameWithin(const std::string& a, const std::string& b, std::size_t size)
{
    return sameBytes(a.data() + margin, b.data() + margin, size);
}

TEST(ShortBytes, AreTheSameWhateverIsAroundThem)
{
    for (std::size_t size = 0; size < sizes; ++size)
        EXPECT_TRUE(sameWithin(between('<', size), between('>', size), size)) << size;
}

TEST(ShortBytes, AreNotTheSameIfOneDiffersWhateverIsAroundThem)
{
    for (std::size_t size = 0; size < sizes; ++size)
        for (std::size_t at = 0; at < size; ++at) {
            const std::string a = between('<', size);
            std::string       b = a;
            b[margin + at] ^= 1;
            EXPECT_FALSE(sameWithin(a, b, size)) << size << " bytes, the one at " << at;
        }
}

TEST(ShortBytes, AreCopiedAndNothingAroundThem)
{
    for (std::size_t size = 0; size < sizes; ++size) {
        const std::string from = between('<', size);
        std::string       to   = std::string(margin + size + margin, '>');
        copyBytes(to.data() + margin, from.data() + margin, size);
        EXPECT_EQ(to, between('>', size)) << size;
    }
}

} // namespace
} // namespace ipsecimpl
