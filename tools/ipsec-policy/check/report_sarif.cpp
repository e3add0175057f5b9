#include "check_report.h"
#include "failure.h"
#include "files.h"
#include "json_list.h"
#include "load_finding.h"
#include "load_json.h"
#include "position.h"
#include "rules.h"

#include <ipsecimpl/version.h>

#include <map>
#include <string>
#include <string_view>

namespace {

const char SCHEMA[] = "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

/// Of a message in which a brace is a brace: a single one would begin or end the number of an argument.
Json textMember(const std::string& text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text)
        escaped.append(c == '{' || c == '}' ? 2 : 1, c);
    return {{"text", escaped}};
}

Json ruleMember(const Rule& rule)
{
    const std::string reference    = *rule.reference == '\0' ? "" : std::string("\n\nSee ") + rule.reference + '.';
    Json              member       = {{"id", rule.code}};
    member["shortDescription"]     = textMember(rule.summary);
    member["help"]                 = textMember(rule.explanation + reference);
    member["defaultConfiguration"] = {{"level", wordOf(rule.level)}};
    return member;
}

Json toolMember()
{
    Json rules = Json::array();
    for (const Rule* const rule : allRules())
        rules.push_back(ruleMember(*rule));
    return {{"driver", {{"name", PROGRAM}, {"version", ipsecimpl::VERSION}, {"rules", rules}}}};
}

bool isUnreserved(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

/// The file's name as a URI, relative to the current folder unless it is absolute.
std::string uriOf(std::string_view fileName)
{
    std::string uri = fileName.front() == '/' ? "file://" : "";
    for (const char c : fileName) {
        if (isUnreserved(c)) {
            uri += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            uri += {'%', "0123456789ABCDEF"[byte >> 4U], "0123456789ABCDEF"[byte & 15U]};
        }
    }
    return uri;
}

Json artifactMember(const std::string& fileName)
{
    if (isStandardStream(fileName))
        return {{"description", textMember("standard input")}};
    if (fileName.empty())
        return {{"description", textMember("''")}};
    return {{"uri", uriOf(fileName)}};
}

Json regionMember(const Position& position, std::string_view text)
{
    return {{"startLine", position.line},
            {"startColumn", position.column},
            {"endColumn", position.column + charactersIn(text)}};
}

/// Where the first ID is that one repeats.
Json firstMember(const CheckedFile& file)
{
    const LoadFault&       fault = *file.fault;
    const std::string_view text  = firstLineOf(file.text, fault.first).in(file.text);
    return {{"physicalLocation",
             {{"artifactLocation", artifactMember(file.name)}, {"region", regionMember(fault.firstPosition, text)}}},
            {"message", textMember("The first entry with this ID.")}};
}

/// Adds what is told of a document that does not load, besides its message.
void addFaultTo(Json& result, const CheckedFile& file)
{
    if (file.fault->repeatsID())
        result["relatedLocations"] = Json::array({firstMember(file)});
    result["properties"] = {{"elements", elementsMember(*file.fault)}};
}

Json logicalMember(const ObjectPath& path)
{
    const std::string full = textOf(path);
    return {{"name", full.substr(full.rfind('/') + 1)}, {"fullyQualifiedName", full}, {"kind", "element"}};
}

class SarifReport : public Report {
  public:
    explicit SarifReport(StandardOutput& out);

    void add(const CheckedFile& file) override;
    void addUnread(const std::string& fileName, const std::string& message) override;
    void finish(const Totals& totals) override;

  private:
    void addMember(const char* name, const Json& value);

    StandardOutput&                    out_;
    JsonList                           results_;
    Json                               notifications_ = Json::array();
    std::map<const Rule*, std::size_t> indexes_; // in the list of rules
};

SarifReport::SarifReport(StandardOutput& out)
    : out_(out)
    , results_(out, 3)
{
    for (const Rule* const rule : allRules())
        indexes_.emplace(rule, indexes_.size());
    out_.write("{\n  \"$schema\": \"" + std::string(SCHEMA) + "\",\n  \"version\": \"2.1.0\",\n  \"runs\": [\n    {\n" +
               "      \"tool\": " + nestedText(toolMember(), 3));
    addMember("columnKind", "unicodeCodePoints");
    out_.write(",\n      \"results\": ");
}

/// Adds a member to the only run.
void SarifReport::addMember(const char* name, const Json& value)
{
    out_.write(std::string(",\n      \"") + name + "\": " + nestedText(value, 3));
}

void SarifReport::add(const CheckedFile& file)
{
    PositionCounter counter(file.text);
    for (const Finding& finding : file.findings) {
        Json location = {{"physicalLocation", {{"artifactLocation", artifactMember(file.name)}}}};
        if (finding.isLocated)
            location["physicalLocation"]["region"] =
                regionMember(counter.at(finding.offset), textMeantBy(finding, file));
        if (!finding.isAboutFile)
            location["logicalLocations"] = Json::array({logicalMember(finding.path)});
        Json result = {{"ruleId", finding.rule->code},
                       {"ruleIndex", indexes_.at(finding.rule)},
                       {"level", wordOf(finding.rule->level)},
                       {"message", textMember(finding.message)},
                       {"locations", Json::array({location})}};
        if (finding.rule == &DOES_NOT_LOAD)
            addFaultTo(result, file);
        results_.add(result);
    }
}

void SarifReport::addUnread(const std::string& fileName, const std::string& message)
{
    const Json location = {{"physicalLocation", {{"artifactLocation", artifactMember(fileName)}}}};
    notifications_.push_back(
        {{"level", "error"}, {"message", textMember(message)}, {"locations", Json::array({location})}});
}

void SarifReport::finish(const Totals& totals)
{
    results_.finish();
    const Json invocation = {{"executionSuccessful", totals.unread == 0},
                             {"toolExecutionNotifications", notifications_}};
    addMember("invocations", Json::array({invocation}));
    addMember("properties", {{"leftOut", totals.leftOut}});
    out_.write("\n    }\n  ]\n}\n");
}

} // namespace

std::unique_ptr<Report> makeSarifReport(StandardOutput& out)
{
    return std::make_unique<SarifReport>(out);
}
