#include "file_modes.h"
#include "program.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const char WITH_KEY[]    = "<presharedKey>k</presharedKey>";
const char WITHOUT_KEY[] = "<presharedKey></presharedKey>";

/// Findings about the modes of "policy.xml", in a folder that is its owner's alone.
class CheckModes : public InFolder {
  protected:
    CheckModes() { writeFile("policy.xml", ""); }

    /// What is found when the file has the mode, such as "code: message".
    static std::vector<std::string> foundWith(mode_t mode, const std::string& document)
    {
        EXPECT_EQ(chmod("policy.xml", mode), 0);
        return foundIn("policy.xml", document);
    }

    static std::vector<std::string> foundIn(const std::string& fileName, const std::string& document)
    {
        Findings findings;
        checkFileModes(fileName, document, findings);
        std::vector<std::string> texts;
        for (const Finding& finding : findings) {
            EXPECT_TRUE(finding.isAboutFile);
            EXPECT_FALSE(finding.isLocated);
            texts.push_back(finding.rule->code + (": " + finding.message));
        }
        return texts;
    }

    /// The message about the folder `name` in the current one.
    static std::string openFolder(const std::string& name, const std::string& mode)
    {
        return "folder-writable-by-others: Everybody can put another file in the place of this one, because the "
               "folder '" +
               std::filesystem::canonical(name).string() + "' is open to all (mode " + mode +
               "): take that away with chmod o-w.";
    }
};

TEST_F(CheckModes, AFileWithKeysForItsOwnerAloneIsFine)
{
    EXPECT_THAT(foundWith(0600, WITH_KEY), IsEmpty());
    EXPECT_THAT(foundWith(0700, WITH_KEY), IsEmpty());
    EXPECT_THAT(foundWith(0400, WITH_KEY), IsEmpty());
}

TEST_F(CheckModes, AFileWithKeysThatEverybodyCanReadIsAnError)
{
    const char message[] = "keys-readable-by-others: The file holds keys, and everybody can read it (mode 0644): take "
                           "that away with chmod 600.";
    EXPECT_THAT(foundWith(0644, WITH_KEY), ElementsAre(message));
}

TEST_F(CheckModes, AFileWithKeysThatItsGroupCanReadIsANote)
{
    const char message[] = "keys-readable-by-group: The file holds keys, and its group can read it (mode 0640): see "
                           "that only the key manager is in the group, or take that away with chmod 600.";
    EXPECT_THAT(foundWith(0640, WITH_KEY), ElementsAre(message));
}

TEST_F(CheckModes, EverybodyMayReadAFileWithoutKeys)
{
    EXPECT_THAT(foundWith(0644, WITHOUT_KEY), IsEmpty());
    EXPECT_THAT(foundWith(0644, "<presharedKey/><outboundEncrKey value=''/><inboundAuthKey> </inboundAuthKey>"),
                IsEmpty());
}

TEST_F(CheckModes, AnyKeyCounts)
{
    for (const std::string tag :
         {"presharedKey", "inboundDecrKey", "outboundEncrKey", "outboundEncrIV", "inboundAuthKey", "outboundAuthKey"}) {
        EXPECT_EQ(foundWith(0604, "<ipsec><" + tag + ">k").size(), 1U) << tag;
        EXPECT_EQ(foundWith(0604, "<ipsec><" + tag + " value='k'/>").size(), 1U) << tag;
    }
}

TEST_F(CheckModes, AFileThatEverybodyCanChangeIsAnError)
{
    const char message[] = "writable-by-others: Everybody can change this file (mode 0602): take that away with chmod "
                           "go-w.";
    EXPECT_THAT(foundWith(0602, WITH_KEY), ElementsAre(message));
    EXPECT_THAT(foundWith(0602, WITHOUT_KEY), ElementsAre(message));
}

TEST_F(CheckModes, AFolderThatEverybodyCanChangeIsAWarning)
{
    std::filesystem::create_directories("a/b\x1b");
    writeFile("a/b\x1b/policy.xml", "");
    ASSERT_EQ(chmod("a/b\x1b/policy.xml", 0600), 0);
    ASSERT_EQ(chmod("a", 0777), 0);
    EXPECT_THAT(foundIn("a/b\x1b/policy.xml", ""), ElementsAre(openFolder("a", "0777")));

    ASSERT_EQ(chmod("a", 0757), 0);
    EXPECT_THAT(foundIn("a/b\x1b/policy.xml", ""), ElementsAre(openFolder("a", "0757")));
}

TEST_F(CheckModes, AFolderWhereOnlyOwnersRemoveTheirFilesIsFine)
{
    std::filesystem::create_directory("a");
    writeFile("a/policy.xml", "");
    ASSERT_EQ(chmod("a/policy.xml", 0600), 0);
    ASSERT_EQ(chmod("a", 01777), 0);
    EXPECT_THAT(foundIn("a/policy.xml", ""), IsEmpty());
}

TEST_F(CheckModes, TheFoldersOfALinkAndOfItsFileCount)
{
    std::filesystem::create_directories("links");
    std::filesystem::create_directories("files");
    writeFile("files/policy.xml", "");
    ASSERT_EQ(chmod("files/policy.xml", 0600), 0);
    std::filesystem::create_symlink("../files/policy.xml", "links/policy.xml");
    EXPECT_THAT(foundIn("links/policy.xml", ""), IsEmpty());

    ASSERT_EQ(chmod("links", 0777), 0);
    EXPECT_THAT(foundIn("links/policy.xml", ""), ElementsAre(openFolder("links", "0777")));

    ASSERT_EQ(chmod("links", 0700), 0);
    ASSERT_EQ(chmod("files", 0777), 0);
    EXPECT_THAT(foundIn("links/policy.xml", ""), ElementsAre(openFolder("files", "0777")));
}

TEST_F(CheckModes, WhatIsNoFileIsLeftAlone)
{
    EXPECT_THAT(foundIn("-", WITH_KEY), IsEmpty());
    EXPECT_THAT(foundIn("/dev/null", WITH_KEY), IsEmpty());
}

TEST_F(CheckModes, FindingsHaveNoLineInTheReport)
{
    writeFile("policy.xml", document());
    ASSERT_EQ(chmod("policy.xml", 0606), 0);
    EXPECT_EQ(run({"check", "policy.xml"}), (Outcome{1,
                                                     "policy.xml: error: writable-by-others\n"
                                                     "    Everybody can change this file (mode 0606): take that away "
                                                     "with chmod go-w.\n\n1 error in 1 file\n",
                                                     ""}));
}

} // namespace
