#include "commands.h"
#include "document.h"
#include "edited_file.h"
#include "file_place.h"
#include "files.h"
#include "json.h"
#include "load_json.h"
#include "options.h"
#include "position.h"
#include "storability.h"
#include "text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Options {
    std::vector<std::string>   files;
    std::optional<std::string> output;
    bool                       inPlace = false;
    bool                       check   = false;
    bool                       json    = false;
    bool                       force   = false;
    std::size_t                maxSize = USUAL_MAX_SIZE;
};

std::string formatted(std::string_view text, const std::string& fileName, const Options& options)
{
    ipsecimpl::IPsecConfig config  = parseDocument(text, fileName);
    std::string            written = storeDocument(config, fileName);
    if (!options.force && written != text)
        refuseMisread(text, config, fileName);
    return written;
}

ExitStatus formatInPlace(const std::string& fileName, const Options& options)
{
    EditedFile        file(fileName, options.maxSize);
    const std::string text = formatted(file.text(), fileName, options);
    if (text != file.text())
        file.replace(text);
    return ExitStatus::CLEAN;
}

ExitStatus formatTo(const std::string& output, const std::string& fileName, const Options& options)
{
    // Then nobody is to change it in between.
    if (!isStandardStream(output) && !isStandardStream(fileName) && isSameFile(output, fileName))
        return formatInPlace(output, options);

    const std::string text = formatted(readFile(fileName, options.maxSize), fileName, options);
    if (isStandardStream(output))
        writeStandardOutput(text);
    else
        replaceFile(output, text);
    return ExitStatus::CLEAN;
}

/// What --check tells.
class CheckReport {
  public:
    explicit CheckReport(const Options& options)
        : options_(options)
    {
    }

    /// Looks at one file, and returns what came of it.
    ExitStatus add(const std::string& fileName)
    try {
        const std::string text    = readFile(fileName, options_.maxSize);
        const std::string written = formatted(text, fileName, options_);
        if (text == written) {
            files_.push_back({{"file", fileName}, {"written", true}});
            return ExitStatus::CLEAN;
        }
        const auto difference = std::mismatch(text.begin(), text.end(), written.begin(), written.end()).first;
        addChange(fileName, PositionCounter(text).at(static_cast<std::size_t>(difference - text.begin())));
        return ExitStatus::FINDINGS;
    } catch (const LoadFailure& failure) {
        addUnloadable(fileName, failure);
        return failure.status;
    } catch (const Failure& failure) {
        addFailure(fileName, failure);
        return failure.status;
    }

    std::string text() const { return options_.json ? textOf(Json{{"files", files_}, {"unread", unread_}}) : text_; }

  private:
    void addChange(const std::string& fileName, const Position& position)
    {
        const std::string shown   = isStandardStream(fileName) ? "standard input" : printable(fileName);
        const std::string message = shown + ':' + std::to_string(position.line) + ": would change from this line on";
        text_ += message + '\n';
        files_.push_back({{"file", fileName},
                          {"written", false},
                          {"line", position.line},
                          {"column", position.column},
                          {"message", message}});
    }

    void addUnloadable(const std::string& fileName, const LoadFailure& failure)
    {
        addFailure(fileName, failure);
        Json& file     = files_.back();
        file["line"]   = failure.fault.position.line;
        file["column"] = failure.fault.position.column;
        addFault(file, failure.fault);
    }

    /// What is wrong with a document is a result too, and needs no message where it is told as one.
    void addFailure(const std::string& fileName, const Failure& failure)
    {
        const bool isResult = failure.status == ExitStatus::FINDINGS;
        if (!isResult || !options_.json)
            printMessage(failure.what());
        if (isResult)
            files_.push_back({{"file", fileName}, {"written", false}, {"message", failure.what()}});
        else
            unread_.push_back({{"file", fileName}, {"message", failure.what()}});
    }

    const Options& options_;
    std::string    text_;
    Json           files_  = Json::array();
    Json           unread_ = Json::array();
};

ExitStatus checkAll(const Options& options)
{
    CheckReport report(options);
    ExitStatus  worst = ExitStatus::CLEAN;
    for (const std::string& file : options.files)
        worst = std::max(worst, report.add(file));
    writeStandardOutput(report.text());
    return worst;
}

/// Goes on to the next file where there is trouble with one.
ExitStatus formatAllInPlace(const Options& options)
{
    ExitStatus worst = ExitStatus::CLEAN;
    for (const std::string& file : options.files) {
        try {
            worst = std::max(worst, formatInPlace(file, options));
        } catch (const Failure& failure) {
            printMessage(failure.what());
            worst = std::max(worst, failure.status);
        }
    }
    return worst;
}

void refuseWhatExcludesEachOther(const Options& options)
{
    if (options.json && !options.check)
        throw usageFailure("format", "--json is for --check alone");
    if (options.check && options.inPlace)
        throw usageFailure("format", "--check and --in-place exclude each other");
    if (options.output.has_value() && (options.check || options.inPlace))
        throw usageFailure("format",
                           std::string(options.check ? "--check" : "--in-place") + " and --output exclude each other");
    if (options.files.size() > 1 && !options.check && !options.inPlace)
        throw usageFailure("format", "unexpected argument '" + printable(options.files[1]) + "'");
    if (std::count_if(options.files.begin(), options.files.end(), isStandardStream) > 1)
        throw usageFailure("format", "standard input can be read only once");
}

ExitStatus format(const Options& options)
{
    refuseWhatExcludesEachOther(options);
    if (options.inPlace)
        return formatAllInPlace(options);
    if (options.check)
        return checkAll(options);
    return formatTo(options.output.value_or("-"), options.files.front(), options);
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("FILE", options->files, DOCUMENT_HELP)->required()->type_name("");
    arguments.add_option("-o,--output", options->output, "Where to store it; standard output if not given")
        ->type_name("OUT");
    addFlag(arguments, "--in-place", options->inPlace, "Store each FILE where it was");
    addFlag(arguments, "--check", options->check, "Store nothing; tell which FILEs would change");
    addFlag(arguments, "--json", options->json, "With --check, tell it in JSON");
    addFlag(arguments, "--force", options->force, FORCE_HELP);
    addMaxSize(arguments, options->maxSize);
    return [options] { return format(*options); };
}

} // namespace

const Command FORMAT_COMMAND = {
    "format",
    "Load a configuration and store it in the written form",
    "The written form is the one in which the library stores: a tag or a whole leaf\n"
    "on each line, no attributes, no indentation, plain decimal numbers. Formatting\n"
    "once more changes nothing.\n\n"
    "Nothing can be escaped in this format: a text cannot hold '<', or have white\n"
    "space at an end. A configuration that would not load as the same once written\n"
    "is refused with exit status 1, just like one that does not load at all. So is,\n"
    "unless --force is given, one with a value that was not understood as written,\n"
    "such as a number with something behind it, an octal or an empty one, or with a\n"
    "selector that a group has twice: 'check' tells of all of them.\n\n"
    "--check exits with 1 if a file is not in the written form, and names the first\n"
    "line that would change. With --check and --in-place there may be several FILEs.\n"
    "With --check --json, an object with two lists: files (file, written; if that is\n"
    "false, message, and the line and column that would change first, or where the\n"
    "document does not load, with the elements that are open there, and first, the\n"
    "place of an ID that another repeats) and unread (file, message).\n\n"
    "OUT may be FILE, which is --in-place. A file is replaced in one step, or left\n"
    "as it was; one that would not change is not touched. Its mode, owner, group and\n"
    "attributes are kept, and symbolic links are followed; other hard links keep the\n"
    "old content, and a read-only file is replaced too if its folder can be written.\n"
    "A file that another ipsec-policy edits, or that changes meanwhile, is refused.\n"
    "A new OUT is for its owner alone (mode 0600), because it may hold keys.",
    "ipsec-policy format policy.xml\n"
    "ipsec-policy format policy.xml -o tidy.xml\n"
    "ipsec-policy format --in-place /etc/ipsec/*.xml\n"
    "ipsec-policy format --check policy.xml && echo as written\n"
    "ipsec-policy format --check --json *.xml | jq '.files[] | select(.line)'",
    declare,
};
