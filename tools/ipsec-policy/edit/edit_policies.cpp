#include "edit_policies.h"

#include "plain_number.h"

using namespace ipsecimpl;

namespace {

const std::array<Reference, 3> REFERENCES = {{
    {"hostGroupID", Kind::HOST_GROUP, &Policy::hostGroupID},
    {"protocolGroupID", Kind::PROTOCOL_GROUP, &Policy::protocolGroupID},
    {"actionID", Kind::ACTION, &Policy::actionID},
}};

/// An ID that nothing has. A document can hold such references beyond the IDs that there can be.
unsigned int readMissing(const EditedConfig& config, Kind kind, const std::string& text)
{
    const auto number = plainNumber(text);
    if (!number || *number < 1 || *number > 0xFFFFFFFF)
        throw commandFailure('\'' + printable(text) + "' cannot be the ID of what is missing (1 to 4294967295)");
    const auto id     = static_cast<unsigned int>(*number);
    const bool exists = withCollection(config, kind, [id](const auto& all) { return all.find(id) != nullptr; });
    if (exists)
        throw commandFailure(std::string(wordsOf(kind).sentence) + ' ' + text + " is not missing");
    return id;
}

} // namespace

const std::array<Reference, 3>& referencesOfPolicies()
{
    return REFERENCES;
}

unsigned int readReference(const EditedConfig& config, Kind kind, const std::string& text)
{
    const std::string MISSING = "missing=";
    if (text == "0")
        return 0;
    if (text.compare(0, MISSING.size(), MISSING) == 0)
        return readMissing(config, kind, text.substr(MISSING.size()));
    return config.find(kind, text);
}

KnownFields fieldsOfPolicies()
{
    KnownFields known;
    for (const auto& reference : REFERENCES)
        known.push_back({reference.path, false});
    return known;
}

void setFields(Policy& policy, const GivenFields& fields, const EditedConfig& config)
{
    for (const auto& reference : REFERENCES)
        if (const GivenValue* const value = fields.find(reference.path))
            policy.*reference.id = readReference(config, reference.kind, value->plain());
}
