#include "excerpt.h"
#include "position.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// What is shown of a line, as it looks on a terminal.
std::string shown(const std::string& document, Span what, std::size_t width, const std::vector<Span>& hidden = {})
{
    Excerpt excerpt;
    takeExcerpt(excerpt, document, excerptSpan(document, what, width), what, hidden, width);
    return excerpt.line + '\n' + excerpt.marks;
}

/// The place of `piece` in `document`.
Span placeOf(const std::string& document, std::string_view piece)
{
    return {document.find(piece), piece.size()};
}

TEST(CheckExcerpt, IsTheLineWithAMarkUnderWhatIsMeant)
{
    const std::string document = "<a>\n<b>text</b>\n<c>";
    EXPECT_EQ(shown(document, placeOf(document, "text"), 40), "<b>text</b>\n"
                                                              "   ^~~~");
}

TEST(CheckExcerpt, HasACaretWhereNothingStands)
{
    EXPECT_EQ(shown("<b></b>\n", {3, 0}, 40), "<b></b>\n"
                                              "   ^");
    EXPECT_EQ(shown("<b>\n", {3, 0}, 40), "<b>\n"
                                          "   ^");
    EXPECT_EQ(shown("<b>", {3, 0}, 40), "<b>\n"
                                        "   ^");
    EXPECT_EQ(shown("", {0, 0}, 40), "\n^");
}

TEST(CheckExcerpt, MarksToTheEndOfTheLineAtMost)
{
    EXPECT_EQ(shown("<a>\n<b>\n</a>", {0, 12}, 40), "<a>\n"
                                                    "^~~");
}

TEST(CheckExcerpt, CountsTabsAndWideCharactersAsTheTerminalDoes)
{
    const std::string document = "\t\xe6\xbc\xa2\xcc\x88\xc3\xa9<b>\x01</b>";
    EXPECT_EQ(shown(document, placeOf(document, "\x01"), 40), "    \xe6\xbc\xa2\xcc\x88\xc3\xa9<b>\\x01</b>\n"
                                                              "          ^~~~");
}

TEST(CheckExcerpt, LeavesOutACarriageReturnAtTheEndOfALineOnly)
{
    EXPECT_EQ(shown("<b>\rx\r\n", {0, 1}, 40), "<b>\\rx\n"
                                               "^");
}

TEST(CheckExcerpt, HidesPieces)
{
    const std::string document = "<k>secret</k><k>other</k>";
    EXPECT_EQ(shown(document, placeOf(document, "other"), 40, {{3, 6}, {16, 5}}), "<k>***</k><k>***</k>\n"
                                                                                  "             ^~~");
}

TEST(CheckExcerpt, HidesWhatALongHiddenPieceLeavesBeforeTheWindow)
{
    const std::string document = "<k>" + std::string(10000, 's') + "</k><n>0</n>";
    EXPECT_EQ(shown(document, placeOf(document, "0"), 40, {{3, 10000}}), "...***</k><n>0</n>\n"
                                                                         "             ^");
}

std::string digits(std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += static_cast<char>('0' + i % 10);
    return text;
}

struct Clipping {
    const char* what;
    std::size_t offset;
    std::size_t length;
    const char* expected;
};

std::ostream& operator<<(std::ostream& out, const Clipping& clipping)
{
    return out << clipping.what;
}

class ClippedLine : public testing::TestWithParam<Clipping> {};

TEST_P(ClippedLine, FitsTheWidthAndHasTheCaret)
{
    const std::string text = shown(digits(1000), {GetParam().offset, GetParam().length}, 20);
    EXPECT_EQ(text, GetParam().expected);
    EXPECT_LE(text.find('\n'), 20U);
}

const Clipping CLIPPINGS[] = {
    {"at the start", 0, 1, "01234567890123...\n^"},
    {"near the start", 3, 2, "01234567890123...\n   ^~"},
    {"in the middle", 500, 3, "...34567890123456...\n          ^~~"},
    {"longer than what is shown", 500, 300, "...34567890123456...\n          ^~~~~~~"},
    {"near the end", 997, 2, "...67890123456789\n              ^~"},
    {"at the end", 1000, 0, "...67890123456789\n                 ^"},
};

INSTANTIATE_TEST_SUITE_P(CheckExcerpt, ClippedLine, testing::ValuesIn(CLIPPINGS));

TEST(CheckExcerpt, CutsNoCharacterInTwo)
{
    std::string document;
    for (int i = 0; i < 1000; ++i)
        document += "\xc3\xa9";
    for (const std::size_t at : {900U, 902U, 904U, 906U})
        EXPECT_EQ(shown(document, {at, 2}, 12), "...\xc3\xa9\xc3\xa9\xc3\xa9\xc3\xa9\xc3\xa9\xc3\xa9...\n      ^");
}

TEST(CheckExcerpt, LooksAtAFewCharactersOfALongLineOnly)
{
    const std::string document(1'000'000, 'x');
    const Span        span = excerptSpan(document, {500'000, 1}, 80);
    EXPECT_LT(500'000 - span.offset, 500U);
    EXPECT_LT(span.length, 1000U);
}

TEST(CheckPosition, CountsLinesAndCharacters)
{
    const std::string document = "ab\n\n\xc3\xa9\t\xffx\r\ny";
    PositionCounter   counter(document);
    const auto        at = [&](std::size_t offset) {
        const Position position = counter.at(offset);
        return std::to_string(position.line) + ':' + std::to_string(position.column);
    };
    EXPECT_EQ(at(0), "1:1");
    EXPECT_EQ(at(0), "1:1");
    EXPECT_EQ(at(1), "1:2");
    EXPECT_EQ(at(2), "1:3");
    EXPECT_EQ(at(3), "2:1");
    EXPECT_EQ(at(4), "3:1");
    EXPECT_EQ(at(6), "3:2");
    EXPECT_EQ(at(7), "3:3");
    EXPECT_EQ(at(8), "3:4");
    EXPECT_EQ(at(11), "4:1");
    EXPECT_EQ(at(12), "4:2");
}

} // namespace
