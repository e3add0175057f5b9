#ifndef IPSECIMPL_TESTS_TOOLS_STORING_OPERATIONS_H
#define IPSECIMPL_TESTS_TOOLS_STORING_OPERATIONS_H

/// \file
/// Every way in which the program stores, for tests that disturb each system call on that way.

#include "tracer.h"

#include <gtest/gtest.h>

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include <sys/types.h>

/// A way to store into policy.xml.
struct Operation {
    const char* what;
    Traced      traced;
    bool        replaces;            ///< what is there: a document with a key
    bool        makesBackup = false; ///< backup.xml, where there is an earlier one
};

std::ostream& operator<<(std::ostream& out, const Operation& operation);

/// All of them; a new one is a line there.
const std::vector<Operation>& storingOperations();

/// The mode of what is replaced.
inline constexpr mode_t STORED_MODE = 0640;

/// A folder with in.xml, a document with a key, and where there is to be something to replace, the same as policy.xml
/// and the symbolic link link.xml to that.
class StoringFaults : public InFolder, public testing::WithParamInterface<Operation> {
  protected:
    StoringFaults();

    /// Runs the operation once without a fault. The test is skipped where programs cannot be traced.
    void SetUp() override;

    /// Makes the folder what it was in the beginning.
    void prepare() const;

    /// Does `look` with what comes of the fault in each of the calls; beside that, no piece of the key may be printed.
    void forEachCall(const std::string&                                            fault,
                     const std::function<void(const SystemCall&, const Outcome&)>& look) const;

    /// The operation's calls in their order.
    std::vector<SystemCall>& calls() { return calls_; }

    bool isNew() const;
    bool isOld() const;

    /// The file is new, and all is as it is when all goes well.
    void expectNew() const;

    /// The file is one or the other, and if it is new, its backup is there.
    void expectOldOrNew() const;

    /// And nothing is beside it.
    void expectOldOrNewAlone() const;

  private:
    void expectBackup() const;

    std::string              old_;
    std::string              new_;
    std::vector<SystemCall>  calls_;
    std::vector<std::string> names_; ///< of the files when all is well
};

#endif
