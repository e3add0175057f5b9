#ifndef IPSEC_POLICY_CHECK_FILE_H
#define IPSEC_POLICY_CHECK_FILE_H

#include "check_report.h"

#include <cstddef>
#include <memory>
#include <string>

class Algorithms;

struct CheckOptions {
    const Algorithms* algorithms; ///< may be null, see checkModel()
    Level             least;      ///< findings of lower levels are left out
    std::size_t       maxSize;    ///< of a file, in bytes
};

/// Reads and checks the file `fileName`, or standard input for "-".
///
/// Throws a Failure if it cannot be read. That the document does not load is a finding.
std::unique_ptr<const CheckedFile> checkFile(const std::string& fileName, const CheckOptions& options);

#endif
