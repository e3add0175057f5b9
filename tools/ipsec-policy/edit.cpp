#include "commands.h"
#include "diff.h"
#include "document.h"
#include "edit_commands.h"
#include "edit_losses.h"
#include "edited_file.h"
#include "files.h"
#include "leaf_words.h"
#include "options.h"
#include "storability.h"
#include "text.h"

#include <ipsecimpl/ipsecimpl.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using namespace ipsecimpl;

namespace {

struct Options {
    std::string              file;
    std::vector<std::string> commands;
    std::string              script;
    bool                     dryRun      = false;
    bool                     json        = false;
    bool                     cascade     = false;
    bool                     force       = false;
    bool                     keepsBackup = false;
    std::string              backup; ///< empty if no name is given
    std::size_t              maxSize = USUAL_MAX_SIZE;
};

/// Commands, and what messages call the place they come from.
struct Script {
    std::string name;
    std::string text;
};

/// Whether a command, or a key's FIELD=VALUE out of one, stands where the name of a file is expected. Then the name is
/// not to be told.
bool isCommand(const std::string& fileName)
{
    for (const std::string start : {"add ", "replace ", "set ", "remove "})
        if (fileName.compare(0, start.size(), start) == 0)
            return true;
    const std::string_view path = std::string_view(fileName).substr(0, fileName.find('='));
    return path.size() < fileName.size() && isSecretTag(path.substr(path.rfind('/') + 1));
}

void refuseMisuse(const Options& options)
{
    if (isCommand(options.file) || isCommand(options.script))
        throw usageFailure("edit", "a command stands where a file is expected: -e goes before each command");
    if (isStandardStream(options.file))
        throw usageFailure("edit", "standard input cannot be edited: FILE must be a file");
}

/// What to try where the name of a backup was perhaps given in a word of its own, which is the file or the script then.
std::string backupHint(const Options& options)
{
    return options.keepsBackup && options.backup.empty() ? "; a backup is named by --backup=NAME, in one word" : "";
}

std::string scriptText(const Options& options)
try {
    return readFileBeside(options.script, "script");
} catch (const Failure& failure) {
    throw Failure(failure.status, failure.what() + backupHint(options));
}

Script scriptOf(const Options& options)
{
    if (options.commands.empty() == options.script.empty())
        throw usageFailure("edit", "commands are required, with -e or in a SCRIPT (not both)" + backupHint(options));
    if (isStandardStream(options.script))
        return {"standard input", readFileBeside(options.script, "script")};
    if (!options.script.empty())
        return {printable(options.script), scriptText(options)};

    std::string text;
    for (const std::string& command : options.commands)
        text += command + '\n';
    return {"-e", text};
}

void execute(const Script& script, Editor& editor)
{
    std::string_view rest   = script.text;
    std::size_t      number = 0;
    const auto       failed = [&](ExitStatus status, const char* message) {
        return Failure(status, script.name + ':' + std::to_string(number) + ": " + message);
    };
    while (!rest.empty()) {
        const std::size_t      end  = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        ++number;
        try {
            editor.execute(line);
        } catch (const Failure& failure) {
            throw failed(failure.status, failure.what());
        } catch (const invalid_operation& refusal) {
            throw failed(ExitStatus::TROUBLE, refusal.what());
        } catch (const std::invalid_argument& refusal) {
            throw failed(ExitStatus::TROUBLE, refusal.what());
        }
    }
}

/// The configuration before and after.
class Edit {
  public:
    Edit(std::string_view text, const Script& script, const Options& options)
        : before_(parseDocument(text, options.file))
    {
        if (!options.force)
            refuseMisread(text, before_, options.file);
        Secrets      secrets(isStandardStream(options.script));
        EditedConfig edited(parseDocument(text, options.file));
        Editor       editor(edited, secrets, options.cascade);
        execute(script, editor);
        for (const std::string& remark : editor.remarks())
            remarks_.push_back(script.name + ':' + remark);
        after_  = edited.finished();
        stored_ = storeDocument(after_, options.file);

        const Difference found = ::difference(before_, after_, {});
        isAboutCounts_         = found.empty();
        report_                = editor.report() + lossesIn(found);
    }

    bool isChange() const { return !isAboutCounts_ || !difference().empty(); }

    /// What to tell beside the difference itself.
    const std::string& report() const { return report_; }

    /// What to tell of what the commands have set, each in a message.
    const std::vector<std::string>& remarks() const { return remarks_; }

    /// Change counters are told if nothing else differs.
    Difference difference() const { return ::difference(before_, after_, {false, isAboutCounts_}); }

    const std::string& stored() const { return stored_; }

  private:
    IPsecConfig before_;
    IPsecConfig after_;
    std::string stored_;
    std::string report_;

    std::vector<std::string> remarks_;

    bool isAboutCounts_ = false;
};

ExitStatus tell(const std::string& text)
{
    if (!text.empty())
        writeStandardOutput(text);
    return ExitStatus::CLEAN;
}

void tellRemarks(const Edit& edited)
{
    if (edited.isChange())
        for (const std::string& remark : edited.remarks())
            printMessage(remark);
}

/// Nobody is to think that nothing was done.
ExitStatus tellStored(const std::string& text, const std::string& fileName)
try {
    return tell(text);
} catch (const Failure& failure) {
    throw Failure(failure.status, printable(fileName) + " is stored, but " + failure.what());
}

std::optional<BackupName> backupOf(const Options& options)
{
    if (!options.keepsBackup)
        return std::nullopt;
    return options.backup.empty() ? usualBackup(options.file) : backupNamed(options.backup);
}

/// What to tell of an edit that is done, or is not to be done.
std::string resultOf(const Edit& edited, const Options& options)
{
    if (options.json)
        return jsonOf(edited.difference());
    if (!edited.isChange())
        return "nothing changed\n";
    return options.dryRun ? edited.report() + textOf(edited.difference()) : edited.report();
}

ExitStatus edit(const Options& options)
{
    refuseMisuse(options);
    const Script script = scriptOf(options); // before the file is locked: it may take long to come
    if (options.dryRun) {
        const Edit edited(readFile(options.file, options.maxSize), script, options);
        tellRemarks(edited);
        return tell(resultOf(edited, options));
    }

    EditedFile file(options.file, options.maxSize);
    const Edit edited(file.text(), script, options);
    if (!edited.isChange())
        return tell(resultOf(edited, options));
    file.replace(edited.stored(), backupOf(options));
    tellRemarks(edited);
    return tellStored(resultOf(edited, options), options.file);
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("FILE", options->file, "The configuration to edit")->required()->type_name("");
    arguments.add_option("SCRIPT", options->script, "A file of commands; - is standard input")->type_name("");
    arguments.add_option("-e,--command", options->commands, "A command; may be given more than once")
        ->type_name("COMMAND")
        ->allow_extra_args(false);
    addFlag(arguments, "--dry-run", options->dryRun, "Change nothing, but print what would differ");
    addFlag(arguments, "--json", options->json, "Print what differs in JSON, as diff does");
    addFlag(arguments, "--cascade", options->cascade, "Remove the policies that use what is removed");
    addFlag(arguments, "--force", options->force, FORCE_HELP);
    // A flag, lest FILE be taken for its value; in braces stands what it has without one: nothing.
    const CLI::Option* const backup =
        arguments
            .add_flag("--backup{}", options->backup,
                      "Keep the old file as FILE~, in place of the one\nbefore it, or as NAME, which must not exist")
            ->type_name("NAME");
    addMaxSize(arguments, options->maxSize);
    return [options, backup] {
        options->keepsBackup = backup->count() > 0;
        return edit(*options);
    };
}

} // namespace

const Command EDIT_COMMAND = {
    "edit",
    "Change a configuration with commands, all or nothing",
    "Commands, one on a line; docs/edit.md tells all about them:\n"
    "  add host-group|protocol-group|action NAME [id=N] [FIELD=VALUE ...]\n"
    "  add policy HOST-GROUP PROTOCOL-GROUP ACTION [id=N]\n"
    "  add built-in host-group any|local|mcast|any4|local4|mcast4|any6|...  [id=N]\n"
    "  add built-in protocol-group all|system [id=N]\n"
    "  add built-in action discard|bypass [id=N]\n"
    "  replace host-group|protocol-group|action REF NAME [FIELD=VALUE ...]\n"
    "  replace policy REF HOST-GROUP PROTOCOL-GROUP ACTION\n"
    "  set host-group|protocol-group|action|policy REF FIELD=VALUE ...\n"
    "  set host-groups|protocol-groups|actions|policies nextID=N\n"
    "  add|remove selector host-group|protocol-group REF SELECTOR[, SELECTOR ...]\n"
    "  remove host-group|protocol-group|action|policy REF [--cascade]\n\n"
    "REF is an ID or a unique name. A FIELD is called by its tags in the document:\n"
    "ikePhase1/proposal/dhGroup=G14. What has blanks in it stands in quotes; a '#'\n"
    "begins a comment. Selectors: 10.2.0.0/16, 10.0.0.1-10.0.0.9, any, local4;\n"
    "tcp/443 out mirrored, udp/500 from 500 in. A key is given as =@FILE, is asked\n"
    "for with =?, or stands in the command.\n\n"
    "If any command fails, nothing is stored. What policies use is not removed\n"
    "without --cascade. The file is replaced in one step, with its mode and owner\n"
    "kept; it stays as it is when nothing changes. --dry-run prints what diff would,\n"
    "--json what diff --json would, with --dry-run or without.\n\n"
    "Of what the commands say this is done, but told on standard error: characters\n"
    "that cannot be seen, a name that another object has, a subnet's bits behind its\n"
    "prefix, a protocol above 255, ports of a protocol without them, a tunnel's end\n"
    "point that is no address or none of a node, a policy that names what does not\n"
    "exist, an SPI below 256, a lifetime of 0. The rest is for 'check' to tell.\n\n"
    "A document with a value that was not understood as written, such as a number\n"
    "with something behind it, an octal or an empty one, or with a selector that a\n"
    "group has twice, is refused unless --force is given: storing would make that for\n"
    "good.",
    "ipsec-policy edit policy.xml -e 'add host-group Berlin selectors=10.2.0.0/16'\n"
    "ipsec-policy edit policy.xml -e 'set action 4 ikePhase1/presharedKey=?'\n"
    "ipsec-policy edit policy.xml --dry-run branch.edit\n"
    "ipsec-policy edit policy.xml --dry-run --json branch.edit | jq '.objects[].id'\n"
    "ipsec-policy diff old.xml new.xml --script | ipsec-policy edit old.xml -",
    declare,
};
