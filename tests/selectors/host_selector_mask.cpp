#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

constexpr char allOnesIPv4[] = "255.255.255.255";
constexpr char allOnesIPv6[] = "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff";

// clang-format off
const std::vector<int> lengthsWithoutMask = {
    INT_MIN, INT_MIN + 1, INT_MIN + 8, -129, -128, -33, -32, -8, -7, -1,
    129, 130, 136, 256, INT_MAX - 7, INT_MAX,
};
// clang-format on

std::string hexadecimal(unsigned int value)
{
    char text[9];
    std::snprintf(text, sizeof text, "%x", value);
    return text;
}

std::string dotted(const std::vector<unsigned int>& bytes)
{
    std::string text;
    for (const unsigned int byte : bytes)
        text += (text.empty() ? "" : ".") + std::to_string(byte);
    return text;
}

/// All eight groups in full.
std::string coloned(const std::vector<unsigned int>& bytes)
{
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        text += (text.empty() ? "" : ":") + hexadecimal(bytes[i] * 256 + bytes[i + 1]);
    return text;
}

std::string maskIPv4(int length)
{
    const std::uint64_t bits = (0xFFFFFFFF00000000 >> length) & 0xFFFFFFFF;
    return dotted({static_cast<unsigned int>(bits >> 24 & 0xFF), static_cast<unsigned int>(bits >> 16 & 0xFF),
                   static_cast<unsigned int>(bits >> 8 & 0xFF), static_cast<unsigned int>(bits & 0xFF)});
}

/// In the canonical form: two or more zero groups, which stand at the end, are "::".
std::string maskIPv6(int length)
{
    std::string text;
    int         groups = 0;
    for (; length > 0; ++groups, length -= 16)
        text += (groups ? ":" : "") + hexadecimal(length >= 16 ? 0xFFFFU : (0xFFFF0000U >> length & 0xFFFFU));
    return text + (groups == 8 ? "" : groups == 7 ? ":0" : "::");
}

/// The one bits of a byte, if it is one that a mask may have; else 0.
int bitsOfMaskByte(unsigned int byte)
{
    // clang-format off
    switch (byte) {
    case 0xFF: return 8;
    case 0xFE: return 7;
    case 0xFC: return 6;
    case 0xF8: return 5;
    case 0xF0: return 4;
    case 0xE0: return 3;
    case 0xC0: return 2;
    case 0x80: return 1;
    default:   return 0;
    }
    // clang-format on
}

std::string refusalOfMask(const AddressFamily& family, const char* mask)
{
    return errorOf<std::invalid_argument>([&] { HostSelector::mask2len(family, mask); });
}

TEST(LenToMask, GivesTheMaskOfEachIPv4Length)
{
    for (int length = 0; length <= 32; ++length)
        EXPECT_EQ(HostSelector::len2mask(HOST_INET, length), maskIPv4(length)) << length;
}

TEST(LenToMask, GivesTheMaskOfEachIPv6LengthInItsCanonicalForm)
{
    for (int length = 0; length <= 128; ++length)
        EXPECT_EQ(HostSelector::len2mask(HOST_INET6, length), maskIPv6(length)) << length;
}

TEST(LenToMask, WritesMasksAsTheyAreCommonlyWritten)
{
    EXPECT_EQ(HostSelector::len2mask(HOST_INET, 0), "0.0.0.0");
    EXPECT_EQ(HostSelector::len2mask(HOST_INET, 24), "255.255.255.0");
    EXPECT_EQ(HostSelector::len2mask(HOST_INET, 25), "255.255.255.128");
    EXPECT_EQ(HostSelector::len2mask(HOST_INET, 32), allOnesIPv4);
    EXPECT_EQ(HostSelector::len2mask(HOST_INET6, 0), "::");
    EXPECT_EQ(HostSelector::len2mask(HOST_INET6, 1), "8000::");
    EXPECT_EQ(HostSelector::len2mask(HOST_INET6, 64), "ffff:ffff:ffff:ffff::");
    EXPECT_EQ(HostSelector::len2mask(HOST_INET6, 112), "ffff:ffff:ffff:ffff:ffff:ffff:ffff:0");
    EXPECT_EQ(HostSelector::len2mask(HOST_INET6, 128), allOnesIPv6);
}

TEST(LenToMask, GivesAllOnesForLengthsThatNoMaskHas)
{
    for (const int length : lengthsWithoutMask) {
        EXPECT_EQ(HostSelector::len2mask(HOST_INET, length), allOnesIPv4) << length;
        EXPECT_EQ(HostSelector::len2mask(HOST_INET6, length), allOnesIPv6) << length;
    }
    for (int length = 33; length <= 128; ++length)
        EXPECT_EQ(HostSelector::len2mask(HOST_INET, length), allOnesIPv4) << length;
}

TEST(LenToMask, RefusesAnyFamily)
{
    for (const int length : {-1, 0, 8, 33})
        EXPECT_EQ(errorOf<std::invalid_argument>([=] { HostSelector::len2mask(HOST_INETANY, length); }),
                  "invalid address family");
}

TEST(MaskToLen, GivesBackEveryLengthThatAMaskWasMadeOf)
{
    for (int length = 0; length <= 32; ++length)
        EXPECT_EQ(HostSelector::mask2len(HOST_INET, maskIPv4(length).c_str()), length);
    for (int length = 0; length <= 128; ++length)
        EXPECT_EQ(HostSelector::mask2len(HOST_INET6, maskIPv6(length).c_str()), length);
}

TEST(MaskToLen, IsDecidedByTheFirstByteThatIsNotFull)
{
    for (const std::size_t size : {std::size_t{4}, std::size_t{16}})
        for (std::size_t i = 0; i < size; ++i)
            for (unsigned int byte = 0; byte <= 255; ++byte)
                for (const unsigned int later : {0U, 1U, 255U}) {
                    std::vector<unsigned int> bytes(size, later);
                    std::fill_n(bytes.begin(), i, 255U);
                    bytes[i] = byte;

                    const int full     = static_cast<int>(i) * 8;
                    int       expected = full + bitsOfMaskByte(byte);
                    if (byte == 255 && later == 255)
                        expected = static_cast<int>(size) * 8;
                    const std::string text = size == 4 ? dotted(bytes) : coloned(bytes);
                    EXPECT_EQ(HostSelector::mask2len(size == 4 ? HOST_INET : HOST_INET6, text.c_str()), expected)
                        << text;
                }
}

TEST(MaskToLen, AcceptsMasksWithHoles)
{
    EXPECT_EQ(HostSelector::mask2len(HOST_INET, "255.255.0.255"), 16);
    EXPECT_EQ(HostSelector::mask2len(HOST_INET, "255.0.255.0"), 8);
    EXPECT_EQ(HostSelector::mask2len(HOST_INET, "255.15.0.0"), 8);
    EXPECT_EQ(HostSelector::mask2len(HOST_INET, "255.255.254.0"), 23);
    EXPECT_EQ(HostSelector::mask2len(HOST_INET6, "ffff::ffff"), 16);
}

TEST(MaskToLen, ReadsIPv6MasksInAllTheirForms)
{
    EXPECT_EQ(HostSelector::mask2len(HOST_INET6, "FFFF:FfFf::"), 32);
    EXPECT_EQ(HostSelector::mask2len(HOST_INET6, "ffff:ffff:0:0:0:0:0:0"), 32);
    EXPECT_EQ(HostSelector::mask2len(HOST_INET6, "ffff:ffff:ffff:ffff:ffff:ffff:255.255.255.0"), 120);
    EXPECT_EQ(HostSelector::mask2len(HOST_INET6, "::"), 0);
    EXPECT_EQ(HostSelector::mask2len(HOST_INET6, "0::ffff"), 0);
}

TEST(MaskToLen, RefusesWhatIsNoAddressOfTheFamily)
{
    for (const char* mask :
         {"", "x", "8", "/8", "255", "255.255.255", "255.255.255.0.0", "256.0.0.0", "255..0.0", "255.0.0.", "-1.0.0.0",
          " 255.0.0.0", "255.0.0.0 ", "255.0.0.0/8", "0xff.0.0.0", "255,0,0,0", "ffff::", "::", "::255.0.0.0"})
        EXPECT_EQ(refusalOfMask(HOST_INET, mask), "invalid mask") << mask;
    for (const char* mask :
         {"", "x", "64", "/64", ":", ":::", "ffff", "ffff:", "fffff::", "gfff::", "ffff::ffff::", "ffff:ffff:ffff:ffff",
          "1:2:3:4:5:6:7:8:9", " ffff::", "ffff:: ", "ffff::/16", "[ffff::]", "255.255.255.0", "255.255.255.255"})
        EXPECT_EQ(refusalOfMask(HOST_INET6, mask), "invalid mask") << mask;
}

TEST(MaskToLen, RefusesANullPointer)
{
    EXPECT_EQ(refusalOfMask(HOST_INET, nullptr), "invalid mask");
    EXPECT_EQ(refusalOfMask(HOST_INET6, nullptr), "invalid mask");
}

TEST(MaskToLen, RefusesAnyFamilyWhateverTheMask)
{
    for (const char* mask : {"255.0.0.0", "ffff::", "", "x"})
        EXPECT_EQ(refusalOfMask(HOST_INETANY, mask), "invalid address family") << mask;
    EXPECT_EQ(refusalOfMask(HOST_INETANY, nullptr), "invalid address family");
}

} // namespace
} // namespace ipsecimpl
