#include "selectors/fields.h"
#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace ipsecimpl {
namespace {

struct HostRow {
    HostGroup& (*group)();
    const char* family;
    const char* type;
    int         builtinName;
    const char* name;
    int         builtinDescr;
    const char* descr;
};

// clang-format off
const HostRow hostRows[] = {
    {HostGroupAny,     "AF_ANY",   "ANY",   1,  "Any",                         2,  "Any remote host"},
    {HostGroupLocal,   "AF_ANY",   "LOCAL", 3,  "Local Subnet",                4,  "Any host on local subnets"},
    {HostGroupAnyv4,   "AF_INET",  "ANY",   5,  "Any IPv4",                    6,  "Any IPv4 remote hosts"},
    {HostGroupLocalv4, "AF_INET",  "LOCAL", 7,  "Local IPv4 Subnet",           8,  "Any hosts on local IPv4 subnets"},
    {HostGroupAnyv6,   "AF_INET6", "ANY",   9,  "Any IPv6",                    10, "Any IPv6 remote hosts"},
    {HostGroupLocalv6, "AF_INET6", "LOCAL", 11, "Local IPv6 Subnet",           12, "Any hosts on local IPv6 subnets"},
    {HostGroupMcast,   "AF_ANY",   "MCAST", 13, "Broadcast or Multicast",      14, "Broadcast and multicast addresses"},
    {HostGroupMcastv4, "AF_INET",  "MCAST", 15, "IPv4 Broadcast or Multicast", 16, "IPv4 broadcast and multicast addresses"},
    {HostGroupMcastv6, "AF_INET",  "MCAST", 17, "IPv6 Broadcast or Multicast", 18, "IPv6 broadcast and multicast addresses"},
};
// clang-format on

const std::string allDocument = R"(<protocolGroup>
<name>All</name>
<builtinName>13</builtinName>
<descr>This group includes all protocols and packets.</descr>
<builtinDescr>14</builtinDescr>
<selectors>
<protocolSelector>
<protocol>0</protocol>
<name>Protocol</name>
<direction>IN</direction>
<mirrored>MIRRORED</mirrored>
</protocolSelector>
</selectors>
</protocolGroup>
)";

const std::string systemDocument = R"(<protocolGroup>
<name>System Services</name>
<builtinName>15</builtinName>
<descr>This group matches all protocols required for basic network services such as DHCP and DNS.</descr>
<builtinDescr>16</builtinDescr>
<selectors>
<protocolSelector>
<protocol>17</protocol>
<name>Protocol</name>
<dstPort>500</dstPort>
<srcPort>500</srcPort>
<direction>IN</direction>
<mirrored>MIRRORED</mirrored>
</protocolSelector>
<protocolSelector>
<protocol>17</protocol>
<name>Protocol</name>
<dstPort>67</dstPort>
<srcPort>68</srcPort>
<direction>OUT</direction>
<mirrored>MIRRORED</mirrored>
</protocolSelector>
<protocolSelector>
<protocol>6</protocol>
<name>Protocol</name>
<dstPort>53</dstPort>
<srcPort>0</srcPort>
<direction>OUT</direction>
<mirrored>MIRRORED</mirrored>
</protocolSelector>
<protocolSelector>
<protocol>17</protocol>
<name>Protocol</name>
<dstPort>53</dstPort>
<srcPort>0</srcPort>
<direction>OUT</direction>
<mirrored>MIRRORED</mirrored>
</protocolSelector>
</selectors>
</protocolGroup>
)";

std::string documentOf(const HostRow& row)
{
    return "<hostGroup>\n<name>" + std::string(row.name) + "</name>\n<builtinName>" + std::to_string(row.builtinName) +
           "</builtinName>\n<descr>" + row.descr + "</descr>\n<builtinDescr>" + std::to_string(row.builtinDescr) +
           "</builtinDescr>\n<selectors>\n<hostSelector>\n<family>" + row.family + "</family>\n<selectorType>" +
           row.type + "</selectorType>\n</hostSelector>\n</selectors>\n</hostGroup>\n";
}

TEST(BuiltinHostGroups, HoldTheirTextsTheirNumbersAndOneSelectorWithoutAddresses)
{
    for (const HostRow& row : hostRows)
        EXPECT_EQ(fieldsOf(row.group()), "'" + std::string(row.name) + "' " + std::to_string(row.builtinName) + " '" +
                                             row.descr + "' " + std::to_string(row.builtinDescr) + "\n" + row.family +
                                             " " + row.type + " '' '' 0");
}

TEST(BuiltinHostGroups, AreWrittenAndReadLikeAnyOther)
{
    for (const HostRow& row : hostRows) {
        EXPECT_EQ(written(row.group()), documentOf(row));
        EXPECT_EQ(fieldsOf(read<HostGroup>(documentOf(row))), fieldsOf(row.group()));
    }
}

TEST(BuiltinHostGroups, AreOneObjectEachAtEveryCall)
{
    for (const HostRow& row : hostRows) {
        EXPECT_EQ(&row.group(), &row.group());
        for (const HostRow& other : hostRows)
            EXPECT_EQ(&row.group() == &other.group(), &row == &other) << row.name << " and " << other.name;
    }
}

TEST(BuiltinHostGroups, HaveTheSameSelectorForMulticastOfBothFamilies)
{
    EXPECT_EQ(HostGroupMcastv6().selectors.begin()->compare(*HostGroupMcastv4().selectors.begin()), 0);
    EXPECT_TRUE(HostGroupMcastv6().selectors.begin()->family == HOST_INET);
}

TEST(BuiltinHostGroups, AreNotRefilledAfterAChange)
{
    for (const HostRow& row : hostRows) {
        const HostGroup before = row.group();
        row.group().selectors.clear();
        row.group().name         = "changed";
        row.group().builtinDescr = 0;
        EXPECT_EQ(fieldsOf(row.group()), "'changed' " + std::to_string(row.builtinName) + " '" + row.descr + "' 0");
        row.group() = before;
        EXPECT_EQ(written(row.group()), documentOf(row));
    }
}

TEST(BuiltinHostGroups, AreUntouchedByChangesToACopy)
{
    for (const HostRow& row : hostRows) {
        HostGroup copy = row.group();
        copy.selectors.clear();
        copy.name = "changed";
        EXPECT_EQ(written(row.group()), documentOf(row));
    }
}

TEST(BuiltinProtocolGroups, HoldTheirTextsTheirNumbersAndTheirSelectors)
{
    EXPECT_EQ(fieldsOf(ProtocolGroupAll()), "'All' 13 'This group includes all protocols and packets.' 14\n"
                                            "'Protocol' 0 dst 0 src 0 IN mirrored");
    EXPECT_EQ(fieldsOf(ProtocolGroupSystem()),
              "'System Services' 15 "
              "'This group matches all protocols required for basic network services such as DHCP and DNS.' 16\n"
              "'Protocol' 17 dst 500 src 500 IN mirrored\n"
              "'Protocol' 17 dst 67 src 68 OUT mirrored\n"
              "'Protocol' 6 dst 53 src 0 OUT mirrored\n"
              "'Protocol' 17 dst 53 src 0 OUT mirrored");
}

TEST(BuiltinProtocolGroups, AreWrittenAndReadLikeAnyOther)
{
    EXPECT_EQ(written(ProtocolGroupAll()), allDocument);
    EXPECT_EQ(written(ProtocolGroupSystem()), systemDocument);
    EXPECT_EQ(fieldsOf(read<ProtocolGroup>(allDocument)), fieldsOf(ProtocolGroupAll()));
    EXPECT_EQ(fieldsOf(read<ProtocolGroup>(systemDocument)), fieldsOf(ProtocolGroupSystem()));
}

TEST(BuiltinProtocolGroups, AreOneObjectEachAtEveryCall)
{
    EXPECT_EQ(&ProtocolGroupAll(), &ProtocolGroupAll());
    EXPECT_EQ(&ProtocolGroupSystem(), &ProtocolGroupSystem());
    EXPECT_NE(&ProtocolGroupAll(), &ProtocolGroupSystem());
}

TEST(BuiltinProtocolGroups, AreNotRefilledAfterAChange)
{
    for (ProtocolGroup& (*group)() : {ProtocolGroupAll, ProtocolGroupSystem}) {
        const ProtocolGroup before = group();
        group().selectors.erase(group().selectors.begin());
        group().descr = "changed";
        EXPECT_EQ(group().selectors.size(), before.selectors.size() - 1);
        EXPECT_EQ(group().descr, "changed");
        group() = before;
        EXPECT_EQ(fieldsOf(group()), fieldsOf(before));
    }
    EXPECT_EQ(written(ProtocolGroupAll()), allDocument);
    EXPECT_EQ(written(ProtocolGroupSystem()), systemDocument);
}

TEST(BuiltinGroups, AreMadeOnceAlsoWhenThreadsRaceForThem)
{
    std::vector<std::string> seen(8);
    std::vector<std::thread> threads;
    for (std::string& text : seen)
        threads.emplace_back([&text] {
            for (const HostRow& row : hostRows)
                text += fieldsOf(row.group()) + '\n';
            text += fieldsOf(ProtocolGroupAll()) + '\n' + fieldsOf(ProtocolGroupSystem());
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& text : seen)
        EXPECT_EQ(text, seen[0]);
    EXPECT_EQ(written(ProtocolGroupSystem()), systemDocument);
}

} // namespace
} // namespace ipsecimpl
