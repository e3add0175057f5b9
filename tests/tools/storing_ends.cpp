// The program is ended at every system call on the way of a document into its file.

#include "storing_operations.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>

namespace {

class StoringEnds : public StoringFaults {
  protected:
    /// What a killed program leaves lets nobody read more than the file does.
    static void expectNoWideTemporary()
    {
        for (const std::string& name : fileNames())
            EXPECT_TRUE(name.rfind(".ipsec-policy.", 0) != 0 || (modeOf(name) & ~STORED_MODE) == 0) << name;
    }

    void expectThatTheNextOneWorks() const
    {
        const bool    exists  = std::filesystem::exists("policy.xml");
        const Outcome outcome = trace({"-o", "/dev/null", "-e", "trace=none"}, GetParam().traced);
        const bool    refused = GetParam().traced.arguments.front() == "new" && exists;
        EXPECT_EQ(outcome, refused ? troubled("policy.xml: File exists") : printed(""));
        EXPECT_TRUE(isNew());
    }
};

TEST_P(StoringEnds, AKillLeavesTheOldOrTheNewAndTheNextOneWorks)
{
    forEachCall("signal=SIGKILL", [this](const SystemCall&, const Outcome& outcome) {
        EXPECT_EQ(outcome, (Outcome{-SIGKILL, "", ""}));
        expectOldOrNew();
        expectNoWideTemporary();
        expectThatTheNextOneWorks();
    });
}

TEST_P(StoringEnds, ASignalLeavesTheOldOrTheNewAndNothingElse)
{
    forEachCall("signal=SIGTERM", [this](const SystemCall& call, const Outcome& outcome) {
        EXPECT_TRUE(outcome.status == -SIGTERM || call.name == "exit_group") << outcome;
        expectOldOrNewAlone();
    });
}

INSTANTIATE_TEST_SUITE_P(Storing, StoringEnds, testing::ValuesIn(storingOperations()));

} // namespace
