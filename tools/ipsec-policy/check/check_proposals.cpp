#include "algorithms.h"
#include "checks.h"

using namespace ipsecimpl;

namespace {

const Rule NO_PROTOCOL = {"none-protocol", Level::ERROR, "The protocol of an SA proposal is NONE",
                          "An SA without AH or ESP protects nothing.\n"
                          "Choose ESP with encryption and hash.",
                          ""};

const Rule UNAUTHENTICATED = {"unauthenticated-encryption", Level::ERROR, "Encryption without authentication",
                              "Whoever can change packets can find out what is encrypted without being\n"
                              "authenticated: there are attacks that work. Encryption numbers above 1 encrypt,\n"
                              "hash numbers 0 and 1 are none, and there is no AH around it. An authenticated\n"
                              "cipher (AEAD) needs no hash: if the number is that of one, say so in the file of\n"
                              "--algorithms.\n"
                              "Add a hash.",
                              "RFC 8221 section 4"};

const Rule NO_PROTECTION = {"no-protection", Level::ERROR, "ESP with neither encryption nor hash",
                            "Numbers 0 and 1 stand for algorithms without a key, which protect nothing. ESP\n"
                            "must have encryption or a hash, and should have both.\n"
                            "Add encryption and a hash.",
                            "RFC 4303 section 3.2"};

const Rule AH_WITHOUT_HASH = {"ah-without-hash", Level::ERROR, "AH without a hash",
                              "A hash is all that AH has. Numbers 0 and 1 stand for hashes without a key, which\n"
                              "everybody can make.\n"
                              "Add a hash, or write ESP.",
                              "RFC 4302 section 2.6"};

const Rule AH_ENCRYPTS = {"encryption-under-ah", Level::WARNING, "AH is given an encryption, but does not encrypt",
                          "AH authenticates packets and lets everybody read them. The encryption number\n"
                          "does nothing. (Manual keys must have one for it all the same.)\n"
                          "Write ESP if the traffic is to be kept secret, else encryption 0.",
                          "RFC 4302 section 1"};

const Rule HASH_BESIDE_AEAD = {"hash-beside-aead", Level::WARNING, "An authenticated cipher is given a hash",
                               "An authenticated cipher (AEAD) proves by itself that packets are genuine. With a\n"
                               "hash beside it, systems refuse the proposal, or spend time and bytes on each\n"
                               "packet for nothing.\n"
                               "Write 0 for the hash.",
                               "RFC 8221 section 4"};

const Rule ESP_WITH_AH = {"esp-with-ah", Level::NOTE, "A proposal wants AH around ESP",
                          "It is no weaker than ESP alone, but the slowest way there is, with the largest\n"
                          "packets, and NOT RECOMMENDED. Besides, it breaks where addresses are translated\n"
                          "on the way.\n"
                          "Write ESP with encryption and hash, on the peer too.",
                          "RFC 8221 section 4"};

const Rule COUNTER_MODE = {"manual-counter-mode", Level::ERROR, "A counter mode with manual keys",
                           "After a restart the counter begins anew under the same key, and packets of the\n"
                           "same counter give each other away. The authenticated ciphers (AES-GCM, AES-CCM,\n"
                           "ChaCha20-Poly1305) count too, and lose their authentication with it.\n"
                           "Use IKE, or AES-CBC with a hash.",
                           "RFC 8221 section 3"};

const Rule MUST_NOT = {"algorithm-must-not", Level::ERROR, "An algorithm MUST NOT be used",
                       "The file of --algorithms gives this number's algorithm the status MUST NOT: it\n"
                       "is broken, or too weak to protect anything.\n"
                       "Replace it, on the peer too. AES-CBC with HMAC-SHA2-256, and AES-GCM, are what\n"
                       "every system must have.",
                       "RFC 8221 sections 5 and 6"};

const Rule SHOULD_NOT = {"algorithm-should-not", Level::WARNING, "An algorithm SHOULD NOT be used",
                         "The file of --algorithms gives this number's algorithm the status SHOULD NOT:\n"
                         "its time is over.\n"
                         "Replace it, on the peer too, unless there is a reason that you know of.",
                         "RFC 8221 sections 5 and 6"};

const Rule OUTGOING = {"algorithm-outgoing", Level::NOTE, "An algorithm is still in use, but on its way out",
                       "The file of --algorithms gives this number's algorithm the status MUST- or\n"
                       "SHOULD-: systems have it today, and are expected to drop it.\n"
                       "Plan to replace it.",
                       "RFC 8221 sections 5 and 6"};

const Rule UNKNOWN = {"unknown-algorithm", Level::NOTE, "The file of --algorithms does not name a number",
                      "So nothing can be said about the strength of the algorithm. Perhaps the number\n"
                      "is a slip.\n"
                      "Correct the number, or add it to the file.",
                      ""};

/// One SA proposal, in phase 2 or of a manual key.
class ProposalCheck {
  public:
    ProposalCheck(unsigned int action, const char* list, std::size_t number, const Algorithms* algorithms,
                  Findings& findings)
        : action_(action)
        , list_(list)
        , number_(number)
        , isManual_(number == 0)
        , algorithms_(algorithms)
        , findings_(findings)
    {
    }

    void check(const IPsecProposal& proposal)
    {
        if (proposal.protocol == IPSEC_NONE) {
            reportField(NO_PROTOCOL, "protocol", "NONE protects nothing. Write ESP.");
            return;
        }
        checkESP(proposal);
        checkAH(proposal);
        if (proposal.protocol == IPSEC_ESP_AH)
            reportField(ESP_WITH_AH, "protocol", "AH around ESP is slow and NOT RECOMMENDED. Write ESP with a hash.");
        if (algorithms_ != nullptr)
            checkAlgorithms(proposal);
    }

  private:
    void reportField(const Rule& rule, const char* field, std::string message)
    {
        report(findings_, rule, Kind::ACTION, action_, {list_, number_, field}, std::move(message));
    }

    const Algorithm* encryptionOf(const IPsecProposal& proposal) const
    {
        return algorithms_ == nullptr ? nullptr : algorithms_->encryption(proposal.encryption);
    }

    void checkESP(const IPsecProposal& proposal);
    void checkHashBesideAEAD(const IPsecProposal& proposal);
    void checkCounterMode(const Algorithm& encryption);
    void checkAH(const IPsecProposal& proposal);
    void checkAlgorithms(const IPsecProposal& proposal);
    void checkStatus(const Algorithm* algorithm, const char* field, unsigned long number);

    unsigned int      action_;
    const char*       list_;
    std::size_t       number_;
    bool              isManual_;
    const Algorithms* algorithms_;
    Findings&         findings_;
};

void ProposalCheck::checkESP(const IPsecProposal& proposal)
{
    if (proposal.protocol != IPSEC_ESP)
        return;
    if (hasHash(proposal)) {
        checkHashBesideAEAD(proposal);
        return;
    }
    if (!hasEncryption(proposal)) {
        reportField(NO_PROTECTION, "encryption",
                    "Neither encryption " + std::to_string(proposal.encryption) + " nor hash " +
                        std::to_string(proposal.hash) + " has a key: nothing is protected. Write both.");
        return;
    }
    const Algorithm* const algorithm = encryptionOf(proposal);
    if (algorithm != nullptr && algorithm->isAEAD)
        return;
    reportField(UNAUTHENTICATED, "hash",
                "Encryption " + std::to_string(proposal.encryption) + " goes without authentication, as hash " +
                    std::to_string(proposal.hash) +
                    (algorithm == nullptr ? " is none. Write a hash, or name the number as an authenticated cipher "
                                            "with --algorithms."
                                          : " is none. Write a hash."));
}

void ProposalCheck::checkHashBesideAEAD(const IPsecProposal& proposal)
{
    const Algorithm* const algorithm = encryptionOf(proposal);
    if (algorithm != nullptr && algorithm->isAEAD)
        reportField(HASH_BESIDE_AEAD, "hash",
                    inQuotes(algorithm->name) +
                        " authenticates what it encrypts, and needs no hash beside it. Write 0.");
}

void ProposalCheck::checkAH(const IPsecProposal& proposal)
{
    if (hasAH(proposal) && !hasHash(proposal))
        reportField(AH_WITHOUT_HASH, "hash",
                    "AH without a hash protects nothing, and " + std::to_string(proposal.hash) +
                        " is none. Write a hash.");
    if (proposal.protocol == IPSEC_AH && hasEncryption(proposal))
        reportField(AH_ENCRYPTS, "encryption",
                    "AH does not encrypt, whatever " + std::to_string(proposal.encryption) +
                        " stands for. Write ESP for the protocol, or 0 here.");
}

void ProposalCheck::checkStatus(const Algorithm* algorithm, const char* field, unsigned long number)
{
    const std::string start = std::string(field) + ' ' + std::to_string(number);
    if (algorithm == nullptr) {
        if (number > 1)
            reportField(UNKNOWN, field,
                        capitalised(start) + " is not in the file of --algorithms. Correct it, or add it there.");
        return;
    }
    const std::string subject = capitalised(start) + " is " + inQuotes(algorithm->name) + ", which ";
    if (algorithm->status == Status::MUST_NOT)
        reportField(MUST_NOT, field, subject + "MUST NOT be used. Replace it.");
    else if (algorithm->status == Status::SHOULD_NOT)
        reportField(SHOULD_NOT, field, subject + "SHOULD NOT be used. Replace it.");
    else if (algorithm->status == Status::OUTGOING)
        reportField(OUTGOING, field, subject + "is " + algorithm->statusName + ", on its way out. Plan to replace it.");
}

void ProposalCheck::checkCounterMode(const Algorithm& encryption)
{
    const char* const what = encryption.isAEAD ? " is an authenticated cipher" : " is a counter mode";
    if (isManual_ && (encryption.isAEAD || encryption.isCounter))
        reportField(COUNTER_MODE, "encryption",
                    inQuotes(encryption.name) + what +
                        ", which MUST NOT have manual keys. Write AES-CBC's number and a hash, or use IKE.");
}

void ProposalCheck::checkAlgorithms(const IPsecProposal& proposal)
{
    if (hasESP(proposal)) {
        const Algorithm* const encryption = algorithms_->encryption(proposal.encryption);
        checkStatus(encryption, "encryption", proposal.encryption);
        if (encryption != nullptr)
            checkCounterMode(*encryption);
    }
    checkStatus(algorithms_->hash(proposal.hash), "hash", proposal.hash);
}

} // namespace

Rules proposalRules()
{
    return {&NO_PROTOCOL,      &UNAUTHENTICATED, &NO_PROTECTION, &AH_WITHOUT_HASH, &AH_ENCRYPTS, &ESP_WITH_AH,
            &HASH_BESIDE_AEAD, &COUNTER_MODE,    &MUST_NOT,      &SHOULD_NOT,      &OUTGOING,    &UNKNOWN};
}

void checkProposals(const Entry<IPsecAction>& entry, const Algorithms* algorithms, Findings& findings)
{
    if (const MKM* const key = manualKeyOf(*entry.object))
        ProposalCheck(entry.id, "manualKey/saProposal", 0, algorithms, findings).check(key->saProposal);
    if (const IKEPhase2* const phase2 = phase2Of(*entry.object)) {
        std::size_t number = 0;
        for (const IPsecProposal& proposal : phase2->proposals)
            ProposalCheck(entry.id, "ikePhase2/saProposal", ++number, algorithms, findings).check(proposal);
    }
}
