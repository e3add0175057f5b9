#include "program.h"
#include "support/golden.h"

#include <cstdlib>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

Outcome differing(const std::string& lines)
{
    return {1, lines, ""};
}

class Diff : public InFolder {
  protected:
    /// What is printed of the difference between two documents.
    static Outcome of(const std::string& before, const std::string& after, std::vector<std::string> options = {})
    {
        writeFile("old.xml", before);
        writeFile("new.xml", after);
        options.insert(options.begin(), {"diff", "old.xml", "new.xml"});
        return run(options);
    }
};

TEST_F(Diff, OfEqualDocumentsIsEmpty)
{
    const std::string text = contentOf(EXAMPLES_DIR "/configs/branch-office.xml");
    EXPECT_EQ(of(text, text), printed(""));
    EXPECT_EQ(of(text, text, {"--change-counts", "--show-keys"}), printed(""));
    EXPECT_EQ(of(text, text, {"--script"}), printed(""));
    EXPECT_EQ(of(text, text, {"--json"}), printed("{\n  \"nextIDs\": [],\n  \"objects\": []\n}\n"));
}

TEST_F(Diff, LooksAtWhatDocumentsMeanAndNotAtTheirForm)
{
    const std::string selectors = "<hostSelector><family>AF_INET</family><selectorType>SINGLE</selectorType><addr1>10.";
    const std::string end       = "</addr1></hostSelector>";
    EXPECT_EQ(
        of(document(entry("hostGroup", 1, group("hostGroup", "a", "", "")) +
                    entry("hostGroup", 2, group("hostGroup", "b", "", selectors + "1" + end + selectors + "2" + end))),
           "<ipsec>\n<hostGroups><nexthostGroup>2</nexthostGroup>" +
               entry("hostGroup", 2, group("hostGroup", " b\n", "", selectors + "2" + end + selectors + "1" + end)) +
               "<hostGroupEntry><id value='01'/><hostGroup><name "
               "value='a'/><builtinName>+0</builtinName><descr/><builtinDescr>0x0"
               "</builtinDescr><selectors/></hostGroup></hostGroupEntry></hostGroups><protocolGroups/><actions/>"
               "<policies/></ipsec>"),
        printed(""));
}

TEST_F(Diff, TellsWhatWasAddedWithoutWhatIsZeroOrEmpty)
{
    const std::string tunnel = "<spdAction>TUNNEL</spdAction><tunnelEndpoint></tunnelEndpoint><keyMgr>MKM</keyMgr>"
                               "<manualKey><saProposal><protocol>AH</protocol><encryption>0</encryption><hash>2</hash>"
                               "</saProposal><inboundAHSPI>0</inboundAHSPI><outboundAHSPI>300</outboundAHSPI>"
                               "<inboundAuthKey>Secret</inboundAuthKey><outboundAuthKey></outboundAuthKey></manualKey>";
    EXPECT_EQ(of(document(), document(entry("hostGroup", 1, group("hostGroup", "Nobody", "", "")),
                                      entry("protocolGroup", 2,
                                            group("protocolGroup", "Ping", "For operators",
                                                  "<protocolSelector><protocol>1</protocol><name>Protocol</name>"
                                                  "<direction>IN</direction><mirrored>MIRRORED</mirrored>"
                                                  "</protocolSelector>")),
                                      entry("action", 3, action("Tunnel", "", tunnel)),
                                      entry("policy", 4, policy(1, 2, 3)) + entry("policy", 5, policy(1, 0, 9)))),
              differing(R"(+ hostGroups/1 'Nobody' (in policies 4, 5)
  + selectors: (none)
~ hostGroups/nextID: 1 -> 2
+ protocolGroups/2 'Ping' (in policy 4)
  + descr: 'For operators'
  + selectors: icmp in mirrored
~ protocolGroups/nextID: 1 -> 3
+ actions/3 'Tunnel' (in policy 4)
  + spdAction: TUNNEL
  + tunnelEndpoint: ''
  + keyMgr: MKM
  + manualKey/saProposal/protocol: AH
  + manualKey/saProposal/encryption: 0
  + manualKey/saProposal/hash: 2
  + manualKey/inboundAHSPI: 0
  + manualKey/outboundAHSPI: 300
  + manualKey/inboundAuthKey: (hidden)
  + manualKey/outboundAuthKey: (empty)
~ actions/nextID: 1 -> 4
+ policies/4
  + hostGroupID: 1 'Nobody'
  + protocolGroupID: 2 'Ping'
  + actionID: 3 'Tunnel'
+ policies/5
  + hostGroupID: 1 'Nobody'
  + protocolGroupID: 0 (none)
  + actionID: 9 (missing)
~ policies/nextID: 1 -> 6
)"));
}

TEST_F(Diff, TellsWhatWasRemovedAndWhatStillRefersToIt)
{
    const std::string passing = "<spdAction>BYPASS</spdAction>";
    EXPECT_EQ(
        of(document(entry("hostGroup", 1, group("hostGroup", "Lab", "Basement", "")), "",
                    entry("action", 1, action("Pass", "", passing)) + entry("action", 2, action("Drop", "", passing)),
                    entry("policy", 1, policy(1, 0, 2)) + entry("policy", 2, policy(1, 0, 1))),
           "<ipsec><hostGroups><nexthostGroup>2</nexthostGroup></hostGroups><protocolGroups/><actions>"
           "<nextaction>3</nextaction>" +
               entry("action", 1, action("Pass", "", passing)) + "</actions><policies>" +
               entry("policy", 2, policy(1, 0, 1)) + "</policies></ipsec>"),
        differing(R"(- hostGroups/1 'Lab' (still in policy 2)
  - descr: 'Basement'
  - selectors: (none)
- actions/2 'Drop'
  - spdAction: BYPASS
- policies/1
  - hostGroupID: 1 'Lab'
  - protocolGroupID: 0 (none)
  - actionID: 2 'Drop'
)"));
}

TEST_F(Diff, ComparesTheNextIDsToo)
{
    const auto nextIDs = [](const std::string& ids) {
        return "<ipsec><hostGroups><nexthostGroup>" + ids + "1</nexthostGroup></hostGroups><protocolGroups>" +
               "<nextprotocolGroup>" + ids + "2</nextprotocolGroup></protocolGroups><actions><nextaction>" + ids +
               "3</nextaction></actions><policies><nextpolicy>" + ids + "4</nextpolicy></policies></ipsec>";
    };
    EXPECT_EQ(of(nextIDs("1"), nextIDs("")), differing("~ hostGroups/nextID: 11 -> 1\n"
                                                       "~ protocolGroups/nextID: 12 -> 2\n"
                                                       "~ actions/nextID: 13 -> 3\n"
                                                       "~ policies/nextID: 14 -> 4\n"));
    EXPECT_EQ(of(nextIDs("1"), nextIDs(""), {"--script"}), differing("set host-groups nextID=1\n"
                                                                     "set protocol-groups nextID=2\n"
                                                                     "set actions nextID=3\n"
                                                                     "set policies nextID=4\n"));
}

std::string named(unsigned int id, const std::string& name)
{
    return entry("action", id, action(name, "", "<spdAction>BYPASS</spdAction>"));
}

TEST_F(Diff, OfAReferenceHasTheNamesOfItsTime)
{
    EXPECT_EQ(of(document("", "", named(2, "Tunnel") + named(5, "Pass"), entry("policy", 3, policy(0, 0, 2))),
                 document("", "", named(2, "Tunnel") + named(5, "Bypass"), entry("policy", 3, policy(0, 0, 5)))),
              differing("~ actions/5 'Bypass' (in policy 3)\n"
                        "  ~ name: 'Pass' -> 'Bypass'\n"
                        "~ policies/3\n"
                        "    hostGroupID: 0 (none)\n"
                        "    protocolGroupID: 0 (none)\n"
                        "  ~ actionID: 2 'Tunnel' -> 5 'Bypass'\n"));
}

TEST_F(Diff, CountsThePoliciesOfAnObjectThatManyUse)
{
    std::string policies;
    for (unsigned int id = 1; id <= 7; ++id)
        policies += entry("policy", id, policy(0, 0, 1));
    EXPECT_EQ(of(document("", "", named(1, "a"), policies), document("", "", named(1, "b"), policies)),
              differing("~ actions/1 'b' (in policies 1, 2, 3, 4, 5, 6, 7)\n  ~ name: 'a' -> 'b'\n"));

    policies += entry("policy", 8, policy(0, 0, 1));
    EXPECT_EQ(of(document("", "", named(1, "a"), policies), document("", "", named(1, "b"), policies)),
              differing("~ actions/1 'b' (in policies 1, 2, 3, 4, 5, 6 and 2 more)\n  ~ name: 'a' -> 'b'\n"));
}

TEST_F(Diff, EscapesWhatATerminalWouldObey)
{
    EXPECT_EQ(of(document("", "", named(1, "a\x1b[2J")), document("", "", named(1, "b\xff\n\xe2\x80\xae."))),
              differing("~ actions/1 'b\\xff\\n\\u{202e}.'\n"
                        "  ~ name: 'a\\x1b[2J' -> 'b\\xff\\n\\u{202e}.'\n"));
}

TEST_F(Diff, PutsValuesUnderEachOtherThatDoNotFitSideBySide)
{
    const auto described = [](const std::string& text) {
        return document("", "", entry("action", 1, action("a", text, "<spdAction>BYPASS</spdAction>")));
    };
    EXPECT_EQ(of(described(std::string(30, 'x')), described(std::string(31, 'y'))),
              differing("~ actions/1 'a'\n"
                        "  ~ descr: '" +
                        std::string(30, 'x') + "' -> '" + std::string(31, 'y') + "'\n"));
    EXPECT_EQ(of(described(std::string(30, 'x')), described(std::string(32, 'y'))),
              differing("~ actions/1 'a'\n"
                        "  - descr: '" +
                        std::string(30, 'x') +
                        "'\n"
                        "  + descr: '" +
                        std::string(32, 'y') + "'\n"));
    EXPECT_EQ(of(described("Office"), described("The network of the whole office, and that of the workshop in the "
                                                "yard behind it")),
              differing("~ actions/1 'a'\n"
                        "  - descr: 'Office'\n"
                        "  + descr: 'The network of the whole office, and that of the workshop in the\n"
                        "      yard behind it'\n"));
}

TEST_F(Diff, FitsTheWidthThatColumnsTells)
{
    writeFile("old.xml", document("", "", named(1, "Tunnel to the head office")));
    writeFile("new.xml", document("", "", named(1, "Tunnel to the new head office")));
    EXPECT_EQ(run({"diff", "old.xml", "new.xml"}, "", [] { setenv("COLUMNS", "30", 1); }),
              differing("~ actions/1 'Tunnel to the new\n"
                        "    head office'\n"
                        "  - name: 'Tunnel to the head\n"
                        "      office'\n"
                        "  + name: 'Tunnel to the new\n"
                        "      head office'\n"));
}

TEST_F(Diff, ReadsEitherDocumentFromStandardInput)
{
    writeFile("a.xml", document("", "", named(1, "a")));
    const std::string other = document("", "", named(1, "b"));
    EXPECT_EQ(run({"diff", "-", "a.xml"}, other), differing("~ actions/1 'a'\n  ~ name: 'b' -> 'a'\n"));
    EXPECT_EQ(run({"diff", "a.xml", "-"}, other), differing("~ actions/1 'b'\n  ~ name: 'a' -> 'b'\n"));
}

TEST_F(Diff, OfADocumentThatDoesNotLoadIsRefused)
{
    const std::string EMPTY = ".xml:1:1: the document is empty\nMake a configuration with 'ipsec-policy new'.";
    EXPECT_EQ(of(document(), ""), refused("new" + EMPTY));
    EXPECT_EQ(of("", document()), refused("old" + EMPTY));
    EXPECT_EQ(of("", document(), {"--json"}), refused("old" + EMPTY));
}

TEST_F(Diff, OfAFileThatIsMissingIsTrouble)
{
    writeFile("a.xml", document());
    EXPECT_EQ(run({"diff", "a.xml", "b.xml"}), troubled("b.xml: No such file or directory"));
    EXPECT_EQ(run({"diff", "b.xml", "a.xml"}), troubled("b.xml: No such file or directory"));
}

TEST_F(Diff, FailsWhereItCannotBePrinted)
{
    writeFile("a.xml", document());
    writeFile("b.xml", document("", "", named(1, "a")));
    EXPECT_EQ(run({"diff", "a.xml", "b.xml"}, "", [] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); }),
              troubled("standard output: No space left on device"));
}

TEST_F(Diff, HasHelp)
{
    const Outcome outcome = run({"diff", "--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    expectGolden("diff/help.txt", outcome.out);
}

Outcome misused(const std::string& message)
{
    return troubled("diff: " + message + "\nRun 'ipsec-policy diff --help' for more information.");
}

TEST_F(Diff, RefusesArgumentsThatExcludeEachOther)
{
    EXPECT_EQ(run({"diff", "-", "-"}), misused("OLD and NEW cannot both be standard input"));
    EXPECT_EQ(of(document(), document(), {"--script", "--json"}), misused("--script and --json exclude each other"));
    EXPECT_EQ(of(document(), document(), {"--script", "--change-counts"}),
              misused("--script and --change-counts exclude each other: no command sets a change counter"));
    EXPECT_EQ(run({"diff", "-"}), misused("NEW is required"));
}

} // namespace
