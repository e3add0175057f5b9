// SARIF 2.1.0 as check writes it.

#include "program.h"
#include "rules.h"
#include "sarif_log.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include <sys/stat.h>

using testing::HasSubstr;

namespace {

/// The only run of a report, which is as it should be.
Json runIn(const Outcome& outcome)
{
    return sarifRun(outcome.out);
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

TEST_F(CheckSarif, DoublesBracesSoThatNoneStandsForAnArgument)
{
    const std::string text = document(entry("hostGroup", 1, group("hostGroup", "{0} of \xe2\x80\x8b{n}", "", "")));
    const Json        all  = runIn(run({"check", "--sarif", "-"}, text));
    ASSERT_EQ(all["results"].size(), 2U);
    EXPECT_EQ(all["results"][0]["message"]["text"],
              "No policy uses host group 1 '{{0}} of \\u{{200b}}{{n}}'. Name it in a policy, or remove it.");
    EXPECT_EQ(all["results"][1]["message"]["text"],
              "The text holds \\u{{200b}}, which cannot be seen. Write it without.");
    EXPECT_EQ(
        runIn(run({"check", "--sarif", "{0}"}))["invocations"][0]["toolExecutionNotifications"][0]["message"]["text"],
        "{{0}}: No such file or directory");
}

TEST_F(CheckSarif, SaysThatTheRunSucceededThoughADocumentDoesNotLoad)
{
    const Outcome outcome = run({"check", "--sarif", "-"}, "<ipsec>\n<x>");
    EXPECT_EQ(outcome.status, 1);
    const Json all = runIn(outcome);
    EXPECT_EQ(all["results"][0]["ruleId"], "does-not-load");
    EXPECT_EQ(all["results"][0]["properties"].dump(), R"({"elements":["ipsec"]})");
    EXPECT_EQ(all["invocations"].dump(), R"([{"executionSuccessful":true,"toolExecutionNotifications":[]}])");
}

TEST_F(CheckSarif, HasElementsOnlyWhereADocumentDoesNotLoad)
{
    const Json all = runIn(run({"check", "--sarif", "-"}, WITH_ERRORS));
    for (const Json& result : all["results"])
        EXPECT_FALSE(result.contains("properties"));
    const std::string text =
        document("", entry("protocolGroup", 1,
                           group("protocolGroup", "n", "", "<protocolSelector><S3cret x='1'></protocolSelector>")));
    EXPECT_EQ(runIn(run({"check", "--sarif", "-"}, text))["results"][0]["properties"].dump(),
              R"({"elements":["ipsec","protocolGroups","protocolGroupEntry","protocolGroup","selectors",)"
              R"("protocolSelector",null]})");
}

TEST_F(CheckSarif, TellsWhereTheFirstEntryIsWithAnIDThatIsThereTwice)
{
    const std::string one  = entry("policy", 7, policy(1, 1, 1));
    const std::string text = document("", "", "", entry("policy", 3, policy(1, 1, 1)) + "\n" + one + "\n" + one);
    const Json        all  = runIn(run({"check", "--sarif", "-"}, text));
    EXPECT_EQ(all["results"][0]["relatedLocations"].dump(),
              R"([{"physicalLocation":{"artifactLocation":{"description":{"text":"standard input"}},)"
              R"("region":{"startLine":2,"startColumn":14,"endColumn":18}},)"
              R"("message":{"text":"The first entry with this ID."}}])");
    EXPECT_EQ(all["results"][0]["locations"][0]["physicalLocation"]["region"]["startLine"], 3);
    EXPECT_FALSE(runIn(run({"check", "--sarif", "-"}, "<ipsec>\n<x>"))["results"][0].contains("relatedLocations"));
}

TEST_F(CheckSarif, TellsHowManyFindingsAreLeftOut)
{
    const std::string text = document(entry("hostGroup", 1, group("hostGroup", "n", "", "")));
    EXPECT_EQ(runIn(run({"check", "--sarif", "-"}, text))["properties"].dump(), R"({"leftOut":0})");
    const Json json = Json::parse(run({"check", "--json", "--level=error", "-"}, text).out);
    EXPECT_GT(json["leftOut"], 0);
    const Json all = runIn(run({"check", "--sarif", "--level=error", "-"}, text));
    EXPECT_EQ(all["properties"]["leftOut"], json["leftOut"]);
}

TEST_F(CheckSarif, KeepsToTheLinesOfADocumentThatDoesNotLoad)
{
    for (const std::string text : {"<ipsec>", "<ipsec>\n", "<ipsec>\r\n\t<hostGroups>\n\n", "<ipsec>\n<actions>\n",
                                   "\xc3\xa4", "<ipsec>\n<!-- \xc3\xa4 -->", "<ipsec\n a='1'\n>", "\xff"}) {
        const Json all = runIn(run({"check", "--sarif", "-"}, text));
        ASSERT_EQ(all["results"].size(), 1U);
        EXPECT_TRUE(all["results"][0]["locations"][0]["physicalLocation"].contains("region"));
        EXPECT_NO_THROW(requireRegionsIn(text, all)) << text;
    }
}

TEST_F(CheckSarif, NeverTakesAFileNameForAScheme)
{
    write("c:policy.xml", "");
    const Json all = runIn(run({"check", "--sarif", "c:policy.xml"}));
    EXPECT_EQ(all["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"].dump(),
              R"({"uri":"c%3Apolicy.xml"})");
}

/// A log that nothing is wrong with, with a piece of it replaced.
std::string logWith(const std::string& piece, const std::string& other)
{
    std::string log =
        R"({"$schema":"https://x","version":"2.1.0","runs":[{"tool":{"driver":{"name":"x","rules":[{"id":"a",)"
        R"("defaultConfiguration":{"level":"note"}}]}},"columnKind":"unicodeCodePoints","results":[{)"
        R"("ruleId":"a","ruleIndex":0,"level":"note","message":{"text":"{{"},"locations":[{)"
        R"("physicalLocation":{"artifactLocation":{"uri":"a%20b"},"region":{"startLine":1,)"
        R"("startColumn":2,"endColumn":3}}}]}],"invocations":[{"executionSuccessful":true,)"
        R"("toolExecutionNotifications":[]}]}]})";
    log.replace(log.find(piece), piece.size(), other);
    return log;
}

TEST(SarifLog, IsRefusedWhereTheStandardDoes)
{
    EXPECT_NO_THROW(sarifRun(logWith("", "")));
    EXPECT_ANY_THROW(sarifRun("{}"));
    EXPECT_ANY_THROW(sarifRun(R"({"version":"2.1.0"})"));
    EXPECT_ANY_THROW(sarifRun(R"({"version":"2.1.0","runs":[{}]})"));
    const struct {
        const char* piece;
        const char* other;
    } FAULTS[] = {
        {R"("version":"2.1.0",)", ""},
        {"2.1.0", "2.0.0"},
        {R"("$schema":"https://x",)", R"("results":[],)"},
        {"https://x", "x"},
        {R"("name":"x",)", ""},
        {R"("name":"x")", R"("name":"")"},
        {R"("id":"a",)", ""},
        {R"({"id":"a")", R"({"id":"a","defaultConfiguration":{"level":"note"}},{"id":"a")"},
        {R"("ruleIndex":0)", R"("ruleIndex":1)"},
        {R"("ruleIndex":0)", R"("ruleIndex":-1)"},
        {R"("ruleId":"a")", R"("ruleId":"b")"},
        {R"("level":"note","message")", R"("level":"error","message")"},
        {R"("level":"note","message")", R"("level":"fatal","message")"},
        {R"("message":{"text":"{{"},)", ""},
        {R"({"text":"{{"})", R"({"text":""})"},
        {R"({"text":"{{"})", R"({"text":"{0}"})"},
        {R"({"text":"{{"})", R"({"text":"}"})"},
        {R"({"uri":"a%20b"})", "{}"},
        {"a%20b", "a b"},
        {"a%20b", "a%2"},
        {"a%20b", "c:a"},
        {"a%20b", "/a"},
        {"a%20b", "file://a"},
        {R"("startLine":1)", R"("startLine":0)"},
        {R"("startColumn":2)", R"("startColumn":0)"},
        {R"("startColumn":2)", R"("startColumn":4)"},
        {R"("endColumn":3)", R"("endColumn":3.5)"},
        {R"("endColumn":3)", R"("lastColumn":3)"},
        {R"("ruleId":"a",)", R"("ruleId":"a","properties":{"elements":"x"},)"},
        {R"("ruleId":"a",)", R"("ruleId":"a","properties":{"elements":[1]},)"},
        {"unicodeCodePoints", "bytes"},
        {R"("executionSuccessful":true,)", ""},
        {R"("executionSuccessful":true)", R"("executionSuccessful":false)"},
        {R"("runs":[{)", R"("runs":[{"tool":{"driver":{"name":"x"}}},{)"},
    };
    for (const auto& fault : FAULTS)
        EXPECT_ANY_THROW(sarifRun(logWith(fault.piece, fault.other))) << fault.piece << " -> " << fault.other;
}

TEST(SarifLog, HasNoRegionBeyondTheDocument)
{
    const Json log = sarifRun(logWith("", ""));
    EXPECT_NO_THROW(requireRegionsIn("ab", log));
    EXPECT_NO_THROW(requireRegionsIn("\xc3\xa4\xc3\xb6", log));
    EXPECT_ANY_THROW(requireRegionsIn("a", log));
    EXPECT_ANY_THROW(requireRegionsIn("", log));
    EXPECT_ANY_THROW(requireRegionsIn("\xc3\xa4", log));
}

} // namespace
