#include "actions/action_documents.h"
#include "support/number_forms.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <ios>
#include <sstream>

namespace ipsecimpl {
namespace {

/// The element of an action that no setter has touched, with everything but its mode made available.
std::string writtenAs(const SPDAction& spdAction, const IPsecKeyMgr& manager)
{
    IPsecAction action(SPD_TUNNEL, "name", 0, "descr", 0, KEYMGR_MKM);
    action.tunnelEndpointSet("192.0.2.1");
    action.manualKeySet(sampleKey());
    action.keyMgrSet(KEYMGR_IKE);
    action.ikePhase1Set(samplePhase1(IKE_AUTH_PSK));
    action.ikePhase2Set(samplePhase2());
    action.keyMgrSet(manager);
    action.spdActionSet(spdAction);
    const std::string all  = written(action);
    const std::string line = leafIn(all, "spdAction") + "\n";
    return all.substr(all.find(line));
}

TEST(IPsecActionDocument, HoldsWhatIsInForceForItsSPDActionAndKeyManagerAlone)
{
    const std::string ike = PSK_DOCUMENT + PHASE2_DOCUMENT, end = "</action>\n";
    for (const IPsecKeyMgr& any : {KEYMGR_NONE, KEYMGR_MKM, KEYMGR_IKE}) {
        EXPECT_EQ(writtenAs(SPD_NONE, any), leaf("spdAction", "NONE") + "\n" + end);
        EXPECT_EQ(writtenAs(SPD_BYPASS, any), leaf("spdAction", "BYPASS") + "\n" + end);
        EXPECT_EQ(writtenAs(SPD_DISCARD, any), leaf("spdAction", "DISCARD") + "\n" + end);
    }
    const std::string transport = leaf("spdAction", "TRANSPORT") + "\n";
    EXPECT_EQ(writtenAs(SPD_TRANSPORT, KEYMGR_NONE), transport + keyMgr("NONE") + end);
    EXPECT_EQ(writtenAs(SPD_TRANSPORT, KEYMGR_MKM), transport + keyMgr("MKM") + KEY_DOCUMENT + end);
    EXPECT_EQ(writtenAs(SPD_TRANSPORT, KEYMGR_IKE), transport + keyMgr("IKE") + ike + end);
    const std::string tunnel = leaf("spdAction", "TUNNEL") + "\n" + ENDPOINT;
    EXPECT_EQ(writtenAs(SPD_TUNNEL, KEYMGR_NONE), tunnel + keyMgr("NONE") + end);
    EXPECT_EQ(writtenAs(SPD_TUNNEL, KEYMGR_MKM), tunnel + keyMgr("MKM") + KEY_DOCUMENT + end);
    EXPECT_EQ(writtenAs(SPD_TUNNEL, KEYMGR_IKE), tunnel + keyMgr("IKE") + ike + end);
}

TEST(IPsecActionDocument, IsTheSameWhenReadAndWrittenAgainInEveryShape)
{
    for (const std::string& shape : shapes())
        EXPECT_EQ(rewritten<IPsecAction>(shape), shape);
}

TEST(IPsecActionDocument, IsReadIntoTheFieldsItNames)
{
    const IPsecAction action = read<IPsecAction>(document("TUNNEL", ENDPOINT + keyMgr("MKM") + KEY_DOCUMENT));
    EXPECT_EQ(action.changeCountGet(), 1);
    EXPECT_EQ(action.nameGet(), "name");
    EXPECT_EQ(action.descrGet(), "descr");
    EXPECT_TRUE(action.isBuiltIn());
    EXPECT_EQ(action.spdActionGet(), SPD_TUNNEL);
    EXPECT_EQ(action.tunnelEndpointGet(), "192.0.2.1");
    EXPECT_EQ(action.keyMgrGet(), KEYMGR_MKM);
    EXPECT_EQ(everythingOf(action.manualKeyGet()), everythingOf(sampleKey()));
}

TEST(IPsecActionDocument, LeavesWhatItDoesNotHoldAtTheDefault)
{
    for (const char* spdAction : {"NONE", "BYPASS", "DISCARD"}) {
        std::string plain = document(spdAction, "");
        for (const char* tag : {"changeCount", "builtinName", "builtinDescr", "type", "state"})
            plain = withText(plain, tag, "0");
        EXPECT_EQ(everythingOf(read<IPsecAction>(plain)),
                  everythingOf(IPsecAction(SPDAction::to_int(spdAction), "name", 0, "descr", 0, KEYMGR_NONE)));
    }
}

TEST(IPsecActionDocument, IsReadPastTheRulesOfBuiltInActions)
{
    const IPsecAction action = read<IPsecAction>(document("TRANSPORT", keyMgr("IKE") + RSA_DOCUMENT + PHASE2_DOCUMENT));
    EXPECT_TRUE(action.isBuiltIn());
    EXPECT_EQ(action.spdActionGet(), SPD_TRANSPORT);
    EXPECT_EQ(action.changeCountGet(), 1);
}

TEST(IPsecActionDocument, MakesAnActionBuiltInByEitherNumberAboveZero)
{
    const auto builtIn = [](const std::string& name, const std::string& descr) {
        return read<IPsecAction>(withText(withText(document("NONE", ""), "builtinName", name), "builtinDescr", descr))
            .isBuiltIn();
    };
    EXPECT_FALSE(builtIn("0", "0"));
    EXPECT_FALSE(builtIn("-1", "0"));
    EXPECT_FALSE(builtIn("-4294967295", "none"));
    EXPECT_TRUE(builtIn("1", "0"));
    EXPECT_TRUE(builtIn("0", "1"));
    EXPECT_TRUE(builtIn("-1", "0x1"));
    EXPECT_TRUE(builtIn("4294967296", "0"));
}

TEST(IPsecActionDocument, IsWrittenLineByLine)
{
    for (const std::string& shape : shapes())
        expectWrittenByLines(read<IPsecAction>(shape));
}

TEST(IPsecActionDocument, ShowsItsNumbersAsTheStreamsFlagsSay)
{
    const IPsecAction  action = read<IPsecAction>(withText(document("NONE", ""), "type", "255"));
    std::ostringstream out;
    out << std::hex << std::showbase;
    action.exportXML(out);
    EXPECT_EQ(textIn(out.str(), "type"), "0xff");
    EXPECT_EQ(out.flags() & std::ios::basefield, std::ios::hex);
    EXPECT_EQ(rewritten<IPsecAction>(out.str()), written(action));
}

TEST(IPsecActionDocument, MayHoldItsNumbersInEveryForm)
{
    for (const char* tag : {"changeCount", "builtinName", "builtinDescr", "type", "state"})
        expectNumberForms<IPsecAction>(document("NONE", ""), tag, Sign::Signed);
    EXPECT_EQ(read<IPsecAction>(withText(document("NONE", ""), "changeCount", "-0x10")).changeCountGet(), -16);
}

TEST(IPsecActionDocument, MayHoldItsLeavesInEveryForm)
{
    std::vector<std::string> tags = HEAD_TAGS;
    expectLeafForms<IPsecAction>(document("BYPASS", ""), tags);
    tags.insert(tags.end(), {"tunnelEndpoint", "keyMgr"});
    expectLeafForms<IPsecAction>(document("TUNNEL", ENDPOINT + keyMgr("NONE")), tags);
}

TEST(IPsecActionDocument, HoldsTextsUnescapedAlthoughNotAllComeBack)
{
    IPsecAction action(SPD_NONE, " a & \"b\" ", 0, "a<b", 0, KEYMGR_NONE);
    EXPECT_EQ(leafIn(written(action), "name"), "<name> a & \"b\" </name>");
    EXPECT_EQ(leafIn(written(action), "descr"), "<descr>a<b</descr>");
    EXPECT_EQ(refusalOf<IPsecAction>(written(action)),
              "parse_end_tag: expected '/', got 'b'\nfrom <descr>\nfrom <action>");

    action.descrSet("two\n lines");
    const IPsecAction again = read<IPsecAction>(written(action));
    EXPECT_EQ(again.nameGet(), "a & \"b\"");
    EXPECT_EQ(again.descrGet(), "two\n lines");
}

TEST(IPsecActionDocument, MayHoldTextsAsAttributesThatKeepBlanksAndMarkup)
{
    for (const char* tag : {"name", "descr", "tunnelEndpoint"}) {
        const std::string whole = document("TUNNEL", ENDPOINT + keyMgr("NONE"));
        const std::string line  = leafIn(whole, tag);
        const std::string as    = "<" + std::string(tag);
        EXPECT_EQ(rewritten<IPsecAction>(changed(whole, line, as + " value=' a<b>\"&lt; '/>")),
                  withText(whole, tag, " a<b>\"&lt; "));
        EXPECT_EQ(rewritten<IPsecAction>(changed(whole, line, as + "/>")), withText(whole, tag, ""));
    }
}

TEST(IPsecActionDocument, IsReadNoFurtherThanItsEnd)
{
    for (const std::string& shape : shapes())
        expectReadNoFurther<IPsecAction>(shape);
}

} // namespace
} // namespace ipsecimpl
