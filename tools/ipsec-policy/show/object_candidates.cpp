#include "object_candidates.h"

#include "document.h"
#include "references.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <map>
#include <string_view>
#include <type_traits>

#include <sys/stat.h>

using namespace ipsecimpl;

namespace {

/// A pipe or a device could keep whoever reads it waiting for ever. So could some of the system's own files, whose
/// size is 0.
bool isReadable(const std::string& fileName)
{
    struct stat status = {};
    return stat(fileName.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0 &&
           static_cast<std::uintmax_t>(status.st_size) <= USUAL_MAX_SIZE;
}

/// The name as findObject() takes it for a name.
std::string asReference(const std::string& name)
{
    const bool isNumber = std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
    return isNumber || name.front() == '-' || name.rfind("name=", 0) == 0 ? "name=" + name : name;
}

template <class Collection>
std::vector<Candidate> candidatesOf(const Collection& collection)
{
    std::vector<Candidate>               candidates;
    std::map<std::string_view, unsigned> uses;
    for (const auto& [id, object] : collection) {
        candidates.push_back({std::to_string(id), nameOf(object)});
        ++uses[nameOf(object)];
    }
    for (const auto& [id, object] : collection)
        if (const std::string& name = nameOf(object); !name.empty() && uses[name] == 1)
            candidates.push_back({asReference(name), "ID " + std::to_string(id)});
    return candidates;
}

std::vector<Candidate> candidatesOf(const IPsecConfig& config)
{
    const Names            names(config);
    std::vector<Candidate> candidates;
    for (const auto& [id, policy] : config.policies) {
        std::string description;
        for (const Kind kind : REFERENCED_KINDS) {
            const auto name = names.find(kind, referenceTo(kind, policy));
            description += (description.empty() ? "" : ", ") + std::string(name ? *name : "!! missing");
        }
        candidates.push_back({std::to_string(id), description});
    }
    return candidates;
}

} // namespace

std::vector<Candidate> objectCandidates(const std::string& fileName, Kind kind)
{
    if (!isReadable(fileName))
        return {};
    try {
        const IPsecConfig config = parseDocument(readFile(fileName, USUAL_MAX_SIZE), fileName);
        if (kind == Kind::POLICY)
            return candidatesOf(config);
        return withCollection(config, kind, [](const auto& collection) -> std::vector<Candidate> {
            if constexpr (std::is_same_v<std::decay_t<decltype(collection)>, Policies>)
                return {};
            else
                return candidatesOf(collection);
        });
    } catch (const std::exception&) {
        return {};
    }
}
