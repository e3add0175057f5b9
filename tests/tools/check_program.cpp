// For every code a document in which check finds it, from the file to the report.

#include "check_report.h"
#include "check_samples.h"
#include "program.h"
#include "rules.h"
#include "sarif_log.h"
#include "support/golden.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <sys/stat.h>

using testing::ElementsAreArray;
using testing::HasSubstr;

namespace {

/// A document in which there is a finding.
struct Finder {
    Finder(std::string text, mode_t fileMode = 0600)
        : document(std::move(text))
        , mode(fileMode)
    {
    }

    std::string document;
    mode_t      mode;       ///< of its file
    std::string algorithms; ///< the file of --algorithms; none if empty
};

std::string stored(ipsecimpl::IPsecConfig config)
{
    std::ostringstream out;
    config.exportXML(out);
    return out.str();
}

std::string discarding(const std::string& changeCount, const std::string& name)
{
    return document("", "",
                    "\n" + entry("action", 1,
                                 "<action>" + changeCount + name +
                                     "<builtinName>1</builtinName><descr></descr><builtinDescr>1</builtinDescr>"
                                     "<type>0</type><state>0</state><spdAction>DISCARD</spdAction></action>"));
}

std::string counting(const std::string& changeCount)
{
    return discarding("<changeCount>" + changeCount + "</changeCount>", "<name>a</name>");
}

std::string named(const std::string& element)
{
    return discarding("<changeCount>1</changeCount>", element);
}

std::string withSelectors(const std::string& selectors)
{
    return document("", "\n" + entry("protocolGroup", 1, group("protocolGroup", "g", "", selectors)));
}

std::string selector(const std::string& protocol, const std::string& port)
{
    return "\n<protocolSelector><protocol>" + protocol + "</protocol><name>n</name><dstPort>" + port +
           "</dstPort><direction>OUT</direction><mirrored>MIRRORED</mirrored></protocolSelector>";
}

const char WITH_KEY[] = "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK</authType>\n"
                        "<presharedKey> 8hGzR2p0Qx7mLw4TkV1n </presharedKey>\n<proposal><dhGroup>G14</dhGroup>"
                        "<keyLifetime>28800</keyLifetime><keyLifetimeUnits>SECS</keyLifetimeUnits>"
                        "<transform>IKE_AES_SHA</transform></proposal></ikePhase1>\n<ikePhase2><dhGroup>G14</dhGroup>"
                        "<keyLifetime>3600</keyLifetime><keyLifetimeUnits>SECS</keyLifetimeUnits><saProposal>"
                        "<protocol>ESP</protocol><encryption>12</encryption><hash>5</hash></saProposal></ikePhase2>";

/// What check finds in documents alone, or what cannot be stored.
std::map<std::string, Finder> ownFinders()
{
    const std::string keyed = document("", "", entry("action", 1, action("a", "", WITH_KEY)));
    return {
        {"does-not-load", {"<ipsec>\n<actions>"}},
        {"keys-readable-by-others", {keyed, 0604}},
        {"keys-readable-by-group", {keyed, 0640}},
        {"writable-by-others", {document(), 0606}},

        {"no-number", {counting("none")}},
        {"number-cut-short", {counting("1,000")}},
        {"negative-number", {withSelectors(selector("17", "-1"))}},
        {"number-too-large", {counting("99999999999")}},
        {"number-truncated", {withSelectors(selector("17", "65536"))}},
        {"octal-number", {counting("010")}},
        {"hexadecimal-number", {counting("0x10")}},
        {"number-spelling", {counting("+1")}},
        {"key-trimmed", {keyed}},
        {"white-space-trimmed", {named("<name>\ta\xc3\xa4 </name>")}},
        {"empty-attribute", {named("<name value/>")}},
        {"entity-kept", {named("<name>a&lt;b</name>")}},
        {"duplicate-selector", {withSelectors(selector("6", "80") + selector("6", "443") + selector("6", "80"))}},
        {"next-id-raised",
         {document("", "",
                   "<nextaction>1</nextaction>\n" +
                       entry("action", 7, action("a", "", "<spdAction>DISCARD</spdAction>")))}},
        {"next-id-repeated", {document("", "", "<nextaction>8</nextaction>\n<nextaction>8</nextaction>")}},

        {"markup-in-text", {named("<name value='a<b'/>")}},
        {"outer-white-space", {named("<name value=' a'/>")}},
        {"unnamed-selector",
         {withSelectors("<protocolSelector><protocol>0</protocol><direction>IN</direction><mirrored>MIRRORED</"
                        "mirrored></protocolSelector>")}},
    };
}

std::map<std::string, Finder> allFinders()
{
    std::map<std::string, Finder> finders = ownFinders();
    for (const Sample& sample : allSamples())
        finders.emplace(sample.code, stored(sample.with)).first->second.algorithms = sample.algorithms;
    return finders;
}

class CheckProgram : public InFolder {
  protected:
    static Outcome check(const Finder& finder, const std::string& option)
    {
        writeFile("policy.xml", finder.document);
        EXPECT_EQ(chmod("policy.xml", finder.mode), 0);
        std::vector<std::string> arguments = {"check", "policy.xml", option};
        if (!finder.algorithms.empty()) {
            writeFile("algorithms.json", finder.algorithms);
            arguments.insert(arguments.end(), {"--algorithms", "algorithms.json"});
        }
        return run(arguments);
    }
};

TEST_F(CheckProgram, ReportsEveryFinding)
{
    for (const auto& [code, finder] : allFinders()) {
        const Outcome outcome = check(finder, "--strict");
        EXPECT_EQ(outcome.err, "") << code;
        EXPECT_EQ(outcome.status, 1) << code;
        EXPECT_THAT(outcome.out, HasSubstr(": " + std::string(wordOf(findRule(code).level)) + ": " + code)) << code;
        expectGolden("check/" + code + ".txt", outcome.out);
    }
}

TEST_F(CheckProgram, ReportsTheSameToScripts)
{
    for (const auto& [code, finder] : allFinders()) {
        EXPECT_THAT(check(finder, "--json").out, HasSubstr("\"code\": \"" + code + "\"")) << code;
        const Json sarif = sarifRun(check(finder, "--sarif").out);
        EXPECT_THAT(sarif["results"].dump(), HasSubstr("\"ruleId\":\"" + code + "\"")) << code;
        requireRegionsIn(finder.document, sarif);
    }
}

TEST_F(CheckProgram, HasADocumentForEachCode)
{
    std::set<std::string> expected;
    for (const Rule* const rule : allRules())
        expected.insert(rule->code);
    // Where the folders of the tests stand is not for them to say, and nobody knows how a value could change otherwise.
    expected.erase("folder-writable-by-others");
    expected.erase("value-changed");

    std::set<std::string> found;
    for (const auto& [code, finder] : allFinders())
        found.insert(code);
    EXPECT_THAT(found, ElementsAreArray(expected));
}

} // namespace
