#include "edited.h"
#include "program.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::ElementsAre;

namespace {

const char BEING_EDITED[] = "policy.xml: is being edited by another ipsec-policy";

class StoringLock : public InFolder {
  protected:
    StoringLock() { writeFile("policy.xml", document()); }
};

TEST_F(StoringLock, RefusesASecondEditorAtOnce)
{
    const EditedFile file("policy.xml", USUAL_MAX_SIZE);
    EXPECT_EQ(openForEditing("policy.xml"), BEING_EDITED);
    EXPECT_EQ(run({"format", "--in-place", "policy.xml"}), troubled(BEING_EDITED));
    EXPECT_EQ(run({"format", "policy.xml", "-o", "policy.xml"}), troubled(BEING_EDITED));
    EXPECT_EQ(run({"format", "-", "-o", "policy.xml"}, document()), troubled(BEING_EDITED));
    EXPECT_EQ(contentOf("policy.xml"), document());
    EXPECT_THAT(fileNames(), ElementsAre("policy.xml"));
}

TEST_F(StoringLock, HoldsForEveryNameOfTheFile)
{
    std::filesystem::create_symlink("policy.xml", "link.xml");
    std::filesystem::create_hard_link("policy.xml", "hard.xml");
    const EditedFile file("link.xml", USUAL_MAX_SIZE);
    EXPECT_EQ(openForEditing("policy.xml"), BEING_EDITED);
    EXPECT_EQ(openForEditing("hard.xml"), "hard.xml: is being edited by another ipsec-policy");
}

TEST_F(StoringLock, HoldsOnTheNewFileToo)
{
    EditedFile file("policy.xml", USUAL_MAX_SIZE);
    file.replace("new");
    EXPECT_EQ(openForEditing("policy.xml"), BEING_EDITED);
}

TEST_F(StoringLock, EndsWithTheEditor)
{
    EXPECT_EQ(edit("policy.xml", "new"), "");
    EXPECT_EQ(openForEditing("policy.xml"), "");
    EXPECT_EQ(openForEditing("policy.xml"), "");
}

TEST_F(StoringLock, EndsWhenReplacingWasRefused)
{
    {
        EditedFile file("policy.xml", USUAL_MAX_SIZE);
        writeFile("policy.xml", "changed");
        EXPECT_NE(failureOf([&] { file.replace("new"); }), "");
    }
    EXPECT_EQ(openForEditing("policy.xml"), "");
}

TEST_F(StoringLock, DoesNotKeepReadersOut)
{
    const EditedFile file("policy.xml", USUAL_MAX_SIZE);
    EXPECT_EQ(run({"show", "policy.xml"}).status, 0);
    EXPECT_EQ(run({"format", "policy.xml"}).status, 0);
    EXPECT_EQ(run({"format", "--check", "policy.xml"}).status, 1);
}

/// Adds one to the number in the file, so many times; an edit that is refused is tried again.
[[noreturn]] void count(int times)
{
    while (times > 0) {
        try {
            EditedFile file("number", USUAL_MAX_SIZE);
            file.replace(std::to_string(std::stoi(file.text()) + 1));
            --times;
        } catch (const Failure& failure) {
            if (failure.what() != std::string("number: is being edited by another ipsec-policy"))
                _exit(1);
        }
    }
    _exit(0);
}

TEST_F(StoringLock, LosesNoEditOfManyEditors)
{
    const int EDITORS = 4;
    const int EDITS   = 25;
    writeFile("number", "0");
    for (int editor = 0; editor < EDITORS; ++editor)
        if (fork() == 0)
            count(EDITS);
    for (int editor = 0; editor < EDITORS; ++editor) {
        int status = 0;
        ASSERT_GT(wait(&status), 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(contentOf("number"), std::to_string(EDITORS * EDITS));
}

} // namespace
