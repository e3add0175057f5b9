#include "program.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>

using testing::HasSubstr;

namespace {

struct Sample {
    std::string name;
    std::string shown;
};

std::ostream& operator<<(std::ostream& out, const Sample& sample)
{
    return out << testing::PrintToString(sample.name);
}

class ShownName : public testing::TestWithParam<Sample> {};

TEST_P(ShownName, ReachesTheTerminalHarmless)
{
    const Outcome outcome =
        run({"show", "-"}, document(entry("hostGroup", 1, group("hostGroup", GetParam().name, GetParam().name, "")), "",
                                    "", entry("policy", 1, policy(1, 2, 3))));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("\n 1  " + GetParam().shown + "  (nothing)  " + GetParam().shown + "\n"));
    EXPECT_THAT(outcome.out, HasSubstr("\n 1  1 " + GetParam().shown + "  "));
}

// Each name is four columns wide at least, so that it and not the heading makes the column.
// clang-format off
const Sample SAMPLES[] = {
    {"a\x1b[31mb",                  "a\\x1b[31mb"},
    {"tab\there",                   "tab\\there"},
    {"one\ntwo\r.",                 "one\\ntwo\\r."},
    {std::string("nul\0.", 5),      "nul\\x00."},
    {"bell\a.\x7f.",                "bell\\x07.\\x7f."},
    {"C1 \xc2\x9b" "31m",           "C1 \\u{9b}31m"},
    {"raw \x9b" "31m",              "raw \\x9b31m"},
    // Else it could be taken for an escape.
    {"a back\\slash",               "a back\\\\slash"},
    {"a \\n and a \n.",             "a \\\\n and a \\n."},
    // Well-formed UTF-8 is shown, unless it hides or turns around what stands beside it.
    {"Z\xc3\xbcrich",               "Z\xc3\xbcrich"},
    {"\xd0\x9c\xd0\xbe\xd1\x81\xd0\xba\xd0\xb2\xd0\xb0", "\xd0\x9c\xd0\xbe\xd1\x81\xd0\xba\xd0\xb2\xd0\xb0"},
    {"\xe6\x9d\xb1\xe4\xba\xac",    "\xe6\x9d\xb1\xe4\xba\xac"},
    {"cafe\xcc\x81",                "cafe\xcc\x81"},
    {"key \xf0\x9f\x94\x91",        "key \xf0\x9f\x94\x91"},
    {"a\xe2\x80\xae" "b",           "a\\u{202e}b"},
    {"a\xe2\x81\xa6" "b",           "a\\u{2066}b"},
    {"a\xe2\x80\x8b" "b",           "a\\u{200b}b"},
    {"\xef\xbb\xbf" "bom",          "\\u{feff}bom"},
    {"tag \xf3\xa0\x80\x81.",       "tag \\u{e0001}."},
    // Bytes that are not UTF-8: alone, overlong, surrogate, beyond the end, cut short.
    {"bad \xff.",                   "bad \\xff."},
    {"bad \x80.",                   "bad \\x80."},
    {"bad \xc0\xaf.",               "bad \\xc0\\xaf."},
    {"bad \xe0\x9f\xbf.",           "bad \\xe0\\x9f\\xbf."},
    {"bad \xf0\x8f\xbf\xbf.",       "bad \\xf0\\x8f\\xbf\\xbf."},
    {"bad \xed\xa0\x80.",           "bad \\xed\\xa0\\x80."},
    {"bad \xf4\x90\x80\x80.",       "bad \\xf4\\x90\\x80\\x80."},
    {"bad \xf5\x80\x80\x80.",       "bad \\xf5\\x80\\x80\\x80."},
    {"bad \xe2\x82",                "bad \\xe2\\x82"},
    {"bad \xe2\x82.",               "bad \\xe2\\x82."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(ShowUnprintable, ShownName, testing::ValuesIn(SAMPLES));

TEST(ShowUnprintable, WideAndCombiningCharactersKeepTheColumnsAligned)
{
    const Outcome outcome =
        run({"show", "-"}, document(entry("hostGroup", 1, group("hostGroup", "\xe6\x9d\xb1\xe4\xba\xac", "wide", "")) +
                                    entry("hostGroup", 2, group("hostGroup", "cafe\xcc\x81s", "combining", "")) +
                                    entry("hostGroup", 3, group("hostGroup", "plain", "ascii", ""))));
    EXPECT_THAT(outcome.out, HasSubstr("ID  NAME   HOSTS      DESCRIPTION\n"
                                       " 1  \xe6\x9d\xb1\xe4\xba\xac   (nothing)  wide\n"
                                       " 2  cafe\xcc\x81s  (nothing)  combining\n"
                                       " 3  plain  (nothing)  ascii\n"));
}

TEST(ShowUnprintable, ALongTextIsNeverBrokenInsideACharacter)
{
    std::string name;
    for (int i = 0; i < 200; ++i)
        name += "\xe6\x9d\xb1";
    const Outcome outcome    = run({"show", "-"}, document(entry("hostGroup", 1, group("hostGroup", name, "", ""))));
    std::size_t   characters = 0;
    for (std::size_t i = outcome.out.find("\xe6\x9d\xb1"); i != std::string::npos;
         i             = outcome.out.find("\xe6\x9d\xb1", i + 3))
        ++characters;
    EXPECT_EQ(characters, 200U);
    EXPECT_THAT(outcome.out, testing::Not(HasSubstr("\\x")));
}

TEST(ShowUnprintable, KeysAreEscapedToo)
{
    const Outcome outcome = run(
        {"show", "--show-keys", "-"},
        document("", "",
                 entry("action", 1,
                       action("a", "",
                              "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal><protocol>"
                              "NONE</protocol><encryption>0</encryption><hash>2</hash></saProposal><inboundAuthKey>"
                              "k\x1b[2J</inboundAuthKey><outboundAuthKey>k</outboundAuthKey></manualKey>"))));
    EXPECT_THAT(outcome.out, HasSubstr("authentication key in \"k\\x1b[2J\"\n"));
}

} // namespace
