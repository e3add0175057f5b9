#include "checks.h"
#include "key_text.h"

using namespace ipsecimpl;

namespace {

const Rule MANUAL = {"manual-keying", Level::WARNING, "An action has manual keys",
                     "Nothing renews them, so that a key which becomes known gives away all traffic\n"
                     "of past and future; nothing detects replayed packets; nobody sees to it that\n"
                     "SPIs and initialisation vectors are used once.\n"
                     "Use IKE. If you cannot, renew the keys yourself, and keep to AES-CBC with a\n"
                     "hash.",
                     "RFC 8221 section 3"};

const Rule NO_KEY = {"no-key", Level::ERROR, "A manual key is empty",
                     "Encryption and hash numbers above 1 need a key for each direction. What a\n"
                     "system makes of an empty one is bad in every case: no traffic, or a key of\n"
                     "zeros.\n"
                     "Fill in the key, or write 0 for an algorithm that is not wanted.",
                     ""};

const Rule NOT_HEX = {"key-not-hexadecimal", Level::ERROR, "A manual key or IV is not hexadecimal",
                      "Keys are written in hexadecimal digits, with or without 0x in front. Other\n"
                      "characters are refused later, or taken for zero, or make the text itself the\n"
                      "key: then it is not the peer's.\n"
                      "Write the key in hexadecimal digits.",
                      ""};

const Rule ODD = {"odd-key-length", Level::ERROR, "A manual key or IV has an odd number of digits",
                  "Two hexadecimal digits make a byte: one was lost, or there is one too many.\n"
                  "Compare the key with the peer's.",
                  ""};

const Rule LENGTHS = {"key-lengths-differ", Level::WARNING, "The keys of the two directions differ in length",
                      "They are for the same algorithm. Where it takes keys of one length alone, one of\n"
                      "the two does not work: a piece of it was lost, perhaps. Where it takes both, the\n"
                      "shorter one is the weaker.\n"
                      "Compare both with the peer's, and make them equally long.",
                      ""};

const Rule FIXED_IV = {"fixed-iv", Level::WARNING, "The initialisation vector is fixed",
                       "It has to be new and unpredictable for each packet. With a fixed one, packets\n"
                       "that begin alike look alike, and in a counter mode they can be read.\n"
                       "Leave it empty if your IPsec system makes its own.",
                       "RFC 3602 section 3"};

/// The manual keys of one action.
class KeyCheck {
  public:
    KeyCheck(unsigned int action, Findings& findings)
        : action_(action)
        , findings_(findings)
    {
    }

    void check(const MKM& key)
    {
        reportField(MANUAL, "manualKey",
                    "Manual keys are never renewed, and replay is not detected. Use IKE if the peer can.");
        const std::vector<KeyText> texts = keysIn(key);
        for (const KeyText& text : texts) {
            if (text.key->empty())
                reportField(NO_KEY, text.field, std::string("There is no ") + text.what + ". Fill it in.");
            else
                checkDigits(text.field, text.what, *text.key);
        }
        for (std::size_t i = 1; i < texts.size(); i += 2)
            checkLengths(texts[i - 1], texts[i]);
        if (hasEncryption(key.saProposal) && !key.outboundEncrIV.empty()) {
            reportField(FIXED_IV, "manualKey/outboundEncrIV",
                        "The initialisation vector is the same for all packets. Leave it empty if your IPsec system "
                        "makes its own.");
            checkDigits("manualKey/outboundEncrIV", "initialisation vector", key.outboundEncrIV);
        }
    }

  private:
    void reportField(const Rule& rule, const char* field, std::string message)
    {
        report(findings_, rule, Kind::ACTION, action_, {field}, std::move(message));
    }

    void checkDigits(const char* field, const char* what, std::string_view text)
    {
        const std::string_view digits = withoutPrefix(text);
        if (!isHexadecimal(digits))
            reportField(NOT_HEX, field,
                        std::string("The ") + what + " is not hexadecimal. Write it in digits from 0 to 9 and a to f.");
        else if (digits.size() % 2 != 0)
            reportField(ODD, field,
                        std::string("The ") + what + " has an odd number of digits. Compare it with the peer's.");
    }

    /// Only of what could be keys: all else is found already.
    void checkLengths(const KeyText& in, const KeyText& out)
    {
        const std::string_view inDigits  = withoutPrefix(*in.key);
        const std::string_view outDigits = withoutPrefix(*out.key);
        if (inDigits.size() != outDigits.size() && isWhole(inDigits) && isWhole(outDigits))
            reportField(
                LENGTHS, out.field,
                joined({"The ", out.what, " and the ", in.what, " differ in length. Compare both with the peer's."}));
    }

    static bool isWhole(std::string_view digits) { return isHexadecimal(digits) && digits.size() % 2 == 0; }

    unsigned int action_;
    Findings&    findings_;
};

} // namespace

Rules manualKeyRules()
{
    return {&MANUAL, &NO_KEY, &NOT_HEX, &ODD, &LENGTHS, &FIXED_IV};
}

void checkManualKey(const Entry<IPsecAction>& entry, Findings& findings)
{
    if (const MKM* const key = manualKeyOf(*entry.object))
        KeyCheck(entry.id, findings).check(*key);
}
