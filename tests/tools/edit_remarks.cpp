// What edit tells of what it has set all the same.

#include "editing.h"

#include "support/documents.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::HasSubstr;
using testing::Not;

namespace {

const std::string TAKEN = "taken as it is: ";

class EditRemarks : public Editing {
  protected:
    EditRemarks()
    {
        hold(document(
            entry("hostGroup", 1, group("hostGroup", "web", "", "")),
            entry("protocolGroup", 1, group("protocolGroup", "http", "", "")),
            entry("action", 1,
                  action("tunnel", "", "<spdAction>TUNNEL</spdAction><tunnelEndpoint/><keyMgr>NONE</keyMgr>"))));
    }

    /// The commands are carried out, and these are all the messages.
    static void expectRemarks(const std::vector<std::string>& commands, const std::vector<std::string>& remarks)
    {
        const std::string before = contentOf("p.xml");
        std::string       messages;
        for (const std::string& remark : remarks)
            messages += "ipsec-policy: " + remark + "\n";
        const Outcome rehearsed = edit(commands, {"--dry-run"});
        EXPECT_EQ(rehearsed.status, 0);
        EXPECT_EQ(rehearsed.err, messages);
        EXPECT_EQ(edit(commands), (Outcome{0, "", messages}));
        EXPECT_NE(contentOf("p.xml"), before);
    }
};

TEST_F(EditRemarks, TellOfATunnelEndPointThatIsNone)
{
    expectRemarks(
        {"set action 1 tunnelEndpoint=junk", "add action b spdAction=TUNNEL tunnelEndpoint=127.0.0.1"},
        {"-e:1: " + TAKEN +
             "'junk' is no address. Write the IPv4 or IPv6 address of the tunnel's far end. [bad-tunnel-end-point]",
         "-e:2: " + TAKEN +
             "127.0.0.1 is each node's own loopback address. Write the address of the tunnel's far end. "
             "[special-tunnel-end-point]"});
    EXPECT_THAT(contentOf("p.xml"), HasSubstr("<tunnelEndpoint>junk<"));
}

TEST_F(EditRemarks, TellOfAddressesWithBitsBehindTheirPrefix)
{
    const std::string bits =
        TAKEN +
        "10.2.0.5 has bits beyond the subnet's prefix of 16. Write 10.2.0.0, or a longer prefix. [host-bits-set]";
    expectRemarks({"# first", "add selector host-group web 10.2.0.5/16, 10.0.0.0/8",
                   "add host-group b selectors=10.2.0.5/16", "set host-group b descr=x",
                   "add selector host-group b none, AF_INET SINGLE addr1=a.example"},
                  {"-e:2: " + bits, "-e:3: " + bits});
}

TEST_F(EditRemarks, TellOfPortsOfProtocolsWithoutThem)
{
    expectRemarks({"add selector protocol-group http tcp/80, icmp/8", "add protocol-group b selectors=esp/1,icmpv6",
                   "add selector protocol-group b tcp/80,tcp,443"},
                  {"-e:1: " + TAKEN + "ICMP has no ports: some systems take the number for its type, others refuse it.",
                   "-e:2: " + TAKEN + "Protocol 50 has no ports. Write 0, or correct the protocol. [meaningless-port]",
                   "-e:3: " + TAKEN +
                       "443 is no protocol number. Write one from 0 to 255, such as 6 for TCP. [protocol-number]"});
}

TEST_F(EditRemarks, TellOfPoliciesThatNameWhatDoesNotExist)
{
    const std::string none = TAKEN + "ID 0 is no ";
    const std::string last = ". Name one that exists, or remove the policy. [no-reference]";
    expectRemarks(
        {"add policy web http 0", "add policy 0 http tunnel", "set policy 2 hostGroupID=web",
         "replace policy 2 web 0 missing=9", "set policy 1 actionID=tunnel"},
        {"-e:4: " + none + "protocol group" + last,
         "-e:4: " + TAKEN + "There is no action with ID 9. Add it, or name one that exists. [dangling-reference]"});
    expectRemarks({"set policy 1 actionID=0"}, {"-e:1: " + none + "action" + last});
}

TEST_F(EditRemarks, AreSilentOfPoliciesThatNameWhatComesLater)
{
    expectRemarks({"add policy missing=7 http tunnel", "add host-group later id=7"}, {});
    expectRemarks({"add policy 0 0 0", "remove policy 2", "set policy 1 hostGroupID=web"}, {});
}

TEST_F(EditRemarks, TellOfReservedSPIsAndLifetimesOfZero)
{
    const std::string reserved = " is reserved. Write 256 or more, and the same at the peer. [reserved-spi]";
    expectRemarks({"set action 1 keyMgr=MKM manualKey/saProposal/protocol=ESP manualKey/inboundESPSPI=255 "
                   "manualKey/outboundESPSPI=256"},
                  {"-e:1: " + TAKEN + "SPI 255" + reserved});
    expectRemarks({"set action 1 manualKey/outboundESPSPI=0x10"}, {"-e:1: " + TAKEN + "SPI 16" + reserved});
    const std::string zero = "A lifetime of 0 is no limit, or none at all. Write how long a key may live, such as ";
    ASSERT_EQ(edit({"set action 1 keyMgr=IKE"}).status, 0);
    expectRemarks({"set action 1 ikePhase1/proposal/keyLifetime=0", "set action 1 ikePhase2/keyLifetime=0"},
                  {"-e:1: " + TAKEN + zero + "28800 SECS. [zero-lifetime]",
                   "-e:2: " + TAKEN + zero + "3600 SECS. [zero-lifetime]"});
}

TEST_F(EditRemarks, TellOfANameThatAnotherHas)
{
    const std::string twice =
        TAKEN + "There are 2 host groups of the name 'web'. Commands must call them by ID. [repeated-name]";
    expectRemarks({"add host-group web", "add action web"}, {"-e:1: " + twice});
    expectRemarks({"set host-group 1 name=b", "add host-group c", "replace host-group 3 web"}, {"-e:3: " + twice});
    expectRemarks({"add host-group Any", "add built-in host-group any"},
                  {"-e:2: " + TAKEN +
                   "There are 2 host groups of the name 'Any'. Commands must call them by ID. [repeated-name]"});
}

TEST_F(EditRemarks, AreSilentOfANameThatIsAnothersForAWhileOrWasBefore)
{
    expectRemarks({"add host-group web", "set host-group 1 name=old"}, {});
    expectRemarks({"add host-group web id=7", "remove host-group 2"}, {});
    hold(document(entry("hostGroup", 1, group("hostGroup", "web", "", "")) +
                  entry("hostGroup", 2, group("hostGroup", "web", "", ""))));
    expectRemarks({"set host-group 1 descr=x"}, {});
}

TEST_F(EditRemarks, TellOfCharactersThatCannotBeSeenAndOfBytesThatAreNoText)
{
    expectRemarks(
        {"set host-group 1 name=\"a\\x00b\"", "set host-group 1 descr=\xff", "set protocol-group 1 descr=ok"},
        {"-e:1: " + TAKEN + "The text holds \\x00, which cannot be seen. Write it without. [hidden-character]",
         "-e:2: " + TAKEN + "The text holds the byte \\xff, which is not UTF-8. Write it in UTF-8. [not-utf-8]"});
}

TEST_F(EditRemarks, AreAboutWhatTheCommandsSayAlone)
{
    ASSERT_EQ(edit({"add host-group old selectors=10.2.0.5/16", "set action 1 tunnelEndpoint=junk"}).status, 0);
    expectRemarks({"set host-group old descr=x", "add selector host-group old 10.0.0.1", "set action 1 descr=x"}, {});
}

TEST_F(EditRemarks, AreNotMadeWhereNothingIsDone)
{
    EXPECT_EQ(edit({"set action 1 tunnelEndpoint=junk", "x"}),
              troubled("-e:2: a command begins with add, replace, set or remove"));
    EXPECT_EQ(edit({"set action 1 tunnelEndpoint="}), printed("nothing changed\n"));
}

TEST_F(EditRemarks, DoNotShowKeys)
{
    const Outcome outcome = edit({"set action 1 keyMgr=IKE ikePhase1/presharedKey=\"s3cr\\x01et\""});
    EXPECT_EQ(
        outcome,
        (Outcome{0, "",
                 "ipsec-policy: -e:1: " + TAKEN +
                     "The text holds a character, which cannot be seen. Write it without. [hidden-character]\n"}));
}

TEST_F(EditRemarks, EndWithTheirNumberWhereTheyAreAGreatMany)
{
    std::string script;
    for (int i = 0; i < 23; ++i)
        script += "add selector host-group 1 10.0.0." + std::to_string(i + 1) + "/8\n";
    const Outcome outcome = run({"edit", "p.xml", "-"}, script);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, HasSubstr("standard input:20: " + TAKEN + "10.0.0.20 has bits"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("10.0.0.21")));
    EXPECT_THAT(
        outcome.err,
        testing::EndsWith("ipsec-policy: standard input:21: ... and so on, 3 more. 'ipsec-policy check' tells all.\n"));
}

} // namespace
