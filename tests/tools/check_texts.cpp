#include "check_samples.h"

#include <set>

using namespace ipsecimpl;

namespace {

IPsecConfig described(const std::string& text)
{
    return plain([&](IPsecConfig& config) {
        config.hostGroups.at(1).descr = text;
        config.actions.at(1).nameSet(text);
    });
}

IPsecConfig selectorNamed(const std::string& name)
{
    return plain([&](IPsecConfig& config) {
        config.protocolGroups.at(1).selectors = std::set{ProtocolSelector(name, 6, 443, 0, PROTO_IN, true)};
    });
}

IPsecConfig keyed(const std::string& presharedKey)
{
    return having(authenticated(IKE_AUTH_PSK, " < ", " &lt; ", presharedKey));
}

IPsecConfig certified(const std::string& localCert, const std::string& peerTrust)
{
    return having(authenticated(IKE_AUTH_RSA, localCert, peerTrust, ""));
}

} // namespace

Samples textSamples()
{
    const std::string MARKUP =
        "The text holds '<': once stored, the document would not load as it is. Write it without.";
    const std::string BLANKS = "The text has white space at an end, which is lost when it is stored. Write it without.";
    const std::string UNNAMED =
        "The selector has no name: once stored, the document would not load any more. Give it one.";
    return {
        {"markup-in-text",
         {"hostGroups/1/descr: " + MARKUP, "actions/1/name: " + MARKUP},
         described("a < b"),
         described("a > b & c \"'")},
        {"markup-in-text", {"actions/1/ikePhase1/presharedKey: " + MARKUP}, keyed("<"), keyed(">")},
        {"outer-white-space",
         {"hostGroups/1/descr: " + BLANKS, "actions/1/name: " + BLANKS},
         described("a "),
         described("a b")},
        {"outer-white-space",
         {"hostGroups/1/descr: " + BLANKS, "actions/1/name: " + BLANKS},
         described("\v"),
         described("")},
        {"outer-white-space",
         {"actions/1/ikePhase1/presharedKey: " + BLANKS},
         keyed("\ttop secret"),
         keyed("top\tsecret")},
        {"outer-white-space",
         {"protocolGroups/1/selectors/1/name: " + BLANKS},
         selectorNamed(" Web"),
         selectorNamed(" ")},
        {"unnamed-selector", {"protocolGroups/1/selectors/1/name: " + UNNAMED}, selectorNamed(""), selectorNamed("-")},
        {"unnamed-selector",
         {"protocolGroups/1/selectors/1/name: " + UNNAMED},
         selectorNamed(" \n"),
         selectorNamed(" -")},
    };
}

Samples characterSamples()
{
    const auto hidden = [](const std::string& character) {
        return ": The text holds " + character + ", which cannot be seen. Write it without.";
    };
    const auto stray = [](const std::string& byte) {
        return ": The text holds the byte " + byte + ", which is not UTF-8. Write it in UTF-8.";
    };
    return {
        {"hidden-character",
         {"hostGroups/1/descr" + hidden("\\x1b"), "actions/1/name" + hidden("\\x1b")},
         described("a\x1b[2Jb\x07"),
         described("a\\x1b[2Jb ~")},
        {"hidden-character",
         {"hostGroups/1/descr" + hidden("\\x7f"), "actions/1/name" + hidden("\\t")},
         described("a\t\x7f"),
         described("\xc3\xa4 \xe6\xbc\xa2 \xf0\x9f\x98\x80")},
        {"hidden-character",
         {"actions/1/name" + hidden("\\r")},
         described("two\r\nlines"),
         plain([](IPsecConfig& config) {
             config.hostGroups.at(1).descr = "two\r\n\tlines";
             config.actions.at(1).descrSet("two\r\n\tlines");
         })},
        {"hidden-character",
         {"protocolGroups/1/selectors/1/name" + hidden("\\u{202e}")},
         selectorNamed("a\xe2\x80\xae"
                       "b"),
         selectorNamed("a\xe2\x80\xaf"
                       "b")}, // a blank that does not break
        {"hidden-character",
         {"actions/1/ikePhase1/presharedKey" + hidden("a character")},
         keyed("Tr0ub4dor\t-and-3-more-words"),
         keyed("Tr0ub4dor -and-3-more-words")},
        {"hidden-character",
         {"actions/1/ikePhase1/localCert" + hidden("\\n"), "actions/1/ikePhase1/peerTrust" + hidden("\\u{200b}")},
         certified("gw\n.pem", "ca\xe2\x80\x8b.pem"),
         certified("gw .pem", "ca-.pem")},
        {"not-utf-8",
         {"hostGroups/1/descr" + stray("\\xe4"), "actions/1/name" + stray("\\xe4")},
         described("R\xe4ume\xff"),
         described("R\xc3\xa4ume")},
        {"not-utf-8",
         {"protocolGroups/1/selectors/1/name" + stray("\\xc3")},
         selectorNamed("Web \xc3"),
         selectorNamed("Web \xc3\x9f")},
        {"not-utf-8", {"actions/1/ikePhase1/peerTrust" + stray("\\x80")}, certified("a", "\x80"), keyed("\x80")},
    };
}
