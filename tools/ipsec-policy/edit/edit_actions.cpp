#include "edit_actions.h"

#include "edit_keying.h"

#include <ipsecimpl/xml.h>

#include <cstddef>
#include <new>
#include <sstream>

using namespace ipsecimpl;

namespace {

// What a new action is made with, and a built-in one refuses to change.
const FieldSetter<IPsecAction> NAME_AND_MODE[] = {
    {"name", [](IPsecAction& action, const GivenValue& value) { action.nameSet(value.text()); }},
    {"descr", [](IPsecAction& action, const GivenValue& value) { action.descrSet(value.text()); }},
    {"spdAction", [](IPsecAction& action, const GivenValue& value) { action.spdActionSet(value.word<SPDAction>()); }},
    {"keyMgr", [](IPsecAction& action, const GivenValue& value) { action.keyMgrSet(value.word<IPsecKeyMgr>()); }},
};

const FieldSetter<IPsecAction> NUMBERS_AND_END_POINT[] = {
    {"type", [](IPsecAction& action, const GivenValue& value) { action.typeSet(value.integer()); }},
    {"state", [](IPsecAction& action, const GivenValue& value) { action.stateSet(value.integer()); }},
    {"tunnelEndpoint", [](IPsecAction& action, const GivenValue& value) { action.tunnelEndpointSet(value.text()); }},
};

template <class Value, class Read>
Value valueOr(const GivenFields& fields, const char* field, const Value& otherwise, const Read& read)
{
    const GivenValue* const value = fields.find(field);
    return value == nullptr ? otherwise : read(*value);
}

/// The rest, which follows name and mode in a new action too.
void setRest(IPsecAction& action, const GivenFields& fields)
{
    fields.apply(NUMBERS_AND_END_POINT, action);
    // The library lets the key manager be set in any mode, but a document holds it in two of them.
    if (fields.find("keyMgr") != nullptr || hasKeying(fields))
        action.keyMgrGet();
    setKeying(action, fields);
}

/// `action` with another change counter, which only a document can give it.
IPsecAction withChangeCount(const IPsecAction& action, unsigned int count)
{
    std::ostringstream out;
    action.exportXML(out);
    if (!out)
        throw std::bad_alloc(); // a stream in memory fails for want of memory alone
    std::string       text  = out.str();
    const std::string TAG   = "<changeCount>";
    const std::size_t begin = text.find(TAG) + TAG.size();
    text.replace(begin, text.find('<', begin) - begin, std::to_string(static_cast<int>(count)));

    std::istringstream in(text);
    XMLParser          parser(in);
    return IPsecAction::importXML(parser);
}

} // namespace

KnownFields fieldsOfActions(bool isNew)
{
    KnownFields known;
    append(known, NAME_AND_MODE);
    append(known, NUMBERS_AND_END_POINT);
    appendKeying(known);
    if (isNew) {
        known.front() = {"builtinName", false};
        known.push_back({"builtinDescr", false});
    }
    return known;
}

void setFields(IPsecAction& action, const GivenFields& fields)
{
    fields.apply(NAME_AND_MODE, action);
    setRest(action, fields);
}

IPsecAction newAction(const std::string& name, const GivenFields& fields)
{
    const auto integer      = [](const GivenValue& value) { return value.integer(); };
    const int  builtinName  = valueOr(fields, "builtinName", 0, integer);
    const auto descr        = valueOr(fields, "descr", std::string(), [](const auto& value) { return value.text(); });
    const int  builtinDescr = valueOr(fields, "builtinDescr", 0, integer);
    const auto spdAction =
        valueOr(fields, "spdAction", SPD_NONE, [](const auto& value) { return value.template word<SPDAction>(); });
    const auto keyMgr =
        valueOr(fields, "keyMgr", KEYMGR_NONE, [](const auto& value) { return value.template word<IPsecKeyMgr>(); });

    IPsecAction action(spdAction, name, builtinName, descr, builtinDescr, keyMgr);
    setRest(action, fields);
    return action;
}

void replace(IPsecAction& action, const IPsecAction& fresh, const GivenFields& fields)
{
    // Unsigned, as the counter wraps.
    const auto count =
        static_cast<unsigned int>(action.changeCountGet()) + static_cast<unsigned int>(fresh.changeCountGet()) + 1U;
    action = withChangeCount(fresh, count);
    if (fields.find("type") != nullptr)
        action.typeSet(fresh.typeGet());
    if (fields.find("state") != nullptr)
        action.stateSet(fresh.stateGet());
}
