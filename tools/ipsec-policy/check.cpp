#include "algorithms.h"
#include "check_file.h"
#include "check_report.h"
#include "commands.h"
#include "document.h"
#include "files.h"
#include "json.h"
#include "options.h"
#include "rules.h"
#include "standard_output.h"
#include "table.h"
#include "terminal.h"
#include "text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

struct Options {
    std::vector<std::string> files;
    std::string              level = "note";
    std::string              explained;
    std::string              algorithms;
    bool                     lists     = false;
    bool                     isJson    = false;
    bool                     isSarif   = false;
    bool                     showsKeys = false;
    bool                     isStrict  = false;
    std::size_t              maxSize   = USUAL_MAX_SIZE;
};

Level levelNamed(const std::string& word)
{
    for (const Level level : {Level::ERROR, Level::WARNING})
        if (word == wordOf(level))
            return level;
    return Level::NOTE;
}

Json jsonOf(const Rule& rule)
{
    Json member = {{"code", rule.code},
                   {"level", wordOf(rule.level)},
                   {"summary", rule.summary},
                   {"explanation", rule.explanation}};
    if (*rule.reference != '\0')
        member["reference"] = rule.reference;
    return member;
}

Blocks tableOfRules()
{
    Table table(
        {{"CODE", Table::Kind::LONG_WORDS}, {"LEVEL", Table::Kind::TEXT}, {"WHAT IS FOUND", Table::Kind::PROSE}});
    for (const Rule* const rule : allRules()) {
        table.cell(rule->code);
        table.cell(wordOf(rule->level));
        table.cell(rule->summary);
    }
    Blocks text;
    table.appendTo(text, outputWidth());
    return text;
}

ExitStatus list(bool isJson)
{
    if (!isJson) {
        writeStandardOutput(tableOfRules());
        return ExitStatus::CLEAN;
    }
    Json rules = Json::array();
    for (const Rule* const rule : allRules())
        rules.push_back(jsonOf(*rule));
    writeStandardOutput(textOf(rules));
    return ExitStatus::CLEAN;
}

void appendFlowing(Blocks& out, std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    for (const std::string& line : wrapped(text, outputWidth(), 0))
        out.append(line + '\n');
}

Blocks explanationOf(const Rule& rule)
{
    Blocks text;
    appendWrapped(text, rule.code + std::string(" (") + wordOf(rule.level) + "): " + rule.summary, outputWidth());
    text.append("\n");
    appendFlowing(text, rule.explanation);
    if (*rule.reference != '\0') {
        text.append("\n");
        appendFlowing(text, std::string("See ") + rule.reference + '.');
    }
    return text;
}

ExitStatus explain(const std::string& code, bool isJson)
{
    const Rule& rule = findRule(code);
    if (isJson)
        writeStandardOutput(textOf(jsonOf(rule)));
    else
        writeStandardOutput(explanationOf(rule));
    return ExitStatus::CLEAN;
}

std::unique_ptr<Report> makeReport(const Options& options, StandardOutput& out)
{
    if (options.isJson)
        return makeJsonReport(out);
    return options.isSarif ? makeSarifReport(out) : makeTextReport(out, options.showsKeys);
}

/// Checks one file and adds it to the report; a file that cannot be read keeps none of the others from that.
void checkInto(Report& report, Totals& totals, const std::string& fileName, const CheckOptions& options)
{
    // The last one is never destroyed: to take a large configuration apart takes long, and the program is about to end.
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
    static std::unique_ptr<const CheckedFile>& file = *new std::unique_ptr<const CheckedFile>;
    file.reset();
    try {
        file = checkFile(fileName, options);
    } catch (const Failure& failure) {
        printMessage(failure.what());
        report.addUnread(fileName, failure.what());
        ++totals.unread;
        return;
    }
    report.add(*file);
    ++totals.files;
    totals.leftOut += file->leftOut;
    for (const Finding& finding : file->findings)
        ++totals.findings[static_cast<std::size_t>(finding.rule->level)];
}

ExitStatus statusOf(const Totals& totals, bool isStrict)
{
    if (totals.unread > 0)
        return ExitStatus::TROUBLE;
    std::size_t counted = countOf(totals, Level::ERROR) + countOf(totals, Level::WARNING);
    if (isStrict)
        counted += countOf(totals, Level::NOTE);
    return counted == 0 ? ExitStatus::CLEAN : ExitStatus::FINDINGS;
}

/// Refuses arguments that do not go together.
void checkArguments(const Options& options)
{
    const bool isAboutRules = options.lists || !options.explained.empty();
    if (isAboutRules && !options.files.empty())
        throw usageFailure("check", "unexpected argument '" + printable(options.files.front()) + "'");
    const auto exclude = [](const char* one, const char* other) {
        return usageFailure("check", std::string(one) + " and " + other + " exclude each other");
    };
    if (options.isJson && options.isSarif)
        throw exclude("--json", "--sarif");
    if (isAboutRules && options.isSarif)
        throw exclude(options.lists ? "--list" : "--explain", "--sarif");
    if (options.lists && !options.explained.empty())
        throw exclude("--list", "--explain");
    if (!isAboutRules && options.files.empty())
        throw usageFailure("check", "FILE is required");
    const auto fromStandardInput = std::count_if(options.files.begin(), options.files.end(), isStandardStream);
    if (fromStandardInput + (isStandardStream(options.algorithms) ? 1 : 0) > 1)
        throw usageFailure("check", "standard input can be read only once");
}

ExitStatus check(const Options& options)
{
    checkArguments(options);
    if (options.lists)
        return list(options.isJson);
    if (!options.explained.empty())
        return explain(options.explained, options.isJson);

    std::optional<Algorithms> algorithms;
    if (!options.algorithms.empty())
        algorithms = Algorithms::read(options.algorithms);
    StandardOutput                out;
    const std::unique_ptr<Report> report = makeReport(options, out);
    Totals                        totals;
    const CheckOptions checkOptions = {algorithms ? &*algorithms : nullptr, levelNamed(options.level), options.maxSize};
    for (const std::string& file : options.files)
        checkInto(*report, totals, file, checkOptions);
    report->finish(totals);
    out.close();
    return statusOf(totals, options.isStrict);
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("FILE", options->files, "The configurations; - is standard input")->type_name("");
    addFlag(arguments, "--json", options->isJson, "Print JSON");
    addFlag(arguments, "--sarif", options->isSarif, "Print SARIF 2.1.0");
    addChoice(arguments,
              {"--level",
               "LEVEL",
               {wordOf(Level::ERROR), wordOf(Level::WARNING), wordOf(Level::NOTE)},
               "Leave out what is below: error, warning, note"},
              options->level);
    addFlag(arguments, "--strict", options->isStrict, "Let notes fail too");
    arguments.add_option("--algorithms", options->algorithms, "What the numbers in SA proposals stand for")
        ->type_name("FILE");
    addFlag(arguments, "--show-keys", options->showsKeys, "Show keys, pre-shared keys and IVs too");
    addFlag(arguments, "--list", options->lists, "List all that can be found");
    addMaxSize(arguments, options->maxSize);
    arguments.add_option("--explain", options->explained, "Explain what is found under this code")->type_name("CODE");
    return [options] { return check(*options); };
}

} // namespace

const Command CHECK_COMMAND = {
    "check",
    "Find what is wrong or weak in configurations",
    "All that is found is told in one run, in the order of the files and of what\n"
    "stands in them. Its code, such as 'does-not-load', never changes its meaning:\n"
    "--list tells all codes, --explain what one means and what to do.\n\n"
    "Exit status: 1 if an error or a warning is reported, or with --strict a note;\n"
    "else 0. --level=warning leaves out notes, --level=error warnings too; what is\n"
    "left out does not count. 2 if a file cannot be read; all others are checked.\n\n"
    "Lines and columns count from 1. A column is a character (of UTF-8), also a tab.\n"
    "Of the line that a finding is about, what fits the terminal is shown, with ***\n"
    "for keys and for what could be one: text in place of a number, and where the\n"
    "document does not load, all but tags. JSON and SARIF hold no lines.\n\n"
    "JSON: an object with findings (a list of objects: file, line, column, endColumn,\n"
    "level, code, path, message, elements, first, reference), the counts errors,\n"
    "warnings, notes, leftOut and files, and unread (a list of objects: file,\n"
    "message). What does not apply to a finding is left out, such as the path where\n"
    "it is about the file; elements are those that are open where a document does not\n"
    "load, and first is the place (line, column) of the ID that another repeats.",
    "ipsec-policy check policy.xml\n"
    "ipsec-policy check --level=warning --sarif *.xml > result.sarif\n"
    "ipsec-policy check --explain does-not-load",
    declare,
};
