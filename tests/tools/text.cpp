#include "text.h"

#include "blocks.h"
#include "lines.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

/// Whether the text is plain, as one byte after the other tells.
bool isPlainByteByByte(const std::string& text)
{
    return text.find_first_not_of(" !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[]^_`"
                                  "abcdefghijklmnopqrstuvwxyz{|}~") == std::string::npos;
}

TEST(IsPlain, IsWhatEachByteSaysWhereverItStands)
{
    for (std::size_t size = 0; size < 20; ++size)
        for (std::size_t at = 0; at < size; ++at)
            for (int byte = 0; byte < 256; ++byte)
                for (const char other : {' ', '~', 'a', '['}) {
                    std::string text(size, other);
                    text[at] = static_cast<char>(byte);
                    ASSERT_EQ(isPlain(text), isPlainByteByByte(text)) << size << ' ' << at << ' ' << byte;
                }
    EXPECT_TRUE(isPlain(""));
}

TEST(Wrap, BreaksAtBlanksAndIndentsFurtherLines)
{
    EXPECT_THAT(wrapped("one two three", 7, 0), ElementsAre("one two", "three"));
    EXPECT_THAT(wrapped("one two three", 8, 2), ElementsAre("one two", "  three"));
    EXPECT_THAT(wrapped("  one two three", 9, 2), ElementsAre("  one two", "    three"));
}

TEST(Wrap, BreaksAWordThatIsTooLong)
{
    EXPECT_THAT(wrapped("abcdefghij", 4, 0), ElementsAre("abcd", "efgh", "ij"));
    EXPECT_THAT(wrapped("a bcdefghij", 4, 1), ElementsAre("a", " bcd", " efg", " hij"));
}

TEST(Wrap, LeavesNoBlanksAtTheEndsOfLines)
{
    EXPECT_THAT(wrapped("one   two   ", 6, 0), ElementsAre("one", "two"));
    EXPECT_THAT(wrapped("", 6, 0), ElementsAre(""));
    EXPECT_THAT(wrapped("   ", 6, 0), ElementsAre(""));
}

TEST(Wrap, KeepsACombiningCharacterWithTheOneThatItIsDrawnOn)
{
    EXPECT_THAT(wrapped("abce\xcc\x81z", 4, 0), ElementsAre("abce\xcc\x81", "z"));
}

TEST(Wrap, CountsWideCharactersTwice)
{
    EXPECT_THAT(wrapped("\xe6\x9d\xb1\xe6\x9d\xb1\xe6\x9d\xb1", 4, 0),
                ElementsAre("\xe6\x9d\xb1\xe6\x9d\xb1", "\xe6\x9d\xb1"));
}

std::string textOf(const Blocks& blocks)
{
    std::string text;
    for (const std::string_view block : blocks.all())
        text += block;
    return text;
}

TEST(Blocks, KeepTheirTextInOrderWhateverItsPieces)
{
    Blocks      blocks;
    std::string expected;
    for (std::size_t size = 0; size < 3000; size += 7) {
        const std::string piece(size, static_cast<char>('a' + size % 26));
        blocks.append(size % 5, piece);
        expected += std::string(size % 5, ' ') + piece;
    }
    blocks.append(std::string(1'000'000, 'z'));
    expected.append(1'000'000, 'z');
    EXPECT_EQ(textOf(blocks), expected);
    EXPECT_EQ(textOf(Blocks()), "");
}

TEST(Lines, StayWholeWhereABlockEnds)
{
    Lines                    lines;
    std::vector<std::string> expected;
    for (int i = 0; i < 20'000; ++i) {
        const std::string name(static_cast<std::size_t>(i % 97), 'n');
        lines << "ID " << i << ' ' << name << '.';
        lines.end(i % 3 == 0);
        expected.push_back("ID " + std::to_string(i) + ' ' + name + '.');
    }
    ASSERT_EQ(lines.count(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        ASSERT_EQ(lines.text(i), expected[i]);
        ASSERT_EQ(lines.columns(i), expected[i].size());
        ASSERT_EQ(lines.marked(i), i % 3 == 0);
    }
}

TEST(Lines, AreMadePrintableAndLoseBlanksAtTheirEnds)
{
    Lines lines;
    lines << "a"
          << std::string("\x1b"
                         "b\xff\\  ");
    lines.end();
    lines << std::string("\x07") << " \xe6\x9d\xb1";
    lines.end();
    lines.end();
    lines << -5 << ' ' << 4294967295UL << " 0x";
    lines.hex(255);
    lines.end();
    EXPECT_EQ(lines.text(0), "a\\x1bb\\xff\\\\");
    EXPECT_EQ(lines.text(1), "\\x07 \xe6\x9d\xb1");
    EXPECT_EQ(lines.columns(1), 7U);
    EXPECT_EQ(lines.text(2), "");
    EXPECT_EQ(lines.text(3), "-5 4294967295 0xff");
}

} // namespace
