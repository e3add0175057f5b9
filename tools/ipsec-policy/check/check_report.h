#ifndef IPSEC_POLICY_CHECK_REPORT_H
#define IPSEC_POLICY_CHECK_REPORT_H

/// \file
/// How `check` tells what it found: for people, for scripts, and for the services that collect such results.

#include "findings.h"
#include "load_message.h"
#include "standard_output.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class Source;

/// "error", "warning" or "note".
const char* wordOf(Level level);

/// A file that could be read, and what was found in it.
struct CheckedFile {
    CheckedFile();
    ~CheckedFile();

    std::string name; ///< as on the command line
    std::string text;

    /// \name What the text says, null if it does not load
    /// @{
    std::unique_ptr<const ipsecimpl::IPsecConfig> config;
    std::unique_ptr<const Source>                 source;
    /// @}

    /// Why not, if it does not load.
    std::optional<LoadFault> fault;

    /// How many findings are not there because their level is too low.
    std::size_t leftOut = 0;

    /// In the order of the report. All are located that are not about the file, and none goes beyond a line.
    Findings findings;
};

/// Its name as it is shown.
std::string shownName(const CheckedFile& file);

/// The piece of the file that a located finding is about.
std::string_view textMeantBy(const Finding& finding, const CheckedFile& file);

/// What all files have together.
struct Totals {
    std::array<std::size_t, 3> findings = {}; ///< by Level
    std::size_t                files    = 0;  ///< that could be read
    std::size_t                unread   = 0;
    std::size_t                leftOut  = 0; ///< findings of too low a level
};

std::size_t countOf(const Totals& totals, Level level);

/// Writes down what is found, as it comes.
class Report {
  public:
    virtual ~Report() = default;

    virtual void add(const CheckedFile& file) = 0;

    /// A file that could not be read, and why.
    virtual void addUnread(const std::string& fileName, const std::string& message) = 0;

    /// Nothing comes after that.
    virtual void finish(const Totals& totals) = 0;

  protected:
    Report()                         = default;
    Report(const Report&)            = default;
    Report& operator=(const Report&) = default;
};

std::unique_ptr<Report> makeTextReport(StandardOutput& out, bool showKeys);
std::unique_ptr<Report> makeJsonReport(StandardOutput& out);
std::unique_ptr<Report> makeSarifReport(StandardOutput& out);

#endif
