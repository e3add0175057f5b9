#include "algorithms.h"
#include "checks.h"

using namespace ipsecimpl;

namespace {

const Rule NO_PROTOCOL = {"none-protocol", Level::ERROR, "The protocol of an SA proposal is NONE",
                          "An SA without AH or ESP protects nothing.\n"
                          "Choose ESP with encryption and hash.",
                          ""};

const Rule UNAUTHENTICATED = {"unauthenticated-encryption", Level::ERROR, "Encryption without authentication",
                              "Who can change packets can read what is encrypted but not authenticated: there\n"
                              "are working attacks. Numbers above 1 encrypt, a hash of 0 or 1 is none, and no\n"
                              "AH makes up for it. An authenticated cipher (AEAD) needs no hash: if the number\n"
                              "is that of one, say so in the file of --algorithms.\n"
                              "Add a hash.",
                              "RFC 8221 section 4"};

const Rule NO_PROTECTION = {"no-protection", Level::ERROR, "ESP with neither encryption nor hash",
                            "Numbers 0 and 1 stand for no algorithm that has a key, and ESP must have one of\n"
                            "the two at least.\n"
                            "Add encryption and a hash.",
                            "RFC 4303 section 3.2"};

const Rule AH_WITHOUT_HASH = {"ah-without-hash", Level::ERROR, "AH without a hash",
                              "A hash is all that AH has. Numbers 0 and 1 stand for none that has a key.\n"
                              "Add a hash, or write ESP.",
                              "RFC 4302 section 2.6"};

const Rule AH_ENCRYPTS = {"encryption-under-ah", Level::WARNING, "AH alone is given an encryption, which it never does",
                          "AH authenticates packets and lets everybody read them. The encryption number\n"
                          "does nothing, however much its keys are asked for.\n"
                          "Write ESP if the traffic is to be kept secret, else encryption 0.",
                          "RFC 4302 section 1"};

const Rule COUNTER_MODE = {"manual-counter-mode", Level::ERROR, "A counter mode with manual keys",
                           "After a restart the counter begins anew under the same key, and packets of the\n"
                           "same counter give each other away.\n"
                           "Use IKE, or AES-CBC with a hash.",
                           "RFC 8221 section 3"};

const Rule MUST_NOT = {"algorithm-must-not", Level::ERROR, "An algorithm MUST NOT be used",
                       "By the file of --algorithms the number stands for an algorithm that is broken,\n"
                       "or so weak that it protects nothing.\n"
                       "Replace it, on the peer too. AES-CBC with HMAC-SHA2-256, and AES-GCM, are what\n"
                       "every system must have.",
                       "RFC 8221 sections 5 and 6"};

const Rule SHOULD_NOT = {"algorithm-should-not", Level::WARNING, "An algorithm SHOULD NOT be used",
                         "By the file of --algorithms the number stands for an algorithm whose time is\n"
                         "over.\n"
                         "Replace it, on the peer too, unless there is a reason that you know of.",
                         "RFC 8221 sections 5 and 6"};

const Rule OUTGOING = {"algorithm-outgoing", Level::NOTE, "An algorithm is still in use, but on its way out",
                       "By the file of --algorithms it is MUST- or SHOULD-: systems have it today, and\n"
                       "are expected to drop it.\n"
                       "Plan to replace it.",
                       "RFC 8221 sections 5 and 6"};

const Rule UNKNOWN = {"unknown-algorithm", Level::NOTE, "The file of --algorithms does not name a number",
                      "So nothing can be said about the strength of it. Perhaps the number is a slip.\n"
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
        if (algorithms_ != nullptr)
            checkAlgorithms(proposal);
    }

  private:
    void reportField(const Rule& rule, const char* field, std::string message)
    {
        report(findings_, rule, Kind::ACTION, action_, {list_, number_, field}, std::move(message));
    }

    void checkESP(const IPsecProposal& proposal);
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
    if (proposal.protocol != IPSEC_ESP || hasHash(proposal))
        return;
    if (!hasEncryption(proposal)) {
        reportField(NO_PROTECTION, "encryption",
                    "Neither encryption " + std::to_string(proposal.encryption) + " nor hash " +
                        std::to_string(proposal.hash) + " has a key: nothing is protected. Write both.");
        return;
    }
    const Algorithm* const algorithm = algorithms_ == nullptr ? nullptr : algorithms_->encryption(proposal.encryption);
    if (algorithm != nullptr && algorithm->isAEAD)
        return;
    reportField(UNAUTHENTICATED, "hash",
                "Encryption " + std::to_string(proposal.encryption) + " goes without authentication, as hash " +
                    std::to_string(proposal.hash) +
                    (algorithm == nullptr ? " is none. Write a hash, or name the number as an authenticated cipher "
                                            "with --algorithms."
                                          : " is none. Write a hash."));
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
    const std::string subject = capitalised(start) + " is " + quoted(algorithm->name) + ", which ";
    if (algorithm->status == Status::MUST_NOT)
        reportField(MUST_NOT, field, subject + "MUST NOT be used. Replace it.");
    else if (algorithm->status == Status::SHOULD_NOT)
        reportField(SHOULD_NOT, field, subject + "SHOULD NOT be used. Replace it.");
    else if (algorithm->status == Status::OUTGOING)
        reportField(OUTGOING, field, subject + "is " + algorithm->statusName + ", on its way out. Plan to replace it.");
}

void ProposalCheck::checkAlgorithms(const IPsecProposal& proposal)
{
    if (hasESP(proposal)) {
        const Algorithm* const encryption = algorithms_->encryption(proposal.encryption);
        checkStatus(encryption, "encryption", proposal.encryption);
        if (isManual_ && encryption != nullptr && encryption->isCounter)
            reportField(COUNTER_MODE, "encryption",
                        quoted(encryption->name) +
                            " is a counter mode, which MUST NOT have manual keys. Write AES-CBC's number, or use IKE.");
    }
    checkStatus(algorithms_->hash(proposal.hash), "hash", proposal.hash);
}

} // namespace

Rules proposalRules()
{
    return {&NO_PROTOCOL,  &UNAUTHENTICATED, &NO_PROTECTION, &AH_WITHOUT_HASH, &AH_ENCRYPTS,
            &COUNTER_MODE, &MUST_NOT,        &SHOULD_NOT,    &OUTGOING,        &UNKNOWN};
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
