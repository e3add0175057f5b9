#include "xml/number.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ipsecimpl {
namespace {

using namespace std::string_view_literals;

struct Row {
    std::string_view text;
    int              base;
    std::int32_t     asSigned;
    std::uint32_t    asUnsigned;
    std::size_t      used; // characters read, the same for both
};

void expectEach(const std::vector<Row>& rows)
{
    for (const Row& row : rows) {
        SCOPED_TRACE("text " + testing::PrintToString(std::string(row.text)) + ", base " + std::to_string(row.base));
        std::size_t used = 4711;
        EXPECT_EQ(strtol32(row.text, row.base, &used), row.asSigned);
        EXPECT_EQ(used, row.used) << "strtol32";
        used = 4711;
        EXPECT_EQ(strtoul32(row.text, row.base, &used), row.asUnsigned);
        EXPECT_EQ(used, row.used) << "strtoul32";
        EXPECT_EQ(strtol32(row.text, row.base), row.asSigned) << "without `used`";
        EXPECT_EQ(strtoul32(row.text, row.base), row.asUnsigned) << "without `used`";
    }
}

// clang-format off

TEST(Numbers, EndAtTheFirstCharacterThatIsNoDigit)
{
    expectEach({
        {"0"sv,         10,         0,          0u,  1},
        {"7"sv,         10,         7,          7u,  1},
        {"123"sv,       10,       123,        123u,  3},
        {"12ab"sv,      10,        12,         12u,  2},
        {"12 34"sv,     10,        12,         12u,  2},
        {"1.5"sv,       10,         1,          1u,  1},
        {"1,000"sv,     10,         1,          1u,  1},
        {"1'000"sv,     10,         1,          1u,  1},
        {"1_000"sv,     10,         1,          1u,  1},
        {"1e3"sv,       10,         1,          1u,  1},
        {"12-"sv,       10,        12,         12u,  2},
        {"12u"sv,        0,        12,         12u,  2},
        {"12/"sv,       10,        12,         12u,  2}, // the characters on either side of the digits
        {"12:"sv,       10,        12,         12u,  2},
        {"12\0" "34"sv, 10,        12,         12u,  2},
        {"fFg"sv,       16,       255,        255u,  2},
        {"aG"sv,        16,        10,         10u,  1},
        {"A@"sv,        16,        10,         10u,  1},
        {"a`"sv,        16,        10,         10u,  1},
        {"1238"sv,       8,        83,         83u,  3},
        {"779"sv,        8,        63,         63u,  2},
    });
}

TEST(Numbers, AreZeroAndUseNothingWithoutDigits)
{
    expectEach({
        {""sv,           0, 0, 0u, 0},
        {""sv,          10, 0, 0u, 0},
        {""sv,          16, 0, 0u, 0},
        {" "sv,         10, 0, 0u, 0},
        {" \t\n\v\f\r"sv, 0, 0, 0u, 0},
        {"abc"sv,       10, 0, 0u, 0},
        {"abc"sv,        0, 0, 0u, 0},
        {"x10"sv,       16, 0, 0u, 0},
        {"-"sv,         10, 0, 0u, 0},
        {"+"sv,          0, 0, 0u, 0},
        {"--1"sv,       10, 0, 0u, 0},
        {"++1"sv,       10, 0, 0u, 0},
        {"-+1"sv,       10, 0, 0u, 0},
        {"+-1"sv,        0, 0, 0u, 0},
        {"+ 1"sv,       10, 0, 0u, 0},
        {"- 1"sv,        0, 0, 0u, 0},
        {"  -"sv,       10, 0, 0u, 0},
        {"-\t1"sv,      16, 0, 0u, 0},
        {"#5"sv,        10, 0, 0u, 0},
        {";"sv,         10, 0, 0u, 0},
        {".5"sv,        10, 0, 0u, 0},
        {"$1"sv,         0, 0, 0u, 0},
        {"\0" "7"sv,    10, 0, 0u, 0},
        {"-\0" "7"sv,    0, 0, 0u, 0},
        {"8"sv,          8, 0, 0u, 0},
        {"g"sv,         16, 0, 0u, 0},
    });
}

TEST(Numbers, MayFollowWhiteSpaceAndOneSign)
{
    expectEach({
        {" \t\n\v\f\r7"sv, 10,  7,           7u,  7},
        {"      7 "sv,     10,  7,           7u,  7},
        {"+7"sv,           10,  7,           7u,  2},
        {"-7"sv,           10, -7, 4294967289u,   2},
        {" +7"sv,           0,  7,           7u,  3},
        {"\n-7"sv,          0, -7, 4294967289u,   3},
        {"-0"sv,           10,  0,           0u,  2},
        {"+0"sv,            0,  0,           0u,  2},
        {"-0x10"sv,         0, -16, 4294967280u,  5},
        {"+0x10"sv,        16,  16,         16u,  5},
        {" -010"sv,         0, -8, 4294967288u,   5},
        {"-f"sv,           16, -15, 4294967281u,  2},
        {"-17"sv,           8, -15, 4294967281u,  3},
    });
}

TEST(Numbers, DoNotFollowWhatOnlyAnotherLocaleTakesForWhiteSpace)
{
    expectEach({
        {"\x85" "7"sv,      10, 0, 0u, 0},
        {"\xA0" "7"sv,      10, 0, 0u, 0},
        {"\xC2\xA0" "7"sv,   0, 0, 0u, 0},
        {"\x1C" "7"sv,      10, 0, 0u, 0},
        {"\b7"sv,           10, 0, 0u, 0},
        {"\x0E" "7"sv,      10, 0, 0u, 0},
        {"\xFF" "7"sv,      10, 0, 0u, 0},
        {" \xA0" "7"sv,     10, 0, 0u, 0},
        {"7\xA0"sv,         10, 7, 7u, 1},
        {"7\xB2"sv,         10, 7, 7u, 1},
    });
}

TEST(Numbers, TakeBaseZeroFromTheDigits)
{
    expectEach({
        {"10"sv,          0,    10,    10u, 2},
        {"010"sv,         0,     8,     8u, 3},
        {"0x10"sv,        0,    16,    16u, 4},
        {"0X1f"sv,        0,    31,    31u, 4},
        {"0xFfG"sv,       0,   255,   255u, 4},
        {"0"sv,           0,     0,     0u, 1},
        {"00"sv,          0,     0,     0u, 2},
        {"0 1"sv,         0,     0,     0u, 1},
        {"08"sv,          0,     0,     0u, 1},
        {"09"sv,          0,     0,     0u, 1},
        {"0178"sv,        0,    15,    15u, 3},
        {"00x10"sv,       0,     0,     0u, 2},
        {"0x"sv,          0,     0,     0u, 1},
        {"0X"sv,          0,     0,     0u, 1},
        {"0xg"sv,         0,     0,     0u, 1},
        {"0x-1"sv,        0,     0,     0u, 1},
        {"0x 1"sv,        0,     0,     0u, 1},
        {"0x+1"sv,        0,     0,     0u, 1},
        {"-0x"sv,         0,     0,     0u, 2},
        {"0x\0" "1"sv,    0,     0,     0u, 1},
        {"0x0x1"sv,       0,     0,     0u, 3},
        {"0b101"sv,       0,     0,     0u, 1}, // not binary, whatever a newer libc makes of it
        {"0B1"sv,         0,     0,     0u, 1},
        {"-0b1"sv,        0,     0,     0u, 2},
        {"0o17"sv,        0,     0,     0u, 1},
        {"1x0"sv,         0,     1,     1u, 1},
        {"a"sv,           0,     0,     0u, 0},
    });
}

TEST(Numbers, OfAStatedBaseIgnoreThePrefixesOfOthers)
{
    expectEach({
        {"0x10"sv,  10,     0,     0u, 1},
        {"010"sv,   10,    10,    10u, 3},
        {"08"sv,    10,     8,     8u, 2},
        {"0b1"sv,   10,     0,     0u, 1},
        {"0x10"sv,   8,     0,     0u, 1},
        {"010"sv,    8,     8,     8u, 3},
        {"10"sv,     8,     8,     8u, 2},
        {"0x10"sv,  16,    16,    16u, 4},
        {"0X10"sv,  16,    16,    16u, 4},
        {"10"sv,    16,    16,    16u, 2},
        {"010"sv,   16,    16,    16u, 3},
        {"0x"sv,    16,     0,     0u, 1},
        {"0xg"sv,   16,     0,     0u, 1},
        {"0x-1"sv,  16,     0,     0u, 1},
        {"0x0x1"sv, 16,     0,     0u, 3},
        {"0b101"sv, 16, 45313, 45313u, 5}, // all five are digits here
        {"-0x1"sv,  16,    -1, 4294967295u, 4},
    });
}

TEST(Numbers, SaturateWhereTheyDoNotFit32Bits)
{
    expectEach({
        {"2147483646"sv,            10, 2147483646, 2147483646u, 10},
        {"2147483647"sv,            10, INT32_MAX,  2147483647u, 10},
        {"2147483648"sv,            10, INT32_MAX,  2147483648u, 10},
        {"4294967294"sv,            10, INT32_MAX,  4294967294u, 10},
        {"4294967295"sv,            10, INT32_MAX,  UINT32_MAX,  10},
        {"4294967296"sv,            10, INT32_MAX,  UINT32_MAX,  10},
        {"4294967297"sv,            10, INT32_MAX,  UINT32_MAX,  10},
        {"4294967361"sv,            10, INT32_MAX,  UINT32_MAX,  10},
        {"42949672950"sv,           10, INT32_MAX,  UINT32_MAX,  11},
        {"42949672960"sv,           10, INT32_MAX,  UINT32_MAX,  11},
        {"9223372036854775807"sv,   10, INT32_MAX,  UINT32_MAX,  19},
        {"9223372036854775808"sv,   10, INT32_MAX,  UINT32_MAX,  19},
        {"18446744073709551615"sv,  10, INT32_MAX,  UINT32_MAX,  20},
        {"18446744073709551616"sv,  10, INT32_MAX,  UINT32_MAX,  20},
        {"18446744073709551623"sv,  10, INT32_MAX,  UINT32_MAX,  20}, // 2^64 + 7
        {"1234567890123456789012345678901234567890"sv, 10, INT32_MAX, UINT32_MAX, 40},
        {"0x7fffffff"sv,             0, INT32_MAX,  2147483647u, 10},
        {"0x80000000"sv,             0, INT32_MAX,  2147483648u, 10},
        {"0xffffffff"sv,             0, INT32_MAX,  UINT32_MAX,  10},
        {"0x100000000"sv,            0, INT32_MAX,  UINT32_MAX,  11},
        {"ffffffff0"sv,             16, INT32_MAX,  UINT32_MAX,   9},
        {"017777777777"sv,           0, INT32_MAX,  2147483647u, 12},
        {"020000000000"sv,           0, INT32_MAX,  2147483648u, 12},
        {"037777777777"sv,           0, INT32_MAX,  UINT32_MAX,  12},
        {"040000000000"sv,           0, INT32_MAX,  UINT32_MAX,  12},
        {"40000000000"sv,            8, INT32_MAX,  UINT32_MAX,  11},
        {"4294967296junk"sv,        10, INT32_MAX,  UINT32_MAX,  10},
        {"99999999990x"sv,           0, INT32_MAX,  UINT32_MAX,  11},
    });
}

TEST(Numbers, WithAMinusSignSaturateOrNegateModulo32Bits)
{
    expectEach({
        {"-1"sv,                    10, -1,          4294967295u,  2},
        {"-2147483647"sv,           10, -2147483647, 2147483649u, 11},
        {"-2147483648"sv,           10, INT32_MIN,   2147483648u, 11},
        {"-2147483649"sv,           10, INT32_MIN,   2147483647u, 11},
        {"-4294967294"sv,           10, INT32_MIN,            2u, 11},
        {"-4294967295"sv,           10, INT32_MIN,            1u, 11},
        {"-4294967296"sv,           10, INT32_MIN,   UINT32_MAX,  11}, // overflow wins over the sign
        {"-4294967297"sv,           10, INT32_MIN,   UINT32_MAX,  11},
        {"-9223372036854775807"sv,  10, INT32_MIN,   UINT32_MAX,  20},
        {"-9223372036854775808"sv,  10, INT32_MIN,   UINT32_MAX,  20},
        {"-9223372036854775809"sv,  10, INT32_MIN,   UINT32_MAX,  20},
        {"-18446744073709551615"sv, 10, INT32_MIN,   UINT32_MAX,  21},
        {"-18446744073709551616"sv, 10, INT32_MIN,   UINT32_MAX,  21},
        {"-1234567890123456789012345678901234567890"sv, 10, INT32_MIN, UINT32_MAX, 41},
        {"-0x80000000"sv,            0, INT32_MIN,   2147483648u, 11},
        {"-0x80000001"sv,            0, INT32_MIN,   2147483647u, 11},
        {"-0xffffffff"sv,            0, INT32_MIN,            1u, 11},
        {"-0x100000000"sv,           0, INT32_MIN,   UINT32_MAX,  12},
        {"-020000000000"sv,          0, INT32_MIN,   2147483648u, 13},
        {"-040000000000"sv,          0, INT32_MIN,   UINT32_MAX,  13},
    });
}

TEST(Numbers, DoNotOverflowFromLeadingZeros)
{
    expectEach({
        {"0000000000000000000000000000000000000042"sv, 10,  42, 42u, 40},
        {"0000000000000000000000000000000000000042"sv,  0,  34, 34u, 40},
        {"0x00000000000000000000000000000000000042"sv,  0,  66, 66u, 40},
        {"-000000000000000000000000000000000000001"sv, 10,  -1, 4294967295u, 40},
        {"00000000002147483648"sv,                     10,  INT32_MAX, 2147483648u, 20},
    });
}

// clang-format on

TEST(Numbers, EndWhereTheTextEndsThoughMoreDigitsFollowInMemory)
{
    expectEach({
        {"123456"sv.substr(0, 3), 10, 123, 123u, 3},
        {"0x12"sv.substr(0, 2), 0, 0, 0u, 1},
        {"-12"sv.substr(0, 1), 0, 0, 0u, 0},
        {" 12"sv.substr(0, 1), 0, 0, 0u, 0},
        {"012"sv.substr(0, 1), 0, 0, 0u, 1},
    });
}

TEST(Numbers, AreZeroForAViewOfNothing)
{
    expectEach({{std::string_view(), 0, 0, 0u, 0}, {std::string_view(), 10, 0, 0u, 0}});
}

TEST(Numbers, LetAnyByteBehindTheDigitsEndThemUnlessItIsADigit)
{
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE("byte " + std::to_string(byte));
        const std::string text    = std::string("4") + static_cast<char>(byte);
        const bool        isDigit = byte >= '0' && byte <= '9';
        std::size_t       used    = 0;
        EXPECT_EQ(strtol32(text, 10, &used), isDigit ? 40 + (byte - '0') : 4);
        EXPECT_EQ(used, isDigit ? 2u : 1u);
    }
}

TEST(Numbers, TakeOnlySixBytesForWhiteSpaceAndTwoForASign)
{
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE("byte " + std::to_string(byte));
        const char        c      = static_cast<char>(byte);
        const std::string text   = std::string(1, c) + "4";
        const bool        passed = std::string(" \t\n\v\f\r+-").find(c) != std::string::npos;
        const bool        digit  = byte >= '0' && byte <= '9';
        const int         size   = passed ? 4 : digit ? (byte - '0') * 10 + 4 : 0;
        EXPECT_EQ(strtol32(text, 10), c == '-' ? -size : size);
    }
}

} // namespace
} // namespace ipsecimpl
