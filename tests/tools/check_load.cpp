#include "json.h"
#include "program.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <ostream>
#include <string>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

/// A document that does not load, and what check says about it.
struct Broken {
    std::string document;
    std::string place;   ///< line and column
    std::string line;    ///< as it is shown; empty if none is
    std::string marks;   ///< under it
    std::string message; ///< in lines as they are wrapped
};

std::ostream& operator<<(std::ostream& out, const Broken& broken)
{
    return out << broken.document;
}

std::string reportOf(const Broken& broken)
{
    const std::string number = broken.place.substr(0, broken.place.find(':'));
    std::string       text   = "standard input:" + broken.place + ": error: does-not-load\n";
    if (!broken.line.empty())
        text +=
            std::string(6 - number.size(), ' ') + number + " | " + broken.line + "\n       | " + broken.marks + '\n';
    return text + broken.message + "\n1 error in 1 file\n";
}

TEST(CheckLoadJson, TellsTheColumnsOfAWrongNextID)
{
    const Json finding =
        Json::parse(run({"check", "--json", "-"}, document("<nexthostGroup>abc</nexthostGroup>")).out)["findings"][0];
    EXPECT_EQ(finding["line"], 1);
    EXPECT_EQ(finding["column"], 20);
    EXPECT_EQ(finding["endColumn"], 20 + 34);
    EXPECT_EQ(finding["elements"], Json({"ipsec", "hostGroups"}));
}

TEST(CheckLoadJson, TellsWhereTheFirstEntryIsWithAnIDThatIsThereTwice)
{
    const std::string one     = entry("policy", 7, policy(1, 1, 1));
    const Json        finding = Json::parse(
               run({"check", "--json", "-"}, document("", "", "", "\n" + one + "\n" + one + "\n" + one)).out)["findings"][0];
    EXPECT_EQ(finding["line"], 3);
    EXPECT_EQ(finding["first"].dump(), R"({"line":2,"column":14})");
    EXPECT_FALSE(Json::parse(run({"check", "--json", "-"}, "<ipsec>").out)["findings"][0].contains("first"));
}

TEST(CheckLoad, SaysThatAWrongWordCanBeShownWhereItIsHidden)
{
    const std::string text = std::string("<ipsec><hostGroups/><protocolGroups/><actions><actionEntry><id>1</id>") +
                             action("a", "", "\n<spdAction>ENCRYPT</spdAction>");
    const std::string HINT = "--show-keys shows";
    EXPECT_THAT(run({"check", "-"}, text).out, HasSubstr(HINT));
    EXPECT_THAT(run({"check", "--show-keys", "-"}, text).out,
                AllOf(HasSubstr(" | <spdAction>ENCRYPT</spdAction>"), Not(HasSubstr(HINT))));
    EXPECT_THAT(run({"check", "--json", "-"}, text).out, Not(HasSubstr(HINT)));
    EXPECT_THAT(run({"check", "-"}, "<ipsec>\n<x>").out, Not(HasSubstr(HINT)));
}

class BrokenDocument : public testing::TestWithParam<Broken> {};

TEST_P(BrokenDocument, IsAFindingAtThePlaceWhereItsReaderGaveUp)
{
    EXPECT_EQ(run({"check", "-"}, GetParam().document), (Outcome{1, reportOf(GetParam()), ""}));
}

const char BEFORE_MODE[] = "<ipsec><hostGroups/><protocolGroups/>\n<actions>\n<actionEntry><id>1</id><action>"
                           "<changeCount>0</changeCount><name>n</name><builtinName>0</builtinName><descr>d</descr>"
                           "<builtinDescr>0</builtinDescr><type>0</type><state>0</state>\n";

// clang-format off
const Broken AT_TAGS[] = {
    {"<ipsec>\n<hostGroups>\n  </policies>\n", "3:3", "  </policies>", "  ^~~~~~~~~~~",
     "    Reading ends here: parse_end_tag: begin/end tags don't match. Write\n"
     "    </hostGroups> instead of this tag. Open elements: <ipsec> <hostGroups>. No\n"
     "    more of this document was checked.\n"},
    {"<ipsec>\n<policies>\n", "2:1", "<policies>", "^~~~~~~~~~",
     "    Reading ends here: parse_simple_tag: wrong tag; expected <hostGroups>, found\n"
     "    <policies>. Write <hostGroups> before this tag, or instead: the order is\n"
     "    fixed. Open elements: <ipsec>. No more of this document was checked.\n"},
    // The tag that is missing should stand before this one.
    {"<ipsec>\n\n </ipsec>", "3:2", " </ipsec>", " ^~~~~~~~",
     "    Reading ends here: parse_simple_tag: missing tag; expected <hostGroups>.\n"
     "    Write <hostGroups> before this tag: it cannot be left out. Open elements:\n"
     "    <ipsec>. No more of this document was checked.\n"},
    {"<ipsec a='1'>", "1:1", "<ipsec ***>", "^~~~~~~~~~~",
     "    Reading ends here: parse_tag_end: invalid attribute or missing '>'. End the\n"
     "    tag with '>'. The only attribute is value, of elements that hold a text.\n"
     "    Open elements: <ipsec>. No more of this document was checked.\n"},
    {"<ipsec><hostGroups><hostGroupEntry/>", "1:20", "<ipsec><hostGroups><hostGroupEntry/>",
                                                     "                   ^~~~~~~~~~~~~~~~~",
     "    Reading ends here: hostGroup missing required data. It cannot be empty:\n"
     "    write what belongs in it. Open elements: <ipsec> <hostGroups>. No more of\n"
     "    this document was checked.\n"},
};

const Broken AT_LEAVES[] = {
    {"<ipsec><hostGroups>\n<hostGroupEntry><id>0</id>", "2:17", "<hostGroupEntry><id>***</id>",
                                                                "                ^~~~~~~~~~~~",
     "    Reading ends here: invalid ID for hostGroup. Write a whole number from 1 to\n"
     "    2147483647. Open elements: <ipsec> <hostGroups> <hostGroupEntry>. No more of\n"
     "    this document was checked.\n"},
    {"<ipsec><hostGroups>\n<nexthostGroup>abc</nexthostGroup>\n", "2:1", "<nexthostGroup>***</nexthostGroup>",
                                                                     "^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~",
     "    Reading ends here: invalid value for nexthostGroup. Write a whole number\n"
     "    from 1 to 2147483647, or 2147483648 where no ID is left. Open elements:\n"
     "    <ipsec> <hostGroups>. No more of this document was checked.\n"},
    {std::string(BEFORE_MODE) + "<spdAction>ENCRYPT</spdAction>", "4:1", "<spdAction>***</spdAction>",
                                                                         "^~~~~~~~~~~~~~~~~~~~~~~~~~",
     "    Reading ends here: bad value (not shown) for <spdAction> in <action>. Write\n"
     "    one of these in <spdAction>: NONE, BYPASS, DISCARD, TRANSPORT, TUNNEL. Open\n"
     "    elements: <ipsec> <actions> <actionEntry> <action>. No more of this document\n"
     "    was checked. --show-keys shows what is written there.\n"},
    {document("", "", "", entry("policy", 1, policy(1, 1, 1)) + "\n" + entry("policy", 1, policy(2, 2, 2))),
     "2:14", "<policyEntry><id>***</id><policy><hostGroupID>***</hostGroupID><p...",
             "             ^~~~",
     "    Reading ends here: duplicate ID. The first entry with it has it at 1:108.\n"
     "    Write an ID that no other has. Open elements: <ipsec> <policies>\n"
     "    <policyEntry>. No more of this document was checked.\n"},
};

const Broken AT_TEXTS[] = {
    {"<ipsec>text<hostGroups>", "1:8", "<ipsec>***<hostGroups>", "       ^~~",
     "    Reading ends here: parse_tag: expected '<', found (not shown). Only elements\n"
     "    can stand here: remove this text. Open elements: <ipsec>. No more of this\n"
     "    document was checked.\n"},
    {"<?xml version='1.0'?>\n<ipsec>", "1:1", "***", "^~~",
     "    Reading ends here: parse_tag: unnamed tag (this format has no XML\n"
     "    declaration, comments, DOCTYPE or CDATA). Remove it. No more of this\n"
     "    document was checked.\n"},
    {document() + "\t<!-- end -->", "2:2", "    ***", "    ^~~",
     "    Reading ends here: something follows </ipsec>. Remove it: a file holds one\n"
     "    configuration. No more of this document was checked.\n"},
    {std::string("<ipsec>\n\0x", 10), "2:1", "***", "^~~",
     "    Reading ends here: the document does not load; why cannot be told, because\n"
     "    it holds a NUL character. Remove it: the first one is at 2:1. Open elements:\n"
     "    <ipsec>. No more of this document was checked.\n"},
};

const Broken AT_ENDS[] = {
    {"", "1:1", "", "",
     "    Reading ends here: the document is empty. Make a configuration with\n"
     "    'ipsec-policy new'. No more of this document was checked.\n"},
    {" \n\n", "1:1", " ", "^",
     "    Reading ends here: the document is empty. Make a configuration with\n"
     "    'ipsec-policy new'. No more of this document was checked.\n"},
    {"\xef\xbb\xbf" + document(), "1:1", "***<ipsec><hostGroups></hostGroups><protocolGroups></protocolGrou...",
                                         "^~~",
     "    Reading ends here: the document begins with a byte order mark, which this\n"
     "    format does not have. Store it as UTF-8 without one. No more of this\n"
     "    document was checked.\n"},
    {"<ipsec>\n\t<hostGroups>\n\n", "2:14", "    <hostGroups>", "                ^",
     "    Reading ends here: parse_tag: expected '<' (the document ends here). The\n"
     "    document is not complete. Take a whole copy, or add what is missing. Open\n"
     "    elements: <ipsec> <hostGroups>. No more of this document was checked.\n"},
    {"<ipsec>\r\n<host", "2:6", "***", "   ^",
     "    Reading ends here: parse_simple_tag: wrong tag; expected <hostGroups>, found\n"
     "    an unknown element (the document ends here). The document is not complete.\n"
     "    Take a whole copy, or add what is missing. Open elements: <ipsec>. No more\n"
     "    of this document was checked.\n"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(CheckLoadTags, BrokenDocument, testing::ValuesIn(AT_TAGS));
INSTANTIATE_TEST_SUITE_P(CheckLoadLeaves, BrokenDocument, testing::ValuesIn(AT_LEAVES));
INSTANTIATE_TEST_SUITE_P(CheckLoadTexts, BrokenDocument, testing::ValuesIn(AT_TEXTS));
INSTANTIATE_TEST_SUITE_P(CheckLoadEnds, BrokenDocument, testing::ValuesIn(AT_ENDS));

} // namespace
