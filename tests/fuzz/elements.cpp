#include "elements.h"

#include <gtest/gtest.h>

#include <string>

namespace ipsecimpl {
namespace {

struct Row {
    std::string text;
    std::size_t begin;
    std::string element;
    std::string name;
    std::string content;
    bool        isLeaf;
};

TEST(Elements, AnElementReachesToItsEndTagAndTheLineEndBehindIt)
{
    const Row rows[] = {
        {"<a>1</a>\n<b/>", 0, "<a>1</a>\n", "a", "1", true},
        {"<a>\n<a>1</a>\n<b/></a> ", 0, "<a>\n<a>1</a>\n<b/></a>", "a", "\n<a>1</a>\n<b/>", false},
        {"<a>\n<a>1</a>\n<b/></a> ", 4, "<a>1</a>\n", "a", "1", true},
        {"<a></a>x", 0, "<a></a>", "a", "", true},
        {"<a value=\"1\"/>\n", 0, "<a value=\"1\"/>", "a", "", false},
    };
    for (const Row& row : rows) {
        const Element element = elementAt(row.text, row.begin);
        EXPECT_EQ(element.in(row.text), row.element) << row.text;
        EXPECT_EQ(element.nameIn(row.text), row.name) << row.text;
        EXPECT_EQ(element.contentIn(row.text), row.content) << row.text;
        EXPECT_EQ(element.isLeaf, row.isLeaf) << row.text;
    }
}

TEST(Elements, AnElementWithoutAnEndTagIsItsStartTagAlone)
{
    EXPECT_EQ(elementAt("<a>", 0).in("<a>"), "<a>");
    EXPECT_EQ(elementAt("<a", 0).in("<a"), "<a");
    EXPECT_EQ(elementAt("<a>1", 0).in("<a>1"), "<a>");
    EXPECT_EQ(elementAt("<a><b></b>", 0).in("<a><b></b>"), "<a>");
}

TEST(Elements, AnEndTagThatIsCutShortEndsItsElement)
{
    EXPECT_EQ(elementAt("<a>1</", 0).in("<a>1</"), "<a>1</");
    EXPECT_EQ(elementAt("<a>1<", 0).in("<a>1<"), "<a>1<");
}

TEST(Elements, StartTagsAreNeitherEndTagsNorALessThanSignAtTheEnd)
{
    EXPECT_EQ(startTags("<a><b/></a><<"), (std::vector<std::size_t>{0, 3}));
    EXPECT_EQ(startTags(""), std::vector<std::size_t>{});
}

} // namespace
} // namespace ipsecimpl
