#include "overview.h"

#include "describe.h"
#include "references.h"
#include "selector_text.h"
#include "table.h"
#include "terminal.h"

#include <optional>
#include <string>
#include <string_view>

using namespace ipsecimpl;

namespace {

/// Beyond this a collection hands out no IDs.
const unsigned int LAST_ID = 2147483647;

/// A heading, and the table of the objects unless there are none.
template <class Collection>
void append(Blocks& out, Kind kind, const Collection& collection, const Table& table)
{
    std::string heading = sentenceStart(pluralOf(kind));
    heading += collection.empty() ? ": none (" : ": " + std::to_string(collection.size()) + " (";
    heading += collection.nextIDGet() > LAST_ID ? "no ID left" : "next ID " + std::to_string(collection.nextIDGet());
    appendWrapped(out, heading + ')', outputWidth());
    if (!collection.empty()) {
        out.append("\n");
        table.appendTo(out, outputWidth());
    }
}

void addNameCell(Table& table, const std::string& name, bool builtIn)
{
    table.lines() << (name.empty() ? std::string_view("(no name)") : name);
    table.lines().end();
    if (builtIn) {
        table.lines() << BUILT_IN;
        table.lines().end();
    }
    table.endCell();
}

} // namespace

template <class Groups>
void Overview::appendGroups(Blocks& out, Kind kind, const Table::Column& contents, const Groups& groups)
{
    Table table(
        {{"ID", Table::Kind::NUMBER}, {"NAME", Table::Kind::TEXT}, contents, {"DESCRIPTION", Table::Kind::PROSE}});
    for (const auto& [id, group] : groups) {
        names_.add(kind, id, group.name);
        table.cell(id);
        addNameCell(table, group.name, isBuiltIn(group));
        for (const auto& selector : group.selectors) {
            table.lines() << textOf(selector);
            table.lines().endPrintable();
        }
        if (group.selectors.empty()) {
            table.lines() << "(nothing)";
            table.lines().end();
        }
        table.endCell();
        table.cell(group.descr);
    }
    append(out, kind, groups, table);
}

void Overview::appendActions(Blocks& out)
{
    Table table({{"ID", Table::Kind::NUMBER}, {"NAME", Table::Kind::TEXT}, {"ACTION", Table::Kind::LONG_WORDS}});
    for (const auto& [id, action] : config_.actions) {
        names_.add(Kind::ACTION, id, action.nameGet());
        table.cell(id);
        addNameCell(table, action.nameGet(), isBuiltIn(action));
        describe(action, showKeys_, table.lines());
        table.endCell();
    }
    append(out, Kind::ACTION, config_.actions, table);
}

void Overview::appendPolicies(Blocks& out)
{
    Table table({{"ID", Table::Kind::NUMBER},
                 {"HOST GROUP", Table::Kind::TEXT},
                 {"PROTOCOL GROUP", Table::Kind::TEXT},
                 {"ACTION", Table::Kind::TEXT}});
    names_.addMissing(config_);
    for (const auto& [id, policy] : config_.policies) {
        table.cell(id);
        for (const Kind kind : REFERENCED_KINDS) {
            describeReference(names_, kind, referenceTo(kind, policy), table.lines());
            table.endCell();
        }
    }
    append(out, Kind::POLICY, config_.policies, table);
}

void Overview::appendSection(Blocks& out, Kind kind)
{
    switch (kind) {
    case Kind::HOST_GROUP:
        return appendGroups(out, kind, {"HOSTS", Table::Kind::LONG_WORDS}, config_.hostGroups);
    case Kind::PROTOCOL_GROUP:
        return appendGroups(out, kind, {"TRAFFIC", Table::Kind::TEXT}, config_.protocolGroups);
    case Kind::ACTION:
        return appendActions(out);
    default:
        return appendPolicies(out);
    }
}

void describeReference(const Names& names, Kind kind, unsigned int id, Lines& lines)
{
    const std::optional<std::string_view> name = names.find(kind, id);
    lines << id;
    if (name)
        lines << ' ' << *name;
    else
        lines << " !! missing";
    lines.end(!name);
}
