// What is taken for a tag or a leaf in the form in which the library writes, and what is left to the parser.

#include "xml/written_form.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ipsecimpl {
namespace {

/// What a match leaves unread, behind a `|`; "none" if there is none. No byte behind `text` may be looked at, so that it
/// is given up to its end, and with what would complete it behind.
template <class Match>
std::string leftBy(Match match, std::string_view text, std::string_view behind)
{
    const std::string      whole = std::string(text) + std::string(behind);
    const std::string_view ahead = std::string_view(whole).substr(0, text.size());
    const Rest             rest  = match(ahead);
    return rest == nullptr ? "none" : "|" + std::string(rest, ahead.data() + ahead.size());
}

struct Row {
    std::string_view text;
    std::string_view left;
};

/// Each row as it is, and that its text cut anywhere is no match unless all that is cut was to be left.
template <class Match>
void compare(const std::vector<Row>& rows, Match match)
{
    for (const Row& row : rows) {
        EXPECT_EQ(leftBy(match, row.text, ">>>>"), row.left) << row.text;
        if (row.left == "none")
            continue;
        const std::size_t taken = row.text.size() - (row.left.size() - 1);
        for (std::size_t size = 0; size < taken; ++size)
            EXPECT_EQ(leftBy(match, row.text.substr(0, size), row.text.substr(size)), "none") << row.text << ' ' << size;
    }
}

TEST(WrittenForm, OfAStartTagIsTheNameAloneBetweenBrackets)
{
    const auto match = [](std::string_view text) { return matchStartTag(text, "name"); };
    compare(
        {
            {"<name>", "|"},
            {"<name>text</name>", "|text</name>"},
            {"<name>>", "|>"},
            {"", "none"},
            {"(name>", "none"},
            {"<name)", "none"},
            {"<nane>", "none"},
            {"<names>", "none"},
            {"<nam>e>", "none"},
            {"<name >", "none"},
            {" <name>", "none"},
            {"<name/>", "none"},
            {"</name>", "none"},
        },
        match);
}

TEST(WrittenForm, OfAnEndTagIsASlashAndTheNameAloneBetweenBrackets)
{
    const auto match = [](std::string_view text) { return matchEndTag(text, "name"); };
    compare(
        {
            {"</name>", "|"},
            {"</name></names>", "|</names>"},
            {"", "none"},
            {"(/name>", "none"},
            {"<\\name>", "none"},
            {"</name)", "none"},
            {"</nane>", "none"},
            {"</names>", "none"},
            {"</nam>e>", "none"},
            {"</name >", "none"},
            {"<name>", "none"},
            {"< /name>", "none"},
        },
        match);
}

/// The text of a match and what it leaves.
std::string leaf(std::string_view text)
{
    std::string found;
    const auto  match = [&found](std::string_view ahead) {
        const LeafMatch matched = matchLeaf(ahead, "name");
        found                   = matched.text;
        return matched.rest;
    };
    const std::string left = leftBy(match, text, "</name>");
    return left == "none" ? left + found : found + left;
}

TEST(WrittenForm, OfALeafIsItsTagsAroundATextWhichIsTrimmed)
{
    EXPECT_EQ(leaf("<name>text</name>"), "text|");
    EXPECT_EQ(leaf("<name>text</name><next>"), "text|<next>");
    EXPECT_EQ(leaf("<name></name>"), "|");
    EXPECT_EQ(leaf("<name>x</name>"), "x|");
    EXPECT_EQ(leaf("<name> \t\n\v\f\r</name>"), "|");
    EXPECT_EQ(leaf("<name>\r\n  two words\t </name>"), "two words|");
    EXPECT_EQ(leaf("<name>/></name>"), "/>|");

    EXPECT_EQ(leaf(""), "none");
    EXPECT_EQ(leaf("<name>"), "none");
    EXPECT_EQ(leaf("<name>text"), "none");
    EXPECT_EQ(leaf("<name>text<"), "none");
    EXPECT_EQ(leaf("<name>text</name"), "none");
    EXPECT_EQ(leaf("<name>text</nane>"), "none");
    EXPECT_EQ(leaf("<name>text<name>"), "none");
    EXPECT_EQ(leaf("<name>te<x></name>"), "none");
    EXPECT_EQ(leaf("<nane>text</name>"), "none");
}

TEST(WrittenForm, OfANameIsBetweenBracketsAndOfCharactersOfTags)
{
    EXPECT_EQ(matchName("<name>"), "name");
    EXPECT_EQ(matchName("<n>text"), "n");
    EXPECT_EQ(matchName("<a.b-c_d:e&f0>"), "a.b-c_d:e&f0");

    EXPECT_EQ(matchName(""), "");
    EXPECT_EQ(matchName("<"), "");
    EXPECT_EQ(matchName("<>"), "");
    EXPECT_EQ(matchName("<name"), "");
    EXPECT_EQ(matchName(std::string_view("<name>", 5)), "");
    EXPECT_EQ(matchName("<name/>"), "");
    EXPECT_EQ(matchName("<name a='b'>"), "");
    EXPECT_EQ(matchName("</name>"), "");
    EXPECT_EQ(matchName(" <name>"), "");
    EXPECT_EQ(matchName("name>"), "");
    EXPECT_EQ(matchName("(name>"), "");
}

} // namespace
} // namespace ipsecimpl
