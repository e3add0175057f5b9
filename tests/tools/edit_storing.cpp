// How an edited document gets into its file, or does not.

#include "editing.h"

#include "support/documents.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

using ipsecimpl::changed;
using testing::ElementsAre;

namespace {

class EditStoring : public Editing {
  protected:
    EditStoring() { hold(BEFORE); }

    static const std::string BEFORE;
    static const std::string AFTER;
};

const std::string EditStoring::BEFORE =
    document(entry("hostGroup", 1, group("hostGroup", "web", "", "")), "", "", entry("policy", 1, policy(1, 0, 0)));
const std::string EditStoring::AFTER = changed(BEFORE, "<name>web", "<name>www");

const std::string RENAME = "set host-group web name=www";

TEST_F(EditStoring, IsAllOrNothing)
{
    EXPECT_EQ(edit({RENAME, "remove host-group www --cascade", "remove host-group www"}),
              troubled("-e:3: no host group is named 'www'"));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(BEFORE));
    EXPECT_THAT(fileNames(), ElementsAre("p.xml"));
}

TEST_F(EditStoring, KeepsTheModeAndFollowsLinks)
{
    ASSERT_EQ(chmod("p.xml", 0640), 0);
    std::filesystem::create_symlink("p.xml", "link.xml");
    EXPECT_EQ(run({"edit", "link.xml", "-e", RENAME}), printed(""));
    EXPECT_TRUE(std::filesystem::is_symlink("link.xml"));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(AFTER));
    EXPECT_EQ(modeOf("p.xml"), 0640U);
}

TEST_F(EditStoring, LeavesTheFileAloneWhenNothingChanges)
{
    const std::string otherForm = BEFORE + "\n  \n";
    writeFile("p.xml", otherForm);
    EXPECT_EQ(
        edit({"set host-group web name=web", "add host-group x", "remove host-group x", "set host-groups nextID=2"},
             {"--backup"}),
        printed("nothing changed\n"));
    EXPECT_EQ(edit({"# nothing"}), printed("nothing changed\n"));
    EXPECT_EQ(contentOf("p.xml"), otherForm);
    EXPECT_THAT(fileNames(), ElementsAre("p.xml"));
}

TEST_F(EditStoring, KeepsTheOldFileIfAsked)
{
    EXPECT_EQ(edit({RENAME}, {"--backup"}), printed(""));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(AFTER));
    EXPECT_EQ(contentOf("p.xml~"), writtenForm(BEFORE));
    EXPECT_THAT(fileNames(), ElementsAre("p.xml", "p.xml~"));
}

TEST_F(EditStoring, KeepsTheOldFileByTheNameThatIsGiven)
{
    writeFile("s.edit", RENAME);
    EXPECT_EQ(run({"edit", "--backup=old.xml", "p.xml", "s.edit"}), printed(""));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(AFTER));
    EXPECT_EQ(contentOf("old.xml"), writtenForm(BEFORE));
}

TEST_F(EditStoring, TakesEveryNameForTheOldFileLiterally)
{
    for (const std::string name : {"true", "false", "1", "[x,y]", "-", "--json"}) {
        writeFile("p.xml", writtenForm(BEFORE));
        EXPECT_EQ(edit({RENAME}, {"--backup=" + name}), printed("")) << name;
        EXPECT_EQ(contentOf(name), writtenForm(BEFORE)) << name;
    }
    EXPECT_EQ(fileNames().size(), 7U);
}

TEST_F(EditStoring, KeepsOtherFilesThatHaveTheNameForTheOldOne)
{
    writeFile("old.xml", "precious");
    EXPECT_EQ(edit({RENAME}, {"--backup=old.xml"}),
              troubled("old.xml: exists already, and is not replaced by the backup"));
    EXPECT_EQ(contentOf("old.xml"), "precious");
    EXPECT_EQ(contentOf("p.xml"), writtenForm(BEFORE));
    EXPECT_THAT(fileNames(), ElementsAre("old.xml", "p.xml"));

    writeFile("p.xml~", "older");
    EXPECT_EQ(edit({RENAME}, {"--backup=p.xml~"}),
              troubled("p.xml~: exists already, and is not replaced by the backup"));
    EXPECT_EQ(contentOf("p.xml~"), "older");
}

TEST_F(EditStoring, KeepsTheLastFileOnlyUnderTheUsualName)
{
    EXPECT_EQ(edit({"set host-group web name=w"}, {"--backup"}), printed(""));
    EXPECT_EQ(edit({"set host-group w name=www"}, {"--backup"}), printed(""));
    EXPECT_EQ(contentOf("p.xml~"), writtenForm(changed(BEFORE, "<name>web", "<name>w")));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(AFTER));
}

TEST_F(EditStoring, BackupTakesNoNameFromTheNextWord)
{
    EXPECT_EQ(run({"edit", "--backup", "p.xml", "-e", RENAME}), printed(""));
    EXPECT_EQ(contentOf("p.xml~"), writtenForm(BEFORE));
    const std::string hint = "; a backup is named by --backup=NAME, in one word";
    EXPECT_EQ(run({"edit", "p.xml", "--backup", "b2"}), troubled("b2: No such file or directory" + hint));
    EXPECT_EQ(run({"edit", "p.xml", "--backup=b1", "b2"}), troubled("b2: No such file or directory"));
}

TEST_F(EditStoring, IsNotBegunWhereTheOldFileCannotBeKept)
{
    EXPECT_EQ(edit({RENAME}, {"--backup=none/old.xml"}), troubled("none/old.xml: No such file or directory"));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(BEFORE));
    EXPECT_THAT(fileNames(), ElementsAre("p.xml"));
}

TEST_F(EditStoring, JsonIsThatOfDiffWithTheEditOrWithoutIt)
{
    const std::vector<std::string> commands = {RENAME, "remove host-group 1 --cascade", "add action x"};
    writeFile("old.xml", writtenForm(BEFORE));
    const Outcome rehearsed = edit(commands, {"--json", "--dry-run"});
    EXPECT_EQ(contentOf("p.xml"), writtenForm(BEFORE));
    EXPECT_EQ(edit(commands, {"--json"}), rehearsed);
    EXPECT_EQ(rehearsed, printed(run({"diff", "--json", "old.xml", "p.xml"}).out));
    EXPECT_NE(rehearsed.out.find("\"removed\""), std::string::npos);
}

TEST_F(EditStoring, JsonIsAnObjectAlsoWhereNothingChanges)
{
    const Outcome nothing = printed("{\n  \"nextIDs\": [],\n  \"objects\": []\n}\n");
    EXPECT_EQ(edit({"# nothing"}, {"--json"}), nothing);
    EXPECT_EQ(edit({"# nothing"}, {"--json", "--dry-run"}), nothing);
}

TEST_F(EditStoring, JsonOfAnEditThatFailsIsNone)
{
    EXPECT_EQ(edit({"add policy 1"}, {"--json"}), edit({"add policy 1"}));
    writeFile("p.xml", "x");
    EXPECT_EQ(edit({RENAME}, {"--json", "--dry-run"}),
              refused("p.xml:1:1: parse_tag: expected '<', found (not shown)\n"
                      "A document begins with <ipsec>: remove what stands before it."));
}

TEST_F(EditStoring, DryRunPrintsTheDifferenceAndStoresNothing)
{
    EXPECT_EQ(edit({RENAME, "remove host-group 1", "add host-group x"}, {"--dry-run", "--cascade", "--backup"}),
              printed("policy 1 is removed with host group 1 'www', which it used\n" +
                      run({"diff", "p.xml", "-"}, document(entry("hostGroup", 2, group("hostGroup", "x", "", "")), "",
                                                           "", "<nextpolicy>2</nextpolicy>"))
                          .out));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(BEFORE));
    EXPECT_THAT(fileNames(), ElementsAre("p.xml"));
}

TEST_F(EditStoring, DryRunSaysThatNothingChanges)
{
    EXPECT_EQ(edit({"set host-group 1 descr="}, {"--dry-run"}), printed("nothing changed\n"));
}

TEST_F(EditStoring, DryRunShowsChangeCountersIfNothingElseDiffers)
{
    hold(document("", "",
                  entry("action", 1,
                        action("a", "",
                               "<spdAction>TRANSPORT</spdAction><keyMgr>MKM</keyMgr><manualKey><saProposal>"
                               "<protocol>NONE</protocol><encryption>0</encryption><hash>0</hash></saProposal>"
                               "</manualKey>"))));
    EXPECT_EQ(edit({"set action 1 manualKey/saProposal/hash=0"}, {"--dry-run"}),
              printed("~ actions/1 'a'\n  ~ changeCount: 0 -> 1\n"));
}

TEST_F(EditStoring, DryRunNeedsNoRightToWrite)
{
    const auto likeEverybody = [] { // root has that right everywhere
        if (geteuid() == 0 && prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0) != 0)
            _exit(126);
    };
    ASSERT_EQ(chmod("p.xml", 0400), 0);
    ASSERT_EQ(chmod(".", 0500), 0);
    EXPECT_EQ(run({"edit", "p.xml", "-e", RENAME, "--dry-run"}, "", likeEverybody),
              printed("~ hostGroups/1 'www' (in policy 1)\n  ~ name: 'web' -> 'www'\n"));
    EXPECT_EQ(run({"edit", "p.xml", "-e", RENAME}, "", likeEverybody).status, 2);
    ASSERT_EQ(chmod(".", 0700), 0);
    EXPECT_EQ(contentOf("p.xml"), writtenForm(BEFORE));
}

TEST_F(EditStoring, RefusesADocumentThatDoesNotLoad)
{
    writeFile("p.xml", "<ipsec></ipsec>");
    const Outcome outcome = edit({RENAME});
    EXPECT_EQ(outcome, refused("p.xml:1:8: parse_simple_tag: missing tag; expected <hostGroups>\n"
                               "Write <hostGroups> before this tag: it cannot be left out.\nOpen elements: <ipsec>"));
    EXPECT_EQ(edit({RENAME}, {"--dry-run"}), outcome);
    EXPECT_EQ(contentOf("p.xml"), "<ipsec></ipsec>");
}

std::string lossy()
{
    return document(entry(
        "hostGroup", 1,
        "<hostGroup><name value='a<b'/><builtinName>0</builtinName><descr/><builtinDescr>0</builtinDescr><selectors>"
        "<hostSelector><family>AF_INET</family><selectorType>SINGLE</selectorType>"
        "<addr1 value='c<d'/></hostSelector></selectors></hostGroup>"));
}

TEST_F(EditStoring, RefusesToDropWhatCannotBeStored)
{
    writeFile("p.xml", lossy());
    const Outcome outcome = edit({"add host-group x"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, testing::StartsWith("ipsec-policy: p.xml: this configuration cannot be stored: "));
    EXPECT_EQ(edit({"add host-group x"}, {"--dry-run"}), outcome);
    EXPECT_EQ(contentOf("p.xml"), lossy());
    EXPECT_THAT(fileNames(), ElementsAre("p.xml"));
}

TEST_F(EditStoring, RepairsWhatCannotBeStored)
{
    writeFile("p.xml", lossy());
    EXPECT_EQ(edit({"set host-group a<b name=ab", "remove selector host-group ab AF_INET SINGLE addr1=c<d"}),
              printed(""));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(document(entry("hostGroup", 1, group("hostGroup", "ab", "", "")))));
}

TEST_F(EditStoring, RefusesFilesThatAreTooLarge)
{
    EXPECT_EQ(edit({RENAME}, {"--max-size", "10"}), run({"format", "p.xml", "--max-size", "10"}));
    EXPECT_EQ(edit({RENAME}, {"--max-size", "10", "--dry-run"}), run({"format", "p.xml", "--max-size", "10"}));
    EXPECT_EQ(edit({RENAME}, {"--max-size", "10"}).status, 2);
    EXPECT_EQ(contentOf("p.xml"), writtenForm(BEFORE));
}

TEST_F(EditStoring, ReportsMissingFiles)
{
    EXPECT_EQ(run({"edit", "none.xml", "-e", RENAME}), troubled("none.xml: No such file or directory"));
    EXPECT_EQ(run({"edit", "p.xml", "none.edit"}), troubled("none.edit: No such file or directory"));
    EXPECT_EQ(run({"edit", "p.xml", "."}), troubled(".: Is a directory"));
}

TEST_F(EditStoring, SaysThatTheFileIsStoredWhereItsReportCannotBePrinted)
{
    EXPECT_EQ(run({"edit", "p.xml", "-e", "remove host-group web --cascade"}, "",
                  [] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); }),
              troubled("p.xml is stored, but standard output: No space left on device"));
    EXPECT_EQ(contentOf("p.xml"),
              writtenForm(document("<nexthostGroup>2</nexthostGroup>", "", "", "<nextpolicy>2</nextpolicy>")));
}

TEST_F(EditStoring, FailsWhereNothingCanBePrinted)
{
    EXPECT_EQ(run({"edit", "p.xml", "--dry-run", "-e", RENAME}, "", [] { close(STDOUT_FILENO); }),
              troubled("standard output: Bad file descriptor"));
}

TEST_F(EditStoring, IsLeftAloneWhenWritingFailsPartWay)
{
    EXPECT_EQ(run({"edit", "p.xml", "-e", RENAME}, "", limitFileSize), troubled("p.xml: File too large"));
    EXPECT_EQ(contentOf("p.xml"), writtenForm(BEFORE));
    EXPECT_THAT(fileNames(), ElementsAre("p.xml"));
}

TEST_F(EditStoring, TakesManyCommandsAtOnce)
{
    std::string script;
    for (unsigned int i = 1; i <= 5000; ++i) {
        const std::string name = "g" + std::to_string(i);
        script += "add host-group " + name + " id=" + std::to_string(20000 - i) + "\nadd policy " + name + " 0 0\n";
        script +=
            "set host-group " + name + " name=\"" + name + " x\"\nremove host-group \"" + name + " x\" --cascade\n";
    }
    EXPECT_EQ(run({"edit", "p.xml", "-"}, script + RENAME).status, 0);
    EXPECT_EQ(contentOf("p.xml"),
              writtenForm(document("<nexthostGroup>20000</nexthostGroup>" +
                                       entry("hostGroup", 1, group("hostGroup", "www", "", "")),
                                   "", "", "<nextpolicy>5002</nextpolicy>" + entry("policy", 1, policy(1, 0, 0)))));
}

} // namespace
