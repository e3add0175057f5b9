#include "check_samples.h"

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
        config.protocolGroups.at(1).selectors = {ProtocolSelector(name, 6, 443, 0, PROTO_IN, true)};
    });
}

IPsecConfig keyed(const std::string& presharedKey)
{
    return having(authenticated(IKE_AUTH_PSK, " < ", " &lt; ", presharedKey));
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
