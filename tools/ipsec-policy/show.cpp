#include "commands.h"
#include "describe.h"
#include "document.h"
#include "files.h"
#include "objects.h"
#include "table.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace ipsecimpl;

namespace {

const std::size_t WIDTH     = 80;
const char        MISSING[] = " !! missing";

struct Options {
    std::string file;
    bool        showKeys = false;
};

/// The section of one collection: a heading, and the table unless it would be empty.
template <class Collection>
std::string section(const char* title, const Collection& collection, const Table& table)
{
    // Beyond this the collection hands out no IDs.
    const bool        full = collection.nextIDGet() > 2147483647U;
    const std::string next = full ? "no ID left" : "next ID " + std::to_string(collection.nextIDGet());

    std::string text = title;
    text += collection.empty() ? ": none" : ": " + std::to_string(collection.size());
    text += " (" + next + ")\n";
    if (!collection.empty())
        text += '\n' + table.text(WIDTH);
    return text;
}

Table::Cell nameCell(const std::string& name, bool builtIn)
{
    Table::Cell cell = {name.empty() ? "(no name)" : name};
    if (builtIn)
        cell.push_back("[built-in]");
    return cell;
}

template <class Groups>
std::string showGroups(const char* title, const char* contents, const Groups& groups)
{
    Table table({{"ID", Table::Kind::NUMBER},
                 {"NAME", Table::Kind::TEXT},
                 {contents, Table::Kind::TEXT},
                 {"DESCRIPTION", Table::Kind::PROSE}});
    for (const auto& [id, group] : groups) {
        Table::Cell selectors;
        for (const auto& selector : group.selectors)
            selectors.push_back(describe(selector));
        if (selectors.empty())
            selectors.push_back("(nothing)");
        const bool builtIn = group.builtinName > 0 || group.builtinDescr > 0;
        table.add({{std::to_string(id)}, nameCell(group.name, builtIn), std::move(selectors), {group.descr}});
    }
    return section(title, groups, table);
}

std::string showActions(const Actions& actions, bool showKeys)
{
    Table table({{"ID", Table::Kind::NUMBER}, {"NAME", Table::Kind::TEXT}, {"ACTION", Table::Kind::TEXT}});
    for (const auto& [id, action] : actions)
        table.add({{std::to_string(id)}, nameCell(action.nameGet(), action.isBuiltIn()), describe(action, showKeys)});
    return section("Actions", actions, table);
}

template <class Collection>
std::string reference(const Collection& collection, unsigned int id)
{
    const auto* const entry = collection.find(id);
    return std::to_string(id) + (entry == nullptr ? MISSING : ' ' + nameOf(*entry));
}

std::string showPolicies(const IPsecConfig& config)
{
    Table table({{"ID", Table::Kind::NUMBER},
                 {"HOST GROUP", Table::Kind::TEXT},
                 {"PROTOCOL GROUP", Table::Kind::TEXT},
                 {"ACTION", Table::Kind::TEXT}});
    for (const auto& [id, policy] : config.policies)
        table.add({{std::to_string(id)},
                   {reference(config.hostGroups, policy.hostGroupID)},
                   {reference(config.protocolGroups, policy.protocolGroupID)},
                   {reference(config.actions, policy.actionID)}});
    return section("Policies", config.policies, table);
}

ExitStatus show(const Options& options)
{
    const IPsecConfig config = loadDocument(options.file);
    writeStandardOutput(showGroups("Host groups", "HOSTS", config.hostGroups) + '\n' +
                        showGroups("Protocol groups", "TRAFFIC", config.protocolGroups) + '\n' +
                        showActions(config.actions, options.showKeys) + '\n' + showPolicies(config));
    return ExitStatus::CLEAN;
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto options = std::make_shared<Options>();
    arguments.add_option("FILE", options->file, DOCUMENT_HELP)->required()->type_name("");
    arguments.add_flag("--show-keys", options->showKeys, "Show keys, pre-shared keys and IVs too")
        ->disable_flag_override();
    return [options] { return show(*options); };
}

} // namespace

const Command SHOW_COMMAND = {
    "show",
    "Show a configuration as tables, without its keys",
    "Lines are 80 columns wide at most: longer texts are wrapped, never cut. What a\n"
    "terminal would obey instead of show is escaped (\\n, \\x1b, \\u{202e}; \\\\ is a\n"
    "backslash). Messages about a document never quote its texts, as these could be\n"
    "keys.",
    "ipsec-policy show policy.xml\n"
    "ipsec-policy new | ipsec-policy show -",
    declare,
};
