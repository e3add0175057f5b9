// docs/format.md names every element and word of the schema, and tells the rules as the tables of them do.

#include "schema/documents.h"
#include "schema/rules.h"
#include "support/documents.h"

#include <ipsecimpl/config.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

std::string contentOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

/// The lines of the page under a heading, up to the next one of its level.
std::vector<std::string> section(const std::string& heading)
{
    std::vector<std::string> lines;
    bool                     inside = false;
    for (const std::string& line : linesOf(contentOf(DOCS_DIR "/format.md"))) {
        if (line.compare(0, 3, "## ") == 0)
            inside = line == "## " + heading;
        else if (inside)
            lines.push_back(line);
    }
    EXPECT_FALSE(lines.empty()) << heading;
    return lines;
}

using Row = std::vector<std::string>; // the cells

/// The rows of the tables under a heading whose first column is called so.
std::vector<Row> rowsUnder(const std::string& heading, const std::string& column)
{
    std::vector<Row> rows;
    bool             wanted = false;
    for (const std::string& line : section(heading)) {
        if (line.compare(0, 2, "|-") == 0)
            continue;
        Row cells;
        for (std::size_t begin = 2, end = 0; (end = line.find(" |", begin)) != std::string::npos; begin = end + 3)
            cells.push_back(line.substr(begin, end - begin));
        if (cells.empty())
            wanted = false;
        else if (wanted)
            rows.push_back(cells);
        else
            wanted = cells[0] == column;
    }
    return rows;
}

/// The items of the list under a heading.
std::vector<std::string> itemsUnder(const std::string& heading)
{
    std::vector<std::string> items;
    for (const std::string& line : section(heading))
        if (line.compare(0, 2, "- ") == 0)
            items.push_back(line.substr(2));
    return items;
}

/// What stands between two marks, everywhere in the text.
std::set<std::string> allBetween(const std::string& before, const std::string& after, const std::string& text)
{
    std::set<std::string> found;
    for (std::size_t at = 0; (at = text.find(before, at)) != std::string::npos;) {
        at += before.size();
        const std::size_t end = text.find(after, at);
        found.insert(text.substr(at, end - at));
        at = end + after.size();
    }
    EXPECT_FALSE(found.empty()) << before;
    return found;
}

/// The lines as one piece of code: a long one without its middle, and a byte order mark so that it can be seen.
std::string code(const std::vector<std::string>& lines)
{
    const std::string mark = "\xEF\xBB\xBF";

    std::string text;
    for (const std::string& line : lines)
        text += line;
    if (text.compare(0, mark.size(), mark) == 0)
        text.replace(0, mark.size(), "U+FEFF");
    if (text.size() > 100)
        text.replace(40, text.size() - 80, " ... ");
    return text.empty() ? "nothing" : "`" + text + "`";
}

/// `document` without the lines at its beginning and end that are those of two other documents, too.
std::vector<std::string> difference(const std::string& document, const std::string& one, const std::string& other)
{
    const std::vector<std::string> a = linesOf(one), b = linesOf(other), lines = linesOf(document);
    std::size_t                    begin = 0, end = 0;
    while (begin < std::min(a.size(), b.size()) && a[begin] == b[begin])
        ++begin;
    while (end < std::min(a.size(), b.size()) - begin && a[a.size() - 1 - end] == b[b.size() - 1 - end])
        ++end;
    return {lines.begin() + static_cast<std::ptrdiff_t>(begin), lines.end() - static_cast<std::ptrdiff_t>(end)};
}

/// The whole lines that a rule changes, and what they are stored as.
template <class Rule>
std::string changedLines(const Rule& rule)
{
    const std::string document = changed(everyElement(), rule.from, rule.to);
    return code(difference(document, everyElement(), document));
}

template <class Rule>
std::string storedLines(const Rule& rule)
{
    const std::string document = changed(everyElement(), rule.from, rule.to);
    return code(difference(changed(everyElement(), rule.from, rule.stored), everyElement(), document));
}

const std::string& schema()
{
    static const std::string text = contentOf(SCHEMA_DIR "/ipsec.rng");
    return text;
}

TEST(FormatPage, ExplainsEveryElementAndNoOthers)
{
    std::set<std::string> explained;
    for (const Row& row : rowsUnder("Elements", "Element"))
        explained.insert(row[0]);

    std::set<std::string> expected;
    for (const std::string& name : allBetween("<element name=\"", "\"", schema()))
        expected.insert("`" + name + "`");
    EXPECT_EQ(explained, expected);
}

TEST(Schemas, ExplainEveryElementToEditors)
{
    const std::string     tag = "<element name=\"", documentation = "<a:documentation>";
    std::set<std::string> explained;
    for (std::size_t at = 0; (at = schema().find(tag, at)) != std::string::npos; ++at) {
        const std::size_t content = schema().find_first_not_of(" \n", schema().find('>', at) + 1);
        if (schema().compare(content, documentation.size(), documentation) == 0)
            explained.insert(schema().substr(at + tag.size(), schema().find('"', at + tag.size()) - at - tag.size()));
    }
    EXPECT_EQ(explained, allBetween(tag, "\"", schema()));
}

TEST(FormatPage, NamesEveryWordAndNoOthers)
{
    std::set<std::string> named;
    for (const std::string& code : allBetween("`", "`", joinedLines(section("Elements"))))
        if (code.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_+") == std::string::npos)
            named.insert(code);

    std::set<std::string> expected = allBetween("<value type=\"string\" datatypeLibrary=\"\">", "</value>", schema());
    expected.erase("0"); // numbers that decide on other elements
    expected.erase("1");
    EXPECT_EQ(named, expected);
}

TEST(FormatPage, ShowsTheSmallestDocumentAsItIsStored)
{
    const std::string text     = joinedLines(section("The written form"));
    const std::string smallest = "<ipsec><hostGroups/><protocolGroups/><actions/><policies/></ipsec>";
    EXPECT_EQ(allBetween("`<ipsec>", "`", text).count(smallest.substr(7)), 1U);
    EXPECT_EQ(allBetween("```xml\n", "```", text), std::set<std::string>{rewritten<IPsecConfig>(smallest)});
}

TEST(FormatPage, TellsWithAReasonWhereTheReaderTakesMore)
{
    std::vector<Row> expected;
    for (const TakenByReader& rule : takenByReader())
        expected.push_back({rule.rule, changedLines(rule), storedLines(rule)});

    std::vector<Row> rows = rowsUnder("Where the reader takes more", "Rule");
    for (Row& row : rows) {
        ASSERT_EQ(row.size(), 4U) << row[0];
        EXPECT_NE(row.back(), "") << row[0];
        row.pop_back();
    }
    EXPECT_EQ(rows, expected);
}

TEST(FormatPage, TellsWhatNoSchemaCanSay)
{
    std::vector<Row> expected;
    for (const TakenBySchema& rule : takenBySchema())
        expected.push_back({rule.rule, changedLines(rule), rule.message.empty() ? storedLines(rule) : "refused"});
    EXPECT_EQ(rowsUnder("What no schema can say", "Rule"), expected);
}

TEST(FormatPage, TellsWhatTheXMLSchemaCannotSay)
{
    std::vector<std::string> expected;
    for (const RefusedByBoth& rule : refusedByBoth())
        if (rule.xsd == XSD::Takes)
            expected.push_back(rule.rule);
    for (const TakenByReader& rule : takenByReader())
        if (rule.xsd == XSD::Takes)
            expected.push_back(rule.rule);
    EXPECT_EQ(itemsUnder("What ipsec.xsd cannot say"), expected);
}

TEST(FormatPage, TellsWhichTextsAreNoXML)
{
    std::vector<std::string> expected;
    for (const NoXML& text : noXML())
        expected.push_back(text.rule);
    EXPECT_EQ(itemsUnder("Where it is no XML"), expected);
}

} // namespace
} // namespace ipsecimpl
