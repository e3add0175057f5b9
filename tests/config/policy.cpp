#include <support/xml.h>

#include <ipsecimpl/config.h>

#include <gtest/gtest.h>

namespace ipsecimpl {
namespace {

std::string document(const std::string& host, const std::string& protocol, const std::string& action)
{
    return "<policy>" + host + protocol + action + "</policy>";
}

/// The host group ID that a text is read as.
unsigned int idFrom(const std::string& text)
{
    return read<Policy>(document("<hostGroupID>" + text + "</hostGroupID>", "<protocolGroupID>1</protocolGroupID>",
                                 "<actionID>1</actionID>"))
        .hostGroupID;
}

TEST(Policy, KeepsTheThreeIDsInTheOrderOfTheArguments)
{
    const Policy policy(1, 2, 3);
    EXPECT_EQ(policy.hostGroupID, 1U);
    EXPECT_EQ(policy.protocolGroupID, 2U);
    EXPECT_EQ(policy.actionID, 3U);
}

TEST(Policy, IsWrittenAsFiveLines)
{
    EXPECT_EQ(written(Policy(1, 2, 3)), "<policy>\n"
                                        "<hostGroupID>1</hostGroupID>\n"
                                        "<protocolGroupID>2</protocolGroupID>\n"
                                        "<actionID>3</actionID>\n"
                                        "</policy>\n");
}

TEST(Policy, ComesBackAsItWasWritten)
{
    for (const Policy& policy : {Policy(1, 2, 3), Policy(0, 0, 0), Policy(4294967295U, 2147483648U, 2147483647U)}) {
        const Policy back = read<Policy>(written(policy));
        EXPECT_EQ(back.hostGroupID, policy.hostGroupID);
        EXPECT_EQ(back.protocolGroupID, policy.protocolGroupID);
        EXPECT_EQ(back.actionID, policy.actionID);
    }
}

TEST(Policy, IsCopiedAndAssignedWhole)
{
    const Policy policy(1, 2, 3);
    Policy       copy(policy);
    EXPECT_EQ(written(copy), written(policy));
    copy = Policy(4, 5, 6);
    EXPECT_EQ(written(copy), written(Policy(4, 5, 6)));
    copy = *&copy;
    EXPECT_EQ(written(copy), written(Policy(4, 5, 6)));
}

TEST(Policy, ReadsIDsInAnyBaseAndNeverRefusesOne)
{
    const std::pair<const char*, unsigned int> rows[] = {
        {"16", 16},
        {"0x10", 16},
        {"0X1f", 31},
        {"010", 8},
        {"08", 0}, // octal, and 8 is no octal digit
        {"abc", 0},
        {"", 0},
        {"12abc", 12},
        {"0x", 0},
        {"0b101", 0},
        {"-1", 4294967295U},
        {"+7", 7},
        {"4294967295", 4294967295U},
        {"4294967296", 4294967295U},
        {"-4294967295", 1},
        {"-4294967296", 4294967295U},
        {"18446744073709551616", 4294967295U},
        {"9999999999999999999999999999999999999999", 4294967295U},
    };
    for (const auto& [text, id] : rows)
        EXPECT_EQ(idFrom(text), id) << text;
}

TEST(Policy, AcceptsEveryFormOfALeaf)
{
    const Policy policy = read<Policy>(
        document("<hostGroupID value=\"7\"/>", "<protocolGroupID value='8'></protocolGroupID>", "<actionID/>"));
    EXPECT_EQ(policy.hostGroupID, 7U);
    EXPECT_EQ(policy.protocolGroupID, 8U);
    EXPECT_EQ(policy.actionID, 0U);
}

TEST(Policy, RefusesChildrenThatAreMissingMisplacedOrTooMany)
{
    const std::string host     = "<hostGroupID>1</hostGroupID>";
    const std::string protocol = "<protocolGroupID>2</protocolGroupID>";
    const std::string action   = "<actionID>3</actionID>";

    const std::pair<std::string, const char*> rows[] = {
        {document(action, host, protocol), "parse_tagged_value: wrong tag; expected <hostGroupID>, found <actionID>\n"
                                           "from <actionID>\nfrom <policy>"},
        {document(host, action, protocol),
         "parse_tagged_value: wrong tag; expected <protocolGroupID>, found <actionID>\n"
         "from <actionID>\nfrom <policy>"},
        {document(host, protocol, protocol),
         "parse_tagged_value: wrong tag; expected <actionID>, found <protocolGroupID>\n"
         "from <protocolGroupID>\nfrom <policy>"},
        {document(host, protocol, ""), "parse_tagged_value: missing tag; expected <actionID>\nfrom <policy>"},
        {document("", "", ""), "parse_tagged_value: missing tag; expected <hostGroupID>\nfrom <policy>"},
        {document(host, protocol, action + action), "parse_end_tag: expected '/', got 'a'\nfrom <policy>"},
        {document(host, protocol, action + "x"), "parse_end_tag: expected '<', got 'x'\nfrom <policy>"},
        {"<policy/>", "parse_tag: expected '<', found '\xFF'"},
        {"<policies>", "parse_simple_tag: wrong tag; expected <policy>, found <policies>\nfrom <policies>"},
        {"</policy>", "parse_simple_tag: missing tag; expected <policy>"},
        {"<policy id='1'>", "parse_tag_end: invalid attribute or missing '>'\nfrom <policy>"},
    };
    for (const auto& [text, message] : rows)
        EXPECT_EQ(refusalOf<Policy>(text), message) << text;
}

TEST(Policy, SelfClosedGoesOnToItsFirstChild)
{
    // The children are even read, as the parser does not know where they stand; then the end tag matches nothing.
    EXPECT_EQ(refusalOf<Policy>("<policy/><hostGroupID>1</hostGroupID><protocolGroupID>1</protocolGroupID>"
                                "<actionID>1</actionID></policy>"),
              "parse_end_tag: begin/end tags don't match");
}

} // namespace
} // namespace ipsecimpl
