#include "check_samples.h"

using namespace ipsecimpl;

namespace {

const char* const ALGORITHMS = R"({
    "encryption": {
        "2":  {"name": "DES-CBC", "status": "MUST NOT"},
        "3":  {"name": "3DES-CBC", "status": "SHOULD NOT"},
        "4":  {"name": "Fading", "status": "SHOULD-"},
        "11": {"name": "NULL", "status": "MUST"},
        "12": {"name": "AES-CBC", "status": "MUST"},
        "13": {"name": "AES-CTR", "status": "MAY", "counter": true},
        "19": {"name": "AES-GCM-12", "status": "MAY", "aead": true},
        "20": {"name": "AES-GCM-16", "status": "MUST", "aead": true, "counter": true}
    },
    "hash": {
        "0": {"name": "none\u001b", "status": "MUST NOT"},
        "2": {"name": "HMAC-MD5", "status": "MUST NOT"},
        "3": {"name": "HMAC-SHA1", "status": "MUST-"},
        "5": {"name": "HMAC-SHA2-256", "status": "MUST"}
    }
})";

IPsecConfig exchanged(const std::list<IPsecProposal>& proposals)
{
    return having(phase2([&](IKEPhase2& phase2) { phase2.proposals = proposals; }));
}

IPsecConfig manually(const IPsecProposal& proposal)
{
    return having(manual([&](MKM& key) { key.saProposal = proposal; }));
}

const std::string MANUAL = "actions/1/manualKey/saProposal/";
const std::string FIRST  = "actions/1/ikePhase2/saProposal/1/";
const std::string SECOND = "actions/1/ikePhase2/saProposal/2/";

Samples numberSamples()
{
    const std::string NAME_IT = " Write a hash, or name the number as an authenticated cipher with --algorithms.";
    return {
        {"none-protocol",
         {SECOND + "protocol: NONE protects nothing. Write ESP."},
         exchanged({IPsecProposal(IPSEC_ESP, 12, 5), IPsecProposal(IPSEC_NONE, 12, 0)}),
         exchanged({IPsecProposal(IPSEC_ESP, 12, 5), IPsecProposal(IPSEC_AH, 0, 5)})},
        {"none-protocol",
         {MANUAL + "protocol: NONE protects nothing. Write ESP."},
         manually(IPsecProposal(IPSEC_NONE, 0, 0)),
         manually(IPsecProposal(IPSEC_ESP_AH, 0, 0))},
        {"unauthenticated-encryption",
         {MANUAL + "hash: Encryption 2 goes without authentication, as hash 1 is none." + NAME_IT},
         manually(IPsecProposal(IPSEC_ESP, 2, 1)),
         manually(IPsecProposal(IPSEC_ESP, 2, 2))},
        {"unauthenticated-encryption",
         {FIRST + "hash: Encryption 12 goes without authentication, as hash 0 is none." + NAME_IT},
         exchanged({IPsecProposal(IPSEC_ESP, 12, 0)}),
         exchanged({IPsecProposal(IPSEC_ESP_AH, 12, 0), IPsecProposal(IPSEC_ESP, 1, 0)})},
        {"unauthenticated-encryption",
         {FIRST + "hash: Encryption 12 goes without authentication, as hash 0 is none. Write a hash."},
         exchanged({IPsecProposal(IPSEC_ESP, 12, 0)}),
         exchanged({IPsecProposal(IPSEC_ESP, 20, 0)}),
         ALGORITHMS},
        {"no-protection",
         {MANUAL + "encryption: Neither encryption 1 nor hash 0 has a key: nothing is protected. Write both."},
         manually(IPsecProposal(IPSEC_ESP, 1, 0)),
         manually(IPsecProposal(IPSEC_ESP, 2, 0))},
        {"no-protection",
         {FIRST + "encryption: Neither encryption 0 nor hash 1 has a key: nothing is protected. Write both."},
         exchanged({IPsecProposal(IPSEC_ESP, 0, 1)}),
         exchanged({IPsecProposal(IPSEC_ESP, 0, 2), IPsecProposal(IPSEC_AH, 0, 0)})},
        {"ah-without-hash",
         {FIRST + "hash: AH without a hash protects nothing, and 1 is none. Write a hash.",
          SECOND + "hash: AH without a hash protects nothing, and 0 is none. Write a hash."},
         exchanged({IPsecProposal(IPSEC_AH, 0, 1), IPsecProposal(IPSEC_ESP_AH, 12, 0)}),
         exchanged({IPsecProposal(IPSEC_AH, 0, 2), IPsecProposal(IPSEC_ESP, 12, 0)})},
        {"encryption-under-ah",
         {MANUAL + "encryption: AH does not encrypt, whatever 2 stands for. Write ESP for the protocol, or 0 here."},
         manually(IPsecProposal(IPSEC_AH, 2, 5)),
         manually(IPsecProposal(IPSEC_AH, 1, 5))},
        {"encryption-under-ah",
         {MANUAL + "encryption: AH does not encrypt, whatever 12 stands for. Write ESP for the protocol, or 0 here."},
         manually(IPsecProposal(IPSEC_AH, 12, 5)),
         manually(IPsecProposal(IPSEC_ESP_AH, 12, 5))},
        {"esp-with-ah",
         {FIRST + "protocol: AH around ESP is slow and NOT RECOMMENDED. Write ESP with a hash."},
         exchanged({IPsecProposal(IPSEC_ESP_AH, 12, 5)}),
         exchanged({IPsecProposal(IPSEC_ESP, 12, 5), IPsecProposal(IPSEC_AH, 0, 5)})},
        {"esp-with-ah",
         {MANUAL + "protocol: AH around ESP is slow and NOT RECOMMENDED. Write ESP with a hash."},
         manually(IPsecProposal(IPSEC_ESP_AH, 12, 5)),
         manually(IPsecProposal(IPSEC_ESP, 12, 5))},
    };
}

Samples namedSamples()
{
    return {
        {"algorithm-must-not",
         {FIRST + "encryption: Encryption 2 is 'DES-CBC', which MUST NOT be used. Replace it.",
          FIRST + "hash: Hash 2 is 'HMAC-MD5', which MUST NOT be used. Replace it."},
         exchanged({IPsecProposal(IPSEC_ESP, 2, 2)}),
         exchanged({IPsecProposal(IPSEC_ESP, 12, 5), IPsecProposal(IPSEC_AH, 2, 5)}),
         ALGORITHMS},
        {"algorithm-must-not",
         {MANUAL + "hash: Hash 0 is 'none\\x1b', which MUST NOT be used. Replace it."},
         manually(IPsecProposal(IPSEC_ESP, 12, 0)),
         manually(IPsecProposal(IPSEC_ESP, 12, 1)),
         ALGORITHMS},
        {"algorithm-should-not",
         {SECOND + "encryption: Encryption 3 is '3DES-CBC', which SHOULD NOT be used. Replace it."},
         exchanged({IPsecProposal(IPSEC_AH, 3, 5), IPsecProposal(IPSEC_ESP_AH, 3, 5)}),
         exchanged({IPsecProposal(IPSEC_AH, 3, 5), IPsecProposal(IPSEC_ESP, 2, 5)}),
         ALGORITHMS},
        {"algorithm-outgoing",
         {MANUAL + "encryption: Encryption 4 is 'Fading', which is SHOULD-, on its way out. Plan to replace it.",
          MANUAL + "hash: Hash 3 is 'HMAC-SHA1', which is MUST-, on its way out. Plan to replace it."},
         manually(IPsecProposal(IPSEC_ESP, 4, 3)),
         manually(IPsecProposal(IPSEC_ESP, 13, 5)),
         ALGORITHMS},
        {"unknown-algorithm",
         {FIRST + "encryption: Encryption 5 is not in the file of --algorithms. Correct it, or add it there.",
          FIRST + "hash: Hash 12 is not in the file of --algorithms. Correct it, or add it there."},
         exchanged({IPsecProposal(IPSEC_ESP, 5, 12)}),
         exchanged({IPsecProposal(IPSEC_ESP, 1, 1), IPsecProposal(IPSEC_AH, 5, 5)}),
         ALGORITHMS},
        {"unknown-algorithm",
         {FIRST + "encryption: Encryption 5 is not in the file of --algorithms. Correct it, or add it there."},
         exchanged({IPsecProposal(IPSEC_ESP, 5, 5)}),
         exchanged({IPsecProposal(IPSEC_ESP, 11, 5)}),
         ALGORITHMS},
        {"manual-counter-mode",
         {MANUAL + "encryption: 'AES-CTR' is a counter mode, which MUST NOT have manual keys. Write AES-CBC's number "
                   "and a hash, or use IKE."},
         manually(IPsecProposal(IPSEC_ESP, 13, 5)),
         exchanged({IPsecProposal(IPSEC_ESP, 13, 5)}),
         ALGORITHMS},
        {"manual-counter-mode",
         {MANUAL + "encryption: 'AES-GCM-16' is an authenticated cipher, which MUST NOT have manual keys. Write "
                   "AES-CBC's number and a hash, or use IKE."},
         manually(IPsecProposal(IPSEC_ESP_AH, 20, 5)),
         manually(IPsecProposal(IPSEC_AH, 20, 5)),
         ALGORITHMS},
        {"manual-counter-mode",
         {MANUAL + "encryption: 'AES-GCM-12' is an authenticated cipher, which MUST NOT have manual keys. Write "
                   "AES-CBC's number and a hash, or use IKE."},
         manually(IPsecProposal(IPSEC_ESP, 19, 0)),
         exchanged({IPsecProposal(IPSEC_ESP, 19, 0)}),
         ALGORITHMS},
        {"hash-beside-aead",
         {SECOND + "hash: 'AES-GCM-12' authenticates what it encrypts, and needs no hash beside it. Write 0."},
         exchanged({IPsecProposal(IPSEC_ESP, 12, 5), IPsecProposal(IPSEC_ESP, 19, 5)}),
         exchanged({IPsecProposal(IPSEC_ESP, 12, 5), IPsecProposal(IPSEC_ESP, 19, 1)}),
         ALGORITHMS},
        {"hash-beside-aead",
         {MANUAL + "hash: 'AES-GCM-16' authenticates what it encrypts, and needs no hash beside it. Write 0."},
         manually(IPsecProposal(IPSEC_ESP, 20, 2)),
         manually(IPsecProposal(IPSEC_ESP_AH, 20, 2)), // where it is that of AH
         ALGORITHMS},
        {"hash-beside-aead",
         {FIRST + "hash: 'AES-GCM-16' authenticates what it encrypts, and needs no hash beside it. Write 0."},
         exchanged({IPsecProposal(IPSEC_ESP, 20, 5)}),
         exchanged({IPsecProposal(IPSEC_AH, 20, 5), IPsecProposal(IPSEC_ESP, 13, 5), IPsecProposal(IPSEC_ESP, 5, 5)}),
         ALGORITHMS},
    };
}

} // namespace

Samples proposalSamples()
{
    Samples       samples = numberSamples();
    const Samples named   = namedSamples();
    samples.insert(samples.end(), named.begin(), named.end());
    return samples;
}
