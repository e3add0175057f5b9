#include "check_samples.h"

using namespace ipsecimpl;

namespace {

IPsecConfig keyed(const KeyChange& change)
{
    return having(manual(change));
}

/// With `text` for the outbound encryption key.
IPsecConfig encrypting(const std::string& text)
{
    return keyed([&](MKM& key) { key.outboundEncrKey = text; });
}

IPsecConfig initialised(const IPsecProposal& proposal, const std::string& vector)
{
    return keyed([&](MKM& key) {
        key.saProposal     = proposal;
        key.outboundEncrIV = vector;
    });
}

/// With these numbers and no keys at all.
IPsecConfig keyless(unsigned long encryption, unsigned long hash)
{
    return keyed([&](MKM& key) {
        key.saProposal = IPsecProposal(IPSEC_ESP, encryption, hash);
        key.inboundDecrKey.clear();
        key.outboundEncrKey.clear();
        key.inboundAuthKey.clear();
        key.outboundAuthKey.clear();
    });
}

const IPsecProposal ENCRYPTED(IPSEC_ESP, 12, 5);
const IPsecProposal PLAIN_TEXT(IPSEC_ESP, 1, 5);

} // namespace

Samples manualKeySamples()
{
    const std::string AT      = "actions/1/manualKey/";
    const std::string DIGITS  = " is not hexadecimal. Write it in digits from 0 to 9 and a to f.";
    const std::string LENGTHS = " differ in length. Compare both with the peer's.";
    const std::string ODD     = " has an odd number of digits. Compare it with the peer's.";
    return {
        {"manual-keying",
         {"actions/1/manualKey: Manual keys are never renewed, and replay is not detected. Use IKE if the peer can."},
         having(tunnel(KEYMGR_MKM)),
         having(tunnel(KEYMGR_IKE))},
        {"no-key",
         {AT + "inboundDecrKey: There is no inbound decryption key. Fill it in.",
          AT + "outboundEncrKey: There is no outbound encryption key. Fill it in.",
          AT + "inboundAuthKey: There is no inbound authentication key. Fill it in.",
          AT + "outboundAuthKey: There is no outbound authentication key. Fill it in."},
         keyless(2, 2),
         keyless(1, 1)},
        {"no-key",
         {AT + "outboundEncrKey: There is no outbound encryption key. Fill it in."},
         encrypting(""),
         encrypting("00")},
        {"key-not-hexadecimal",
         {AT + "outboundEncrKey: The outbound encryption key" + DIGITS},
         encrypting("00g0"),
         encrypting("00F0")},
        {"key-not-hexadecimal",
         {AT + "outboundEncrKey: The outbound encryption key" + DIGITS},
         encrypting("00 11"),
         encrypting("0x0011")},
        {"key-not-hexadecimal",
         {AT + "outboundEncrKey: The outbound encryption key" + DIGITS},
         encrypting("0X"),
         encrypting("0Xaa")},
        {"key-not-hexadecimal",
         {AT + "outboundEncrIV: The initialisation vector" + DIGITS},
         initialised(ENCRYPTED, "random"),
         initialised(PLAIN_TEXT, "random")},
        {"odd-key-length",
         {AT + "outboundEncrKey: The outbound encryption key" + ODD},
         encrypting("00112"),
         encrypting("001122")},
        {"odd-key-length",
         {AT + "outboundEncrKey: The outbound encryption key" + ODD},
         encrypting("0x0"),
         encrypting("0x00")},
        {"odd-key-length",
         {AT + "outboundEncrKey: The outbound encryption key" + ODD},
         encrypting("001"),
         encrypting("00x")},
        {"odd-key-length",
         {AT + "outboundEncrIV: The initialisation vector" + ODD},
         initialised(ENCRYPTED, "001"),
         initialised(ENCRYPTED, "0011")},
        {"key-lengths-differ",
         {AT + "outboundEncrKey: The outbound encryption key and the inbound decryption key" + LENGTHS},
         encrypting("00112233445566778899aabbccddee0200"),
         encrypting("0x00112233445566778899AABBCCDDEE02")},
        {"key-lengths-differ",
         {AT + "outboundEncrKey: The outbound encryption key and the inbound decryption key" + LENGTHS},
         encrypting("00112233445566778899aabbccddee"),
         encrypting("00112233445566778899aabbccddee0")},
        {"key-lengths-differ",
         {AT + "outboundAuthKey: The outbound authentication key and the inbound authentication key" + LENGTHS},
         keyed([](MKM& key) { key.inboundAuthKey = "00"; }),
         keyed([](MKM& key) { key.inboundAuthKey = "no digits"; })},
        {"key-lengths-differ",
         {AT + "outboundEncrKey: The outbound encryption key and the inbound decryption key" + LENGTHS,
          AT + "outboundAuthKey: The outbound authentication key and the inbound authentication key" + LENGTHS},
         keyed([](MKM& key) { key.inboundDecrKey = key.inboundAuthKey = "00"; }),
         keyed([](MKM& key) { key.inboundDecrKey = key.inboundAuthKey = ""; })},
        {"key-lengths-differ",
         {AT + "outboundEncrKey: The outbound encryption key and the inbound decryption key" + LENGTHS},
         encrypting("00"),
         keyed([](MKM& key) {
             key.saProposal.encryption = 1;
             key.outboundEncrKey       = "00";
         })},
        {"fixed-iv",
         {AT + "outboundEncrIV: The initialisation vector is the same for all packets. Leave it empty if your IPsec "
               "system makes its own."},
         initialised(ENCRYPTED, "0011"),
         initialised(ENCRYPTED, "")},
        {"fixed-iv",
         {AT + "outboundEncrIV: The initialisation vector is the same for all packets. Leave it empty if your IPsec "
               "system makes its own."},
         initialised(ENCRYPTED, "0011"),
         initialised(PLAIN_TEXT, "0011")},
    };
}
