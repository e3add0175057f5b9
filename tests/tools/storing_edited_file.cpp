#include "edited.h"
#include "program.h"

#include <gmock/gmock.h>

#include <cstring>
#include <filesystem>
#include <ostream>
#include <string>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;

namespace {

class StoringEditedFile : public InFolder {
  protected:
    StoringEditedFile() { writeFile("policy.xml", "old"); }
};

const char CHANGED[] = "policy.xml: was changed by another program since it was read";

TEST_F(StoringEditedFile, ReadsEveryByte)
{
    const std::string text("a\0b\r\n\xff", 6);
    writeFile("policy.xml", text);
    const EditedFile file("policy.xml", USUAL_MAX_SIZE);
    EXPECT_EQ(file.text(), text);
    EXPECT_EQ(file.name(), "policy.xml");
}

TEST_F(StoringEditedFile, ReplacesTheContentAndLeavesNothingElse)
{
    for (const std::string& text : {std::string("new"), std::string(), std::string(1'000'000, 'x')}) {
        EXPECT_EQ(edit("policy.xml", text), "");
        EXPECT_EQ(contentOf("policy.xml"), text);
        EXPECT_THAT(fileNames(), ElementsAre("policy.xml"));
    }
}

TEST_F(StoringEditedFile, IsTheOldOneUntilItIsReplaced)
{
    {
        const EditedFile file("policy.xml", USUAL_MAX_SIZE);
        EXPECT_THAT(fileNames(), ElementsAre("policy.xml"));
    }
    EXPECT_EQ(contentOf("policy.xml"), "old");
}

TEST_F(StoringEditedFile, FollowsSymbolicLinksOfFilesAndFolders)
{
    std::filesystem::create_directory("folder");
    writeFile("folder/file.xml", "old");
    std::filesystem::create_directory_symlink("folder", "other");
    std::filesystem::create_symlink("other/file.xml", "second.xml");
    std::filesystem::create_symlink("second.xml", "first.xml");
    EXPECT_EQ(edit("first.xml", "new"), "");
    EXPECT_EQ(contentOf("folder/file.xml"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink("first.xml"));
    EXPECT_TRUE(std::filesystem::is_symlink("second.xml"));
    EXPECT_TRUE(std::filesystem::is_symlink("other"));
}

TEST_F(StoringEditedFile, MustBeAFile)
{
    std::filesystem::create_directory("folder");
    std::filesystem::create_symlink("nowhere", "link");
    std::filesystem::create_symlink("loop", "loop");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    EXPECT_EQ(openForEditing("-"), "standard input: it is not a file that could be replaced");
    EXPECT_EQ(openForEditing(""), "'': No such file or directory");
    EXPECT_EQ(openForEditing("none.xml"), "none.xml: No such file or directory");
    EXPECT_EQ(openForEditing("none/policy.xml"), "none/policy.xml: No such file or directory");
    EXPECT_EQ(openForEditing("policy.xml/x"), "policy.xml/x: Not a directory");
    EXPECT_EQ(openForEditing("link"), "link: the file that this link points to: No such file or directory");
    EXPECT_EQ(openForEditing("loop"), "loop: Too many levels of symbolic links");
    EXPECT_EQ(openForEditing("folder"), "folder: Is a directory");
    EXPECT_EQ(openForEditing("."), ".: Is a directory");
    EXPECT_EQ(openForEditing("pipe"), "pipe: is not a regular file");
    EXPECT_EQ(openForEditing("/dev/null"), "/dev/null: is not a regular file");
}

TEST_F(StoringEditedFile, MustNotBeLargerThanTheLimit)
{
    EXPECT_EQ(openForEditing("policy.xml", 3), "");
    EXPECT_EQ(openForEditing("policy.xml", 2), "policy.xml: larger than 2 bytes (--max-size allows more)");
}

/// What is done to the file between reading and replacing it.
struct Change {
    const char* what;
    void (*make)();
};

std::ostream& operator<<(std::ostream& out, const Change& change)
{
    return out << change.what;
}

class ChangedMeanwhile : public StoringEditedFile, public testing::WithParamInterface<Change> {};

TEST_P(ChangedMeanwhile, IsRefusedAndNothingIsTouched)
{
    EditedFile file("policy.xml", USUAL_MAX_SIZE);
    writeFile("policy.xml~", "an older one");
    GetParam().make();
    const auto namesBefore = fileNames();
    const bool exists      = std::filesystem::is_regular_file("policy.xml");
    const auto before      = exists ? contentOf("policy.xml") : "";
    EXPECT_EQ(failureOf([&] { file.replace("new", usualBackup("policy.xml")); }), CHANGED);
    EXPECT_EQ(fileNames(), namesBefore);
    EXPECT_EQ(exists ? contentOf("policy.xml") : "", before);
    EXPECT_EQ(contentOf("policy.xml~"), "an older one");
}

/// Gives the file back the times that it had.
void overwriteKeepingTheTimes(const std::string& text)
{
    struct stat status = {};
    ASSERT_EQ(stat("policy.xml", &status), 0);
    writeFile("policy.xml", text);
    const struct timespec times[] = {status.st_atim, status.st_mtim};
    ASSERT_EQ(utimensat(AT_FDCWD, "policy.xml", times, 0), 0);
}

// clang-format off
const Change CHANGES[] = {
    {"longer",               [] { writeFile("policy.xml", "older"); }},
    {"of the same length",   [] { writeFile("policy.xml", "odd"); }},
    {"with its times kept",  [] { overwriteKeepingTheTimes("odd"); }},
    {"emptied",              [] { writeFile("policy.xml", ""); }},
    {"given another mode",   [] { ASSERT_EQ(chmod("policy.xml", 0600), 0); }},
    {"replaced by the same", [] { writeFile("x", "old"); std::filesystem::rename("x", "policy.xml"); }},
    {"removed",              [] { std::filesystem::remove("policy.xml"); }},
    {"moved away",           [] { std::filesystem::rename("policy.xml", "moved.xml"); }},
    {"a folder now",         [] { std::filesystem::remove("policy.xml");
                                  std::filesystem::create_directory("policy.xml"); }},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(StoringEditedFile, ChangedMeanwhile, testing::ValuesIn(CHANGES));

TEST_F(StoringEditedFile, IsComparedByItsContentToo)
{
    // A program that has written to a mapping of the file may go on doing so without a trace in the file's times.
    const int file    = open("policy.xml", O_RDWR);
    void*     mapping = mmap(nullptr, 3, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ASSERT_NE(mapping, MAP_FAILED);
    close(file);
    std::memcpy(mapping, "Old", 3);

    EditedFile edited("policy.xml", USUAL_MAX_SIZE);
    EXPECT_EQ(edited.text(), "Old");
    std::memcpy(mapping, "odd", 3);
    EXPECT_EQ(failureOf([&] { edited.replace("new"); }), CHANGED);
    EXPECT_EQ(contentOf("policy.xml"), "odd");
    munmap(mapping, 3);
}

TEST_F(StoringEditedFile, StaysInItsFolderWhenThatIsRenamed)
{
    std::filesystem::create_directory("folder");
    writeFile("folder/policy.xml", "old");
    EditedFile file("folder/policy.xml", USUAL_MAX_SIZE);
    std::filesystem::rename("folder", "renamed");
    std::filesystem::create_directory("folder");
    writeFile("folder/policy.xml", "somebody else's");
    file.replace("new");
    EXPECT_EQ(contentOf("renamed/policy.xml"), "new");
    EXPECT_EQ(contentOf("folder/policy.xml"), "somebody else's");
}

TEST_F(StoringEditedFile, WorksBesideWhatKilledProgramsLeft)
{
    const std::string left = ".ipsec-policy." + std::to_string(getpid());
    writeFile(left, "half");
    writeFile(left + ".1", "half");
    EXPECT_EQ(edit("policy.xml", "new"), "");
    EXPECT_EQ(contentOf("policy.xml"), "new");
    EXPECT_THAT(fileNames(), ElementsAre(left, left + ".1", "policy.xml"));
}

TEST_F(StoringEditedFile, NeverWritesThroughALinkInTheTemporaryFilesPlace)
{
    writeFile("victim", "precious");
    std::filesystem::create_symlink("victim", ".ipsec-policy." + std::to_string(getpid()));
    EXPECT_EQ(edit("policy.xml", "new"), "");
    EXPECT_EQ(contentOf("victim"), "precious");
}

} // namespace
