#include "diff.h"

#include "failure.h"
#include "object_commands.h"
#include "storable.h"
#include "text.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <type_traits>

using namespace ipsecimpl;

namespace {

const char COMMENT[]            = "  # ";
const Kind GROUPS_AND_ACTIONS[] = {Kind::HOST_GROUP, Kind::PROTOCOL_GROUP, Kind::ACTION};

bool exists(const IPsecConfig& config, Kind kind, unsigned int id)
{
    return withCollection(config, kind, [id](const auto& collection) { return collection.find(id) != nullptr; });
}

unsigned int idIn(const Field& reference)
{
    return static_cast<unsigned int>(std::get<long long>(reference.value));
}

/// Whether the action refuses one of the changes.
bool needsReplacement(const IPsecAction& before, const ObjectDifference& action)
{
    const auto isIn = [](std::initializer_list<std::string_view> paths, const FieldDifference& field) {
        return std::find(paths.begin(), paths.end(), field.path) != paths.end();
    };
    return std::any_of(action.fields.begin(), action.fields.end(), [&](const FieldDifference& field) {
        return isIn({"builtinName", "builtinDescr"}, field) ||
               (before.isBuiltIn() && isIn({"name", "descr", "spdAction", "keyMgr"}, field));
    });
}

/// The name of a group or an action, or what a policy refers to.
std::string described(const IPsecConfig& config, Kind kind, unsigned int id)
{
    return withCollection(config, kind, [&config, id](const auto& collection) {
        if constexpr (std::is_same_v<std::decay_t<decltype(collection)>, Policies>) {
            std::string text;
            for (const Field& field : fieldsOf(collection.at(id)))
                text += (text.empty() ? "" : ", ") + textOfReference(config, *field.refersTo, idIn(field));
            return text;
        } else {
            return '\'' + printable(nameOf(collection.at(id))) + '\'';
        }
    });
}

class Script {
  public:
    explicit Script(const Difference& difference)
        : difference_(difference)
        , before_(difference.before)
        , after_(difference.after)
        , commands_(difference.showKeys)
    {
    }

    /// What policies are to refer to comes before them, what they let go of goes after them.
    std::string text()
    {
        addSection(removals(Kind::POLICY));
        for (const Kind kind : GROUPS_AND_ACTIONS)
            for (const ObjectDifference& object : of(kind).objects)
                if (object.change != Change::REMOVED)
                    addSection(making(object));
        for (const auto& [id, policy] : after_.policies)
            make(id, policy);
        addSection(policies_);
        for (const Kind kind : GROUPS_AND_ACTIONS)
            addSection(removals(kind));
        addSection(afterRemovals_);
        addSection(nextIDs());
        return heading() + text_;
    }

  private:
    const CollectionDifference& of(Kind kind) const { return difference_.collections[static_cast<std::size_t>(kind)]; }

    void addSection(const std::string& lines)
    {
        if (!text_.empty() && !lines.empty())
            text_ += '\n';
        text_ += lines;
    }

    std::string heading() const
    {
        const std::size_t asked = commands_.asked();
        if (asked == 0)
            return "";
        return "# " + std::to_string(asked) + (asked == 1 ? " key is" : " keys are") +
               " asked for, at each =? (diff --show-keys writes keys here instead).\n\n";
    }

    std::string removals(Kind kind) const
    {
        std::string lines;
        for (const ObjectDifference& object : of(kind).objects)
            if (object.change == Change::REMOVED)
                lines +=
                    "remove " + referenceTo(kind, object.id) + COMMENT + described(before_, kind, object.id) + '\n';
        return lines;
    }

    /// A group or an action.
    std::string making(const ObjectDifference& object)
    {
        const std::vector<Field> fields = withCollection(
            after_, object.kind, [&object](const auto& collection) { return fieldsOf(collection.at(object.id)); });
        if (object.change == Change::ADDED)
            return commands_.adding(object.kind, object.id, fields);
        const bool isReplaced = object.kind == Kind::ACTION && needsReplacement(before_.actions.at(object.id), object);
        return "# " + (wordsOf(object.kind).sentence + (' ' + textOfReference(before_, object.kind, object.id))) +
               '\n' + (isReplaced ? commands_.replacing(object.id, fields) : commands_.changing(object));
    }

    void make(unsigned int id, const Policy& policy)
    {
        const std::vector<Field> fields = fieldsOf(policy);
        if (const Policy* const before = before_.policies.find(id); before != nullptr)
            change(id, fieldsOf(*before), fields);
        else
            add(id, fields);
    }

    void add(unsigned int id, const std::vector<Field>& fields)
    {
        bool        isLate  = false;
        std::string command = "add policy";
        for (const Field& field : fields) {
            command += ' ' + spelling(field);
            isLate = isLate || isMissing(field);
        }
        command += " id=" + std::to_string(id) + COMMENT + described(after_, Kind::POLICY, id) + '\n';
        (isLate ? afterRemovals_ : policies_) += command;
    }

    /// An ID that nothing has any more can be referred to only when that is so, and what is to go must not be referred
    /// to: in between, there is a 0.
    void change(unsigned int id, const std::vector<Field>& before, const std::vector<Field>& after)
    {
        for (std::size_t i = 0; i < after.size(); ++i) {
            const bool isSame    = idIn(before[i]) == idIn(after[i]);
            const bool isRemoved = isGone(before[i]);
            if (isSame && !isRemoved)
                continue;
            const std::string start   = "set policy " + std::to_string(id) + ' ' + after[i].path + '=';
            const std::string comment = COMMENT + textOfReference(before_, *before[i].refersTo, idIn(before[i])) +
                                        " -> " + textOfReference(after_, *after[i].refersTo, idIn(after[i])) + '\n';
            if (isMissing(after[i])) {
                if (isRemoved)
                    policies_.append(start).append("0\n");
                afterRemovals_.append(start).append(spelling(after[i])).append(comment);
            } else {
                policies_.append(start).append(spelling(after[i])).append(comment);
            }
        }
    }

    bool isMissing(const Field& reference) const
    {
        return idIn(reference) != 0 && !exists(after_, *reference.refersTo, idIn(reference));
    }

    /// The object is there before, but not after.
    bool isGone(const Field& reference) const
    {
        return exists(before_, *reference.refersTo, idIn(reference)) && isMissing(reference);
    }

    std::string spelling(const Field& reference) const
    {
        return (isMissing(reference) ? "missing=" : "") + std::to_string(idIn(reference));
    }

    /// Unless they come out right by themselves, as adding objects raises them.
    std::string nextIDs() const
    {
        const auto  nextOf = [](const auto& collection) { return collection.nextIDGet(); };
        std::string lines;
        for (const Kind kind : ALL_KINDS) {
            unsigned int       next   = withCollection(before_, kind, nextOf);
            const unsigned int wanted = withCollection(after_, kind, nextOf);
            for (const ObjectDifference& object : of(kind).objects)
                if (object.change == Change::ADDED)
                    next = std::max(next, object.id + 1);
            if (next != wanted)
                lines += std::string("set ") + wordsOf(kind).plural + " nextID=" + std::to_string(wanted) + '\n';
        }
        return lines;
    }

    const Difference&  difference_;
    const IPsecConfig& before_;
    const IPsecConfig& after_;
    ObjectCommands     commands_;
    std::string        text_;
    std::string        policies_;
    std::string        afterRemovals_; // of policies
};

/// What cannot be stored, no edit will store.
void requireStorable(const IPsecConfig& config, const std::string& fileName)
{
    for (const Kind kind : ALL_KINDS)
        withCollection(config, kind, [kind, &fileName](const auto& collection) {
            for (const auto& [id, object] : collection)
                for (const Field& field : fieldsOf(object))
                    if (const char* const obstacle = obstacleToStoring(field.value); obstacle != nullptr)
                        throw Failure(ExitStatus::FINDINGS, printable(fileName) + ": no edit leads to this: " +
                                                                textOf(ObjectPath{kind, id, field.path}) + ": " +
                                                                obstacle);
        });
}

} // namespace

std::string scriptOf(const Difference& difference, const std::string& afterName)
{
    if (difference.empty())
        return "";
    requireStorable(difference.after, afterName);
    return Script(difference).text();
}
