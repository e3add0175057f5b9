#include "checks.h"

#include <algorithm>

using namespace ipsecimpl;

namespace {

const Rule DES = {"ike-des", Level::ERROR, "IKE phase 1 offers DES",
                  "Its keys of 56 bits can be found by trying all of them, within a day and for\n"
                  "little money.\n"
                  "Write IKE_AES_SHA, on the peer too.",
                  "RFC 8247 section 2.1"};

const Rule MD5 = {"ike-md5", Level::ERROR, "IKE phase 1 offers MD5",
                  "MD5 is broken. Attacks on key exchanges that only offer it are known, even\n"
                  "where the peers would agree on something better.\n"
                  "Write a transform with SHA, on the peer too.",
                  "RFC 8247 sections 2.2 and 2.3"};

const Rule TRIPLE_DES = {"ike-3des", Level::NOTE, "IKE phase 1 offers 3DES",
                         "It is slow, and its blocks of 64 bits give plain text away after some gigabytes.\n"
                         "Systems MAY have it, and need not.\n"
                         "Write IKE_AES_SHA, on the peer too.",
                         "RFC 8247 section 2.1"};

const Rule SHA1 = {"ike-sha1", Level::NOTE, "IKE phase 1 offers SHA1",
                   "It is MUST-: every system has it today, and is expected to drop it some day. As\n"
                   "it is used here it is not broken, and the format has nothing better to offer.\n"
                   "There is nothing to change in this file.",
                   "RFC 8247 sections 2.2 and 2.3"};

const Rule GROUP_1 = {"dh-group-1", Level::ERROR, "Diffie-Hellman group 1, of 768 bits",
                      "What is exchanged with it can be found with the means of a university.\n"
                      "Write G14, on the peer too.",
                      "RFC 8247 section 2.4"};

const Rule GROUP_2 = {"dh-group-2", Level::WARNING, "Diffie-Hellman group 2, of 1024 bits",
                      "What is exchanged with it can be found with the means of a state, which has to\n"
                      "do most of the work only once for all who use the group.\n"
                      "Write G14, on the peer too.",
                      "RFC 8247 section 2.4"};

const Rule NO_GROUP = {"no-dh-group", Level::ERROR, "IKE phase 1 has no Diffie-Hellman group",
                       "The keys of phase 1 are made by a Diffie-Hellman exchange; without a group\n"
                       "there is none, and no key exchange succeeds.\n"
                       "Write G14.",
                       "RFC 2409 section 5"};

const Rule NO_PFS = {"no-pfs", Level::NOTE, "IKE phase 2 has no Diffie-Hellman group",
                     "So there is no perfect forward secrecy: who learns the keys of phase 1 can read\n"
                     "the traffic of all its phase 2 keys, also what was recorded long before.\n"
                     "Write G14, on the peer too.",
                     "RFC 2409 section 8"};

const Rule SHORT_KEY = {"short-preshared-key", Level::WARNING, "A pre-shared key has fewer than 20 characters",
                        "Who takes part in one key exchange, or listens to it in aggressive mode, can try\n"
                        "keys at leisure. To be as strong as group 14 (112 bits), a key needs about 20\n"
                        "letters and digits that were drawn at random; words and phrases are far weaker.\n"
                        "Draw a longer one, such as with 'head -c 24 /dev/urandom | base64'.",
                        "RFC 7296 section 2.15"};

const Rule UNIFORM_KEY = {"uniform-preshared-key", Level::WARNING,
                          "A pre-shared key is of one class of characters alone",
                          "Digits alone, or letters of one case alone, have so few possibilities that a\n"
                          "key needs up to 34 of them to be as strong as group 14 (112 bits). From 34\n"
                          "characters on this is not looked at.\n"
                          "Draw one of letters and digits: 'head -c 24 /dev/urandom | base64'.",
                          "RFC 7296 section 2.15"};

const Rule FOREIGN_KEY = {"non-ascii-preshared-key", Level::NOTE, "A pre-shared key has characters beyond ASCII",
                          "Their bytes depend on the encoding in which each side was told the key. Where\n"
                          "the peer has other bytes, the keys differ, though they look the same, and no key\n"
                          "exchange succeeds.\n"
                          "Draw a key of letters and digits.",
                          "RFC 7296 section 2.15"};

const Rule IKE_V1 = {"ike-version-1", Level::NOTE, "Keys are exchanged by IKE version 1",
                     "The format describes no other. The protocol is historic: it gets no new\n"
                     "algorithms, and systems are expected to drop it.\n"
                     "Plan to move to IKE version 2, on the peers too.",
                     "RFC 9395 section 3"};

const std::size_t LEAST_LENGTH     = 20;
const std::size_t ENOUGH_OF_A_KIND = 34; // digits: 112 bits / log2(10)

/// What a transform of phase 1 is made of.
struct Parts {
    bool isDES;
    bool isTripleDES;
    bool isMD5;
    bool isSHA1;
};

Parts partsOf(const IKEPhase1Transform& transform)
{
    return {transform == IKE_DES_SHA1 || transform == IKE_DES_MD5,
            transform == IKE_3DES_SHA1 || transform == IKE_3DES_MD5,
            transform == IKE_AESCBC_MD5 || transform == IKE_3DES_MD5 || transform == IKE_DES_MD5,
            transform == IKE_AESCBC_SHA1 || transform == IKE_3DES_SHA1 || transform == IKE_DES_SHA1};
}

enum CharacterClass { LOWER, UPPER, DIGIT, OTHER };

CharacterClass classOf(char c)
{
    if (c >= 'a' && c <= 'z')
        return LOWER;
    if (c >= 'A' && c <= 'Z')
        return UPPER;
    return c >= '0' && c <= '9' ? DIGIT : OTHER;
}

bool isUniform(const std::string& key)
{
    for (const char c : key)
        if (classOf(c) != classOf(key.front()))
            return false;
    return true;
}

/// One action with IKE.
class StrengthCheck {
  public:
    StrengthCheck(unsigned int action, Findings& findings)
        : action_(action)
        , findings_(findings)
    {
    }

    void check(const IKEPhase1& phase1, const IKEPhase2& phase2)
    {
        if (phase1.authTypeGet() == IKE_AUTH_PSK)
            checkPresharedKey(phase1.presharedKeyGet());
        checkGroup("ikePhase1/proposal/dhGroup", phase1.proposalGet().dhGroup, NO_GROUP,
                   "Without a group there is no key exchange. Write G14.");
        std::size_t number = 0;
        for (const IKEPhase1Transform& transform : phase1.proposalGet().transforms)
            checkTransform(++number, transform);
        checkGroup("ikePhase2/dhGroup", phase2.dhGroup, NO_PFS,
                   "Without a group there is no perfect forward secrecy. Write G14.");
    }

  private:
    void reportField(const Rule& rule, const FieldPath& field, const char* message)
    {
        report(findings_, rule, Kind::ACTION, action_, field, message);
    }

    void checkPresharedKey(const std::string& key);
    void checkGroup(const char* field, const DHGroup& group, const Rule& ruleForNone, const char* messageForNone);
    void checkTransform(std::size_t number, const IKEPhase1Transform& transform);

    unsigned int action_;
    Findings&    findings_;
};

void StrengthCheck::checkPresharedKey(const std::string& key)
{
    const FieldPath field = {"ikePhase1/presharedKey"};
    if (key.empty()) // which is another finding
        return;
    if (key.size() < LEAST_LENGTH)
        reportField(SHORT_KEY, field,
                    "The pre-shared key has fewer than 20 characters. Draw a longer one, of letters and digits.");
    if (std::any_of(key.begin(), key.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }))
        reportField(FOREIGN_KEY, field,
                    "The pre-shared key has characters beyond ASCII, whose bytes can be others at the peer. Draw one "
                    "of letters and digits.");
    if (key.size() < ENOUGH_OF_A_KIND && isUniform(key))
        reportField(UNIFORM_KEY, field,
                    "The pre-shared key is of one class of characters alone. Draw one of letters and digits.");
}

void StrengthCheck::checkGroup(const char* field, const DHGroup& group, const Rule& ruleForNone,
                               const char* messageForNone)
{
    if (group == DH_GROUP_NONE)
        reportField(ruleForNone, {field}, messageForNone);
    else if (group == DH_GROUP_1)
        reportField(GROUP_1, {field}, "Group 1 MUST NOT be used: its 768 bits can be broken. Write G14.");
    else if (group == DH_GROUP_2)
        reportField(GROUP_2, {field}, "Group 2 SHOULD NOT be used: its 1024 bits are too few. Write G14.");
}

void StrengthCheck::checkTransform(std::size_t number, const IKEPhase1Transform& transform)
{
    const FieldPath field = {"ikePhase1/proposal/transform", number};
    const Parts     parts = partsOf(transform);
    if (parts.isDES)
        reportField(DES, field, "DES MUST NOT be used: its keys can be found. Write IKE_AES_SHA.");
    if (parts.isTripleDES)
        reportField(TRIPLE_DES, field, "3DES is slow and old, and peers need not have it. Write IKE_AES_SHA.");
    if (parts.isMD5)
        reportField(MD5, field, "MD5 MUST NOT be used: it is broken. Write IKE_AES_SHA.");
    if (parts.isSHA1)
        reportField(SHA1, field, "SHA1 is on its way out, but the best that this format has. Nothing to do.");
}

} // namespace

Rules strengthRules()
{
    return {&DES,      &MD5,    &TRIPLE_DES, &SHA1,        &GROUP_1,     &GROUP_2,
            &NO_GROUP, &NO_PFS, &SHORT_KEY,  &UNIFORM_KEY, &FOREIGN_KEY, &IKE_V1};
}

void checkStrength(const Entry<IPsecAction>& entry, Findings& findings)
{
    if (const IKEPhase1* const phase1 = phase1Of(*entry.object))
        StrengthCheck(entry.id, findings).check(*phase1, *phase2Of(*entry.object));
}

void checkIKEVersion(const Model& model, Findings& findings)
{
    if (model.keyExchanges().empty())
        return;
    Finding finding;
    finding.rule        = &IKE_V1;
    finding.message     = "Actions exchange keys by IKE version 1, which is historic. Plan to move to version 2.";
    finding.isAboutFile = true;
    findings.push_back(finding);
}
