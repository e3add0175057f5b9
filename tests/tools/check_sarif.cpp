// SARIF 2.1.0 says of every object which members it has and what they hold: the report is held against that.

#include "json.h"
#include "program.h"
#include "rules.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>

#include <sys/stat.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// What a member holds; throws if it is something else.
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

/// A whole number, not less than `least`.
Shape number(int least)
{
    return [least](const Json& value, const std::string& where) {
        require(value.is_number_integer() && value.get<long>() >= least, where, value);
    };
}

/// Percent signs begin two digits, and there are no characters that a URI does not have.
void uriReference(const Json& value, const std::string& where)
{
    const std::string uri = value.get<std::string>();
    require(!uri.empty() && uri.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~"
                                                  ":/%") == std::string::npos,
            where, value);
    for (std::size_t at = uri.find('%'); at != std::string::npos; at = uri.find('%', at + 1))
        require(uri.substr(at + 1, 2).find_first_not_of("0123456789ABCDEF") == std::string::npos && at + 2 < uri.size(),
                where, value);
}

/// The members of the standard that the report has, and which of them the standard requires.
Shape sarifLog()
{
    const Shape message          = object({{"text", {text, true}}});
    const Shape level            = oneOf({"none", "note", "warning", "error"});
    const Shape artifactLocation = object({{"uri", {uriReference}}, {"description", {message}}});
    const Shape region = object({{"startLine", {number(1)}}, {"startColumn", {number(1)}}, {"endColumn", {number(1)}}});
    const Shape physicalLocation = object({{"artifactLocation", {artifactLocation, true}}, {"region", {region}}});
    const Shape logicalLocation =
        object({{"name", {text}}, {"fullyQualifiedName", {text}}, {"kind", {oneOf({"element"})}}});
    const Shape location =
        object({{"physicalLocation", {physicalLocation}}, {"logicalLocations", {list(logicalLocation)}}});
    const Shape result = object({{"ruleId", {text}},
                                 {"ruleIndex", {number(0)}},
                                 {"level", {level}},
                                 {"message", {message, true}},
                                 {"locations", {list(location)}}});
    const Shape rule   = object({{"id", {text, true}},
                                 {"shortDescription", {message}},
                                 {"help", {message}},
                                 {"defaultConfiguration", {object({{"level", {level}}})}}});
    const Shape driver = object({{"name", {text, true}}, {"version", {text}}, {"rules", {list(rule)}}});
    const Shape notification =
        object({{"level", {level}}, {"message", {message, true}}, {"locations", {list(location)}}});
    const Shape invocation =
        object({{"executionSuccessful", {truth, true}}, {"toolExecutionNotifications", {list(notification)}}});
    const Shape toolRun = object({{"tool", {object({{"driver", {driver, true}}}), true}},
                                  {"columnKind", {oneOf({"utf16CodeUnits", "unicodeCodePoints"})}},
                                  {"results", {list(result)}},
                                  {"invocations", {list(invocation)}}});
    return object({{"$schema", {text}}, {"version", {oneOf({"2.1.0"}), true}}, {"runs", {list(toolRun), true}}});
}

/// The only run of a report, which is as it should be.
Json runIn(const Outcome& outcome)
{
    const Json report = Json::parse(outcome.out);
    sarifLog()(report, "log");
    EXPECT_EQ(report["runs"].size(), 1U);
    return report["runs"][0];
}

class CheckSarif : public InFolder {
  protected:
    static void write(const std::string& fileName, const std::string& content)
    {
        writeFile(fileName, content);
        ASSERT_EQ(chmod(fileName.c_str(), 0600), 0);
    }
};

const std::string WITH_ERRORS = document("", "", "", entry("policy", 3, policy(1, 2, 3)));

TEST_F(CheckSarif, HasNoResultsWhereNothingIsFound)
{
    const Outcome outcome = run({"check", "--sarif", "-"}, document());
    EXPECT_EQ(outcome.status, 0);
    const Json all = runIn(outcome);
    EXPECT_EQ(all["results"].dump(), "[]");
    EXPECT_EQ(all["invocations"].dump(), R"([{"executionSuccessful":true,"toolExecutionNotifications":[]}])");
    EXPECT_EQ(all["columnKind"], "unicodeCodePoints");
}

TEST_F(CheckSarif, KnowsEveryRule)
{
    const Json driver = runIn(run({"check", "--sarif", "-"}, document()))["tool"]["driver"];
    EXPECT_EQ(driver["name"], "ipsec-policy");
    EXPECT_EQ(driver["version"], PROGRAM_VERSION);
    ASSERT_EQ(driver["rules"].size(), allRules().size());
    std::size_t number = 0;
    for (const Rule* const rule : allRules()) {
        const Json& member = driver["rules"][number++];
        EXPECT_EQ(member["id"], rule->code);
        EXPECT_EQ(member["shortDescription"]["text"], rule->summary);
        EXPECT_THAT(member["help"]["text"].get<std::string>(), HasSubstr(rule->explanation));
        EXPECT_THAT(member["help"]["text"].get<std::string>(), HasSubstr(rule->reference));
    }
}

TEST_F(CheckSarif, TellsWhereAFindingIs)
{
    write("a b.xml", "<ipsec>\n" + WITH_ERRORS.substr(7));
    const Json all = runIn(run({"check", "--sarif", "a b.xml"}));
    ASSERT_EQ(all["results"].size(), 3U);
    const Json& result = all["results"][2];
    EXPECT_EQ(all["tool"]["driver"]["rules"][result["ruleIndex"].get<std::size_t>()]["id"], "dangling-reference");
    EXPECT_EQ(result["ruleId"], "dangling-reference");
    EXPECT_EQ(result["level"], "error");
    EXPECT_EQ(result["message"]["text"], "There is no action with ID 3. Add it, or name one that exists.");
    EXPECT_EQ(
        result["locations"].dump(),
        R"([{"physicalLocation":{"artifactLocation":{"uri":"a%20b.xml"},)"
        R"("region":{"startLine":2,"startColumn":193,"endColumn":194}},)"
        R"("logicalLocations":[{"name":"actionID","fullyQualifiedName":"policies/3/actionID","kind":"element"}]}])");
}

TEST_F(CheckSarif, CountsCharactersAndNotBytes)
{
    const std::string text = document("", "", entry("action", 1, action("\xc3\xa4\xe6\xbc\xa2", "", "<spdAction>X")));
    const Json        all  = runIn(run({"check", "--sarif", "-"}, text));
    const Json        bytes =
        runIn(run({"check", "--sarif", "-"}, document("", "", entry("action", 1, action("ab", "", "<spdAction>X")))));
    EXPECT_EQ(all["results"][0]["locations"], bytes["results"][0]["locations"]);
}

TEST_F(CheckSarif, HasNoRegionForAFindingAboutTheFile)
{
    write("a.xml", document());
    ASSERT_EQ(chmod("a.xml", 0602), 0);
    const Json all = runIn(run({"check", "--sarif", "a.xml"}));
    EXPECT_EQ(all["results"][0]["locations"].dump(), R"([{"physicalLocation":{"artifactLocation":{"uri":"a.xml"}}}])");
}

TEST_F(CheckSarif, NamesFilesAsURIs)
{
    std::filesystem::create_directory("d");
    write("d/\xc3\xa4%#.xml", "");
    write("-x", "");
    const std::string full     = std::filesystem::absolute("-x").string();
    const Json        all      = runIn(run({"check", "--sarif", "d/\xc3\xa4%#.xml", full, "-"}));
    const auto        location = [&](std::size_t result) {
        return all["results"][result]["locations"][0]["physicalLocation"]["artifactLocation"].dump();
    };
    EXPECT_EQ(location(0), R"({"uri":"d/%C3%A4%25%23.xml"})");
    EXPECT_EQ(location(1), R"({"uri":"file://)" + full + R"("})");
    EXPECT_EQ(location(2), R"({"description":{"text":"standard input"}})");
}

TEST_F(CheckSarif, TellsWhichFilesCouldNotBeRead)
{
    const Outcome outcome = run({"check", "--sarif", "none.xml", "-"}, WITH_ERRORS);
    EXPECT_EQ(outcome.status, 2);
    const Json all = runIn(outcome);
    EXPECT_EQ(all["results"].size(), 3U);
    EXPECT_EQ(all["invocations"].dump(),
              R"([{"executionSuccessful":false,"toolExecutionNotifications":[{"level":"error",)"
              R"("message":{"text":"none.xml: No such file or directory"},)"
              R"("locations":[{"physicalLocation":{"artifactLocation":{"uri":"none.xml"}}}]}]}])");
}

TEST_F(CheckSarif, HasNoURIForANameThatIsEmpty)
{
    const Json all = runIn(run({"check", "--sarif", ""}));
    EXPECT_EQ(all["invocations"][0]["toolExecutionNotifications"].dump(),
              R"([{"level":"error","message":{"text":"'': No such file or directory"},)"
              R"("locations":[{"physicalLocation":{"artifactLocation":{"description":{"text":"''"}}}}]}])");
}

TEST_F(CheckSarif, IsUTF8WhateverTheDocumentHolds)
{
    const std::string text = document(entry("hostGroup", 1, group("hostGroup", "\xff\x01\"\\", "", "")));
    const Json        all  = runIn(run({"check", "--sarif", "-"}, text));
    EXPECT_THAT(all["results"][0]["message"]["text"].get<std::string>(), HasSubstr("\\xff\\x01\"\\\\"));
}

TEST(CheckSarifShape, RefusesWhatTheStandardDoes)
{
    const auto isRefused = [](const char* report) {
        EXPECT_ANY_THROW(sarifLog()(Json::parse(report), "log")) << report;
    };
    isRefused("{}");
    isRefused(R"({"version":"2.1.0"})");
    isRefused(R"({"version":"2.0.0","runs":[]})");
    isRefused(R"({"version":"2.1.0","runs":[{}]})");
    isRefused(R"({"version":"2.1.0","runs":[],"results":[]})");
    isRefused(R"({"version":"2.1.0","runs":[{"tool":{"driver":{"name":"x"}},"results":[{}]}]})");
    EXPECT_NO_THROW(sarifLog()(Json::parse(R"({"version":"2.1.0","runs":[{"tool":{"driver":{"name":"x"}}}]})"), "log"));
}

} // namespace
