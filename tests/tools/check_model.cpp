#include "check_model.h"

#include "check_samples.h"
#include "program.h"

#include "support/xml.h"

#include <gmock/gmock.h>

#include <regex>
#include <set>
#include <sstream>

using namespace ipsecimpl;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

TEST(CheckModel, FindsWhatASampleHas)
{
    for (const Sample& sample : allSamples())
        EXPECT_EQ(textsOf(findingsIn(sample.with, sample.algorithms), sample.code), sample.findings) << sample.code;
}

TEST(CheckModel, FindsNothingInWhatJustMissesIt)
{
    for (const Sample& sample : allSamples())
        EXPECT_THAT(textsOf(findingsIn(sample.without, sample.algorithms), sample.code), IsEmpty()) << sample.code;
}

TEST(CheckModel, HasASampleForEachRule)
{
    std::set<std::string> found;
    for (const Sample& sample : allSamples())
        for (const Finding& finding : findingsIn(sample.with, sample.algorithms))
            if (sample.code == std::string(finding.rule->code))
                found.insert(sample.code);
    std::set<std::string> known;
    for (const Rule* rule : modelRules())
        known.insert(rule->code);
    EXPECT_EQ(found, known);
}

TEST(CheckModel, FindsNothingInAPlainConfiguration)
{
    EXPECT_THAT(textsOf(findingsIn(plain()), ""), IsEmpty());
    EXPECT_THAT(textsOf(findingsIn(IPsecConfig()), ""), IsEmpty());
}

TEST(CheckModel, FindsOnlyWhatTheFormatForcesInAGoodKeyExchange)
{
    EXPECT_THAT(textsOf(findingsIn(having(transport(KEYMGR_IKE))), ""),
                ElementsAre("ike-sha1 actions/1/ikePhase1/proposal/transform/1: SHA1 is on its way out, but the best "
                            "that this format has. Nothing to do.",
                            "ike-version-1 Actions exchange keys by IKE version 1, which is historic. Plan to move to "
                            "version 2."));
}

TEST(CheckModel, FindsOnlyThemselvesInGoodManualKeys)
{
    EXPECT_THAT(textsOf(findingsIn(having(transport(KEYMGR_MKM))), ""),
                ElementsAre("manual-keying actions/1/manualKey: Manual keys are never renewed, and replay is not "
                            "detected. Use IKE if the peer can."));
}

TEST(CheckModel, FindsNoErrorAndNoWarningInTheStarterConfiguration)
{
    for (const Finding& finding : findingsIn(read<IPsecConfig>(run({"new"}).out)))
        EXPECT_EQ(finding.rule->level, Level::NOTE) << textOf(finding);
}

TEST(CheckModel, LooksAtNothingThatIsNotInForce)
{
    IPsecAction bad = manual([](MKM& key) {
        key                 = MKM();
        key.inboundESPSPI   = 1;
        key.inboundDecrKey  = "<";
        key.outboundEncrKey = "<";
        key.outboundEncrIV  = "<";
    });
    bad.keyMgrSet(KEYMGR_IKE);
    bad.ikePhase1Set(IKEPhase1(IKE_AUTH_PSK, "<", "<", "<", IKEPhase1Proposal({}, DH_GROUP_1, 0, KEYLIFETIME_SECS)));
    bad.ikePhase2Set(IKEPhase2({}, DH_GROUP_1, 0, KEYLIFETIME_SECS));
    bad.spdActionSet(SPD_TUNNEL);
    bad.tunnelEndpointSet("<");
    for (const IPsecKeyMgr& keyMgr : {KEYMGR_NONE, KEYMGR_MKM, KEYMGR_IKE}) {
        bad.keyMgrSet(keyMgr);
        bad.spdActionSet(SPD_BYPASS);
        EXPECT_THAT(textsOf(findingsIn(having(bad)), ""), IsEmpty());
        bad.spdActionSet(SPD_TUNNEL);
        EXPECT_THAT(textsOf(findingsIn(having(bad)), ""), Not(IsEmpty()));
    }
}

TEST(CheckModel, LeavesFindingsOfOthersInPlace)
{
    const Rule other = {"other", Level::NOTE, "", "", ""};
    Findings   findings(1); // field by field: of a whole one g++ 12 says that it may be uninitialised
    findings[0].rule    = &other;
    findings[0].path    = ObjectPath{Kind::POLICY, 7, "x"};
    findings[0].message = "y";
    checkModel(having(transport(KEYMGR_NONE)), nullptr, findings);
    EXPECT_THAT(textsOf(findings, ""),
                ElementsAre("other policies/7/x: y", "no-key-manager actions/1/keyMgr: TRANSPORT needs keys, but "
                                                     "nothing makes them. Write IKE."));
}

TEST(CheckModel, CutsLongNamesShort)
{
    IPsecConfig config = plain();
    config.actions.add(IPsecAction(SPD_BYPASS, std::string(100000, 'n'), 0, "", 0, KEYMGR_NONE));
    EXPECT_THAT(textsOf(findingsIn(config), ""),
                ElementsAre("unused-action actions/2: No policy uses action 2 '" + std::string(57, 'n') +
                            "...'. Name it in a policy, or remove it."));
}

/// The keys, pre-shared keys and initialisation vectors of a configuration, those long enough not to be a word.
std::vector<std::string> secretsOf(const IPsecConfig& config)
{
    std::vector<std::string> secrets;
    for (const auto& [id, action] : config.actions) {
        const bool hasKeys = action.spdActionGet() == SPD_TRANSPORT || action.spdActionGet() == SPD_TUNNEL;
        if (hasKeys && action.keyMgrGet() == KEYMGR_IKE && action.ikePhase1Get().authTypeGet() == IKE_AUTH_PSK)
            secrets.push_back(action.ikePhase1Get().presharedKeyGet());
        if (hasKeys && action.keyMgrGet() == KEYMGR_MKM) {
            const MKM& key = action.manualKeyGet();
            for (const std::string* text : {&key.inboundDecrKey, &key.outboundEncrKey, &key.inboundAuthKey,
                                            &key.outboundAuthKey, &key.outboundEncrIV})
                secrets.push_back(*text);
        }
    }
    secrets.erase(std::remove_if(secrets.begin(), secrets.end(), [](const auto& text) { return text.size() < 4; }),
                  secrets.end());
    return secrets;
}

TEST(CheckModel, NeverTellsAPieceOfAKey)
{
    std::size_t looks = 0;
    for (const Sample& sample : allSamples())
        for (const std::string& secret : secretsOf(sample.with)) {
            const std::string piece = secret.substr(0, 6);
            EXPECT_THAT(textsOf(findingsIn(sample.with, sample.algorithms), ""), Each(Not(HasSubstr(piece))));
            ++looks;
        }
    EXPECT_GT(looks, 100U);
}

TEST(ModelRules, HaveCodesOfTheirOwnInLowerCaseWithDashes)
{
    std::set<std::string> codes;
    for (const Rule* rule : modelRules()) {
        EXPECT_TRUE(std::regex_match(rule->code, std::regex("[a-z][a-z0-9]*(-[a-z0-9]+)*"))) << rule->code;
        EXPECT_TRUE(codes.insert(rule->code).second) << rule->code;
    }
}

TEST(ModelRules, HaveASummaryOfOneLineWithoutFullStop)
{
    for (const Rule* rule : modelRules())
        EXPECT_TRUE(std::regex_match(rule->summary, std::regex("[A-Z][^\n]{9,77}[^.\n]"))) << rule->code;
}

TEST(ModelRules, HaveAnExplanationInFullLines)
{
    for (const Rule* rule : modelRules()) {
        std::istringstream lines(rule->explanation);
        std::size_t        count = 0;
        for (std::string line; std::getline(lines, line); ++count)
            EXPECT_TRUE(std::regex_match(line, std::regex("\\S.{0,78}\\S"))) << rule->code << ": " << line;
        EXPECT_GE(count, 2U) << rule->code;
        EXPECT_EQ(std::string(rule->explanation).back(), '.') << rule->code;
    }
}

TEST(ModelRules, ReferToSectionsOfRFCs)
{
    const std::string one = "RFC [0-9]{3,4} sections? [0-9.]*[0-9]( and [0-9.]*[0-9])?";
    const std::regex  form('(' + one + "( and " + one + ")?)?");
    for (const Rule* rule : modelRules())
        EXPECT_TRUE(std::regex_match(rule->reference, form)) << rule->code << ": " << rule->reference;
}

} // namespace
