#include "completed.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

TEST_F(Complete, TheFirstWordIsACommandOrAnOptionOfTheProgram)
{
    EXPECT_THAT(completed({""}), testing::IsSupersetOf({"new\tMake a starter configuration.",
                                                        "show\tShow a configuration as tables, without its keys.",
                                                        "graph\tDraw which policies tie what, for Graphviz.",
                                                        "help\tTell how a command is used, as its --help does.",
                                                        "--help\tPrint this help message and exit"}));
    EXPECT_EQ(completed({}), completed({""}));
    EXPECT_THAT(wordsFor({"sh"}), ElementsAre("show"));
    EXPECT_THAT(wordsFor({"--v"}), ElementsAre("--version"));
    EXPECT_THAT(wordsFor({"-"}), ElementsAre("--help", "--version"));
    EXPECT_THAT(wordsFor({"x"}), IsEmpty());
}

TEST_F(Complete, EveryCommandIsOfferedAndNothingHidden)
{
    const std::string help = run({"--help"}).out;
    for (const std::string& word : wordsFor({""}))
        EXPECT_THAT(help, testing::AnyOf(HasSubstr("\n  " + word + " "), HasSubstr("," + word + " "))) << word;
    EXPECT_THAT(help, Not(HasSubstr("__complete")));
}

TEST_F(Complete, OptionsAreThoseThatTheHelpOfTheCommandLists)
{
    for (const std::string command : {"new", "show", "check", "format", "diff", "edit", "graph", "help"}) {
        const std::string        help  = run({command, "--help"}).out;
        std::vector<std::string> words = wordsFor({command, "--"});
        EXPECT_THAT(words, Contains("--help"));
        EXPECT_EQ(wordsFor({command, "-"}), words) << "after a single dash too";
        for (const std::string& word : words)
            EXPECT_THAT(help, HasSubstr(word)) << command;
        for (std::size_t at = help.find("\n  --"); at != std::string::npos; at = help.find("\n  --", at + 1)) {
            const std::size_t name = at + 3;
            EXPECT_THAT(words, Contains(help.substr(name, help.find_first_of(" [", name) - name))) << command;
        }
    }
    EXPECT_THAT(completed({"show", "--s"}), ElementsAre("--show-keys\tShow keys, pre-shared keys and IVs too"));
    EXPECT_THAT(wordsFor({"show", "policy.xml", "actions", "--j"}), ElementsAre("--json"));
}

TEST_F(Complete, FileNamesAreLeftToTheShell)
{
    EXPECT_THAT(completed({"show", ""}), ElementsAre(":files"));
    EXPECT_THAT(completed({"show", "--json", "pol"}), ElementsAre(":files"));
    EXPECT_THAT(completed({"graph", ""}), ElementsAre(":files"));
    EXPECT_THAT(completed({"format", "policy.xml", "-o", ""}), ElementsAre(":files"));
    EXPECT_THAT(completed({"format", "-o", "out.xml", ""}), ElementsAre(":files"));
    EXPECT_THAT(completed({"format", "--output", "out.xml", ""}), ElementsAre(":files"));
    EXPECT_THAT(completed({"format", "--output=x"}), ElementsAre(":files"));
    EXPECT_THAT(completed({"edit", "policy.xml", "--backup=x"}), ElementsAre(":files"));
    EXPECT_THAT(completed({"edit", "policy.xml", ""}), ElementsAre(":files"));
    EXPECT_THAT(completed({"diff", "policy.xml", ""}), ElementsAre(":files"));
    EXPECT_THAT(completed({"check", "--algorithms", ""}), ElementsAre(":files"));
    EXPECT_THAT(completed({"show", "--", "-p"}), ElementsAre(":files"));
}

TEST_F(Complete, AfterTheFileComesAKind)
{
    EXPECT_THAT(completed({"show", "policy.xml", ""}),
                ElementsAre("host-groups", "protocol-groups", "actions", "policies"));
    EXPECT_THAT(completed({"show", "policy.xml", "p"}), ElementsAre("protocol-groups", "policies"));
    EXPECT_THAT(completed({"show", "none.xml", "a"}), ElementsAre("actions"));
}

TEST_F(Complete, AfterTheKindComeIDsAndUniqueNames)
{
    EXPECT_THAT(completed({"show", "policy.xml", "host-groups", ""}),
                ElementsAre("1\tHead office", "2\ttwice", "3\ttwice", "4", "5\t10", "6\tR&D 'lab'", "7\ta\\nb",
                            "8\t--help", "12\tname=x", "13\tplain", "Head\\ office\tID 1", "name\\=10\tID 5",
                            "R\\&D\\ \\'lab\\'\tID 6", "name\\=--help\tID 8", "name\\=name\\=x\tID 12",
                            "plain\tID 13"));
    EXPECT_THAT(completed({"show", "policy.xml", "actions", ""}), ElementsAre("3\tPass", "Pass\tID 3"));
    EXPECT_THAT(completed({"show", "policy.xml", "protocol-group", "W"}), ElementsAre("Web\tID 4"));
    EXPECT_THAT(completed({"show", "policy.xml", "policies", ""}),
                ElementsAre("1\tHead office, Web, Pass", "11\t!! missing, Web, Pass"));
}

TEST_F(Complete, EveryNameThatIsOfferedIsFound)
{
    for (const std::string word : {"Head office", "name=10", "R&D 'lab'", "name=--help", "name=name=x", "plain"})
        EXPECT_EQ(run({"show", "policy.xml", "host-groups", word}).status, 0) << word;
}

TEST_F(Complete, WhatIsTypedAlreadyMayBeQuoted)
{
    EXPECT_THAT(wordsFor({"show", "policy.xml", "host-groups", "Head\\ "}), ElementsAre("Head\\ office"));
    EXPECT_THAT(wordsFor({"show", "policy.xml", "host-groups", "'Head "}), ElementsAre("Head office"));
    EXPECT_THAT(wordsFor({"show", "policy.xml", "host-groups", "\"Head "}), ElementsAre("Head office"));
    EXPECT_THAT(wordsFor({"show", "policy.xml", "host-groups", "'R"}), IsEmpty()) << "its quotes would end the quote";
    EXPECT_THAT(wordsFor({"show", "policy.xml", "host-groups", "\"R"}), ElementsAre("R&D 'lab'"));
    EXPECT_THAT(wordsFor({"show", "'policy.xml'", "host-groups", "1"}), ElementsAre("1", "12", "13"));
    std::filesystem::rename("policy.xml", "my policy.xml");
    EXPECT_THAT(wordsFor({"show", "my\\ policy.xml", "actions", "P"}), ElementsAre("Pass"));
}

TEST_F(Complete, OptionsDoNotStandInTheWayOfTheFile)
{
    EXPECT_THAT(wordsFor({"show", "--json", "policy.xml", "--show-keys", "actions", "P"}), ElementsAre("Pass"));
    EXPECT_THAT(wordsFor({"show", "--", "policy.xml", "actions", "P"}), ElementsAre("Pass"));
}

TEST_F(Complete, WhereNothingIsMissingOptionsAreLeft)
{
    EXPECT_THAT(wordsFor({"graph", "policy.xml", ""}), ElementsAre("--help", "--used-only", "--max-size"));
    EXPECT_THAT(wordsFor({"graph", "--", "policy.xml", ""}), IsEmpty());
}

TEST_F(Complete, LevelsAndCodesOfCheckAreKnown)
{
    EXPECT_THAT(wordsFor({"check", "--level", ""}), ElementsAre("error", "warning", "note"));
    EXPECT_THAT(wordsFor({"check", "--level=w"}), ElementsAre("--level=warning"));
    EXPECT_THAT(wordsFor({"check", "--explain", "dh-group-1"}), ElementsAre("dh-group-1"));
}

TEST_F(Complete, UnknownCommandsOptionsAndKindsHaveNone)
{
    EXPECT_THAT(completed({"none", ""}), IsEmpty());
    EXPECT_THAT(completed({"show", "--none=x"}), IsEmpty());
    EXPECT_THAT(completed({"show", "--none"}), IsEmpty());
    EXPECT_THAT(completed({"show", "--json=x"}), IsEmpty());
    EXPECT_THAT(completed({"show", "policy.xml", "rules", ""}), IsEmpty());
    EXPECT_THAT(completed({"__complete", ""}), IsEmpty());
}

TEST_F(Complete, FilesThatCannotBeReadHaveNoObjects)
{
    writeFile("broken.xml", contentOf("policy.xml").substr(0, 500));
    writeFile("empty.xml", "");
    std::filesystem::create_symlink("policy.xml", "link.xml");
    std::filesystem::create_symlink("nowhere", "dangling.xml");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    for (const std::string name : {"none.xml", "broken.xml", "empty.xml", ".", "dangling.xml", "pipe", "-", "/dev/zero",
                                   "/dev/tty", "/proc/self/mem"})
        EXPECT_THAT(completed({"show", name, "actions", ""}), IsEmpty()) << name;
    EXPECT_THAT(wordsFor({"show", "link.xml", "actions", "P"}), ElementsAre("Pass"));
}

TEST_F(Complete, AFileThatIsTooLargeHasNoObjects)
{
    std::filesystem::resize_file("policy.xml", 64 * 1024 * 1024 + 1);
    EXPECT_THAT(completed({"show", "policy.xml", "actions", ""}), IsEmpty());
}

TEST_F(Complete, NeverFailsWhateverBecomesOfItsOutput)
{
    EXPECT_EQ(run({"__complete", ""}, "", [] { close(STDOUT_FILENO); }), printed(""));
    EXPECT_EQ(run({"__complete", ""}, "", [] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); }), printed(""));
    EXPECT_EQ(run({"__complete", ""}, "", [] { close(STDERR_FILENO); }), run({"__complete", ""}));
}

} // namespace
