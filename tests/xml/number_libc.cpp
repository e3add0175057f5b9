// The conversions against the libc of the machine that runs the tests, where the two must agree: on numbers that fit
// 32 bits, for its `long` may be wider, and on texts without "0b", for it may know binary numbers.

#include "xml/number.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

bool mayBeBinary(const std::string& text)
{
    return text.find("0b") != std::string::npos || text.find("0B") != std::string::npos;
}

/// Counts the texts that could be compared, so that a test can tell that there were many.
struct Compared {
    int inSigned   = 0;
    int inUnsigned = 0;
};

void compareWithLibc(const std::string& text, int base, Compared& compared)
{
    SCOPED_TRACE("text " + testing::PrintToString(text) + ", base " + std::to_string(base));
    if (mayBeBinary(text) && base == 0)
        return;

    char*       end  = nullptr;
    const long  libc = std::strtol(text.c_str(), &end, base);
    std::size_t used = 0;
    if (libc >= std::numeric_limits<std::int32_t>::min() && libc <= std::numeric_limits<std::int32_t>::max()) {
        EXPECT_EQ(strtol32(text, base, &used), libc);
        EXPECT_EQ(used, static_cast<std::size_t>(end - text.c_str()));
        EXPECT_EQ(strtol32(text, base), libc) << "without `used`";
        ++compared.inSigned;
    }

    // Within 32 bits, negated or not, the libc's result is the same whatever the width of its `long`.
    const unsigned long libcUnsigned = std::strtoul(text.c_str(), &end, base);
    const std::size_t   first        = text.find_first_not_of(" \t\n\v\f\r");
    const bool          negative     = first != std::string::npos && text[first] == '-';
    const unsigned long magnitude    = negative ? 0 - libcUnsigned : libcUnsigned;
    if (magnitude <= std::numeric_limits<std::uint32_t>::max()) {
        EXPECT_EQ(strtoul32(text, base, &used), static_cast<std::uint32_t>(libcUnsigned));
        EXPECT_EQ(used, static_cast<std::size_t>(end - text.c_str()));
        EXPECT_EQ(strtoul32(text, base), static_cast<std::uint32_t>(libcUnsigned)) << "without `used`";
        ++compared.inUnsigned;
    }
}

TEST(NumbersBesideTheLibc, AgreeOnEveryShortTextOfTheCharactersThatMatter)
{
    const std::string        alphabet = " +-0179xXaFg\xA0";
    Compared                 compared;
    std::vector<std::string> texts = {""};
    for (int length = 1; length <= 4; ++length) {
        std::vector<std::string> longer;
        for (const std::string& text : texts) {
            for (const char c : alphabet)
                longer.push_back(text + c);
        }
        texts = longer;
        for (const std::string& text : texts) {
            for (const int base : {0, 8, 10, 16})
                compareWithLibc(text, base, compared);
        }
    }
    const int all = 4 * (13 + 13 * 13 + 13 * 13 * 13 + 13 * 13 * 13 * 13);
    EXPECT_EQ(compared.inSigned, all);
    EXPECT_EQ(compared.inUnsigned, all);
}

TEST(NumbersBesideTheLibc, AgreeOnEveryByteInEveryBase)
{
    Compared compared;
    for (int base = 2; base <= 36; ++base) {
        for (int c = 1; c <= 255; ++c) {
            const char byte = static_cast<char>(c);
            for (const std::string& text : {std::string(1, byte), std::string("1") + byte, std::string("1") + byte + '1'})
                compareWithLibc(text, base, compared);
        }
    }
    EXPECT_EQ(compared.inSigned, 35 * 255 * 3);
    EXPECT_EQ(compared.inUnsigned, 35 * 255 * 3);
}

TEST(NumbersBesideTheLibc, AgreeOnNumbersOfEverySizeWithAnythingAround)
{
    std::mt19937                       random(20230817); // the same texts on every run
    const std::vector<std::string>     before = {"", " ", "\t\n ", "+", "-", " -", "0", "0x", "-0X", "00", "-0"};
    const std::vector<std::string>     after  = {"", " ", ";", "x", "-1", ".5", "g", "\xFF"};
    const std::vector<const char*>     digits = {"0123456789", "01234567", "0123456789abcdefABCDEF"};
    std::uniform_int_distribution<int> length(1, 10);
    const auto                         below = [&random](std::size_t limit) { return random() % limit; };

    Compared compared;
    for (int i = 0; i < 50000; ++i) {
        const std::string alphabet = digits[below(digits.size())];
        std::string       text     = before[below(before.size())];
        for (int n = length(random); n > 0; --n)
            text += alphabet[below(alphabet.size())];
        text += after[below(after.size())];
        for (const int base : {0, 8, 10, 16})
            compareWithLibc(text, base, compared);
    }
    EXPECT_GT(compared.inSigned, 100000);
    EXPECT_GT(compared.inUnsigned, 100000);
}

TEST(NumbersBesideTheLibc, AgreeWithinAFewOfEveryPowerOfTwo)
{
    Compared compared;
    for (int bit = 0; bit <= 32; ++bit) {
        for (std::int64_t offset = -3; offset <= 3; ++offset) {
            const std::int64_t number = (std::int64_t(1) << bit) + offset;
            for (const int base : {0, 10}) {
                compareWithLibc(std::to_string(number), base, compared);
                compareWithLibc(std::to_string(-number), base, compared);
            }
        }
    }
    EXPECT_GT(compared.inSigned, 800);
    EXPECT_GT(compared.inUnsigned, 800);
}

} // namespace
} // namespace ipsecimpl
