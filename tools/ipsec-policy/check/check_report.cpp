#include "check_report.h"

#include "files.h"
#include "source.h"
#include "text.h"

CheckedFile::CheckedFile()  = default;
CheckedFile::~CheckedFile() = default;

const char* wordOf(Level level)
{
    switch (level) {
    case Level::ERROR:
        return "error";
    case Level::WARNING:
        return "warning";
    default:
        return "note";
    }
}

std::string shownName(const CheckedFile& file)
{
    return isStandardStream(file.name) ? "standard input" : printable(file.name);
}

std::string_view textMeantBy(const Finding& finding, const CheckedFile& file)
{
    return std::string_view(file.text).substr(finding.offset, finding.length);
}

std::size_t countOf(const Totals& totals, Level level)
{
    return totals.findings[static_cast<std::size_t>(level)];
}
