#include "commands.h"
#include "document.h"
#include "files.h"
#include "object_view.h"
#include "objects.h"
#include "options.h"
#include "overview.h"
#include "show_json.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace ipsecimpl;

namespace {

struct Options {
    std::string file;
    std::string kind;
    std::string object;
    bool        oneKind   = false; ///< else `kind` means nothing
    bool        oneObject = false; ///< else `object` means nothing
    bool        showKeys  = false;
    bool        json      = false;
    std::size_t maxSize   = USUAL_MAX_SIZE;
};

/// The memory of a document that has been read serves again for what is made of it: the allocator would give such large
/// pieces back to the system, and ask for others, page by page.
void keepMemory()
{
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, 1024 * 1024 * 1024);
#endif
}

void appendTables(Blocks& out, const IPsecConfig& config, const std::vector<Kind>& kinds, bool showKeys)
{
    Overview overview(config, showKeys);
    for (const Kind kind : kinds) {
        if (kind != kinds.front())
            out.append("\n");
        overview.appendSection(out, kind);
    }
}

ExitStatus show(const Options& options)
{
    std::vector<Kind> kinds(ALL_KINDS.begin(), ALL_KINDS.end());
    if (options.oneKind)
        kinds = {kindNamed(options.kind)};

    keepMemory();
    // The last one is never destroyed: to take a large configuration apart takes long, and the program is about to end.
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
    static std::unique_ptr<const IPsecConfig>& config = *new std::unique_ptr<const IPsecConfig>;
    config = std::make_unique<const IPsecConfig>(loadDocument(options.file, options.maxSize));

    Blocks out;
    if (options.oneObject) {
        const unsigned int id = findObject(*config, kinds.front(), options.object);
        if (options.json)
            appendJson(out, *config, kinds.front(), id, options.showKeys);
        else
            appendObject(out, *config, kinds.front(), id, options.showKeys);
    } else if (options.json) {
        appendJson(out, *config, kinds, options.showKeys);
    } else {
        appendTables(out, *config, kinds, options.showKeys);
    }
    writeStandardOutput(out);
    return ExitStatus::CLEAN;
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("FILE", options->file, DOCUMENT_HELP)->required()->type_name("");
    const CLI::Option* const kind =
        arguments.add_option("KIND", options->kind, "Only these: host-groups, protocol-groups, actions or\npolicies")
            ->type_name("");
    const CLI::Option* const object =
        arguments.add_option("OBJECT", options->object, "Only this one in full: its ID or its unique name")
            ->type_name("");
    addFlag(arguments, "--json", options->json, "Print JSON for scripts");
    addFlag(arguments, "--show-keys", options->showKeys, "Show keys, pre-shared keys and IVs too");
    addMaxSize(arguments, options->maxSize);
    return [options, kind, object] {
        options->oneKind   = kind->count() > 0;
        options->oneObject = object->count() > 0;
        return show(*options);
    };
}

} // namespace

const Command SHOW_COMMAND = {
    "show",
    "Show a configuration as tables, without its keys",
    "One object is shown with all fields that the document has of it, under the\n"
    "document's own tags, and with the policies that use it. A name of digits is\n"
    "given as name=7. '!! missing' marks IDs that nothing has, [built-in] what the\n"
    "library made. Selectors are spelt as edit takes them.\n\n"
    "Tables are as wide as the terminal at most, or as the variable COLUMNS says:\n"
    "longer texts are wrapped, never cut, and what is too narrow for columns stands\n"
    "below each other. Elsewhere they are 80 columns wide. Colours are for terminals\n"
    "only, and not if the variable NO_COLOR is set. What a terminal would obey\n"
    "instead of show is escaped (\\n, \\x1b, \\u{202e}; \\\\ is a backslash).\n"
    "Messages about a document never quote its texts, as these could be keys.\n\n"
    "With --json, what is hidden is null, and \"hidden\": true stands beside it.",
    "ipsec-policy show policy.xml\n"
    "ipsec-policy show policy.xml policies\n"
    "ipsec-policy show policy.xml actions 'Office tunnel'\n"
    "ipsec-policy show --json policy.xml policies | jq '.policies[].actionName'\n"
    "ipsec-policy new | ipsec-policy show -",
    declare,
};
