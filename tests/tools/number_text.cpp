#include "number_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Case {
    const char* text;
    const char* stored;
    bool        isDecimal;
    NumberForm  form;
};

class FormOf : public testing::TestWithParam<Case> {};

TEST_P(FormOf, IsTheWorstThatHappenedToANumber)
{
    const Case& c = GetParam();
    EXPECT_EQ(formOf(c.text, c.stored, c.isDecimal), c.form) << '\'' << c.text << "' stored as " << c.stored;
}

// clang-format off
const Case CASES[] = {
    {"",               "0",           false, NumberForm::NONE},
    {"abc",            "0",           false, NumberForm::NONE},
    {"x10",            "0",           false, NumberForm::NONE},
    {"-",              "0",           false, NumberForm::NONE},
    {"+",              "0",           true,  NumberForm::NONE},
    {"- 5",            "0",           false, NumberForm::NONE},
    {"+-5",            "0",           true,  NumberForm::NONE},
    {".5",             "0",           false, NumberForm::NONE},

    {"12abc",          "12",          false, NumberForm::CUT_SHORT},
    {"12abc",          "12",          true,  NumberForm::CUT_SHORT},
    {"28 800",         "28",          false, NumberForm::CUT_SHORT},
    {"1.5",            "1",           false, NumberForm::CUT_SHORT},
    {"0x",             "0",           false, NumberForm::CUT_SHORT},
    {"0xg",            "0",           false, NumberForm::CUT_SHORT},
    {"0b101",          "0",           false, NumberForm::CUT_SHORT},
    {"0x1g",           "1",           false, NumberForm::CUT_SHORT},
    {"0x50",           "0",           true,  NumberForm::CUT_SHORT},
    {"08",             "0",           false, NumberForm::CUT_SHORT},
    {"0179",           "15",          false, NumberForm::CUT_SHORT},
    {"010 ",           "8",           false, NumberForm::OCTAL},
    {"010s",           "8",           false, NumberForm::CUT_SHORT},
    {"-5s",            "-5",          false, NumberForm::CUT_SHORT},

    {"-1",             "4294967295",  false, NumberForm::NEGATIVE},
    {"-0x10",          "4294967280",  false, NumberForm::NEGATIVE},
    {"-010",           "4294967288",  false, NumberForm::NEGATIVE},
    {"-99999999999",   "4294967295",  false, NumberForm::NEGATIVE},
    {"-4294967295",    "1",           false, NumberForm::NEGATIVE},
    {"-1",             "65535",       true,  NumberForm::NEGATIVE},
    {"-65536",         "0",           true,  NumberForm::NEGATIVE},

    {"4294967296",     "4294967295",  false, NumberForm::TOO_LARGE},
    {"0x100000000",    "4294967295",  false, NumberForm::TOO_LARGE},
    {"040000000000",   "4294967295",  false, NumberForm::TOO_LARGE},
    {"2147483648",     "2147483647",  false, NumberForm::TOO_LARGE},
    {"2147483648",     "2147483647",  true,  NumberForm::TOO_LARGE},
    {"-2147483649",    "-2147483648", false, NumberForm::TOO_LARGE},
    {"99999999999999999999999999", "4294967295", false, NumberForm::TOO_LARGE},
    {"4294967296s",    "4294967295",  false, NumberForm::TOO_LARGE},

    {"65536",          "0",           true,  NumberForm::TRUNCATED},
    {"65616",          "80",          true,  NumberForm::TRUNCATED},
    {"99999999999",    "65535",       true,  NumberForm::TRUNCATED},
    {"0200000",        "3392",        true,  NumberForm::TRUNCATED},
    {"070000",         "4464",        true,  NumberForm::TRUNCATED},

    {"010",            "8",           false, NumberForm::OCTAL},
    {"+010",           "8",           false, NumberForm::OCTAL},
    {"-010",           "-8",          false, NumberForm::OCTAL},
    {"037777777777",   "4294967295",  false, NumberForm::OCTAL},

    {"0x10",           "16",          false, NumberForm::HEXADECIMAL},
    {"0XfF",           "255",         false, NumberForm::HEXADECIMAL},
    {"-0x10",          "-16",         false, NumberForm::HEXADECIMAL},
    {"0x0",            "0",           false, NumberForm::HEXADECIMAL},

    {"+5",             "5",           false, NumberForm::SPELLING},
    {"-0",             "0",           false, NumberForm::SPELLING},
    {"00",             "0",           false, NumberForm::SPELLING},
    {"07",             "7",           false, NumberForm::SPELLING},
    {"010",            "10",          true,  NumberForm::SPELLING},
    {"0080",           "80",          true,  NumberForm::SPELLING},
    {" 5\t",           "5",           false, NumberForm::SPELLING},

    {"5",              "6",           false, NumberForm::UNKNOWN},
    {"5",              "0",           true,  NumberForm::UNKNOWN},
    {"-5",             "-6",          false, NumberForm::UNKNOWN},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(NumberText, FormOf, testing::ValuesIn(CASES));

TEST(NumberText, AWholeNumberOfAtMost32BitsMayBeShown)
{
    for (const char* text : {"0", "5", "08", "+5", "-2147483648", "0x10", "0xFFFFFFFF", "-0xffffffff", "037777777777"})
        EXPECT_TRUE(isPrintableNumber(text)) << text;
}

TEST(NumberText, AnythingElseMayNotBeShown)
{
    for (const char* text : {"", "+", "0x", "abc", "12abc", "deadbeef", "1 2", " 5", "0x1g", "--5", "1234567890123"})
        EXPECT_FALSE(isPrintableNumber(text)) << text;
}

TEST(NumberText, AnIDIsReadAsTheLibraryDoes)
{
    EXPECT_EQ(readID("7"), 7U);
    EXPECT_EQ(readID("007"), 7U);
    EXPECT_EQ(readID(" +12abc"), 12U);
    EXPECT_EQ(readID("2147483647"), 2147483647U);
    EXPECT_EQ(readID("2147483648"), 2147483647U);
    EXPECT_EQ(readID("99999999999999999999999999"), 2147483647U);
}

TEST(NumberText, AnUnsignedNumberIsReadAsTheLibraryDoes)
{
    EXPECT_EQ(readUnsigned("12"), 12U);
    EXPECT_EQ(readUnsigned(" +12abc"), 12U);
    EXPECT_EQ(readUnsigned("012"), 10U);
    EXPECT_EQ(readUnsigned("0x1F"), 31U);
    EXPECT_EQ(readUnsigned("0x"), 0U);
    EXPECT_EQ(readUnsigned("0b11"), 0U);
    EXPECT_EQ(readUnsigned("twelve"), 0U);
    EXPECT_EQ(readUnsigned(""), 0U);
    EXPECT_EQ(readUnsigned("-1"), 4294967295U);
    EXPECT_EQ(readUnsigned("-4294967295"), 1U);
    EXPECT_EQ(readUnsigned("4294967295"), 4294967295U);
    EXPECT_EQ(readUnsigned("-4294967296"), 4294967295U);
    EXPECT_EQ(readUnsigned("99999999999999999999999999"), 4294967295U);
}

} // namespace
