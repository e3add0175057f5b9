#include "program.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;

namespace {

const std::string WRITTEN = "<ipsec>\n<hostGroups>\n<nexthostGroup>1</nexthostGroup>\n</hostGroups>\n"
                            "<protocolGroups>\n<nextprotocolGroup>1</nextprotocolGroup>\n</protocolGroups>\n"
                            "<actions>\n<nextaction>1</nextaction>\n</actions>\n"
                            "<policies>\n<nextpolicy>1</nextpolicy>\n</policies>\n</ipsec>\n";

class FormatOutput : public InFolder {
  protected:
    FormatOutput() { writeFile("in.xml", document()); }
};

TEST_F(FormatOutput, GoesToANewFileForItsOwnerAlone)
{
    EXPECT_EQ(run({"format", "in.xml", "-o", "out.xml"}, "", [] { umask(0); }), printed(""));
    EXPECT_EQ(contentOf("out.xml"), WRITTEN);
    EXPECT_EQ(modeOf("out.xml"), 0600U);
    EXPECT_THAT(fileNames(), ElementsAre("in.xml", "out.xml"));
}

TEST_F(FormatOutput, ReplacesALongerFileAndKeepsItsMode)
{
    writeFile("out.xml", std::string(5000, 'x'));
    ASSERT_EQ(chmod("out.xml", 0640), 0);
    EXPECT_EQ(run({"format", "in.xml", "--output", "out.xml"}, "", [] { umask(077); }), printed(""));
    EXPECT_EQ(contentOf("out.xml"), WRITTEN);
    EXPECT_EQ(modeOf("out.xml"), 0640U);
    EXPECT_THAT(fileNames(), ElementsAre("in.xml", "out.xml"));
}

TEST_F(FormatOutput, KeepsTheOwnerOfTheFile)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give files away";
    writeFile("out.xml", "");
    ASSERT_EQ(chown("out.xml", 12345, 23456), 0);
    EXPECT_EQ(run({"format", "in.xml", "-o", "out.xml"}), printed(""));
    struct stat status = {};
    ASSERT_EQ(stat("out.xml", &status), 0);
    EXPECT_EQ(status.st_uid, 12345U);
    EXPECT_EQ(status.st_gid, 23456U);
}

TEST_F(FormatOutput, IsLeftAloneWhenItsOwnerCannotBeKept)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can have a file of somebody else's replaced";
    writeFile("out.xml", "old");
    ASSERT_EQ(chown("out.xml", 12345, 23456), 0);
    const auto mayNotGiveFilesAway = [] {
        if (prctl(PR_CAPBSET_DROP, CAP_CHOWN, 0, 0, 0) != 0)
            _exit(126);
    };
    EXPECT_EQ(run({"format", "in.xml", "-o", "out.xml"}, "", mayNotGiveFilesAway),
              troubled("out.xml: its owner and group cannot be kept: Operation not permitted"));
    EXPECT_EQ(contentOf("out.xml"), "old");
    EXPECT_THAT(fileNames(), ElementsAre("in.xml", "out.xml"));
}

TEST_F(FormatOutput, SeversHardLinks)
{
    writeFile("out.xml", "old");
    std::filesystem::create_hard_link("out.xml", "other.xml");
    EXPECT_EQ(run({"format", "in.xml", "-o", "out.xml"}), printed(""));
    EXPECT_EQ(contentOf("out.xml"), WRITTEN);
    EXPECT_EQ(contentOf("other.xml"), "old");
}

TEST_F(FormatOutput, ReplacesAFileThatIsReadOnly)
{
    writeFile("out.xml", "old");
    ASSERT_EQ(chmod("out.xml", 0400), 0);
    EXPECT_EQ(run({"format", "in.xml", "-o", "out.xml"}), printed(""));
    EXPECT_EQ(contentOf("out.xml"), WRITTEN);
    EXPECT_EQ(modeOf("out.xml"), 0400U);
}

TEST_F(FormatOutput, MayBeTheInput)
{
    EXPECT_EQ(run({"format", "in.xml", "-o", "in.xml"}), printed(""));
    EXPECT_EQ(contentOf("in.xml"), WRITTEN);
    EXPECT_THAT(fileNames(), ElementsAre("in.xml"));
}

TEST_F(FormatOutput, MayBeStandardOutput)
{
    EXPECT_EQ(run({"format", "in.xml", "-o", "-"}), printed(WRITTEN));
    EXPECT_THAT(fileNames(), ElementsAre("in.xml"));
}

TEST_F(FormatOutput, MayBeInAnotherFolder)
{
    std::filesystem::create_directory("other");
    EXPECT_EQ(run({"format", "in.xml", "-o", "other/out.xml"}), printed(""));
    EXPECT_EQ(contentOf("other/out.xml"), WRITTEN);
}

TEST_F(FormatOutput, FollowsASymbolicLink)
{
    std::filesystem::create_directory("other");
    writeFile("other/file.xml", "old");
    std::filesystem::create_symlink("other/file.xml", "out.xml");
    EXPECT_EQ(run({"format", "in.xml", "-o", "out.xml"}), printed(""));
    EXPECT_TRUE(std::filesystem::is_symlink("out.xml"));
    EXPECT_EQ(contentOf("other/file.xml"), WRITTEN);
}

TEST_F(FormatOutput, LeavesALinkToNowhereAsItIs)
{
    std::filesystem::create_symlink("nowhere", "out.xml");
    EXPECT_EQ(run({"format", "in.xml", "-o", "out.xml"}),
              troubled("out.xml: the file that this link points to: No such file or directory"));
    EXPECT_TRUE(std::filesystem::is_symlink("out.xml"));
    EXPECT_THAT(fileNames(), ElementsAre("in.xml", "out.xml"));
}

TEST_F(FormatOutput, WritesToADeviceWithoutReplacingIt)
{
    EXPECT_EQ(run({"format", "in.xml", "-o", "/dev/null"}), printed(""));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_EQ(run({"format", "in.xml", "-o", "/dev/full"}), troubled("/dev/full: No space left on device"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(FormatOutput, IsLeftAloneWhenTheDocumentDoesNotLoad)
{
    writeFile("out.xml", "old");
    EXPECT_EQ(run({"format", "-", "-o", "out.xml"}, "<ipsec></ipsec>").status, 1);
    EXPECT_EQ(contentOf("out.xml"), "old");
    EXPECT_THAT(fileNames(), ElementsAre("in.xml", "out.xml"));
}

TEST_F(FormatOutput, IsLeftAloneWhenTheDocumentCannotBeStored)
{
    const std::string lossy = document(
        entry("hostGroup", 1,
              "<hostGroup><name value='a<b'/><builtinName>0</builtinName><descr/><builtinDescr>0</builtinDescr>"
              "<selectors/></hostGroup>"));
    writeFile("in.xml", lossy);
    EXPECT_EQ(run({"format", "in.xml", "-o", "in.xml"}).status, 1);
    EXPECT_EQ(contentOf("in.xml"), lossy);
    EXPECT_THAT(fileNames(), ElementsAre("in.xml"));
}

TEST_F(FormatOutput, IsLeftAloneWhenWritingFailsPartWay)
{
    EXPECT_EQ(run({"format", "in.xml", "-o", "in.xml"}, "", limitFileSize), troubled("in.xml: File too large"));
    EXPECT_EQ(contentOf("in.xml"), document());
    EXPECT_THAT(fileNames(), ElementsAre("in.xml"));
}

TEST_F(FormatOutput, IsNotBegunWhenWritingFailsPartWay)
{
    EXPECT_EQ(run({"format", "in.xml", "-o", "out.xml"}, "", limitFileSize), troubled("out.xml: File too large"));
    EXPECT_THAT(fileNames(), ElementsAre("in.xml"));
}

TEST_F(FormatOutput, CannotBeAFolderOrInOneThatIsMissing)
{
    std::filesystem::create_directory("folder");
    EXPECT_EQ(run({"format", "in.xml", "-o", "folder"}), troubled("folder: Is a directory"));
    EXPECT_EQ(run({"format", "in.xml", "-o", "none/out.xml"}), troubled("none/out.xml: No such file or directory"));
    EXPECT_THAT(fileNames(), ElementsAre("folder", "in.xml"));
    EXPECT_TRUE(std::filesystem::is_empty("folder"));
}

} // namespace
