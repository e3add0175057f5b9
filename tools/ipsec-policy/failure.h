#ifndef IPSEC_POLICY_FAILURE_H
#define IPSEC_POLICY_FAILURE_H

/// \file
/// How the program ends, and the exception that ends it early.

#include <stdexcept>
#include <string>
#include <string_view>

/// The program's name, with which its messages begin.
inline constexpr char PROGRAM[] = "ipsec-policy";

/// The program's exit status.
enum class ExitStatus {
    CLEAN    = 0, ///< done, and nothing to tell
    FINDINGS = 1, ///< findings or differences; or a document does not load, or could not be loaded again once stored
    TROUBLE  = 2  ///< wrong usage, or something could not be read or written
};

/// Ends the program with a message, whose texts from outside are already fit for a terminal.
class Failure : public std::runtime_error {
  public:
    Failure(ExitStatus exitStatus, const std::string& message)
        : std::runtime_error(message)
        , status(exitStatus)
    {
    }

    ExitStatus status;
};

/// Wrong usage of a command, with a hint at its help. All texts are already fit for a terminal.
Failure usageFailure(const std::string& command, const std::string& message);

/// Trouble with a file, of the name that the operator gave.
Failure fileFailure(const std::string& fileName, const std::string& message);

/// The failure of a system call on a file: its name as the operator gave it, and what `error` (an errno) means.
Failure systemFailure(const std::string& fileName, int error);

/// Writes a message, with the program's name in front, to standard error, in one call of the system. Asks for no
/// memory, so that running out of it can be reported too. That nobody may read it is no failure.
void printMessage(std::string_view message) noexcept;

#endif
