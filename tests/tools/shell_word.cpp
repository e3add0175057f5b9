#include "shell_word.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ostream>
#include <string>

namespace {

struct Typed {
    std::string typed;
    std::string meant;
    char        openQuote = '\0';
};

std::ostream& operator<<(std::ostream& out, const Typed& word)
{
    return out << word.typed;
}

class ReadShellWord : public testing::TestWithParam<Typed> {};

TEST_P(ReadShellWord, IsWhatTheShellMakesOfIt)
{
    const ShellWord word = readShellWord(GetParam().typed);
    EXPECT_EQ(word.text, GetParam().meant);
    EXPECT_EQ(word.openQuote, GetParam().openQuote);
}

// clang-format off
const Typed WORDS[] = {
    {"",                    ""},
    {"plain",               "plain"},
    {"Head\\ office",       "Head office"},
    {"'Head office'",       "Head office"},
    {"'Head of",            "Head of", '\''},
    {"\"Head of",           "Head of", '"'},
    {"He'ad \"of'\"f'i\"ce","Head \"off'ice"},
    {"'back\\slash'",       "back\\slash"},
    {"\"a\\\"b\\\\c\\$d\\e\"", "a\"b\\c$d\\e"},
    {"ends\\",              "ends"},
    {"\"ends\\",            "ends\\", '"'},
    {"\\'",                 "'"},
    {"''",                  ""},
    {"'",                   "", '\''},
    {"a~/b",                "a~/b"},
    {"$HOME/x",             "$HOME/x"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(ShellWord, ReadShellWord, testing::ValuesIn(WORDS));

TEST(ShellWord, ATildeInFrontIsTheHomeFolder)
{
    setenv("HOME", "/home/me", 1);
    EXPECT_EQ(readShellWord("~/policy.xml").text, "/home/me/policy.xml");
    EXPECT_EQ(readShellWord("'~/policy.xml'").text, "~/policy.xml");
    EXPECT_EQ(readShellWord("~").text, "~");
}

TEST(ShellWord, IsTypedWithABackslashBeforeWhatAShellCouldTakeForSomethingElse)
{
    EXPECT_EQ(typedWord("Plain-1_2.3/4,5+6@7%", '\0'), "Plain-1_2.3/4,5+6@7%");
    EXPECT_EQ(typedWord("Head office", '\0'), "Head\\ office");
    EXPECT_EQ(typedWord("a'b\"c\\d$e`f!g*h?i[j]k{l}m~n#o&p;q(r)s<t>u|v=w:x^", '\0'),
              "a\\'b\\\"c\\\\d\\$e\\`f\\!g\\*h\\?i\\[j\\]k\\{l\\}m\\~n\\#o\\&p\\;q\\(r\\)s\\<t\\>u\\|v\\=w\\:x\\^");
    EXPECT_EQ(typedWord("Z\xc3\xbcrich", '\0'), "Z\xc3\xbcrich");
}

TEST(ShellWord, GoesOnBehindAnOpenQuoteAsItIs)
{
    EXPECT_EQ(typedWord("Head office's \"$1\"", '\''), std::nullopt);
    EXPECT_EQ(typedWord("Head \"office\" \\", '\''), "Head \"office\" \\");
    EXPECT_EQ(typedWord("Head office's", '"'), "Head office's");
    for (const char* name : {"a\"b", "a$b", "a`b", "a\\b", "a!b"})
        EXPECT_EQ(typedWord(name, '"'), std::nullopt) << name;
}

TEST(ShellWord, CannotBeTypedWithCharactersThatAreNotPrintable)
{
    for (const char* name : {"two\nlines", "tab\t", "\x1b[31m", "\xff", "\xe2\x80\xae", "\xc2\x9b", "\x7f"})
        for (const char quote : {'\0', '\'', '"'})
            EXPECT_EQ(typedWord(name, quote), std::nullopt);
}

class InShells : public testing::TestWithParam<const char*> {};

TEST_P(InShells, ATypedWordMeansWhatItDidBefore)
{
    const std::string shell = GetParam();
    if (std::system(("command -v " + shell + " >/dev/null 2>&1").c_str()) != 0)
        GTEST_SKIP() << shell << " is not installed";
    std::string all;
    for (char c = ' '; c <= '~'; ++c)
        all += c;
    for (const std::string& text : {all, std::string("~"), std::string("#x"), std::string("=x"), std::string("-x")}) {
        const std::string script = "[ " + *typedWord(text, '\0') + " = \"$TEXT\" ]";
        setenv("TEXT", text.c_str(), 1);
        setenv("SCRIPT", script.c_str(), 1);
        EXPECT_EQ(std::system((shell + " -c \"$SCRIPT\"").c_str()), 0) << script;
        EXPECT_EQ(readShellWord(*typedWord(text, '\0')).text, text);
    }
}

INSTANTIATE_TEST_SUITE_P(ShellWord, InShells, testing::Values("sh", "bash", "zsh", "fish"));

} // namespace
