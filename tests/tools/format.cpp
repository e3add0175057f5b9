#include "program.h"

#include "support/xml.h"

#include <ipsecimpl/ipsecimpl.h>

#include <ostream>
#include <string>

using namespace ipsecimpl;

namespace {

const char EXAMPLES[] = EXAMPLES_DIR "/configs/";

class FormatExample : public testing::TestWithParam<const char*> {};

TEST_P(FormatExample, GivesWhatTheLibraryWritesOfIt)
{
    const std::string path = std::string(EXAMPLES) + GetParam();
    EXPECT_EQ(run({"format", path}), printed(rewritten<IPsecConfig>(contentOf(path))));
}

TEST_P(FormatExample, IsStableOnTheSecondPass)
{
    const Outcome once = run({"format", std::string(EXAMPLES) + GetParam()});
    EXPECT_EQ(run({"format", "-"}, once.out), printed(once.out));
}

INSTANTIATE_TEST_SUITE_P(Format, FormatExample,
                         testing::Values("home-router.xml", "branch-office.xml", "server-farm.xml"));

TEST(Format, TurnsEveryFormThatIsReadIntoTheWrittenOne)
{
    EXPECT_EQ(run({"format", "-"},
                  "  <ipsec >\n<hostGroups/><protocolGroups><nextprotocolGroup>3</nextprotocolGroup>"
                  "</protocolGroups><actions></actions><policies><policyEntry><id value='7'/>"
                  "<policy><hostGroupID>0x10</hostGroupID><protocolGroupID value=\"2\"/><actionID>+0</actionID>"
                  "</policy></policyEntry></policies></ipsec>\v \n"),
              printed("<ipsec>\n<hostGroups>\n<nexthostGroup>1</nexthostGroup>\n</hostGroups>\n<protocolGroups>\n"
                      "<nextprotocolGroup>3</nextprotocolGroup>\n</protocolGroups>\n<actions>\n"
                      "<nextaction>1</nextaction>\n</actions>\n<policies>\n<nextpolicy>8</nextpolicy>\n<policyEntry>\n"
                      "<id>7</id>\n<policy>\n<hostGroupID>16</hostGroupID>\n<protocolGroupID>2</protocolGroupID>\n"
                      "<actionID>0</actionID>\n</policy>\n</policyEntry>\n</policies>\n</ipsec>\n"));
}

TEST(Format, KeepsWhatNobodyCanChangeThroughTheLibrary)
{
    const Outcome formatted =
        run({"format", "-"}, document("", "",
                                      entry("action", 1,
                                            "<action><changeCount>9</changeCount><name>n</name><builtinName>4"
                                            "</builtinName><descr>d</descr><builtinDescr>5</builtinDescr><type>6</type>"
                                            "<state>7</state><spdAction>BYPASS</spdAction></action>")));
    EXPECT_EQ(formatted.status, 0);
    EXPECT_NE(formatted.out.find("<changeCount>9</changeCount>\n<name>n</name>\n<builtinName>4</builtinName>\n"
                                 "<descr>d</descr>\n<builtinDescr>5</builtinDescr>\n<type>6</type>\n"
                                 "<state>7</state>\n"),
              std::string::npos)
        << formatted;
}

// To store it would make that for good, and nobody could see it any more.
TEST(Format, RefusesWhatWasNotUnderstoodAsWrittenUnlessForced)
{
    const std::string misread =
        document("", "", "",
                 entry("policy", 1,
                       "<policy><hostGroupID>1x</hostGroupID><protocolGroupID>Web</protocolGroupID>"
                       "<actionID>0x1</actionID></policy>"));
    EXPECT_EQ(run({"format", "-"}, misread),
              refused("standard input:1:139: policies/1/hostGroupID: A text of 2 bytes was read as 1, and what follows "
                      "the number was ignored. Write the number alone.\nIt is one of 2 values that were not understood "
                      "as written, and stored it would "
                      "stay so. Correct the document, or give --force."));
    EXPECT_EQ(run({"format", "-", "--force"}, misread), printed(rewritten<IPsecConfig>(misread)));
}

/// A document with a subnet whose prefix length is that element.
std::string withLength(const std::string& length)
{
    return document(entry("hostGroup", 1,
                          group("hostGroup", "a", "",
                                "<hostSelector><family>AF_INET</family><selectorType>SUBNET_LENGTH</selectorType>"
                                "<addr1>10.0.0.0</addr1>" +
                                    length + "</hostSelector>")));
}

std::string refusalOf(const std::string& message, const std::string& document, const std::string& place)
{
    return "standard input:1:" + std::to_string(document.find(place) + 1) +
           ": hostGroups/1/selectors/1/length: " + message +
           "\nIt is the only value that was not understood as written, and stored it would stay so. Correct the "
           "document, "
           "or give --force.";
}

TEST(Format, RefusesOctalNumbersWhichPeopleHardlyMean)
{
    const std::string octal = withLength("<length>024</length>");
    EXPECT_EQ(
        run({"format", "-"}, octal),
        refused(refusalOf("'024' was read as 20, because a leading 0 makes it octal. Write it without the leading 0.",
                          octal, "024")));
    EXPECT_EQ(run({"format", "-", "--force"}, octal), printed(rewritten<IPsecConfig>(octal)));
}

TEST(Format, RefusesToDropASelectorThatAGroupHasTwice)
{
    const auto selector = [](const std::string& name) {
        return "<protocolSelector><name>" + name +
               "</name><protocol>6</protocol><direction>IN</direction><mirrored>MIRRORED</mirrored></protocolSelector>";
    };
    const auto withSelectors = [&](const std::string& host, const std::string& selectors) {
        return document(entry("hostGroup", 1,
                              group("hostGroup", "a", "",
                                    "<hostSelector><family>AF_INET</family><selectorType>SUBNET_LENGTH</selectorType>"
                                    "<addr1>10.0.0.0</addr1><length>" +
                                        host + "</length></hostSelector>")),
                        entry("protocolGroup", 1, group("protocolGroup", "b", "", selectors)));
    };
    const std::string dropped = "This selector says the same as one before it in its group, whatever their names, and "
                                "was dropped. Remove it, or write what it was meant to be.\nIt is ";
    const std::string stored = " not understood as written, and stored it would stay so. Correct the document, or give "
                               "--force.";

    const std::string twice = withSelectors("8", selector("web") + selector("mail"));
    const std::string place = "standard input:1:" + std::to_string(twice.rfind("<protocolSelector>") + 1) +
                              ": protocolGroups/1/selectors/1: ";
    EXPECT_EQ(run({"format", "-"}, twice), refused(place + dropped + "the only selector that was" + stored));
    EXPECT_EQ(run({"format", "-", "--force"}, twice), printed(rewritten<IPsecConfig>(twice)));

    const std::string both = withSelectors("08", selector("web") + selector("mail") + selector("mail"));
    EXPECT_EQ(
        run({"format", "-"}, both),
        refused("standard input:1:" + std::to_string(both.find("08<") + 1) +
                ": hostGroups/1/selectors/1/length: '08' was read as 0, because a leading 0 makes it octal, and 8 "
                "and 9 are no octal digits. Write it without the leading 0.\nIt is one of 1 value and 2 selectors "
                "that were" +
                stored));
}

TEST(Format, RefusesEmptyNumbersInEveryForm)
{
    for (const std::string length : {"<length></length>", "<length/>", "<length value=''/>", "<length> </length>"}) {
        const std::string empty = withLength(length);
        EXPECT_EQ(
            run({"format", "-"}, empty),
            refused(refusalOf("An empty text was read as 0, because it does not begin with a number. Write a number.",
                              empty, "<length")))
            << length;
        EXPECT_EQ(run({"format", "-", "--force"}, empty), printed(rewritten<IPsecConfig>(empty))) << length;
    }
}

TEST(Format, TakesOtherSpellingsOfTheSameNumber)
{
    for (const std::string number : {"+7", " 7 ", "0x7", "07", "7"}) {
        const std::string spelt = withLength("<length>" + number + "</length>");
        EXPECT_EQ(run({"format", "-"}, spelt), printed(rewritten<IPsecConfig>(withLength("<length>7</length>"))))
            << number;
    }
    EXPECT_EQ(run({"format", "-"}, withLength("<length>00</length>")).status, 0);
}

TEST(Format, RefusesAPieceOfAKeyInPlaceOfANumberWithoutShowingIt)
{
    const Outcome outcome =
        run({"format", "-"}, document("", "", "",
                                      entry("policy", 1,
                                            "<policy><hostGroupID>Kq7Zv9Wx</hostGroupID><protocolGroupID>1"
                                            "</protocolGroupID><actionID>1</actionID></policy>")));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err.find("Kq7"), std::string::npos) << outcome;
}

struct Lossy {
    const char* what;
    std::string document;
    std::string why; ///< the second line of the message
};

std::ostream& operator<<(std::ostream& out, const Lossy& lossy)
{
    return out << lossy.what;
}

std::string groupNamed(const std::string& nameElement)
{
    return document(entry("hostGroup", 1,
                          "<hostGroup>" + nameElement +
                              "<builtinName>0</builtinName><descr/><builtinDescr>0</builtinDescr><selectors/>"
                              "</hostGroup>"));
}

class WhatCannotBeStored : public testing::TestWithParam<Lossy> {};

TEST_P(WhatCannotBeStored, IsRefusedAndNotQuoted)
{
    ASSERT_EQ(run({"show", "-"}, GetParam().document).status, 0) << "it does load";
    EXPECT_EQ(run({"format", "-"}, GetParam().document),
              refused("standard input: this configuration cannot be stored: once written it would not load as the "
                      "same\n" +
                      GetParam().why));
}

// clang-format off
const Lossy LOSSY[] = {
    {"a name with a tag in it",     groupNamed("<name value='a<b'/>"),
     "hostGroups/1/name: The text holds '<': once stored, the document would not load as it is. Write it without."},
    {"a name that ends its tag",    groupNamed("<name value='a</name><name>b'/>"),
     "hostGroups/1/name: The text holds '<': once stored, the document would not load as it is. Write it without."},
    {"a name with elements in it",  groupNamed("<name value='a</name><builtinName>0</builtinName><descr></descr>"
                                               "<builtinDescr>0</builtinDescr><selectors></selectors></hostGroup>"
                                               "</hostGroupEntry><hostGroupEntry><id>2</id><hostGroup><name>b'/>"),
     "hostGroups/1/name: The text holds '<': once stored, the document would not load as it is. Write it without."},
    {"a name with a blank before",  groupNamed("<name value=' a'/>"),
     "hostGroups/1/name: The text has white space at an end, which is lost when it is stored. Write it without."},
    {"a name with a blank behind",  groupNamed("<name value='a '/>"),
     "hostGroups/1/name: The text has white space at an end, which is lost when it is stored. Write it without."},
    {"a selector without a name",   document("", entry("protocolGroup", 1, group("protocolGroup", "g", "",
                                        "<protocolSelector><protocol>6</protocol><direction>IN</direction>"
                                        "<mirrored>MIRRORED</mirrored></protocolSelector>"))),
     "protocolGroups/1/selectors/1/name: The selector has no name: once stored, the document would not load any more. "
     "Give it one."},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Format, WhatCannotBeStored, testing::ValuesIn(LOSSY));

} // namespace
