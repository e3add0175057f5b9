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
    EXPECT_EQ(run({"format", "-"}, "  <ipsec >\n<hostGroups/><protocolGroups><nextprotocolGroup>3</nextprotocolGroup>"
                                   "</protocolGroups><actions></actions><policies><policyEntry><id value='7'/>"
                                   "<policy><hostGroupID>0x10</hostGroupID><protocolGroupID value=\"2\"/><actionID/>"
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

struct Lossy {
    const char* what;
    std::string document;
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
                      "same (a text holds '<' or has white space at an end, or a protocol selector has no name)"));
}

// clang-format off
const Lossy LOSSY[] = {
    {"a name with a tag in it",     groupNamed("<name value='a<b'/>")},
    {"a name that ends its tag",    groupNamed("<name value='a</name><name>b'/>")},
    {"a name with a blank before",  groupNamed("<name value=' a'/>")},
    {"a name with a blank behind",  groupNamed("<name value='a '/>")},
    {"a selector without a name",   document("", entry("protocolGroup", 1, group("protocolGroup", "g", "",
                                        "<protocolSelector><protocol>6</protocol><direction>IN</direction>"
                                        "<mirrored>MIRRORED</mirrored></protocolSelector>")))},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Format, WhatCannotBeStored, testing::ValuesIn(LOSSY));

} // namespace
