#include "edit_commands.h"

#include "builtins.h"
#include "edit_objects.h"
#include "edit_policies.h"
#include "leaf_words.h"
#include "plain_number.h"

#include <algorithm>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

using namespace ipsecimpl;

namespace {

std::optional<Kind> kindNamed(const std::string& word, const char* KindWords::*form)
{
    for (const Kind kind : ALL_KINDS)
        if (word == wordsOf(kind).*form)
            return kind;
    return std::nullopt;
}

Kind kindIn(const std::string& word, const char* others)
{
    if (const auto kind = kindNamed(word, &KindWords::singular))
        return *kind;
    throw commandFailure("here must stand host-group, protocol-group, action, policy" + std::string(others));
}

std::string takeName(CommandWords& words)
{
    std::string name = words.takeReference("NAME", {});
    requireStorable(name, "name");
    return name;
}

/// The name of an object, which a message may tell if there is none such. What is quoted too far is not one but
/// FIELD=VALUE, perhaps with a key.
std::string refuseSecret(std::string reference)
{
    const std::string_view path = std::string_view(reference).substr(0, reference.find('='));
    if (path.size() < reference.size() && isSecretTag(path.substr(path.rfind('/') + 1)))
        throw commandFailure("the ID or name is missing (in FIELD=VALUE quotes stand around the VALUE alone)");
    return reference;
}

std::string ownerOf(Kind kind, const std::string& name)
{
    return wordsOf(kind).sentence + (" '" + printable(name)) + '\'';
}

/// Such as "policies 3, 7 and 9", of a great many the first ones.
std::string policySentence(const std::vector<unsigned int>& ids)
{
    const std::size_t MOST  = 10;
    const std::size_t shown = std::min(ids.size(), MOST);
    std::string       text  = ids.size() == 1 ? "policy " : "policies ";
    for (std::size_t i = 0; i < shown; ++i) {
        if (i > 0)
            text += i + 1 == ids.size() ? " and " : ", ";
        text += std::to_string(ids[i]);
    }
    return shown == ids.size() ? text : text + " and " + std::to_string(ids.size() - shown) + " more";
}

/// Some editors of texts put one at the start. It cannot be seen, and would be taken for a piece of the first word.
void refuseByteOrderMark(std::string_view line)
{
    if (line.substr(0, 3) == "\xef\xbb\xbf")
        throw commandFailure(
            "a byte order mark stands here, which cannot be seen: save the script as UTF-8 without one");
    if (line.substr(0, 2) == "\xff\xfe" || line.substr(0, 2) == "\xfe\xff")
        throw commandFailure("a byte order mark of UTF-16 stands here: save the script as UTF-8 without one");
}

} // namespace

void Editor::execute(std::string_view line)
{
    ++line_;
    refuseByteOrderMark(line);
    if (line.find('\0') != std::string_view::npos)
        throw commandFailure(
            "a NUL character stands here: a script is a text (in double quotes, \\x00 stands for one)");
    CommandWords words(line);
    if (words.atEnd())
        return;
    const std::string command = words.take("a command");
    if (command == "add")
        add(words);
    else if (command == "replace")
        replace(words);
    else if (command == "set")
        set(words);
    else if (command == "remove")
        remove(words);
    else
        throw commandFailure("a command begins with add, replace, set or remove");
    words.requireEnd();
}

void Editor::add(CommandWords& words)
{
    const std::string what = words.take("what to add");
    if (what == "selector")
        return changeSelectors(words, true);
    if (what == "built-in")
        return addBuiltIn(words);

    const Kind kind = kindIn(what, ", selector or built-in");
    withCollection(config_, kind, [&](auto& objects) {
        using Object = ObjectOf<decltype(objects)>;
        if constexpr (std::is_same_v<Object, Policy>) {
            const Policy policy = takePolicy(words);
            const auto   fields = words.takeFields(fieldsAndID<Object>(), "", secrets_);
            const auto   added  = objects.add(Policy(policy), idIn(fields));
            remarks_.add(line_, added, *objects.find(added), [](std::string_view) { return true; });
        } else {
            const std::string name   = takeName(words);
            const auto        fields = words.takeFields(fieldsAndID<Object>(), ownerOf(kind, name), secrets_);
            const auto        id     = idIn(fields); // before any key is asked for
            const auto        added  = objects.add(newObject<Object>(name, fields), id);
            remark(added, *objects.find(added), fields, true);
        }
    });
}

void Editor::addBuiltIn(CommandWords& words)
{
    const Kind        kind   = kindIn(words.take("the kind of built-in"), "");
    const std::string word   = words.take("the name of the built-in");
    const auto        fields = words.takeFields({ID_FIELD}, "", secrets_);
    const auto        id     = idIn(fields);
    const auto        add    = [&](auto& objects, auto object) {
        const auto added = objects.add(std::move(object), id);
        remarks_.add(line_, added, *objects.find(added), [](std::string_view path) { return path == "name"; });
    };
    if (kind == Kind::HOST_GROUP)
        add(config_.hostGroups, HostGroup(builtInHostGroup(word)));
    else if (kind == Kind::PROTOCOL_GROUP)
        add(config_.protocolGroups, ProtocolGroup(builtInProtocolGroup(word)));
    else if (kind == Kind::ACTION)
        add(config_.actions, IPsecAction(builtInAction(word)));
    else
        throw commandFailure("there are no built-in policies");
}

void Editor::replace(CommandWords& words)
{
    const Kind         kind = kindIn(words.take("what to replace"), "");
    const unsigned int id   = takeObject(kind, words);
    withCollection(config_, kind, [&](auto& objects) {
        using Object = ObjectOf<decltype(objects)>;
        if constexpr (std::is_same_v<Object, Policy>) {
            const Policy fresh = takePolicy(words);
            objects.change(id, [&](Policy& policy) { policy = fresh; });
            remarks_.add(line_, id, fresh, [](std::string_view) { return true; });
        } else {
            const std::string name   = takeName(words);
            const auto        fields = words.takeFields(fieldsOf<Object>(true), objects.sentence(id), secrets_);
            Object            fresh  = newObject<Object>(name, fields);
            objects.change(id, [&](Object& object) { replaceBy(object, std::move(fresh), fields); });
            remark(id, *objects.find(id), fields, true);
        }
    });
}

void Editor::set(CommandWords& words)
{
    const std::string what = words.take("what to set");
    if (const auto kind = kindNamed(what, &KindWords::plural))
        return setNextID(*kind, words);

    const Kind         kind = kindIn(what, ", host-groups, protocol-groups, actions or policies");
    const unsigned int id   = takeObject(kind, words);
    withCollection(config_, kind, [&](auto& objects) {
        using Object      = ObjectOf<decltype(objects)>;
        const auto fields = words.takeFields(fieldsOf<Object>(false), objects.sentence(id), secrets_);
        if (fields.empty())
            throw commandFailure("FIELD=VALUE is missing");
        objects.change(id, [&](Object& object) {
            if constexpr (std::is_same_v<Object, Policy>)
                setFields(object, fields, config_);
            else
                setFields(object, fields);
        });
        remark(id, *objects.find(id), fields, false);
    });
}

void Editor::setNextID(Kind kind, CommandWords& words)
{
    const auto              fields = words.takeFields({{"nextID", false}}, "", secrets_);
    const GivenValue* const value  = fields.find("nextID");
    if (value == nullptr)
        throw commandFailure("nextID=N is missing");
    const std::string text   = value->plain();
    const auto        nextID = plainNumber(text);
    if (!nextID || *nextID < 1 || *nextID > LAST_ID + std::int64_t{1})
        throw commandFailure('\'' + printable(text) + "' is no next ID (1 to 2147483647)");
    withCollection(config_, kind, [&](auto& objects) { objects.nextIDSet(static_cast<unsigned int>(*nextID)); });
}

void Editor::remove(CommandWords& words)
{
    const std::string what = words.take("what to remove");
    if (what == "selector")
        return changeSelectors(words, false);

    const Kind         kind = kindIn(what, " or selector");
    const unsigned int id   = takeObject(kind, words);
    const bool         also = words.takeIf("--cascade") || cascade_;
    words.requireEnd(); // a misspelt --cascade is to be told before what it would have allowed
    withCollection(config_, kind, [&](auto& objects) {
        if (kind != Kind::POLICY) {
            const std::vector<unsigned int> users = config_.policies.index().usersOf(kind, id);
            if (!users.empty() && !also)
                throw commandFailure(objects.sentence(id) + " is used by " + policySentence(users) +
                                     " (--cascade removes what uses it too)");
            removeUsers(objects.sentence(id), users);
        }
        objects.remove(id);
    });
}

void Editor::removeUsers(const std::string& sentence, const std::vector<unsigned int>& users)
{
    for (const unsigned int user : users) {
        config_.policies.remove(user);
        report_ += "policy " + std::to_string(user) + " is removed with " + sentence + ", which it used\n";
    }
}

void Editor::changeSelectors(CommandWords& words, bool isAdded)
{
    const Kind kind = kindIn(words.take("the kind of group"), "");
    if (kind != Kind::HOST_GROUP && kind != Kind::PROTOCOL_GROUP)
        throw commandFailure("only a host-group or a protocol-group has selectors");
    const unsigned int     id   = takeObject(kind, words);
    const std::string_view list = words.takeRest();
    const auto             edit = [&](auto& group) {
        if (!isAdded)
            return removeSelectors(group, list);
        addSelectors(group, list);
        std::decay_t<decltype(group)> added; // looked at alone, lest each command of thousands look at thousands
        addSelectors(added, list);
        remarks_.add(line_, id, added, [](std::string_view path) { return path == "selectors"; });
    };
    if (kind == Kind::HOST_GROUP)
        config_.hostGroups.change(id, edit);
    else
        config_.protocolGroups.change(id, edit);
}

template <class Object>
void Editor::remark(unsigned int id, const Object& object, const GivenFields& fields, bool isNamed)
{
    remarks_.add(line_, id, object,
                 [&](std::string_view path) { return fields.find(path) != nullptr || (isNamed && path == "name"); });
}

unsigned int Editor::takeObject(Kind kind, CommandWords& words) const
{
    return config_.find(kind, refuseSecret(words.takeReference("the ID or name", {"name"})));
}

Policy Editor::takePolicy(CommandWords& words) const
{
    const auto take = [&](Kind kind, const char* what) {
        return readReference(config_, kind, refuseSecret(words.takeReference(what, {"name", "missing"})));
    };
    const unsigned int hostGroup     = take(Kind::HOST_GROUP, "HOST-GROUP");
    const unsigned int protocolGroup = take(Kind::PROTOCOL_GROUP, "PROTOCOL-GROUP");
    const unsigned int action        = take(Kind::ACTION, "ACTION");
    return Policy(hostGroup, protocolGroup, action);
}
