#include "program.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include <sys/stat.h>

using testing::ElementsAre;

namespace {

class FormatInPlace : public InFolder {
  protected:
    FormatInPlace() { writeFile("in.xml", document()); }

    const std::string written_ = run({"format", "-"}, document()).out;
};

ino_t fileNumberOf(const std::string& fileName)
{
    struct stat status = {};
    EXPECT_EQ(stat(fileName.c_str(), &status), 0);
    return status.st_ino;
}

TEST_F(FormatInPlace, ReplacesTheFileWithItsWrittenForm)
{
    ASSERT_EQ(chmod("in.xml", 0640), 0);
    EXPECT_EQ(run({"format", "--in-place", "in.xml"}), printed(""));
    EXPECT_EQ(contentOf("in.xml"), written_);
    EXPECT_EQ(modeOf("in.xml"), 0640U);
    EXPECT_THAT(fileNames(), ElementsAre("in.xml"));
}

TEST_F(FormatInPlace, IsStableOnTheSecondPass)
{
    for (const std::string name : {"home-router.xml", "branch-office.xml", "server-farm.xml"}) {
        writeFile("in.xml", "\n" + contentOf(EXAMPLES_DIR "/configs/" + name));
        EXPECT_EQ(run({"format", "--in-place", "in.xml"}), printed(""));
        const std::string once = contentOf("in.xml");
        EXPECT_EQ(run({"format", "--in-place", "in.xml"}), printed(""));
        EXPECT_EQ(contentOf("in.xml"), once);
        EXPECT_EQ(run({"format", "--check", "in.xml"}), printed(""));
    }
}

TEST_F(FormatInPlace, DoesNotTouchAFileThatWouldNotChange)
{
    writeFile("in.xml", written_);
    const ino_t before = fileNumberOf("in.xml");
    EXPECT_EQ(run({"format", "--in-place", "in.xml"}), printed(""));
    EXPECT_EQ(run({"format", "in.xml", "-o", "in.xml"}), printed(""));
    EXPECT_EQ(fileNumberOf("in.xml"), before);
}

TEST_F(FormatInPlace, TakesSeveralFilesAndGoesOnAfterTrouble)
{
    std::filesystem::copy("in.xml", "other.xml");
    writeFile("bad.xml", "");
    EXPECT_EQ(run({"format", "--in-place", "in.xml", "-", "bad.xml", "other.xml"}, document()),
              (Outcome{2, "",
                       "ipsec-policy: standard input: it is not a file that could be replaced\n"
                       "ipsec-policy: bad.xml:1:1: the document is empty\n"
                       "Make a configuration with 'ipsec-policy new'.\n"}));
    EXPECT_EQ(contentOf("in.xml"), written_);
    EXPECT_EQ(contentOf("other.xml"), written_);
    EXPECT_EQ(contentOf("bad.xml"), "");
}

TEST_F(FormatInPlace, LeavesWhatDoesNotLoadAsItIs)
{
    writeFile("in.xml", "<ipsec></ipsec>");
    EXPECT_EQ(run({"format", "--in-place", "in.xml"}).status, 1);
    EXPECT_EQ(contentOf("in.xml"), "<ipsec></ipsec>");
    EXPECT_THAT(fileNames(), ElementsAre("in.xml"));
}

TEST_F(FormatInPlace, LeavesWhatCannotBeWrittenBackAsItIs)
{
    const std::string lossy = document(
        entry("hostGroup", 1,
              "<hostGroup><name value='a<b'/><builtinName>0</builtinName><descr/><builtinDescr>0</builtinDescr>"
              "<selectors/></hostGroup>"));
    writeFile("in.xml", lossy);
    EXPECT_EQ(run({"format", "--in-place", "in.xml"}), run({"format", "in.xml"}));
    EXPECT_EQ(contentOf("in.xml"), lossy);
}

TEST_F(FormatInPlace, LeavesTheFileAloneWhenWritingFailsPartWay)
{
    EXPECT_EQ(run({"format", "--in-place", "in.xml"}, "", limitFileSize), troubled("in.xml: File too large"));
    EXPECT_EQ(contentOf("in.xml"), document());
    EXPECT_THAT(fileNames(), ElementsAre("in.xml"));
}

TEST_F(FormatInPlace, IsWhatStoringIntoTheInputIs)
{
    std::filesystem::create_symlink("in.xml", "link.xml");
    std::filesystem::create_hard_link("in.xml", "hard.xml");
    EXPECT_EQ(run({"format", "link.xml", "-o", "in.xml"}), printed(""));
    EXPECT_EQ(contentOf("in.xml"), written_);
    EXPECT_EQ(contentOf("hard.xml"), document());
    EXPECT_EQ(run({"format", "hard.xml", "-o", "hard.xml"}), printed(""));
    EXPECT_EQ(contentOf("hard.xml"), written_);
}

} // namespace
