#include "check_file.h"

#include "check_model.h"
#include "document.h"
#include "file_modes.h"
#include "files.h"
#include "load_finding.h"
#include "source.h"
#include "understood.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// The object is shown by its first line.
std::size_t lengthInLine(std::string_view document, Span span)
{
    const std::string_view piece = span.in(document);
    return std::min(piece.find_first_of("\r\n"), piece.size());
}

void locate(CheckedFile& file)
{
    for (Finding& finding : file.findings) {
        if (!finding.isAboutFile && !finding.isLocated) {
            const auto [offset, length] = file.source->find(finding.path);
            finding.offset              = offset;
            finding.length              = length;
            finding.isLocated           = true;
        }
        finding.length = lengthInLine(file.text, {finding.offset, finding.length});
    }
}

/// What decides where a finding comes.
struct Place {
    bool        isLocated;
    std::size_t offset;
    Finding*    finding;
};

/// The order of what is otherwise the same stays.
bool operator<(const Place& a, const Place& b)
{
    if (a.isLocated != b.isLocated)
        return b.isLocated;
    if (a.offset != b.offset)
        return a.offset < b.offset;
    const int codes = std::strcmp(a.finding->rule->code, b.finding->rule->code);
    return codes != 0 ? codes < 0 : a.finding < b.finding;
}

/// What is about the whole file comes first. Findings are large: only their places are sorted, and each moved once.
void sort(Findings& findings)
{
    std::vector<Place> places;
    places.reserve(findings.size());
    for (Finding& finding : findings)
        places.push_back({finding.isLocated, finding.offset, &finding});
    std::sort(places.begin(), places.end());

    Findings sorted;
    sorted.reserve(findings.size());
    for (const Place& place : places)
        sorted.push_back(std::move(*place.finding));
    findings.swap(sorted);
}

/// That the document does not load is a finding too.
void checkDocument(CheckedFile& file, const Algorithms* algorithms)
{
    try {
        file.config = std::make_unique<const ipsecimpl::IPsecConfig>(parseDocument(file.text));
    } catch (const LoadError& error) {
        file.findings.push_back(loadFinding(file.text, error.fault));
        return;
    }
    file.source = std::make_unique<const Source>(file.text, *file.config);
    checkUnderstood(*file.source, file.findings);
    checkModel(*file.config, algorithms, file.findings);
}

/// The part of the text where there can be keys: where it loads, only actions have them.
std::string_view textWithKeys(const CheckedFile& file)
{
    return file.source ? file.source->indexOf(Kind::ACTION).collection().in(file.text) : file.text;
}

} // namespace

std::unique_ptr<const CheckedFile> checkFile(const std::string& fileName, const CheckOptions& options)
{
    auto file  = std::make_unique<CheckedFile>();
    file->name = fileName;
    file->text = readFile(fileName, options.maxSize);
    checkDocument(*file, options.algorithms);
    checkFileModes(fileName, textWithKeys(*file), file->findings);

    Findings&  findings = file->findings;
    const auto isTooLow = [&options](const Finding& finding) { return finding.rule->level > options.least; };
    findings.erase(std::remove_if(findings.begin(), findings.end(), isTooLow), findings.end());
    locate(*file);
    sort(findings);
    return file;
}
