#include "check_samples.h"

using namespace ipsecimpl;

namespace {

IPsecConfig transforms(const std::list<IKEPhase1Transform>& list)
{
    return having(phase1([&](IKEPhase1Proposal& proposal) { proposal.transforms = list; }));
}

IPsecConfig groups(const DHGroup& first, const DHGroup& second)
{
    IPsecAction action = phase2([&](IKEPhase2& phase2) { phase2.dhGroup = second; });
    IKEPhase1   phase1 = action.ikePhase1Get();
    phase1.proposalSet(IKEPhase1Proposal({IKE_AESCBC_SHA1}, first, 28800, KEYLIFETIME_SECS));
    action.ikePhase1Set(phase1);
    return having(action);
}

IPsecConfig keyed(const std::string& presharedKey)
{
    return having(authenticated(IKE_AUTH_PSK, "gw.pem", "ca.pem", presharedKey));
}

IPsecConfig certified(const std::string& presharedKey)
{
    return having(authenticated(IKE_AUTH_RSA, "gw.pem", "ca.pem", presharedKey));
}

const std::string PHASE1 = "actions/1/ikePhase1/proposal/";

Samples transformSamples()
{
    return {
        {"ike-des",
         {PHASE1 + "transform/1: DES MUST NOT be used: its keys can be found. Write IKE_AES_SHA.",
          PHASE1 + "transform/3: DES MUST NOT be used: its keys can be found. Write IKE_AES_SHA."},
         transforms({IKE_DES_SHA1, IKE_AESCBC_SHA1, IKE_DES_MD5}),
         transforms({IKE_AESCBC_SHA1, IKE_AESCBC_MD5, IKE_3DES_SHA1, IKE_3DES_MD5, IKE_NONE})},
        {"ike-md5",
         {PHASE1 + "transform/1: MD5 MUST NOT be used: it is broken. Write IKE_AES_SHA.",
          PHASE1 + "transform/2: MD5 MUST NOT be used: it is broken. Write IKE_AES_SHA.",
          PHASE1 + "transform/3: MD5 MUST NOT be used: it is broken. Write IKE_AES_SHA."},
         transforms({IKE_AESCBC_MD5, IKE_3DES_MD5, IKE_DES_MD5}),
         transforms({IKE_AESCBC_SHA1, IKE_3DES_SHA1, IKE_DES_SHA1, IKE_NONE})},
        {"ike-3des",
         {PHASE1 + "transform/1: 3DES is slow and old, and peers need not have it. Write IKE_AES_SHA.",
          PHASE1 + "transform/2: 3DES is slow and old, and peers need not have it. Write IKE_AES_SHA."},
         transforms({IKE_3DES_SHA1, IKE_3DES_MD5}),
         transforms({IKE_AESCBC_SHA1, IKE_AESCBC_MD5, IKE_DES_SHA1, IKE_DES_MD5, IKE_NONE})},
        {"ike-sha1",
         {PHASE1 + "transform/1: SHA1 is on its way out, but the best that this format has. Nothing to do.",
          PHASE1 + "transform/2: SHA1 is on its way out, but the best that this format has. Nothing to do.",
          PHASE1 + "transform/3: SHA1 is on its way out, but the best that this format has. Nothing to do."},
         transforms({IKE_AESCBC_SHA1, IKE_3DES_SHA1, IKE_DES_SHA1}),
         transforms({IKE_AESCBC_MD5, IKE_3DES_MD5, IKE_DES_MD5, IKE_NONE})},
        {"ike-version-1",
         {"Actions exchange keys by IKE version 1, which is historic. Plan to move to version 2."},
         having(transport(KEYMGR_IKE)),
         having(transport(KEYMGR_MKM))},
        {"ike-version-1",
         {"Actions exchange keys by IKE version 1, which is historic. Plan to move to version 2."},
         plain([](IPsecConfig& config) {
             config.actions.add(transport(KEYMGR_IKE));
             config.actions.add(tunnel(KEYMGR_IKE));
         }),
         plain()},
    };
}

Samples groupSamples()
{
    const std::string PHASE2  = "actions/1/ikePhase2/";
    const std::string GROUP_1 = "dhGroup: Group 1 MUST NOT be used: its 768 bits can be broken. Write G14.";
    const std::string GROUP_2 = "dhGroup: Group 2 SHOULD NOT be used: its 1024 bits are too few. Write G14.";
    return {
        {"dh-group-1",
         {PHASE1 + GROUP_1, PHASE2 + GROUP_1},
         groups(DH_GROUP_1, DH_GROUP_1),
         groups(DH_GROUP_2, DH_GROUP_NONE)},
        {"dh-group-2",
         {PHASE1 + GROUP_2, PHASE2 + GROUP_2},
         groups(DH_GROUP_2, DH_GROUP_2),
         groups(DH_GROUP_14, DH_GROUP_1)},
        {"no-dh-group",
         {PHASE1 + "dhGroup: Without a group there is no key exchange. Write G14."},
         groups(DH_GROUP_NONE, DH_GROUP_14),
         groups(DH_GROUP_14, DH_GROUP_NONE)},
        {"no-pfs",
         {PHASE2 + "dhGroup: Without a group there is no perfect forward secrecy. Write G14."},
         groups(DH_GROUP_14, DH_GROUP_NONE),
         groups(DH_GROUP_NONE, DH_GROUP_14)},
    };
}

Samples weakKeySamples()
{
    const std::string AT = "actions/1/ikePhase1/presharedKey: ";
    const std::string SHORT =
        "The pre-shared key has fewer than 20 characters. Draw a longer one, of letters and digits.";
    const std::string UNIFORM =
        "The pre-shared key is of one class of characters alone. Draw one of letters and digits.";
    const std::string FOREIGN = "The pre-shared key has characters beyond ASCII, whose bytes can be others at the "
                                "peer. Draw one of letters and digits.";
    return {
        {"short-preshared-key", {AT + SHORT}, keyed("abcdefghij123456789"), keyed("abcdefghij1234567890")},
        {"short-preshared-key", {AT + SHORT}, keyed("a"), keyed("")},
        {"short-preshared-key", {AT + SHORT}, keyed("secret"), certified("secret")},
        {"uniform-preshared-key", {AT + UNIFORM}, keyed(std::string(33, '7')), keyed(std::string(34, '7'))},
        {"uniform-preshared-key",
         {AT + UNIFORM},
         keyed("abcdefghijklmnopqrstuvwxyz"),
         keyed("abcdefghijklmnopqrstuvwxyZ")},
        {"uniform-preshared-key", {AT + UNIFORM}, keyed("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), keyed("")},
        {"uniform-preshared-key", {AT + UNIFORM}, keyed("-.-.-.-.-.-.-.-.-.-.-"), keyed("-.-.-.-.-.-.-.-.-.-.0")},
        {"uniform-preshared-key", {AT + UNIFORM}, keyed("0"), certified("0")},
        {"non-ascii-preshared-key",
         {AT + FOREIGN},
         keyed("Stra\xc3\x9f"
               "e-nach-Nirgendwo"),
         keyed("Strasse-nach-Nirgendwo")},
        {"non-ascii-preshared-key", {AT + FOREIGN}, keyed("\x80"), keyed("\x7f")},
        {"non-ascii-preshared-key", {AT + FOREIGN}, keyed("\xff"), certified("\xff")},
    };
}

} // namespace

Samples strengthSamples()
{
    Samples samples = transformSamples();
    for (const Samples& more : {groupSamples(), weakKeySamples()})
        samples.insert(samples.end(), more.begin(), more.end());
    return samples;
}
