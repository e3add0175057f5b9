#include "actions/action_documents.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

namespace ipsecimpl {
namespace {

TEST(IPsecActionDocument, IsRefusedForUnknownWords)
{
    for (const char* spdAction : {"NONE", "BYPASS", "DISCARD"})
        expectWordsChecked<IPsecAction>(document(spdAction, ""), "spdAction", "bad value '",
                                        "' for <spdAction> in <action>",
                                        {"tunnel", "Tunnel", "4", "IPSEC", "SPD_TUNNEL", "MKM", "DROP"});
    const std::string tunnel = document("TUNNEL", ENDPOINT + keyMgr("MKM") + KEY_DOCUMENT);
    expectWordsChecked<IPsecAction>(tunnel, "spdAction", "bad value '", "' for <spdAction> in <action>", {"tunnel"});
    expectWordsChecked<IPsecAction>(tunnel, "keyMgr", "bad value '", "' for <keyMgr> in <action>",
                                    {"mkm", "ike", "none", "1", "BYPASS", "KEYMGR_MKM", "IKE_NONE"});
    expectWordsChecked<IPsecAction>(document("TRANSPORT", keyMgr("NONE")), "keyMgr", "bad value '",
                                    "' for <keyMgr> in <action>", {"TRANSPORT"});
}

TEST(IPsecActionDocument, IsRefusedInAnotherFrame)
{
    for (const std::string& shape : {shapes()[0], shapes()[3], shapes()[8], shapes()[9]})
        expectFrameChecked<IPsecAction>(shape, "action");
}

TEST(IPsecActionDocument, IsRefusedWithMissingDoubledAndMisplacedLeaves)
{
    std::vector<std::string> tags = HEAD_TAGS;
    expectLeavesChecked<IPsecAction>(document("NONE", ""), "action", tags);
    tags.push_back("keyMgr");
    expectLeavesChecked<IPsecAction>(document("TRANSPORT", keyMgr("NONE")), "action", tags);
    tags.insert(tags.end() - 1, "tunnelEndpoint");
    expectLeavesChecked<IPsecAction>(document("TUNNEL", ENDPOINT + keyMgr("NONE")), "action", tags);
}

TEST(IPsecActionDocument, IsRefusedWithWhatIsNotInForce)
{
    const std::string from  = "\nfrom <action>";
    const auto        wrong = [&from](const std::string& wanted, const std::string& found) {
        return "wrong tag; expected <" + wanted + ">, found <" + found + ">\nfrom <" + found + ">" + from;
    };
    const std::string leafMissing = "parse_tagged_value: missing tag; expected ";
    const std::string missing     = "parse_simple_tag: missing tag; expected ";
    const std::string leafWrong = "parse_tagged_value: ", elementWrong = "parse_simple_tag: ";

    // clang-format off
    expectRefused<IPsecAction>({
        {document("NONE",      keyMgr("NONE")),             "parse_end_tag: expected '/', got 'k'" + from},
        {document("BYPASS",    keyMgr("IKE")),              "parse_end_tag: expected '/', got 'k'" + from},
        {document("DISCARD",   ENDPOINT),                   "parse_end_tag: expected '/', got 't'" + from},
        {document("BYPASS",    KEY_DOCUMENT),               "parse_end_tag: expected '/', got 'm'" + from},
        {document("DISCARD",   PSK_DOCUMENT),               "parse_end_tag: expected '/', got 'i'" + from},
        {document("DISCARD",   leaf("spdAction", "NONE")),  "parse_end_tag: expected '/', got 's'" + from},
        {document("TRANSPORT", ""),                         leafMissing + "<keyMgr>" + from},
        {document("TRANSPORT", ENDPOINT + keyMgr("NONE")),  leafWrong + wrong("keyMgr", "tunnelEndpoint")},
        {document("TRANSPORT", KEY_DOCUMENT),               leafWrong + wrong("keyMgr", "manualKey")},
        {document("TUNNEL",    ""),                         leafMissing + "<tunnelEndpoint>" + from},
        {document("TUNNEL",    keyMgr("NONE")),             leafWrong + wrong("tunnelEndpoint", "keyMgr")},
        {document("TUNNEL",    keyMgr("NONE") + ENDPOINT),  leafWrong + wrong("tunnelEndpoint", "keyMgr")},
        {document("TUNNEL",    ENDPOINT),                   leafMissing + "<keyMgr>" + from},
        {document("TRANSPORT", keyMgr("NONE") + KEY_DOCUMENT),   "parse_end_tag: expected '/', got 'm'" + from},
        {document("TRANSPORT", keyMgr("NONE") + PSK_DOCUMENT),   "parse_end_tag: expected '/', got 'i'" + from},
        {document("TRANSPORT", keyMgr("MKM")),                   missing + "<manualKey>" + from},
        {document("TRANSPORT", keyMgr("MKM") + "x"),             "parse_tag: expected '<', found 'x'" + from},
        {document("TRANSPORT", keyMgr("MKM") + PSK_DOCUMENT),    elementWrong + wrong("manualKey", "ikePhase1")},
        {document("TRANSPORT", keyMgr("MKM") + KEY_DOCUMENT + KEY_DOCUMENT),
                                                            "parse_end_tag: expected '/', got 'm'" + from},
        {document("TRANSPORT", keyMgr("IKE")),                   missing + "<ikePhase1>" + from},
        {document("TRANSPORT", keyMgr("IKE") + KEY_DOCUMENT),    elementWrong + wrong("ikePhase1", "manualKey")},
        {document("TRANSPORT", keyMgr("IKE") + PHASE2_DOCUMENT), elementWrong + wrong("ikePhase1", "ikePhase2")},
        {document("TRANSPORT", keyMgr("IKE") + PSK_DOCUMENT),    missing + "<ikePhase2>" + from},
        {document("TRANSPORT", keyMgr("IKE") + PSK_DOCUMENT + PSK_DOCUMENT),
                                                            elementWrong + wrong("ikePhase2", "ikePhase1")},
        {document("TRANSPORT", keyMgr("IKE") + PSK_DOCUMENT + PHASE2_DOCUMENT + PHASE2_DOCUMENT),
                                                            "parse_end_tag: expected '/', got 'i'" + from},
        {document("TRANSPORT", keyMgr("MKM") + "<manualKey/>"), missing + "<saProposal>" + from},
        {document("TRANSPORT", keyMgr("IKE") + "<ikePhase1/>"), leafMissing + "<authType>" + from},
        {document("TRANSPORT", keyMgr("IKE") + PSK_DOCUMENT + "<ikePhase2/>"), leafMissing + "<dhGroup>" + from},
    });
    // clang-format on
}

TEST(IPsecActionDocument, IsRefusedWithTheMessagesOfItsElements)
{
    const std::string from = "\nfrom <action>";
    // clang-format off
    expectRefused<IPsecAction>(document("TUNNEL", ENDPOINT + keyMgr("MKM") + KEY_DOCUMENT), {
        {">ESP+AH<", ">esp<", "invalid value 'esp' for <protocol> in <saProposal>"},
        {"<hash>3</hash>", "", "parse_tagged_value: missing tag; expected <hash>\nfrom <saProposal>\n"
                               "from <manualKey>" + from},
        {"</manualKey>", "", "parse_end_tag: begin/end tags don't match\nfrom <manualKey>" + from},
    });
    expectRefused<IPsecAction>(document("TRANSPORT", keyMgr("IKE") + RSA_DOCUMENT + PHASE2_DOCUMENT), {
        {">RSA<",  ">rsa<",  "invalid value 'rsa' for <auth> in <ikePhase1>"},
        {">G14<",  ">G3<",   "invalid value 'G3' for <dhGroup> in <ikePhase1Proposal>"},
        {">MINS<", ">min<",  "invalid value 'min' for <keyLifetimeUnits> in <ikePhase1Proposal>"},
        {">IKE_AES_SHA<", "><", "invalid value '' for <transform> in <ikePhase1Proposal>"},
        {">G2<",   ">G3<",   "invalid value 'G3' for <dhGroup> in <ikePhase2>"},
        {">HRS<",  ">hrs<",  "invalid value 'hrs' for <keyLifetimeUnits> in <ikePhase2>"},
        {">AH<",   ">ah<",   "invalid value 'ah' for <protocol> in <saProposal>"},
        {"<transform>IKE_AES_SHA</transform>", "<x/>",
         "parse_tagged_value: wrong tag; expected <transform>, found <x>\n"
         "from <x>\nfrom <proposal>\nfrom <ikePhase1>" + from},
        {"</ikePhase2>", "", "parse_end_tag: begin/end tags don't match\nfrom <ikePhase2>" + from},
    });
    // clang-format on
}

TEST(IPsecActionDocument, LeavesTheTargetOfARefusedReadAsItWas)
{
    IPsecAction       action = read<IPsecAction>(shapes().back());
    const std::string before = everythingOf(action);
    EXPECT_EQ(errorOf([&] { action = read<IPsecAction>(document("tunnel", "")); }),
              "bad value 'tunnel' for <spdAction> in <action>");
    EXPECT_EQ(everythingOf(action), before);
}

} // namespace
} // namespace ipsecimpl
