#include "commands.h"
#include "diff.h"
#include "document.h"
#include "files.h"
#include "options.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <memory>
#include <string>

using namespace ipsecimpl;

namespace {

struct Options {
    std::string before;
    std::string after;
    bool        json   = false;
    bool        script = false;
    DiffOptions compared;
    std::size_t maxSize = USUAL_MAX_SIZE;
};

std::string resultOf(const Difference& found, const Options& options)
{
    if (options.json)
        return jsonOf(found);
    if (options.script)
        return scriptOf(found, isStandardStream(options.after) ? "standard input" : options.after);
    return textOf(found);
}

/// What the options ask for that there is not, or nothing.
const char* misuseOf(const Options& options)
{
    if (isStandardStream(options.before) && isStandardStream(options.after))
        return "OLD and NEW cannot both be standard input";
    if (options.script && options.json)
        return "--script and --json exclude each other";
    if (options.script && options.compared.changeCounts)
        return "--script and --change-counts exclude each other: no command sets a change counter";
    return nullptr;
}

ExitStatus diff(const Options& options)
{
    if (const char* const misuse = misuseOf(options); misuse != nullptr)
        throw usageFailure("diff", misuse);
    const IPsecConfig before = loadDocument(options.before, options.maxSize);
    const IPsecConfig after  = loadDocument(options.after, options.maxSize);
    const Difference  found  = difference(before, after, options.compared);
    writeStandardOutput(resultOf(found, options));
    return found.empty() ? ExitStatus::CLEAN : ExitStatus::FINDINGS;
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("OLD", options->before, DOCUMENT_HELP)->required()->type_name("");
    arguments.add_option("NEW", options->after, "What became of it, or - too")->required()->type_name("");
    addFlag(arguments, "--json", options->json, "Tell it in JSON");
    addFlag(arguments, "--script", options->script, "Tell it in commands for edit that turn OLD into NEW");
    addFlag(arguments, "--change-counts", options->compared.changeCounts, "Compare the actions' change counters too");
    addFlag(arguments, "--show-keys", options->compared.showKeys, "Show keys, pre-shared keys and IVs too");
    addMaxSize(arguments, options->maxSize);
    return [options] { return diff(*options); };
}

} // namespace

const Command DIFF_COMMAND = {
    "diff",
    "Tell what differs between two configurations",
    "Objects are compared by ID and by field, whatever the form of the documents. A\n"
    "line begins with + for what was added, - for what was removed, ~ for what has\n"
    "changed; the fields of a policy that stay have none of these. Beside IDs stand\n"
    "the names that these have in OLD or in NEW, and beside a group or an action the\n"
    "policies of NEW that refer to it. Of what was added or removed, built-in\n"
    "numbers, type and state that are 0 and empty descriptions are left out. Keys,\n"
    "pre-shared keys and IVs are only said to have changed, unless --show-keys is\n"
    "given.\n"
    "\n"
    "--script turns OLD into NEW all but for the change counters; where a key is not\n"
    "shown, edit asks for it. A NEW that cannot be stored is refused.\n"
    "\n"
    "--json prints an object with two lists:\n"
    "  nextIDs   \"collection\", and its next ID in \"old\" and \"new\"\n"
    "  objects   \"change\" (added, removed, changed), \"collection\", \"id\", \"name\" (of\n"
    "            groups and actions) and the list \"fields\"\n"
    "  fields    \"field\", its path below the object; its values \"old\" and \"new\", each\n"
    "            only if there is one; for references \"oldName\" and \"newName\" (null:\n"
    "            missing); for selectors of a changed group \"removed\", \"added\"; for\n"
    "            keys \"secret\": true, and null for a value that is not shown\n"
    "\n"
    "Exit status: 0 if nothing differs (then only --json prints something), else 1.",
    "ipsec-policy diff policy.xml new.xml\n"
    "ipsec-policy diff --script policy.xml new.xml > changes\n"
    "ipsec-policy edit policy.xml changes\n"
    "ssh router cat /etc/policy.xml | ipsec-policy diff - policy.xml",
    declare,
};
