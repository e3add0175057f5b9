#include "edited.h"
#include "program.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;

namespace {

class StoringBackup : public InFolder {
  protected:
    StoringBackup() { writeFile("policy.xml", "old"); }

    /// Editing with this backup is refused, and nothing is touched.
    static void expectRefusal(const std::string& backup, const std::string& message)
    {
        const auto before = fileNames();
        EXPECT_EQ(edit("policy.xml", "new", backup), message);
        EXPECT_EQ(contentOf("policy.xml"), "old");
        EXPECT_EQ(fileNames(), before);
    }
};

TEST_F(StoringBackup, KeepsTheOldContent)
{
    EXPECT_EQ(edit("policy.xml", "new", "policy.xml.bak"), "");
    EXPECT_EQ(contentOf("policy.xml"), "new");
    EXPECT_EQ(contentOf("policy.xml.bak"), "old");
    EXPECT_THAT(fileNames(), ElementsAre("policy.xml", "policy.xml.bak"));
}

TEST_F(StoringBackup, OfTheUsualNameReplacesTheEarlierOne)
{
    writeFile("policy.xml~", "older and longer");
    EXPECT_EQ(edit("policy.xml", "new", "policy.xml~"), "");
    EXPECT_EQ(contentOf("policy.xml~"), "old");
    EXPECT_THAT(fileNames(), ElementsAre("policy.xml", "policy.xml~"));
}

TEST_F(StoringBackup, OfAnotherNameReplacesNothing)
{
    for (const std::string name : {"policy.xml.bak", "other.xml~"}) {
        writeFile(name, "of somebody else");
        expectRefusal(name, name + ": exists already, and is not replaced by the backup");
        EXPECT_EQ(contentOf(name), "of somebody else");
    }
}

TEST_F(StoringBackup, OfAGivenNameReplacesNothingEvenIfItIsTheUsualOne)
{
    EXPECT_EQ(editKeeping(backupNamed("policy.xml~"), "policy.xml", "new"), "");
    EXPECT_EQ(editKeeping(backupNamed("policy.xml~"), "policy.xml", "newer"),
              "policy.xml~: exists already, and is not replaced by the backup");
    EXPECT_EQ(contentOf("policy.xml"), "new");
    EXPECT_EQ(contentOf("policy.xml~"), "old");
    EXPECT_EQ(editKeeping(usualBackup("policy.xml"), "policy.xml", "newer"), "");
    EXPECT_EQ(contentOf("policy.xml~"), "new");
}

TEST_F(StoringBackup, HasTheModeOfTheFileWhateverTheEarlierOneHad)
{
    for (const mode_t mode : {0600U, 0640U, 0444U, 0604U}) {
        writeFile("policy.xml", "old");
        ASSERT_EQ(chmod("policy.xml", mode), 0);
        ASSERT_EQ(edit("policy.xml", "new", "policy.xml~"), "");
        EXPECT_EQ(modeOf("policy.xml~"), mode);
        ASSERT_EQ(chmod("policy.xml~", 0666), 0);
        ASSERT_EQ(chmod("policy.xml", 0600), 0);
    }
}

TEST_F(StoringBackup, InAnotherFolderIsForTheOwnerAlone)
{
    std::filesystem::create_directory("other");
    ASSERT_EQ(chmod("policy.xml", 0644), 0);
    EXPECT_EQ(edit("policy.xml", "new", "other/policy.xml"), "");
    EXPECT_EQ(contentOf("other/policy.xml"), "old");
    EXPECT_EQ(modeOf("other/policy.xml"), 0600U);
    EXPECT_EQ(modeOf("policy.xml"), 0644U);
}

TEST_F(StoringBackup, IsInAnotherFolderToWhereALinkToTheFileStands)
{
    std::filesystem::create_directory("secret");
    writeFile("secret/policy.xml", "old");
    ASSERT_EQ(chmod("secret/policy.xml", 0644), 0);
    std::filesystem::create_symlink("secret/policy.xml", "link.xml");
    EXPECT_EQ(edit("link.xml", "new", "link.xml.bak"), "");
    EXPECT_EQ(contentOf("link.xml.bak"), "old");
    EXPECT_EQ(modeOf("link.xml.bak"), 0600U);
}

TEST_F(StoringBackup, HasTheOwnerOfTheFile)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give files away";
    std::filesystem::create_directory("other");
    ASSERT_EQ(chown("policy.xml", 12345, 23456), 0);
    for (const std::string backup : {"policy.xml.bak", "other/policy.xml"}) {
        ASSERT_EQ(edit("policy.xml", "new", backup), "");
        struct stat status = {};
        ASSERT_EQ(stat(backup.c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, 12345U);
        EXPECT_EQ(status.st_gid, 23456U);
    }
}

TEST_F(StoringBackup, DoesNotChangeWithOtherLinksToTheOldFile)
{
    std::filesystem::create_hard_link("policy.xml", "other.xml");
    EXPECT_EQ(edit("policy.xml", "new", "policy.xml.bak"), "");
    writeFile("other.xml", "changed");
    EXPECT_EQ(contentOf("policy.xml.bak"), "old");
}

TEST_F(StoringBackup, IsNotTheFileItself)
{
    std::filesystem::create_hard_link("policy.xml", "other.xml");
    expectRefusal("policy.xml", "policy.xml: is the file itself, and so cannot be its backup");
    expectRefusal("./policy.xml", "./policy.xml: is the file itself, and so cannot be its backup");
    expectRefusal("other.xml", "other.xml: is the file itself, and so cannot be its backup");
}

TEST_F(StoringBackup, ReplacesFilesOnly)
{
    std::filesystem::create_directory("folder");
    std::filesystem::create_symlink("elsewhere", "link");
    expectRefusal("folder", "folder: is not a regular file, and so not replaced by the backup");
    expectRefusal("link", "link: is not a regular file, and so not replaced by the backup");
    expectRefusal("/dev/null", "/dev/null: is not a regular file, and so not replaced by the backup");
}

TEST_F(StoringBackup, ThatCannotBeMadeKeepsTheFileAsItWas)
{
    expectRefusal("none/policy.xml", "none/policy.xml: No such file or directory");
    expectRefusal("policy.xml/x", "policy.xml/x: Not a directory");
}

} // namespace
