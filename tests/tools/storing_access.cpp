// Mode, owner, access control lists and extended attributes of files that are replaced.

#include "edited.h"
#include "program.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

const char ACCESS_LIST[]  = "system.posix_acl_access";
const char DEFAULT_LIST[] = "system.posix_acl_default";

/// An access control list as the kernel takes it: a version, then tag, permissions and ID of each entry. The owner may
/// read and write, the user 12345 may read, group and others nothing.
const std::string LIST("\x02\0\0\0"
                       "\x01\0\x06\0\xff\xff\xff\xff"
                       "\x02\0\x04\0\x39\x30\0\0"
                       "\x04\0\0\0\xff\xff\xff\xff"
                       "\x10\0\x04\0\xff\xff\xff\xff"
                       "\x20\0\0\0\xff\xff\xff\xff",
                       44);

/// Returns false where the file system has no such attributes.
bool setAttribute(const char* fileName, const char* attribute, const std::string& value)
{
    if (setxattr(fileName, attribute, value.data(), value.size(), 0) == 0)
        return true;
    EXPECT_EQ(errno, ENOTSUP);
    return false;
}

std::string attributeOf(const char* fileName, const char* attribute)
{
    std::string   value(100, '\0');
    const ssize_t size = getxattr(fileName, attribute, value.data(), value.size());
    if (size < 0)
        return errno == ENODATA ? "(none)" : "(error)";
    return value.substr(0, static_cast<std::size_t>(size));
}

class StoringAccess : public InFolder {
  protected:
    StoringAccess() { writeFile("policy.xml", "old"); }
};

TEST_F(StoringAccess, KeepsTheMode)
{
    for (const mode_t mode : {0400U, 0440U, 0444U, 0600U, 0604U, 0620U, 0644U, 0666U, 0700U, 0755U, 0777U}) {
        ASSERT_EQ(chmod("policy.xml", mode), 0);
        ASSERT_EQ(edit("policy.xml", "new"), "");
        ASSERT_EQ(modeOf("policy.xml"), mode);
    }
}

TEST_F(StoringAccess, KeepsAnAccessControlList)
{
    if (!setAttribute("policy.xml", ACCESS_LIST, LIST))
        GTEST_SKIP() << "this file system has no access control lists";
    EXPECT_EQ(edit("policy.xml", "new", "policy.xml.bak"), "");
    EXPECT_EQ(attributeOf("policy.xml", ACCESS_LIST), LIST);
    EXPECT_EQ(attributeOf("policy.xml.bak", ACCESS_LIST), LIST);
    EXPECT_EQ(modeOf("policy.xml"), 0640U) << "which without the list would let the group read";
}

TEST_F(StoringAccess, DoesNotTakeTheFoldersAccessControlList)
{
    ASSERT_EQ(chmod("policy.xml", 0640), 0);
    if (!setAttribute(".", DEFAULT_LIST, LIST))
        GTEST_SKIP() << "this file system has no access control lists";
    EXPECT_EQ(edit("policy.xml", "new", "policy.xml.bak"), "");
    EXPECT_EQ(attributeOf("policy.xml", ACCESS_LIST), "(none)");
    EXPECT_EQ(attributeOf("policy.xml.bak", ACCESS_LIST), "(none)");
    EXPECT_EQ(modeOf("policy.xml"), 0640U);
}

TEST_F(StoringAccess, LetsNobodyInThroughTheListOfABackupsFolder)
{
    ASSERT_EQ(mkdir("other", 0755), 0);
    if (!setAttribute("other", DEFAULT_LIST, LIST))
        GTEST_SKIP() << "this file system has no access control lists";
    EXPECT_EQ(edit("policy.xml", "new", "other/policy.xml"), "");
    EXPECT_EQ(attributeOf("other/policy.xml", ACCESS_LIST), "(none)");
    EXPECT_EQ(modeOf("other/policy.xml"), 0600U);
}

TEST_F(StoringAccess, KeepsAttributesOfTheUser)
{
    const std::string value("a\0b", 3);
    if (!setAttribute("policy.xml", "user.origin", value))
        GTEST_SKIP() << "this file system has no extended attributes";
    ASSERT_TRUE(setAttribute("policy.xml", "user.empty", ""));
    EXPECT_EQ(edit("policy.xml", "new"), "");
    EXPECT_EQ(attributeOf("policy.xml", "user.origin"), value);
    EXPECT_EQ(attributeOf("policy.xml", "user.empty"), "");
}

TEST_F(StoringAccess, KeepsAttributesOfAReadOnlyFile)
{
    if (!setAttribute("policy.xml", "user.origin", "here"))
        GTEST_SKIP() << "this file system has no extended attributes";
    ASSERT_EQ(chmod("policy.xml", 0400), 0);
    EXPECT_EQ(edit("policy.xml", "new"), "");
    EXPECT_EQ(attributeOf("policy.xml", "user.origin"), "here");
}

TEST_F(StoringAccess, GivesNewContentNoCapabilities)
{
    const std::string capability("\x01\0\0\x02\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 20);
    if (geteuid() != 0 || !setAttribute("policy.xml", "security.capability", capability))
        GTEST_SKIP() << "only root can do this, and not everywhere";
    EXPECT_EQ(edit("policy.xml", "new"), "");
    EXPECT_EQ(attributeOf("policy.xml", "security.capability"), "(none)");
}

} // namespace
