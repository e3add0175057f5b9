#include "table.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

namespace {

Table hostsTable()
{
    Table table({{"ID", Table::Kind::NUMBER},
                 {"HOST GROUP", Table::Kind::TEXT},
                 {"HOSTS", Table::Kind::LONG_WORDS},
                 {"DESCRIPTION", Table::Kind::PROSE}});
    table.cell("7");
    table.cell("Telephone system");
    table.lines() << std::string_view("2001:db8:1:30::5-2001:db8:1:30::9");
    table.lines().end();
    table.cell("10.1.30.5");
    table.cell("Call servers at headquarters");
    table.cell("12");
    table.cell("Guests");
    table.cell("none");
    table.cell("");
    return table;
}

std::string textIn(const Table& table, std::size_t width)
{
    Blocks blocks;
    table.appendTo(blocks, width);
    std::string text;
    for (const std::string_view block : blocks.all())
        text += block;
    return text;
}

TEST(Table, HasColumnsAsWideAsTheirContentsWhereThereIsRoom)
{
    EXPECT_EQ(textIn(hostsTable(), 91), R"(ID  HOST GROUP        HOSTS                              DESCRIPTION
 7  Telephone system  2001:db8:1:30::5-2001:db8:1:30::9  Call servers at headquarters
                      10.1.30.5
12  Guests            none
)");
    EXPECT_EQ(textIn(hostsTable(), 10000), textIn(hostsTable(), 91));
}

TEST(Table, WrapsProseFirst)
{
    EXPECT_EQ(textIn(hostsTable(), 80), R"(ID  HOST GROUP        HOSTS                              DESCRIPTION
 7  Telephone system  2001:db8:1:30::5-2001:db8:1:30::9  Call servers at
                      10.1.30.5                          headquarters
12  Guests            none
)");
}

TEST(Table, HasNoColumnsWhereTheyWouldBeTooNarrow)
{
    EXPECT_EQ(textIn(hostsTable(), 64), R"(ID  HOST GROUP        HOSTS                     DESCRIPTION
 7  Telephone system  2001:db8:1:30::5-2001:db  Call servers at
                        8:1:30::9               headquarters
                      10.1.30.5
12  Guests            none
)");
    EXPECT_EQ(textIn(hostsTable(), 63), R"(ID           7
HOST GROUP   Telephone system
HOSTS        2001:db8:1:30::5-2001:db8:1:30::9
             10.1.30.5
DESCRIPTION  Call servers at headquarters

ID           12
HOST GROUP   Guests
HOSTS        none
)");
    EXPECT_EQ(textIn(hostsTable(), 40), R"(ID           7
HOST GROUP   Telephone system
HOSTS        2001:db8:1:30::5-2001:db8:1
               :30::9
             10.1.30.5
DESCRIPTION  Call servers at
             headquarters

ID           12
HOST GROUP   Guests
HOSTS        none
)");
}

TEST(Table, HasHeadingsInLinesOfTheirOwnWhereNothingElseFits)
{
    EXPECT_EQ(textIn(hostsTable(), 20), R"(ID
  7
HOST GROUP
  Telephone system
HOSTS
  2001:db8:1:30::5-2
    001:db8:1:30::9
  10.1.30.5
DESCRIPTION
  Call servers at
  headquarters

ID
  12
HOST GROUP
  Guests
HOSTS
  none
)");
}

TEST(Table, NeverBreaksAHeadingInAWordFromFortyColumnsOn)
{
    for (std::size_t width = 40; width < 140; ++width) {
        const std::string text = textIn(hostsTable(), width);
        for (const char* const word : {"ID", "HOST", "GROUP", "HOSTS", "DESCRIPTION"})
            EXPECT_THAT(text, testing::HasSubstr(word)) << width;
    }
}

TEST(Table, BreaksNamesRatherThanAddresses)
{
    Table table({{"ID", Table::Kind::NUMBER}, {"NAME", Table::Kind::TEXT}, {"HOSTS", Table::Kind::LONG_WORDS}});
    table.cell("8");
    table.cell("IPv4 Broadcast or Multicast");
    table.cell("10.10.4.192/255.255.255.224");
    EXPECT_EQ(textIn(table, 57), R"(ID  NAME                      HOSTS
 8  IPv4 Broadcast or         10.10.4.192/255.255.255.224
      Multicast
)");
}

TEST(Table, OfTwoColumnsKeepsThem)
{
    Table table({{"FIELD", Table::Kind::TEXT}, {"VALUE", Table::Kind::PROSE}});
    table.cell("    keyLifetimeUnits");
    table.cell("a value of several words");
    EXPECT_EQ(textIn(table, 40), R"(FIELD                 VALUE
    keyLifetimeUnits  a value of several
                      words
)");
}

} // namespace
