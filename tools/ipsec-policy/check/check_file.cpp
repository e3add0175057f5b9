#include "check_file.h"

#include "check_model.h"
#include "consequences.h"
#include "document.h"
#include "file_modes.h"
#include "files.h"
#include "load_finding.h"
#include "place_finder.h"
#include "source.h"
#include "started.h"
#include "understood.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace {

// A document of this size is checked about as fast as a thread is started and ended.
const std::size_t WORTH_A_THREAD = std::size_t{256} * 1024;

/// Locates the findings from `first` to `last`, which is not one of them.
void locate(CheckedFile& file, std::size_t first, std::size_t last)
{
    std::optional<PlaceFinder> places;
    if (file.source)
        places.emplace(*file.source);
    for (std::size_t i = first; i < last; ++i) {
        Finding& finding = file.findings[i];
        if (!finding.isAboutFile && !finding.isLocated) {
            const auto [offset, length] = places->find(finding.path);
            finding.offset              = offset;
            finding.length              = length;
            finding.isLocated           = true;
        }
        finding.length = firstLineOf(file.text, {finding.offset, finding.length}).length;
    }
}

void locate(CheckedFile& file)
{
    const std::size_t half = file.findings.size() / 2;
    Started           second([&] { locate(file, half, file.findings.size()); }, file.text.size() >= WORTH_A_THREAD);
    locate(file, 0, half);
    second.get();
}

/// What decides where a finding comes.
struct Place {
    bool        isLocated;
    std::size_t offset;
    Finding*    finding;
};

bool operator<(const Place& a, const Place& b)
{
    if (a.isLocated != b.isLocated)
        return b.isLocated;
    if (a.offset != b.offset)
        return a.offset < b.offset;
    return std::strcmp(a.finding->rule->code, b.finding->rule->code) < 0;
}

/// What is about the whole file comes first; the order of what is otherwise the same stays. Findings are large: only
/// their places are sorted, and each moved once.
void sort(Findings& findings)
{
    std::vector<Place> places;
    places.reserve(findings.size());
    for (Finding& finding : findings)
        places.push_back({finding.isLocated, finding.offset, &finding});
    std::stable_sort(places.begin(), places.end()); // faster, too, as they come in a few long rows that are sorted

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
        file.fault = error.fault;
        file.findings.push_back(loadFinding(error.fault));
        return;
    }
    // Neither knows of the other, and both together take longer than all else.
    Started source([&file] { return std::make_unique<const Source>(file.text, *file.config); },
                   file.text.size() >= WORTH_A_THREAD);
    checkModel(*file.config, algorithms, file.findings);
    file.source = source.get();

    Findings understood; // mostly few or none
    checkUnderstood(*file.source, understood);
    dropConsequences(understood, file.findings);
    file.findings.insert(file.findings.begin(), std::make_move_iterator(understood.begin()),
                         std::make_move_iterator(understood.end()));
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
    const auto tooLow   = std::remove_if(findings.begin(), findings.end(), isTooLow);
    file->leftOut       = static_cast<std::size_t>(findings.end() - tooLow);
    findings.erase(tooLow, findings.end());
    locate(*file);
    sort(findings);
    return file;
}
