#include "sarif_log.h"

#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace {

/// What a member holds; throws a std::runtime_error if it is something else.
using Shape = std::function<void(const Json& value, const std::string& where)>;

struct Member {
    Shape shape;
    bool  isRequired = false;
};

void require(bool holds, const std::string& where, const Json& value)
{
    if (!holds)
        throw std::runtime_error(where + " is " + value.dump().substr(0, 200));
}

Shape object(const std::map<std::string, Member>& members)
{
    return [members](const Json& value, const std::string& where) {
        require(value.is_object(), where, value);
        for (const auto& [name, member] : members)
            require(!member.isRequired || value.contains(name), where + " without " + name, value);
        for (const auto& [name, inner] : value.items()) {
            require(members.count(name) == 1, where + " with " + name, value);
            members.at(name).shape(inner, where + '.' + name);
        }
    };
}

Shape list(const Shape& shape)
{
    return [shape](const Json& value, const std::string& where) {
        require(value.is_array(), where, value);
        for (const Json& member : value)
            shape(member, where + "[]");
    };
}

void text(const Json& value, const std::string& where)
{
    require(value.is_string() && !value.get<std::string>().empty(), where, value);
}

/// Braces that are not doubled stand for arguments, of which there are none.
void plainMessage(const Json& value, const std::string& where)
{
    text(value, where);
    const std::string message = value.get<std::string>();
    for (std::size_t at = message.find_first_of("{}"); at != std::string::npos;
         at             = message.find_first_of("{}", at + 2))
        require(message.substr(at + 1, 1) == message.substr(at, 1), where, value);
}

void nameOrNull(const Json& value, const std::string& where)
{
    if (!value.is_null())
        text(value, where);
}

void truth(const Json& value, const std::string& where)
{
    require(value.is_boolean(), where, value);
}

Shape oneOf(const std::set<std::string>& words)
{
    return [words](const Json& value, const std::string& where) {
        require(value.is_string() && words.count(value.get<std::string>()) == 1, where, value);
    };
}

Shape notEmpty(const Shape& shape)
{
    return [shape](const Json& value, const std::string& where) {
        require(!value.empty(), where, value);
        shape(value, where);
    };
}

/// A whole number, not less than `least`.
Shape number(int least)
{
    return [least](const Json& value, const std::string& where) {
        require(value.is_number_integer() && value.get<long>() >= least, where, value);
    };
}

/// Of a file: absolute with the scheme "file", or relative, so that no colon can end what looks like a scheme. Percent
/// signs begin two digits, and there are no characters that a URI does not have.
void uriReference(const Json& value, const std::string& where)
{
    require(value.is_string(), where, value);
    const std::string uri  = value.get<std::string>();
    const bool        full = uri.substr(0, 8) == "file:///";
    require(full || (uri.find(':') == std::string::npos && uri.substr(0, 1) != "/"), where, value);
    require(!uri.empty() && uri.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~"
                                                  ":/%") == std::string::npos,
            where, value);
    for (std::size_t at = uri.find('%'); at != std::string::npos; at = uri.find('%', at + 1))
        require(uri.substr(at + 1, 2).find_first_not_of("0123456789ABCDEF") == std::string::npos && at + 2 < uri.size(),
                where, value);
}

void absoluteURI(const Json& value, const std::string& where)
{
    require(value.is_string() && value.get<std::string>().substr(0, 8) == "https://", where, value);
}

/// On one line, as its end is not told, and by columns.
void region(const Json& value, const std::string& where)
{
    object({{"startLine", {number(1), true}}, {"startColumn", {number(1), true}}, {"endColumn", {number(1), true}}})(
        value, where);
    require(value["endColumn"] >= value["startColumn"], where, value);
}

/// The members of the standard that the report has, and which of them the standard requires.
Shape sarifLog()
{
    const Shape message          = object({{"text", {plainMessage, true}}});
    const Shape level            = oneOf({"none", "note", "warning", "error"});
    const Shape artifactLocation = notEmpty(object({{"uri", {uriReference}}, {"description", {message}}}));
    const Shape physicalLocation = object({{"artifactLocation", {artifactLocation, true}}, {"region", {region}}});
    const Shape logicalLocation =
        object({{"name", {text}}, {"fullyQualifiedName", {text}}, {"kind", {oneOf({"element"})}}});
    const Shape location =
        object({{"physicalLocation", {physicalLocation}}, {"logicalLocations", {list(logicalLocation)}}});
    const Shape relatedLocation = object({{"physicalLocation", {physicalLocation}}, {"message", {message}}});
    const Shape result          = object({{"ruleId", {text}},
                                          {"ruleIndex", {number(0)}},
                                          {"level", {level}},
                                          {"message", {message, true}},
                                          {"locations", {list(location)}},
                                          {"relatedLocations", {list(relatedLocation)}},
                                          {"properties", {object({{"elements", {list(nameOrNull)}}})}}});
    const Shape rule            = object({{"id", {text, true}},
                                          {"shortDescription", {message}},
                                          {"help", {message}},
                                          {"defaultConfiguration", {object({{"level", {level}}})}}});
    const Shape driver          = object({{"name", {text, true}}, {"version", {text}}, {"rules", {list(rule)}}});
    const Shape notification =
        object({{"level", {level}}, {"message", {message, true}}, {"locations", {list(location)}}});
    const Shape invocation =
        object({{"executionSuccessful", {truth, true}}, {"toolExecutionNotifications", {list(notification)}}});
    const Shape toolRun = object({{"tool", {object({{"driver", {driver, true}}}), true}},
                                  {"columnKind", {oneOf({"utf16CodeUnits", "unicodeCodePoints"})}},
                                  {"results", {list(result)}},
                                  {"invocations", {list(invocation)}},
                                  {"properties", {object({{"leftOut", {number(0), true}}})}}});
    return object({{"$schema", {absoluteURI}}, {"version", {oneOf({"2.1.0"}), true}}, {"runs", {list(toolRun), true}}});
}

/// Every result has a rule that says of itself what the result does.
void requireRules(const Json& results, const Json& rules)
{
    std::set<std::string> ids;
    for (const Json& rule : rules)
        require(ids.insert(rule["id"].get<std::string>()).second, "rule twice", rule);
    for (const Json& result : results) {
        const auto index = result["ruleIndex"].get<std::size_t>();
        require(index < rules.size() && rules[index]["id"] == result["ruleId"], "ruleIndex", result);
        require(rules[index]["defaultConfiguration"]["level"] == result["level"], "level", result);
    }
}

/// What failed is told, and only then.
void requireInvocation(const Json& invocations)
{
    require(invocations.size() == 1, "invocations", invocations);
    bool hasError = false;
    for (const Json& notification : invocations[0]["toolExecutionNotifications"])
        hasError = hasError || notification["level"] == "error";
    require(invocations[0]["executionSuccessful"] == !hasError, "executionSuccessful", invocations);
}

/// Bytes that go on with a character are none; what is not UTF-8 counts by the byte.
std::size_t codePointsIn(const std::string& line)
{
    std::size_t count = 0;
    for (const char c : line)
        count += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    return count;
}

} // namespace

Json sarifRun(const std::string& report)
{
    const Json log = Json::parse(report);
    sarifLog()(log, "log");
    require(log["runs"].size() == 1, "runs", log["runs"]);
    const Json& run = log["runs"][0];
    requireRules(run.at("results"), run["tool"]["driver"].at("rules"));
    requireInvocation(run.at("invocations"));
    require(run.at("columnKind") == "unicodeCodePoints", "columnKind", run["columnKind"]);
    return run;
}

void requireRegionsIn(const std::string& document, const Json& run)
{
    std::vector<std::string> lines;
    std::istringstream       text(document);
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    for (const Json& result : run["results"]) {
        const Json& location = result["locations"][0]["physicalLocation"];
        if (!location.contains("region"))
            continue;
        const Json& region = location["region"];
        const auto  line   = region["startLine"].get<std::size_t>();
        require(line <= lines.size() && region["endColumn"].get<std::size_t>() <= codePointsIn(lines[line - 1]) + 1,
                "region beyond the document", result);
    }
}
