// File systems that lack one way or another to make a file. strace plays them.

#include "tracer.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <string>
#include <vector>

#include <unistd.h>

using testing::ElementsAre;

namespace {

const std::vector<std::string> NO_EXCLUSIVE_RENAME = {"-e", "inject=renameat2:error=EINVAL"};
const std::vector<std::string> NO_LINKS            = {"-e", "inject=renameat2:error=EINVAL", "-e",
                                                      "inject=link,linkat:error=EPERM"};

const Traced NEW = {PROGRAM_PATH, {"new", "-o", "policy.xml"}, ""};

class StoringFallbacks : public InFolder {
  protected:
    void SetUp() override
    {
        if (!whyNoTrace().empty())
            GTEST_SKIP() << whyNoTrace();
    }

    static Outcome runWithout(std::vector<std::string> lack, const std::vector<std::string>& fault = {},
                              const Traced& traced = NEW)
    {
        lack.insert(lack.begin(), {"-o", "/dev/null"});
        lack.insert(lack.end(), fault.begin(), fault.end());
        return trace(lack, traced);
    }

    /// Without links the text is written a second time, where the file stands.
    static std::vector<SystemCall> bothWrites()
    {
        std::vector<SystemCall> writes;
        for (const SystemCall& call : systemCallsOf(NEW, NO_LINKS))
            if (call.name == "write")
                writes.push_back(call);
        EXPECT_EQ(writes.size(), 2U);
        EXPECT_EQ(unlink("policy.xml"), 0);
        return writes;
    }

    static void expectNewFile()
    {
        EXPECT_EQ(withoutKey(contentOf("policy.xml")), withoutKey(run({"new"}).out));
        EXPECT_EQ(modeOf("policy.xml"), 0600U);
        EXPECT_THAT(fileNames(), ElementsAre("policy.xml"));
    }
};

TEST_F(StoringFallbacks, ANewFileIsMadeWithoutExclusiveRenames)
{
    EXPECT_EQ(runWithout(NO_EXCLUSIVE_RENAME), printed(""));
    expectNewFile();
}

TEST_F(StoringFallbacks, ANewFileIsMadeWithoutLinks)
{
    EXPECT_EQ(runWithout(NO_LINKS), printed(""));
    expectNewFile();
}

TEST_F(StoringFallbacks, ABackupThatReplacesNothingIsMadeWithoutExclusiveRenamesAndWithoutLinks)
{
    const Traced withBackup = {EDITED_FILE_PATH, {"policy.xml", "backup.xml"}, "new"};
    for (const std::vector<std::string>& lack : {NO_EXCLUSIVE_RENAME, NO_LINKS}) {
        writeFile("policy.xml", "old");
        EXPECT_EQ(runWithout(lack, {}, withBackup), printed(""));
        EXPECT_EQ(contentOf("policy.xml"), "new");
        EXPECT_EQ(contentOf("backup.xml"), "old");
        EXPECT_THAT(fileNames(), ElementsAre("backup.xml", "policy.xml"));
        EXPECT_EQ(runWithout(lack, {}, withBackup),
                  troubled("backup.xml: exists already, and is not replaced by the backup"));
        EXPECT_EQ(unlink("backup.xml"), 0);
    }
}

TEST_F(StoringFallbacks, AKernelWithoutTheCallsIsLikeAFileSystemWithoutThem)
{
    for (const std::string error : {"ENOSYS", "EOPNOTSUPP", "EPERM"}) {
        EXPECT_EQ(runWithout({"-e", "inject=renameat2,link,linkat:error=" + error}), printed(""));
        expectNewFile();
        EXPECT_EQ(unlink("policy.xml"), 0);
    }
}

TEST_F(StoringFallbacks, WhatExistsIsNeverOverwritten)
{
    writeFile("policy.xml", "old");
    for (const auto& lack : {NO_EXCLUSIVE_RENAME, NO_LINKS})
        EXPECT_EQ(runWithout(lack), troubled("policy.xml: File exists"));
    EXPECT_EQ(contentOf("policy.xml"), "old");
    EXPECT_THAT(fileNames(), ElementsAre("policy.xml"));
}

TEST_F(StoringFallbacks, AFullDiskLeavesNothingBehind)
{
    for (const SystemCall& write : bothWrites()) {
        EXPECT_EQ(runWithout(NO_LINKS, {"-e", "inject=write:error=ENOSPC:when=" + std::to_string(write.number)}),
                  troubled("policy.xml: No space left on device"));
        EXPECT_THAT(fileNames(), ElementsAre());
    }
}

TEST_F(StoringFallbacks, ASignalWhileTheFileGrowsLeavesItWhole)
{
    const std::string second = std::to_string(bothWrites().back().number);
    EXPECT_EQ(runWithout(NO_LINKS, {"-e", "inject=write:signal=SIGTERM:when=" + second}).status, -SIGTERM);
    expectNewFile();
}

TEST_F(StoringFallbacks, OtherErrorsAreNotTakenForAMissingCall)
{
    EXPECT_EQ(runWithout({"-e", "inject=renameat2:error=EROFS"}), troubled("policy.xml: Read-only file system"));
    EXPECT_EQ(runWithout({"-e", "inject=renameat2:error=EINVAL", "-e", "inject=linkat:error=EDQUOT"}),
              troubled("policy.xml: Disk quota exceeded"));
    EXPECT_THAT(fileNames(), ElementsAre());
}

TEST_F(StoringFallbacks, AFolderThatCannotBeSyncedNeedNot)
{
    for (const std::string error : {"EINVAL", "EOPNOTSUPP"}) {
        // The first is that of the file itself.
        EXPECT_EQ(runWithout({"-e", "inject=fsync:error=" + error + ":when=2"}), printed(""));
        expectNewFile();
        EXPECT_EQ(unlink("policy.xml"), 0);
    }
}

const Traced IN_PLACE = {PROGRAM_PATH, {"format", "--in-place", "policy.xml"}, ""};

TEST_F(StoringFallbacks, AFileSystemWithoutAttributesHasNoneToKeep)
{
    writeFile("policy.xml", document());
    EXPECT_EQ(runWithout({"-e", "inject=flistxattr,fgetxattr,fsetxattr,fremovexattr:error=EOPNOTSUPP"}, {}, IN_PLACE),
              printed(""));
    EXPECT_EQ(contentOf("policy.xml"), run({"format", "-"}, document()).out);
}

TEST_F(StoringFallbacks, AFileThatCannotBeLockedIsNotEdited)
{
    writeFile("policy.xml", document());
    EXPECT_EQ(runWithout({"-e", "inject=flock:error=ENOLCK"}, {}, IN_PLACE),
              troubled("policy.xml: cannot be locked: No locks available"));
    EXPECT_EQ(contentOf("policy.xml"), document());
}

class StoringReplacedFile : public StoringFallbacks {
  protected:
    /// Runs `format --in-place`, and right after it has the lock the name seems to be gone; `again` gives the ending of
    /// strace's "when" from the numbers of that look, and of the first call of its name that belongs to an attempt.
    static Outcome runWithNameGone(const std::function<std::string(int look, int first)>& again)
    {
        writeFile("policy.xml", document());
        const std::vector<SystemCall> calls = systemCallsOf(IN_PLACE);
        writeFile("policy.xml", document());

        const auto isLock  = [](const SystemCall& call) { return call.name == "flock"; };
        const auto namesIt = [](const SystemCall& call) {
            return call.shown.find("\"policy.xml\"") != std::string::npos;
        };
        const auto look = std::find_if(std::find_if(calls.begin(), calls.end(), isLock), calls.end(), namesIt);
        if (look == calls.end())
            return {};
        const auto isLook = [&](const SystemCall& call) { return call.name == look->name; };
        const auto first  = std::find_if(calls.begin(), calls.end(), isLook);
        return trace({"-o", "/dev/null", "-e",
                      "inject=" + look->name + ":error=ENOENT:when=" + std::to_string(look->number) +
                          again(look->number, first->number)},
                     IN_PLACE);
    }
};

TEST_F(StoringReplacedFile, IsOpenedAndLockedAgain)
{
    EXPECT_EQ(runWithNameGone([](int, int) { return ""; }), printed(""));
    EXPECT_EQ(contentOf("policy.xml"), run({"format", "-"}, document()).out);
}

TEST_F(StoringReplacedFile, IsGivenUpInTheEnd)
{
    EXPECT_EQ(runWithNameGone([](int look, int first) { return "+" + std::to_string(look - first + 1); }),
              troubled("policy.xml: another program keeps replacing it"));
    EXPECT_EQ(contentOf("policy.xml"), document());
}

} // namespace
