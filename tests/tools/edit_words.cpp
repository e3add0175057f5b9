#include "edit_words.h"

#include "random_text.h"

#include <gmock/gmock.h>

#include <random>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Spelling {
    std::string text;
    std::string quoted;
};

// clang-format off
const Spelling SPELLINGS[] = {
    {"web",              "web"},
    {"10.2.0.0/16",      "10.2.0.0/16"},
    {"2001:db8::1",      "2001:db8::1"},
    {"IKE_AES_SHA",      "IKE_AES_SHA"},
    {"ESP+AH",           "ESP+AH"},
    {"",                 "\"\""},
    {"head office",      "\"head office\""},
    {"#1",               "\"#1\""},
    {"@key",             "\"@key\""},
    {"?",                "\"?\""},
    {"a=b",              "\"a=b\""},
    {"a,b",              "\"a,b\""},
    {"--cascade",        "\"--cascade\""},
    {"say \"hi\"",       "\"say \\\"hi\\\"\""},
    {"C:\\new",          "\"C:\\\\new\""},
    {"a\nb\tc\rd",       "\"a\\nb\\tc\\rd\""},
    {"\x1b[31m",         "\"\\x1b[31m\""},
    {std::string(1, '\0'), "\"\\x00\""},
    {"\xff\xc3",         "\"\\xff\\xc3\""},
    {"Zürich",           "\"Zürich\""},
    {"\u202e\u0085",     "\"\\u{202e}\\u{85}\""},
};
// clang-format on

TEST(Quoting, ProtectsWhatMeansSomethingAndNothingElse)
{
    for (const Spelling& spelling : SPELLINGS) {
        EXPECT_EQ(quotedWord(spelling.text), spelling.quoted);
        EXPECT_EQ(unquoted(spelling.quoted), spelling.text);
        EXPECT_THAT(splitWords(spelling.quoted), ElementsAre(spelling.quoted));
        EXPECT_EQ(withoutComment(spelling.quoted), spelling.quoted);
    }
}

TEST(Quoting, OfAnyBytesGivesOneWordThatGivesThemBack)
{
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = randomText(random);
        const std::string word = quotedWord(text);
        ASSERT_EQ(unquoted(word), text) << word;
        ASSERT_THAT(splitWords(withoutComment(word)), ElementsAre(word));
        ASSERT_THAT(splitList(word), ElementsAre(word));
        ASSERT_EQ(word.find('\n'), std::string::npos) << "a command is one line";
        ASSERT_EQ(assignmentIn(word).has_value(), false) << word;
        ASSERT_EQ(assignmentIn("x=" + word).value().value, word);
    }
}

TEST(Quoting, MayBeginAndEndInsideAWord)
{
    EXPECT_EQ(unquoted("head\" \"office"), "head office");
    EXPECT_EQ(unquoted("\"a\"\"b\""), "ab");
    EXPECT_EQ(unquoted("a\\n\"\\n\""), "a\\n\n") << "escapes are for quotes";
}

TEST(Quoting, MayBeSingleWhereAWordAValueOrAMemberOfAListBegins)
{
    EXPECT_EQ(unquoted("'head office'"), "head office");
    EXPECT_EQ(unquoted("'a \"b\" \\n'"), "a \"b\" \\n") << "there are no escapes in them";
    EXPECT_EQ(unquoted("descr='a, b'"), "descr=a, b");
    EXPECT_EQ(unquoted("@'my key'"), "@my key");
    EXPECT_EQ(unquoted("'it'\"'\"'s'"), "it's");
    EXPECT_EQ(unquoted("\"it's\""), "it's");
    EXPECT_THAT(splitWords("add host-group 'head  office' descr='it is \"x\"'"),
                ElementsAre("add", "host-group", "'head  office'", "descr='it is \"x\"'"));
    EXPECT_THAT(splitList("tcp/443 named 'a, b', 'in'"), ElementsAre("tcp/443 named 'a, b'", "'in'"));
    EXPECT_EQ(withoutComment("'# a' #b"), "'# a' ");
    EXPECT_FALSE(assignmentIn("'descr=a'"));
    EXPECT_FALSE(assignmentIn("'descr'=a"));
    EXPECT_EQ(assignmentIn("descr='a=b'").value().value, "'a=b'");
}

TEST(Quoting, LeavesApostrophesInAWordAlone)
{
    EXPECT_EQ(unquoted("Bob's"), "Bob's");
    EXPECT_THAT(splitWords("Bob's Ann's"), ElementsAre("Bob's", "Ann's"));
    EXPECT_THAT(splitList("a'b,c'd"), ElementsAre("a'b", "c'd"));
    EXPECT_EQ(assignmentIn("descr=it's").value().value, "it's");
}

TEST(Quoting, KnowsCodePointsOfOneToFourBytes)
{
    EXPECT_EQ(unquoted("\"\\u{41}\\u{e9}\\u{20AC}\\u{1f600}\\u{10ffff}\""), "A\u00e9\u20ac\U0001f600\U0010ffff");
    EXPECT_EQ(unquoted("\"\\xE9\\x0a\""), "\xe9\n");
}

TEST(Quoting, RefusesOtherEscapes)
{
    for (const std::string word :
         {"\"\\q\"", "\"\\x\"", "\"\\x1\"", "\"\\xg0\"", "\"\\u\"", "\"\\u{}\"", "\"\\u{1234567}\"", "\"\\u{110000}\"",
          "\"\\u{d800}\"", "\"\\u{12\"", "\"\\u12}\"", "\"\\u{-1}\"", "\"\\"}) {
        try {
            unquoted(word);
            ADD_FAILURE() << word;
        } catch (const Failure& failure) {
            EXPECT_STREQ(failure.what(), "an escape in quotes is none of \\\" \\\\ \\n \\r \\t \\xHH \\u{H...}");
            EXPECT_EQ(failure.status, ExitStatus::TROUBLE);
        }
    }
}

TEST(Quoting, MustEnd)
{
    for (const std::string text : {"\"", "a \"b", "a \"b\\\" c", "'", "a 'b", "a='b", "'a\\' 'b"}) {
        try {
            splitWords(text);
            ADD_FAILURE() << text;
        } catch (const Failure& failure) {
            EXPECT_STREQ(failure.what(), "a quote is not closed");
        }
    }
}

TEST(Words, AreSeparatedByBlanksOutsideQuotes)
{
    EXPECT_THAT(splitWords(" add\t host-group  \"head  office\" descr=\"a b\"\r"),
                ElementsAre("add", "host-group", "\"head  office\"", "descr=\"a b\""));
    EXPECT_THAT(splitWords(" \t"), IsEmpty());
}

TEST(Comments, BeginWithAHashAtTheStartOfAWord)
{
    EXPECT_EQ(withoutComment("a b # c"), "a b ");
    EXPECT_EQ(withoutComment("# \"never closed"), "");
    EXPECT_EQ(withoutComment("\t#"), "\t");
    EXPECT_EQ(withoutComment("a#b \"# c\" d=#e"), "a#b \"# c\" d=#e");
}

TEST(Lists, AreSeparatedByCommasOutsideQuotes)
{
    EXPECT_THAT(splitList("10.2.0.0/16, any"), ElementsAre("10.2.0.0/16", "any"));
    EXPECT_THAT(splitList(" tcp/443 named \"a, b\" ,in"), ElementsAre("tcp/443 named \"a, b\"", "in"));
    EXPECT_THAT(splitList("a,,b,"), ElementsAre("a", "", "b", ""));
    EXPECT_THAT(splitList(" "), IsEmpty());
}

TEST(Assignments, AreSplitAtTheFirstEqualsSignOutsideQuotes)
{
    const auto assignment = assignmentIn("descr=a=\"b\"");
    ASSERT_TRUE(assignment);
    EXPECT_EQ(assignment->name, "descr");
    EXPECT_EQ(assignment->value, "a=\"b\"");
    EXPECT_FALSE(assignmentIn("\"descr=a\""));
    EXPECT_FALSE(assignmentIn("\"descr\"=a"));
    EXPECT_FALSE(assignmentIn("descr"));
    EXPECT_EQ(assignmentIn("descr=").value().value, "");
}

} // namespace
