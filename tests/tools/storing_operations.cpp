#include "storing_operations.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <ostream>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

#ifdef SANITIZED
const std::size_t STEP = 5; // such a program takes ten times as long to start
#else
const std::size_t STEP = 1;
#endif

const std::string KEY = "Kq7Zv9Wx";

std::string documentWithKey()
{
    const std::string phase1 = "<ikePhase1><authType>PSK</authType><presharedKey>" + KEY +
                               "</presharedKey><proposal><dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime>"
                               "<keyLifetimeUnits>MINS</keyLifetimeUnits></proposal></ikePhase1>";
    const std::string phase2 = "<ikePhase2><dhGroup>G1</dhGroup><keyLifetime>5</keyLifetime><keyLifetimeUnits>KB"
                               "</keyLifetimeUnits></ikePhase2>";
    return document(
        "", "",
        entry("action", 1, action("p", "", "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr>" + phase1 + phase2)));
}

const std::string EARLIER_BACKUP = "an earlier backup";

} // namespace

std::ostream& operator<<(std::ostream& out, const Operation& operation)
{
    return out << operation.what;
}

const std::vector<Operation>& storingOperations()
{
    // clang-format off
    static const std::vector<Operation> operations = {
        {"in place",          {PROGRAM_PATH, {"format", "--in-place", "link.xml"}, ""},           true},
        {"over another file", {PROGRAM_PATH, {"format", "in.xml", "-o", "policy.xml"}, ""},       true},
        {"into a new file",   {PROGRAM_PATH, {"format", "in.xml", "-o", "policy.xml"}, ""},       false},
        {"a starter",         {PROGRAM_PATH, {"new", "-o", "policy.xml"}, ""},                    false},
        {"with a backup",     {EDITED_FILE_PATH, {"policy.xml", "policy.xml~"}, "new and longer"}, true, true},
    };
    // clang-format on
    return operations;
}

StoringFaults::StoringFaults()
    : old_(documentWithKey())
{
}

namespace {

/// Leaves out what of the calls not every run makes: a random key is drawn again until it has characters of all kinds.
void eraseFurtherKeys(std::vector<SystemCall>& calls)
{
    int        keys    = 0;
    const auto isAgain = [&keys](const SystemCall& call) {
        return call.name == "getrandom" && call.shown.find(", 32, 0)") != std::string::npos && ++keys > 1;
    };
    calls.erase(std::remove_if(calls.begin(), calls.end(), isAgain), calls.end());
}

} // namespace

void StoringFaults::SetUp()
{
    if (!whyNoTrace().empty())
        GTEST_SKIP() << whyNoTrace();
    prepare();
    calls_ = systemCallsOf(GetParam().traced);
    eraseFurtherKeys(calls_);
    new_ = withoutKey(contentOf("policy.xml"));
    ASSERT_GT(calls_.size(), 10U);
    ASSERT_NE(new_, old_);
    names_ = fileNames();
}

void StoringFaults::prepare() const
{
    for (const std::string& name : fileNames())
        std::filesystem::remove(name);
    writeFile("in.xml", old_);
    if (!GetParam().replaces)
        return;
    writeFile("policy.xml", old_);
    std::filesystem::create_symlink("policy.xml", "link.xml");
    ASSERT_TRUE(geteuid() != 0 || chown("policy.xml", 12345, 23456) == 0);
    static_cast<void>(setxattr("policy.xml", "user.origin", "x", 1, 0)); // not every file system has these
    ASSERT_EQ(chmod("policy.xml", STORED_MODE), 0);
    if (GetParam().makesBackup)
        writeFile("policy.xml~", EARLIER_BACKUP);
}

void StoringFaults::forEachCall(const std::string&                                            fault,
                                const std::function<void(const SystemCall&, const Outcome&)>& look) const
{
    for (std::size_t i = 0; i < calls_.size(); i += STEP) {
        SCOPED_TRACE(fault + " in " + calls_[i].shown);
        prepare();
        const Outcome outcome = runWithFault(GetParam().traced, calls_[i], fault);
        EXPECT_EQ((outcome.out + outcome.err).find(KEY.substr(0, 4)), std::string::npos) << outcome;
        look(calls_[i], outcome);
        if (HasFailure())
            return;
    }
}

bool StoringFaults::isNew() const
{
    return std::filesystem::exists("policy.xml") && withoutKey(contentOf("policy.xml")) == new_ &&
           modeOf("policy.xml") == (GetParam().replaces ? STORED_MODE : 0600U);
}

bool StoringFaults::isOld() const
{
    if (!GetParam().replaces)
        return !std::filesystem::exists("policy.xml");
    return contentOf("policy.xml") == old_ && modeOf("policy.xml") == STORED_MODE;
}

void StoringFaults::expectNew() const
{
    EXPECT_TRUE(isNew());
    EXPECT_EQ(fileNames(), names_);
    expectBackup();
}

void StoringFaults::expectOldOrNew() const
{
    EXPECT_TRUE(isNew() || isOld());
    expectBackup();
}

void StoringFaults::expectOldOrNewAlone() const
{
    expectOldOrNew();
    std::vector<std::string> names = names_;
    if (!isNew() && !GetParam().replaces)
        names.erase(std::find(names.begin(), names.end(), "policy.xml"));
    EXPECT_EQ(fileNames(), names);
}

/// As soon as the file is new, the old content is in the backup.
void StoringFaults::expectBackup() const
{
    if (!GetParam().makesBackup)
        return;
    const std::string backup = contentOf("policy.xml~");
    EXPECT_TRUE(backup == old_ || (backup == EARLIER_BACKUP && !isNew()));
}
