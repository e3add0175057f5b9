// Which byte is which: as the libc has it in the "C" locale, in which the tests run.

#include "xml/character.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace ipsecimpl {
namespace {

constexpr int end = std::char_traits<char>::eof();

TEST(Character, IsSpaceDigitOrAlphanumericAsTheLibcSays)
{
    for (int c = 0; c <= 255; ++c) {
        EXPECT_EQ(isSpace(c), std::isspace(c) != 0) << c;
        EXPECT_EQ(isDigit(c), std::isdigit(c) != 0) << c;
        EXPECT_EQ(isAlnum(c), std::isalnum(c) != 0) << c;
    }
}

TEST(Character, OfANameIsAlphanumericOrOneOfFourOthers)
{
    const std::string others = ".-_:";
    for (int c = 0; c <= 255; ++c) {
        const bool isOther = others.find(static_cast<char>(c)) != std::string::npos;
        EXPECT_EQ(isNameChar(c), std::isalnum(c) != 0 || isOther) << c;
        EXPECT_EQ(isTagChar(c), std::isalnum(c) != 0 || isOther || c == '&') << c;
    }
}

TEST(Character, TheEndOfInputIsNone)
{
    EXPECT_FALSE(isSpace(end));
    EXPECT_FALSE(isDigit(end));
    EXPECT_FALSE(isAlnum(end));
    EXPECT_FALSE(isNameChar(end));
    EXPECT_FALSE(isTagChar(end));
}

TEST(Character, IsAByteFrom0To255)
{
    for (int c = 0; c <= 255; ++c)
        EXPECT_EQ(toByte(static_cast<char>(c)), c);
}

} // namespace
} // namespace ipsecimpl
