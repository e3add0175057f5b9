#ifndef IPSEC_POLICY_JSON_H
#define IPSEC_POLICY_JSON_H

/// \file
/// Results for scripts.

#include <nlohmann/json.hpp>

#include <string>

/// Keeps its members in the order in which they were added.
using Json = nlohmann::ordered_json;

/// The value in lines, indented by two blanks, with a final newline. All of it is ASCII: a terminal would obey some of
/// the other characters. Bytes that are not UTF-8, which JSON cannot hold, become U+FFFD.
inline std::string textOf(const Json& value)
{
    return value.dump(2, ' ', true, Json::error_handler_t::replace) + '\n';
}

#endif
