#include "support/documents.h"
#include "actions/samples.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <functional>

namespace ipsecimpl {
namespace {

const std::string PSK_MESSAGE   = "presharedKey is only valid for IKE_AUTH_PSK";
const std::string CERT_MESSAGE  = "localCert is only valid for IKE_AUTH_RSA";
const std::string TRUST_MESSAGE = "peerTrust is only valid for IKE_AUTH_RSA";

struct Credential {
    IKEAuthType                                                            authType;
    std::string                                                            message;
    std::string                                                            sample;
    std::function<const std::string&(const IKEPhase1&)>                    get;
    std::function<const std::string&(IKEPhase1&, const std::string& text)> set;
};

// clang-format off
const std::vector<Credential>& credentials()
{
    static const std::vector<Credential> all = {
        {IKE_AUTH_PSK, PSK_MESSAGE,   "secret",   &IKEPhase1::presharedKeyGet, &IKEPhase1::presharedKeySet},
        {IKE_AUTH_RSA, CERT_MESSAGE,  "own.pem",  &IKEPhase1::localCertGet,    &IKEPhase1::localCertSet},
        {IKE_AUTH_RSA, TRUST_MESSAGE, "root.pem", &IKEPhase1::peerTrustGet,    &IKEPhase1::peerTrustSet},
    };
    return all;
}
// clang-format on

IKEAuthType otherThan(const IKEAuthType& authType)
{
    return authType == IKE_AUTH_PSK ? IKE_AUTH_RSA : IKE_AUTH_PSK;
}

TEST(IKEPhase1, KeepsAllCredentialsItIsMadeFromWhateverItsType)
{
    for (const IKEAuthType& authType : {IKE_AUTH_PSK, IKE_AUTH_RSA}) {
        IKEPhase1 phase1 = samplePhase1(authType);
        EXPECT_EQ(phase1.authTypeGet(), authType);
        EXPECT_EQ(written(phase1.proposalGet()), PROPOSAL_DOCUMENT);
        for (const Credential& credential : credentials()) {
            phase1.authTypeSet(credential.authType);
            EXPECT_EQ(credential.get(phase1), credential.sample);
        }
    }
}

TEST(IKEPhase1, GivesTheCredentialsOfItsTypeAlone)
{
    for (const Credential& credential : credentials()) {
        EXPECT_EQ(credential.get(samplePhase1(credential.authType)), credential.sample);

        const IKEPhase1   phase1 = samplePhase1(otherThan(credential.authType));
        const std::string before = everythingOf(phase1);
        EXPECT_EQ(errorOf<std::invalid_argument>([&] { credential.get(phase1); }), credential.message);
        EXPECT_EQ(everythingOf(phase1), before);
    }
}

TEST(IKEPhase1, TakesTheCredentialsOfItsTypeAlone)
{
    for (const Credential& credential : credentials()) {
        IKEPhase1         allowed  = samplePhase1(credential.authType);
        const std::string expected = changed(written(allowed), credential.sample, "new");
        EXPECT_EQ(&credential.set(allowed, "new"), &credential.get(allowed));
        EXPECT_EQ(credential.get(allowed), "new");
        EXPECT_EQ(written(allowed), expected);

        IKEPhase1         refusing = samplePhase1(otherThan(credential.authType));
        const std::string before   = everythingOf(refusing);
        EXPECT_EQ(errorOf<std::invalid_argument>([&] { credential.set(refusing, "new"); }), credential.message);
        EXPECT_EQ(everythingOf(refusing), before);
        EXPECT_EQ(refusing.authTypeGet(), otherThan(credential.authType));
    }
}

TEST(IKEPhase1, StoresCredentialsAsGiven)
{
    using namespace std::string_literals;
    for (const std::string& text : {""s, " a "s, "\n"s, "a<b>&amp;\"'"s, "\0x"s, "\xFF\x80"s, std::string(100000, 'k')})
        for (const Credential& credential : credentials()) {
            IKEPhase1 phase1 = samplePhase1(credential.authType);
            EXPECT_EQ(credential.set(phase1, text), text);
            EXPECT_EQ(credential.get(phase1), text);
            EXPECT_EQ(credential.set(phase1, credential.get(phase1)), text) << "its own text";
        }
}

TEST(IKEPhase1, KeepsThePresharedKeyWhileItsTypeIsAnother)
{
    IKEPhase1 phase1(IKE_AUTH_PSK, "", "", "secret", sampleProposal());
    EXPECT_EQ(&phase1.authTypeSet(IKE_AUTH_RSA), &phase1.authTypeGet());
    EXPECT_EQ(errorOf<std::invalid_argument>([&] { phase1.presharedKeyGet(); }), PSK_MESSAGE);
    EXPECT_EQ(phase1.localCertGet(), "");
    EXPECT_EQ(phase1.authTypeSet(IKE_AUTH_PSK), IKE_AUTH_PSK);
    EXPECT_EQ(phase1.presharedKeyGet(), "secret");
}

TEST(IKEPhase1, TakesAnyProposalUnderEitherType)
{
    const IKEPhase1Proposal other({}, DH_GROUP_NONE, 0, KEYLIFETIME_KB);
    for (const IKEAuthType& authType : {IKE_AUTH_PSK, IKE_AUTH_RSA}) {
        IKEPhase1 phase1 = samplePhase1(authType);
        EXPECT_EQ(&phase1.proposalSet(other), &phase1.proposalGet());
        EXPECT_EQ(everythingOf(phase1), everythingOf(IKEPhase1(authType, "own.pem", "root.pem", "secret", other)));
    }
}

TEST(IKEPhase1, TakesItsOwnProposal)
{
    IKEPhase1 phase1 = samplePhase1(IKE_AUTH_PSK);
    phase1.proposalSet(phase1.proposalGet());
    EXPECT_EQ(written(phase1), PSK_DOCUMENT);
}

TEST(IKEPhase1, IsWrittenWithTheCredentialsOfItsTypeAlone)
{
    EXPECT_EQ(written(samplePhase1(IKE_AUTH_PSK)), PSK_DOCUMENT);
    EXPECT_EQ(written(samplePhase1(IKE_AUTH_RSA)), RSA_DOCUMENT);
}

TEST(IKEPhase1, IsWrittenLineByLine)
{
    expectWrittenByLines(samplePhase1(IKE_AUTH_PSK));
    expectWrittenByLines(samplePhase1(IKE_AUTH_RSA));
}

TEST(IKEPhase1, WritesWhatItHasRead)
{
    for (const std::string& document : {PSK_DOCUMENT, RSA_DOCUMENT, withText(PSK_DOCUMENT, "presharedKey", ""),
                                        withText(withText(RSA_DOCUMENT, "localCert", ""), "peerTrust", "")})
        EXPECT_EQ(rewritten<IKEPhase1>(document), document);
}

TEST(IKEPhase1, ReadsTheCredentialsOfItsTypeAndLeavesTheOthersEmpty)
{
    EXPECT_EQ(everythingOf(read<IKEPhase1>(PSK_DOCUMENT)),
              everythingOf(IKEPhase1(IKE_AUTH_PSK, "", "", "secret", sampleProposal())));
    EXPECT_EQ(everythingOf(read<IKEPhase1>(RSA_DOCUMENT)),
              everythingOf(IKEPhase1(IKE_AUTH_RSA, "own.pem", "root.pem", "", sampleProposal())));
}

TEST(IKEPhase1, ReadsTextsAsTheParserGivesThem)
{
    const auto key = [](const std::string& text) {
        return read<IKEPhase1>(withText(PSK_DOCUMENT, "presharedKey", text)).presharedKeyGet();
    };
    EXPECT_EQ(key("  two \n words  "), "two \n words");
    EXPECT_EQ(key("&lt;&#65;'\">"), "&lt;&#65;'\">");
    EXPECT_EQ(
        read<IKEPhase1>(changed(PSK_DOCUMENT, "<presharedKey>secret</presharedKey>", "<presharedKey value=' a<b '/>"))
            .presharedKeyGet(),
        " a<b ");
}

TEST(IKEPhase1, WritesTextsUnescapedAlthoughTheyDoNotComeBack)
{
    IKEPhase1 phase1 = samplePhase1(IKE_AUTH_PSK);
    phase1.presharedKeySet(" a<b&");
    const std::string document = withText(PSK_DOCUMENT, "presharedKey", " a<b&");
    EXPECT_EQ(written(phase1), document);
    EXPECT_EQ(refusalOf<IKEPhase1>(document),
              "parse_end_tag: expected '/', got 'b'\nfrom <presharedKey>\nfrom <ikePhase1>");

    phase1.presharedKeySet(" a ");
    EXPECT_EQ(read<IKEPhase1>(written(phase1)).presharedKeyGet(), "a");
}

TEST(IKEPhase1, RefusesUnknownTypesUnderAnotherTag)
{
    for (const std::string& document : {PSK_DOCUMENT, RSA_DOCUMENT})
        expectWordsChecked<IKEPhase1>(document, "authType", "invalid value '", "' for <auth> in <ikePhase1>",
                                      {"psk", "rsa", "NONE", "0", "IKE_AUTH_PSK", "PSK,RSA"});
}

TEST(IKEPhase1, ReadsItsLeavesInEveryForm)
{
    expectLeafForms<IKEPhase1>(PSK_DOCUMENT, {"authType", "presharedKey"});
    expectLeafForms<IKEPhase1>(RSA_DOCUMENT, {"authType", "localCert", "peerTrust"});
    EXPECT_EQ(rewritten<IKEPhase1>(changed(PSK_DOCUMENT, leafIn(PSK_DOCUMENT, "presharedKey"), "<presharedKey/>")),
              withText(PSK_DOCUMENT, "presharedKey", ""));
}

TEST(IKEPhase1, RefusesAnotherFrame)
{
    expectFrameChecked<IKEPhase1>(PSK_DOCUMENT, "ikePhase1");
    expectFrameChecked<IKEPhase1>(RSA_DOCUMENT, "ikePhase1");
}

TEST(IKEPhase1, RefusesMissingDoubledAndMisplacedChildren)
{
    expectLeavesChecked<IKEPhase1>(PSK_DOCUMENT, "ikePhase1", {"authType", "presharedKey"});
    expectLeavesChecked<IKEPhase1>(RSA_DOCUMENT, "ikePhase1", {"authType", "localCert", "peerTrust"});

    const std::string psk = leafIn(PSK_DOCUMENT, "presharedKey"), trust = leafIn(RSA_DOCUMENT, "peerTrust");
    const std::string from = "\nfrom <ikePhase1>";
    // clang-format off
    expectRefused<IKEPhase1>(PSK_DOCUMENT, {
        {psk, "", "parse_tagged_value: wrong tag; expected <presharedKey>, found <proposal>\nfrom <proposal>" + from},
        {psk, psk + psk, "parse_simple_tag: wrong tag; expected <proposal>, found <presharedKey>\n"
                         "from <presharedKey>" + from},
        {">PSK<", ">RSA<", "parse_tagged_value: wrong tag; expected <localCert>, found <presharedKey>\n"
                           "from <presharedKey>" + from},
        {PROPOSAL_DOCUMENT, "", "parse_simple_tag: missing tag; expected <proposal>" + from},
        {PROPOSAL_DOCUMENT, PROPOSAL_DOCUMENT + PROPOSAL_DOCUMENT, "parse_end_tag: expected '/', got 'p'" + from},
        {PROPOSAL_DOCUMENT, "<proposal/>", "parse_tagged_value: missing tag; expected <dhGroup>" + from},
        {PROPOSAL_DOCUMENT, "<proposal></proposal>",
         "parse_tagged_value: missing tag; expected <dhGroup>\nfrom <proposal>" + from},
        {">G14<", ">G15<", "invalid value 'G15' for <dhGroup> in <ikePhase1Proposal>"},
        {">MINS<", ">min<", "invalid value 'min' for <keyLifetimeUnits> in <ikePhase1Proposal>"},
        {">IKE_AES_SHA<", ">AES<", "invalid value 'AES' for <transform> in <ikePhase1Proposal>"},
        {"</proposal>", "</ikePhase1>", "parse_end_tag: begin/end tags don't match\nfrom <proposal>" + from},
    });
    expectRefused<IKEPhase1>(RSA_DOCUMENT, {
        {trust, "", "parse_tagged_value: wrong tag; expected <peerTrust>, found <proposal>\nfrom <proposal>" + from},
        {trust, trust + psk, "parse_simple_tag: wrong tag; expected <proposal>, found <presharedKey>\n"
                             "from <presharedKey>" + from},
        {">RSA<", ">PSK<", "parse_tagged_value: wrong tag; expected <presharedKey>, found <localCert>\n"
                           "from <localCert>" + from},
    });
    // clang-format on
}

TEST(IKEPhase1, IsReadNoFurtherThanItsEnd)
{
    expectReadNoFurther<IKEPhase1>(PSK_DOCUMENT);
    expectReadNoFurther<IKEPhase1>(RSA_DOCUMENT);
}

TEST(IKEPhase1, CopiesAreIndependentAndTakeAllFields)
{
    const IKEPhase1   original   = samplePhase1(IKE_AUTH_RSA);
    const std::string everything = everythingOf(original);
    IKEPhase1         copy(original);
    EXPECT_EQ(everythingOf(copy), everything);

    copy.peerTrustSet("x");
    copy.proposalSet(IKEPhase1Proposal({}, DH_GROUP_NONE, 0, KEYLIFETIME_KB));
    EXPECT_EQ(everythingOf(original), everything);

    copy = IKEPhase1(IKE_AUTH_PSK, "a", "b", "c", IKEPhase1Proposal({}, DH_GROUP_NONE, 0, KEYLIFETIME_KB));
    EXPECT_EQ(copy.presharedKeyGet(), "c");
    copy = original;
    EXPECT_EQ(everythingOf(copy), everything);
}

TEST(IKEPhase1, IsUnchangedByAssignmentToItself)
{
    IKEPhase1         phase1 = samplePhase1(IKE_AUTH_PSK);
    const std::string before = everythingOf(phase1);
    expectKeptByAssignmentToItself(phase1);
    EXPECT_EQ(everythingOf(phase1), before);
}

TEST(IKEPhase1, IsUnchangedByMoveIntoItself)
{
    IKEPhase1 phase1 = samplePhase1(IKE_AUTH_PSK);
    expectKeptByMoveIntoItself(phase1);
}

TEST(IKEPhase1, KeepsTheTargetOfARefusedRead)
{
    IKEPhase1         phase1 = samplePhase1(IKE_AUTH_PSK);
    const std::string before = everythingOf(phase1);
    EXPECT_EQ(errorOf([&] { phase1 = read<IKEPhase1>(withText(RSA_DOCUMENT, "dhGroup", "x")); }),
              "invalid value 'x' for <dhGroup> in <ikePhase1Proposal>");
    EXPECT_EQ(everythingOf(phase1), before);
}

} // namespace
} // namespace ipsecimpl
