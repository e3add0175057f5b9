#include "support/number_forms.h"
#include "selectors/documents.h"
#include "selectors/fields.h"
#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

const std::string hostsFields = "'Branch' 0 'A subnet and a host' -7\n"
                                "AF_INET SINGLE '10.9.8.7' '' 0\n"
                                "AF_INET6 SUBNET_LENGTH 'fd00::' 'ffff:ffff:ffff:ffff::' 64";

const std::string protocolsFields = "'Services' 15 'Web' 16\n"
                                    "'web' 6 dst 80 src 0 OUT mirrored";

const std::vector<std::string> leaves = {"name", "builtinName", "descr", "builtinDescr"};

TEST(SelectorGroupDocument, HoldsAllMembers)
{
    HostGroup hostGroup("Branch", 0, "A subnet and a host", -7);
    hostGroup.selectors = {HostSelector(HOST_INET6, HOST_SUBNET_LENGTH, "fd00::", 64),
                           HostSelector(HOST_INET, HOST_SINGLE, "10.9.8.7", "")};
    EXPECT_EQ(written(hostGroup), hosts);
    EXPECT_EQ(fieldsOf(read<HostGroup>(hosts)), hostsFields);

    ProtocolGroup protocolGroup("Services", 15, "Web", 16);
    protocolGroup.selectors.emplace("web", 6, 80, 0, PROTO_OUT, true);
    EXPECT_EQ(written(protocolGroup), protocols);
    EXPECT_EQ(fieldsOf(read<ProtocolGroup>(protocols)), protocolsFields);
}

TEST(SelectorGroupDocument, IsTheSameReadAndWrittenAgain)
{
    EXPECT_EQ(rewritten<HostGroup>(hosts), hosts);
    EXPECT_EQ(rewritten<ProtocolGroup>(protocols), protocols);
}

TEST(SelectorGroupDocument, HasTwoLinesForNoSelectors)
{
    EXPECT_EQ(written(HostGroup()), groupOf("hostGroup", ""));
    EXPECT_EQ(written(ProtocolGroup()), groupOf("protocolGroup", ""));
    EXPECT_EQ(rewritten<HostGroup>(groupOf("hostGroup", "")), groupOf("hostGroup", ""));
    EXPECT_EQ(fieldsOf(read<ProtocolGroup>(groupOf("protocolGroup", ""))), "'' 0 '' 0");
}

TEST(SelectorGroupDocument, MayCloseItsSelectorsAtOnce)
{
    for (const char* none : {"<selectors/>", "<selectors />", "<selectors></selectors>", "<selectors> \n </selectors>"})
        EXPECT_EQ(rewritten<HostGroup>(changed(groupOf("hostGroup", ""), "<selectors>\n</selectors>", none)),
                  groupOf("hostGroup", ""))
            << none;
}

TEST(SelectorGroupDocument, HoldsItsSelectorsInTheirOrderWhateverTheOrderTheyCameIn)
{
    const std::string ordered = groupOf("hostGroup", subnet("10.2.0.0", "24") + subnet("10.1.0.0", "24") +
                                                         subnet("10.1.0.0", "16") + subnet("10.9.0.0", "8"));
    EXPECT_EQ(rewritten<HostGroup>(groupOf("hostGroup", subnet("10.9.0.0", "8") + subnet("10.1.0.0", "16") +
                                                            subnet("10.1.0.0", "24") + subnet("10.2.0.0", "24"))),
              ordered);
    EXPECT_EQ(rewritten<HostGroup>(groupOf("hostGroup", subnet("10.1.0.0", "16") + subnet("10.2.0.0", "24") +
                                                            subnet("10.9.0.0", "8") + subnet("10.1.0.0", "24"))),
              ordered);
}

TEST(SelectorGroupDocument, LosesTheSecondOfEqualSelectors)
{
    EXPECT_EQ(rewritten<HostGroup>(groupOf("hostGroup", subnet("10.1.0.0", "24") + subnet("10.2.0.0", "24") +
                                                            subnet("10.1.0.0", "24") + subnet("10.1.0.0", "0x18"))),
              groupOf("hostGroup", subnet("10.2.0.0", "24") + subnet("10.1.0.0", "24")));
}

TEST(SelectorGroupDocument, KeepsTheFirstNameOfEqualProtocolSelectors)
{
    EXPECT_EQ(
        rewritten<ProtocolGroup>(groupOf("protocolGroup", service("6", "first") + service("17", "other") +
                                                              service("6", "second") + service("65542", "third"))),
        groupOf("protocolGroup", service("6", "first") + service("17", "other")));
}

TEST(SelectorGroupDocument, HoldsTextsAsTheyAre)
{
    HostGroup group("R&D \"1\"", 0, "a<b", 0);
    EXPECT_EQ(written(group), withText(withText(groupOf("hostGroup", ""), "name", "R&D \"1\""), "descr", "a<b"));
    EXPECT_EQ(fieldsOf(read<HostGroup>(withText(withText(hosts, "name", " R&amp;D\n2 "), "descr", ""))),
              changed(changed(hostsFields, "'Branch'", "'R&amp;D\n2'"), "'A subnet and a host'", "''"));
    EXPECT_EQ(refusalOf<HostGroup>(withText(hosts, "descr", "a<b")),
              "parse_end_tag: expected '/', got 'b'\nfrom <descr>\nfrom <hostGroup>");
}

TEST(SelectorGroupDocument, ComesLineByLine)
{
    expectWrittenByLines(read<HostGroup>(hosts));
    expectWrittenByLines(read<ProtocolGroup>(protocols));
    expectWrittenByLines(HostGroup());
}

TEST(SelectorGroupDocument, WritesNumbersAsTheStreamWritesThem)
{
    std::ostringstream out;
    out << std::showpos;
    read<HostGroup>(groupOf("hostGroup", subnet("10.1.0.0", "24"))).exportXML(out);
    EXPECT_EQ(out.str(), withText(withText(groupOf("hostGroup", subnet("10.1.0.0", "+24")), "builtinName", "+0"),
                                  "builtinDescr", "+0"));
}

TEST(SelectorGroupDocument, IsReadNoFurtherThanItsEndTag)
{
    expectReadNoFurther<HostGroup>(hosts);
    expectReadNoFurther<ProtocolGroup>(protocols);
}

TEST(SelectorGroupDocument, HoldsTextNumbersInEveryFormOfANumber)
{
    expectNumberForms<HostGroup>(hosts, "builtinName", Sign::Signed);
    expectNumberForms<HostGroup>(hosts, "builtinDescr", Sign::Signed);
}

TEST(SelectorGroupDocument, ReadsNoNumberAsZero)
{
    EXPECT_EQ(read<HostGroup>(withText(hosts, "builtinName", "0x10")).builtinName, 16);
    EXPECT_EQ(read<HostGroup>(withText(hosts, "builtinName", "yes")).builtinName, 0);
}

TEST(SelectorGroupDocument, MayHoldItsLeavesInEveryForm)
{
    expectLeafForms<HostGroup>(withText(hosts, "descr", "Two"), leaves);
    expectLeafForms<ProtocolGroup>(protocols, leaves);
}

} // namespace
} // namespace ipsecimpl
