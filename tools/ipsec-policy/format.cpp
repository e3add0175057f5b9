#include "commands.h"
#include "document.h"
#include "edited_file.h"
#include "file_place.h"
#include "files.h"
#include "options.h"
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
        file.replace(text, "");
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

/// Adds what there is to say of the file to `result`.
ExitStatus check(const std::string& fileName, const Options& options, std::string& result)
{
    const std::string text    = readFile(fileName, options.maxSize);
    const std::string written = formatted(text, fileName, options);
    if (text == written)
        return ExitStatus::CLEAN;
    const auto        difference = std::mismatch(text.begin(), text.end(), written.begin(), written.end()).first;
    const std::string shown      = isStandardStream(fileName) ? "standard input" : printable(fileName);
    const auto        line       = 1 + std::count(text.begin(), difference, '\n');
    result += shown + ':' + std::to_string(line) + ": would change from this line on\n";
    return ExitStatus::FINDINGS;
}

/// Does `action` with every file, be there trouble with one or not, and returns the worst that came of it.
template <class Action>
ExitStatus forEach(const std::vector<std::string>& files, const Action& action)
{
    ExitStatus worst = ExitStatus::CLEAN;
    for (const std::string& file : files) {
        try {
            worst = std::max(worst, action(file));
        } catch (const Failure& failure) {
            printMessage(failure.what());
            worst = std::max(worst, failure.status);
        }
    }
    return worst;
}

void refuseWhatExcludesEachOther(const Options& options)
{
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
        return forEach(options.files, [&](const auto& file) { return formatInPlace(file, options); });
    if (!options.check)
        return formatTo(options.output.value_or("-"), options.files.front(), options);

    std::string      result;
    const ExitStatus status = forEach(options.files, [&](const auto& file) { return check(file, options, result); });
    writeStandardOutput(result);
    return status;
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("FILE", options->files, DOCUMENT_HELP)->required()->type_name("");
    arguments.add_option("-o,--output", options->output, "Where to store it; standard output if not given")
        ->type_name("OUT");
    addFlag(arguments, "--in-place", options->inPlace, "Store each FILE where it was");
    addFlag(arguments, "--check", options->check, "Store nothing; tell which FILEs would change");
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
    "such as a number with something behind it: 'check' tells of all of them.\n\n"
    "--check exits with 1 if a file is not in the written form, and names the first\n"
    "line that would change. With --check and --in-place there may be several FILEs.\n\n"
    "OUT may be FILE, which is --in-place. A file is replaced in one step, or left\n"
    "as it was; one that would not change is not touched. Its mode, owner, group and\n"
    "attributes are kept, and symbolic links are followed; other hard links keep the\n"
    "old content, and a read-only file is replaced too if its folder can be written.\n"
    "A file that another ipsec-policy edits, or that changes meanwhile, is refused.\n"
    "A new OUT is for its owner alone (mode 0600), because it may hold keys.",
    "ipsec-policy format policy.xml\n"
    "ipsec-policy format policy.xml -o tidy.xml\n"
    "ipsec-policy format --in-place /etc/ipsec/*.xml\n"
    "ipsec-policy format --check policy.xml && echo as written",
    declare,
};
