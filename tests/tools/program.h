#ifndef IPSECIMPL_TESTS_TOOLS_PROGRAM_H
#define IPSECIMPL_TESTS_TOOLS_PROGRAM_H

/// \file
/// Running ipsec-policy, and folders for it to work in.

#include <gtest/gtest.h>

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include <sys/types.h>

/// What became of a run.
struct Outcome {
    int         status; ///< exit status, or minus the number of the signal that ended the program
    std::string out;
    std::string err;
};

bool          operator==(const Outcome& a, const Outcome& b);
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

/// All went well: nothing on standard error.
inline Outcome printed(const std::string& out)
{
    return {0, out, ""};
}

/// The document is at fault. `message` is all but the program's name and the final newline.
inline Outcome refused(const std::string& message)
{
    return {1, "", "ipsec-policy: " + message + "\n"};
}

/// Usage or input and output are at fault.
inline Outcome troubled(const std::string& message)
{
    return {2, "", "ipsec-policy: " + message + "\n"};
}

/// Runs the program. `input` comes through a pipe; `prepare` is called in the new process right before the program.
Outcome run(
    const std::vector<std::string>& arguments, const std::string& input = "",
    const std::function<void()>& prepare = [] {});

/// As run(), but in a copy of the tests' process, for thousands of runs: to load a program each time takes longer than
/// all that it does. Leaks are not looked for.
Outcome runCopy(
    const std::vector<std::string>& arguments, const std::string& input = "",
    const std::function<void()>& prepare = [] {});

/// The program in the process that runCopies() makes.
struct Copy {
    /// Returns the status. `input` comes through a pipe, which has to hold all of it: 64 kB.
    int operator()(const std::vector<std::string>& arguments, const std::string& input) const;

    /// The same, and what it writes to standard output is lost.
    int silently(const std::vector<std::string>& arguments, const std::string& input) const;
};

/// As runCopy() for several runs in one process. What they print is in one; the status is what `runs` returns.
Outcome runCopies(const std::function<int(const Copy& program)>& runs);

/// A folder of its own for each test, which is the current one while it runs.
class InFolder : public ::testing::Test {
  protected:
    InFolder();
    ~InFolder() override;

    /// The names of everything in the folder, sorted.
    static std::vector<std::string> fileNames();

  private:
    std::string folder_;
    std::string before_;
};

std::string contentOf(const std::string& fileName);
void        writeFile(const std::string& fileName, const std::string& content);
mode_t      modeOf(const std::string& fileName); ///< the permissions alone

/// Limits files to less than a document takes, but enough for the message about it: standard error is a file too.
void limitFileSize();

/// A document with these entries, which are given without their collections' elements.
std::string document(const std::string& hostGroups = "", const std::string& protocolGroups = "",
                     const std::string& actions = "", const std::string& policies = "");

/// An entry of a collection, such as `entry("policy", 3, "<policy>...</policy>")`.
std::string entry(const std::string& tag, unsigned int id, const std::string& element);

/// A host or protocol group (by its tag) of one's own.
std::string group(const std::string& tag, const std::string& name, const std::string& descr,
                  const std::string& selectors);

/// An action of one's own; `mode` begins with the SPD action.
std::string action(const std::string& name, const std::string& descr, const std::string& mode);

/// The starter configuration of `new` without its key, which is another one each time.
std::string withoutKey(const std::string& document);

std::string policy(unsigned int hostGroup, unsigned int protocolGroup, unsigned int action);

#endif
