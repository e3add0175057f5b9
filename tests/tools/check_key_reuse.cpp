#include "check_samples.h"

using namespace ipsecimpl;

namespace {

IPsecConfig one(const KeyChange& change)
{
    return having(manual(change));
}

/// Two actions, without a key that both have but for what the changes make of them.
IPsecConfig two(const KeyChange& first, const KeyChange& second)
{
    IPsecConfig config = one(first);
    config.actions.add(manual([&](MKM& key) {
        for (std::string* text : {&key.inboundDecrKey, &key.outboundEncrKey, &key.inboundAuthKey, &key.outboundAuthKey})
            text->replace(0, 2, "ff");
        second(key);
    }));
    return config;
}

void keep(MKM& /*key*/)
{
}

} // namespace

Samples keyReuseSamples()
{
    const std::string FIRST  = "actions/1/manualKey/";
    const std::string SECOND = "actions/2/manualKey/";
    const std::string OWN    = ". Make a key of its own for each.";
    return {
        {"key-used-twice",
         {FIRST + "outboundEncrKey: The outbound encryption key is also the inbound decryption key" + OWN},
         one([](MKM& key) { key.outboundEncrKey = key.inboundDecrKey; }),
         one([](MKM& key) { key.outboundEncrIV = key.inboundDecrKey; })},
        {"key-used-twice",
         {FIRST + "outboundAuthKey: The outbound authentication key is also the inbound authentication key" + OWN},
         one([](MKM& key) {
             key.saProposal      = IPsecProposal(IPSEC_AH, 0, 5);
             key.inboundAuthKey  = "0xABCD";
             key.outboundAuthKey = "abcd";
         }),
         one([](MKM& key) {
             key.saProposal      = IPsecProposal(IPSEC_AH, 0, 1);
             key.inboundAuthKey  = "abcd";
             key.outboundAuthKey = "abcd";
         })},
        {"key-used-twice",
         {FIRST + "inboundAuthKey: The inbound authentication key is also the outbound encryption key" + OWN,
          FIRST + "outboundAuthKey: The outbound authentication key is also the inbound authentication key" + OWN},
         one([](MKM& key) { key.outboundEncrKey = key.inboundAuthKey = key.outboundAuthKey; }),
         one([](MKM& key) { key.outboundEncrKey = key.inboundAuthKey = key.outboundAuthKey = ""; })},
        {"key-used-twice",
         {FIRST + "outboundAuthKey: The outbound authentication key is also the inbound authentication key" + OWN},
         one([](MKM& key) { key.inboundAuthKey = key.outboundAuthKey = "no digits"; }),
         one([](MKM& key) {
             key.inboundAuthKey  = "no digits";
             key.outboundAuthKey = "No digits";
         })},
        {"key-used-twice",
         {FIRST + "outboundAuthKey: The outbound authentication key is also the inbound authentication key" + OWN},
         one([](MKM& key) { key.inboundAuthKey = key.outboundAuthKey = "00"; }),
         one([](MKM& key) {
             key.inboundAuthKey  = "00";
             key.outboundAuthKey = "0000";
         })},
        {"key-shared",
         {SECOND +
          "outboundEncrKey: The outbound encryption key is also the outbound encryption key of action 1 "
          "'Protect'" +
          OWN},
         two(keep, [](MKM& key) { key.outboundEncrKey = sampleKey().outboundEncrKey; }),
         two(keep, [](MKM& key) { key.outboundEncrKey = key.inboundAuthKey; })},
        {"key-shared",
         {SECOND +
          "inboundAuthKey: The inbound authentication key is also the outbound encryption key of action 1 "
          "'Protect'" +
          OWN},
         two(keep, [](MKM& key) { key.inboundAuthKey = key.outboundAuthKey = sampleKey().outboundEncrKey; }),
         two([](MKM& key) { key.saProposal.encryption = 0; },
             [](MKM& key) { key.inboundAuthKey = sampleKey().outboundEncrKey; })},
    };
}
