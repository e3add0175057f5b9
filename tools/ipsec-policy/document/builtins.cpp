#include "builtins.h"

#include "edit_words.h"

#include <algorithm>
#include <string_view>

using namespace ipsecimpl;

namespace {

template <class Object>
struct BuiltIn {
    const char* word;
    Object& (*object)();
};

const BuiltIn<HostGroup> HOST_GROUPS[] = {
    {"any", HostGroupAny},    {"local", HostGroupLocal},    {"mcast", HostGroupMcast},
    {"any4", HostGroupAnyv4}, {"local4", HostGroupLocalv4}, {"mcast4", HostGroupMcastv4},
    {"any6", HostGroupAnyv6}, {"local6", HostGroupLocalv6}, {"mcast6", HostGroupMcastv6},
};

const BuiltIn<ProtocolGroup> PROTOCOL_GROUPS[] = {{"all", ProtocolGroupAll}, {"system", ProtocolGroupSystem}};

const BuiltIn<IPsecAction> ACTIONS[] = {{"discard", ActionDiscard}, {"bypass", ActionBypass}};

template <class BuiltIns>
auto& objectNamed(const std::string& word, const BuiltIns& builtIns)
{
    std::string words;
    for (const auto& builtIn : builtIns) {
        if (word == builtIn.word)
            return builtIn.object();
        words += (words.empty() ? "" : ", ") + std::string(builtIn.word);
    }
    throw commandFailure("no built-in of this kind is called that (there are " + words + ')');
}

bool isFree(const Field& field)
{
    const std::string_view path = field.path;
    return path == "changeCount" || path == "type" || path == "state";
}

template <class BuiltIns>
std::vector<std::string> wordsIn(const BuiltIns& builtIns)
{
    std::vector<std::string> words;
    for (const auto& builtIn : builtIns)
        words.emplace_back(builtIn.word);
    return words;
}

template <class BuiltIns>
const char* wordIn(const BuiltIns& builtIns, const std::vector<Field>& fields)
{
    for (const auto& builtIn : builtIns) {
        const std::vector<Field> own = fieldsOf(builtIn.object());
        if (std::equal(own.begin(), own.end(), fields.begin(), fields.end(),
                       [](const Field& a, const Field& b) { return isSame(a, b) || (isFree(a) && isFree(b)); }))
            return builtIn.word;
    }
    return nullptr;
}

} // namespace

const HostGroup& builtInHostGroup(const std::string& word)
{
    return objectNamed(word, HOST_GROUPS);
}

const ProtocolGroup& builtInProtocolGroup(const std::string& word)
{
    return objectNamed(word, PROTOCOL_GROUPS);
}

const IPsecAction& builtInAction(const std::string& word)
{
    return objectNamed(word, ACTIONS);
}

std::vector<std::string> wordsOfBuiltIns(Kind kind)
{
    switch (kind) {
    case Kind::HOST_GROUP:
        return wordsIn(HOST_GROUPS);
    case Kind::PROTOCOL_GROUP:
        return wordsIn(PROTOCOL_GROUPS);
    case Kind::ACTION:
        return wordsIn(ACTIONS);
    default:
        return {};
    }
}

const char* wordOfBuiltIn(Kind kind, const std::vector<Field>& fields)
{
    switch (kind) {
    case Kind::HOST_GROUP:
        return wordIn(HOST_GROUPS, fields);
    case Kind::PROTOCOL_GROUP:
        return wordIn(PROTOCOL_GROUPS, fields);
    case Kind::ACTION:
        return wordIn(ACTIONS, fields);
    default:
        return nullptr;
    }
}
