#include "document_mutator.h"

#include "elements.h"
#include "input.h"

#include <ipsecimpl/ipsecimpl.h>

#include <initializer_list>
#include <vector>

namespace ipsecimpl {
namespace {

template <int Num, auto Names>
void append(std::vector<std::string>& words, const Enum<Num, Names>&)
{
    words.insert(words.end(), std::begin(*Names), std::end(*Names));
}

/// What the value of a leaf may be, and what it is better not.
std::vector<std::string> makeWords()
{
    std::vector<std::string> words = {
        // clang-format off
        "", "0", "1", "2", "3", "7", "24", "-1", "+1", "08", "010", "0x", "0x10", "0X7f", "0b1", "12abc", "33", "129",
        "65535", "65536", "2147483646", "2147483647", "2147483648", "4294967294", "4294967295", "4294967296",
        "-2147483648", "-2147483649", "-4294967295", "-4294967296", "9223372036854775807", "9223372036854775808",
        "-9223372036854775808", "18446744073709551615", "18446744073709551616",
        "1234567890123456789012345678901234567890",
        "10.0.0.1", "255.255.255.0", "255.0.255.0", "256.0.0.0", "ffff:ffff::", "::", "::ffff:255.255.0.0", "1::2::3",
        "MIRRORED", "NOTMIRRORED", " ", "\t", "\v", "&", "&lt;", ">", "\"", "'", "\xFF", "<", "<a", "</", "a\nb", " a "
        // clang-format on
    };
    words.emplace_back(1, '\0');
    append(words, SPD_NONE);
    append(words, KEYMGR_NONE);
    append(words, IPSEC_NONE);
    append(words, IKE_AUTH_PSK);
    append(words, IKE_NONE);
    append(words, DH_GROUP_NONE);
    append(words, KEYLIFETIME_SECS);
    append(words, HOST_INET);
    append(words, HOST_NONE);
    append(words, PROTO_IN);
    return words;
}

IPsecAction protectedAction(const SPDAction& spdAction, const IPsecKeyMgr& keyMgr)
{
    return {spdAction, "name", 0, "descr", 0, keyMgr};
}

/// Elements of every kind, as they are written.
std::vector<std::string> makeFragments()
{
    const IPsecProposal both(IPSEC_ESP_AH, 2, 2);

    MKM key;
    key.saProposal     = both;
    IPsecAction manual = protectedAction(SPD_TUNNEL, KEYMGR_MKM);
    manual.manualKeySet(key);
    IKEPhase1Proposal proposal({IKE_AESCBC_SHA1, IKE_3DES_MD5}, DH_GROUP_2, 28800, KEYLIFETIME_SECS);
    IPsecAction       psk = protectedAction(SPD_TRANSPORT, KEYMGR_IKE);
    psk.ikePhase2Set(IKEPhase2({both, both}, DH_GROUP_14, 60, KEYLIFETIME_MINS));
    IPsecAction rsa = protectedAction(SPD_TUNNEL, KEYMGR_IKE);
    rsa.ikePhase1Set(IKEPhase1(IKE_AUTH_RSA, "cert", "trust", "", proposal));

    HostGroup hosts("hosts", 0, "descr", 0);
    hosts.selectors = {{HOST_INET, HOST_SINGLE, "10.0.0.1", ""},
                       {HOST_INET6, HOST_RANGE, "::1", "::9"},
                       {HOST_INET, HOST_SUBNET_LENGTH, "10.0.0.0", 24},
                       {HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "255.0.0.0"}};

    IPsecConfig config;
    config.hostGroups.add(hosts);
    config.protocolGroups.add(ProtocolGroupSystem());
    for (const IPsecAction& action : {manual, psk, rsa, ActionDiscard()})
        config.actions.add(action);
    config.policies.add(Policy(1, 1, 1));

    const std::string        document = stored(config);
    std::vector<std::string> fragments;
    for (const std::size_t at : startTags(document))
        fragments.emplace_back(elementAt(document, at).in(document));
    return fragments;
}

std::string joined(std::initializer_list<std::string_view> parts)
{
    std::string text;
    for (const std::string_view part : parts)
        text += part;
    return text;
}

/// `text` with `by` in the place of what stands from `begin` to `end`.
std::string replaced(std::string_view text, std::size_t begin, std::size_t end, std::string_view by)
{
    return joined({text.substr(0, begin), by, text.substr(end)});
}

} // namespace

std::string_view DocumentMutator::someFragment()
{
    static const std::vector<std::string> fragments = makeFragments();
    return fragments[below(fragments.size())];
}

std::string DocumentMutator::withOtherContent(std::string_view document)
{
    static const std::vector<std::string> words = makeWords();

    const auto tags = startTags(document);
    Element    leaf = elementAt(document, tags[below(tags.size())]);
    for (int attempt = 0; attempt < 4 && !leaf.isLeaf; ++attempt)
        leaf = elementAt(document, tags[below(tags.size())]);
    const std::string_view word = words[below(words.size())], name = leaf.nameIn(document);
    const std::string_view text = leaf.contentIn(document);
    switch (below(8)) {
    case 0: // the other forms of a leaf
        return replaced(document, leaf.begin, leaf.end, joined({"<", name, " value=\"", text, "\"/>\n"}));
    case 1:
        return replaced(document, leaf.begin, leaf.end, joined({"<", name, " value='", word, "'></", name, ">\n"}));
    case 2:
        return replaced(document, leaf.contentBegin, leaf.contentEnd, joined({text, word}));
    case 3:
        return replaced(document, leaf.contentBegin, leaf.contentEnd, joined({word, text}));
    default:
        return replaced(document, leaf.contentBegin, leaf.contentEnd, word);
    }
}

std::string DocumentMutator::changed(std::string_view document)
{
    const auto tags = startTags(document);
    if (tags.empty())
        return joined({document, someFragment()});
    const Element element = elementAt(document, tags[below(tags.size())]);
    const Element other   = elementAt(document, tags[below(tags.size())]);
    switch (below(12)) {
    case 0: // removed
        return replaced(document, element.begin, element.end, "");
    case 1: // doubled
        return replaced(document, element.end, element.end, element.in(document));
    case 2: // swapped with what follows it
        if (element.end < document.size() && document[element.end] == '<') {
            const Element next = elementAt(document, element.end);
            return replaced(document, element.begin, next.end, joined({next.in(document), element.in(document)}));
        }
        return replaced(document, element.begin, element.end, "");
    case 3: // copied elsewhere
        return replaced(document, other.begin, other.begin, element.in(document));
    case 4: // in the place of another
        return replaced(document, other.begin, other.end, element.in(document));
    case 5: // a new one
        return replaced(document, element.end, element.end, someFragment());
    case 6: // a new one instead
        return replaced(document, element.begin, element.end, someFragment());
    case 7: // emptied
        return replaced(document, element.contentBegin, element.contentEnd, "");
    default:
        return withOtherContent(document);
    }
}

std::string DocumentMutator::crossed(std::string_view document, std::string_view other)
{
    const auto tags = startTags(document), otherTags = startTags(other);
    if (tags.empty() || otherTags.empty())
        return joined({document, other});
    const Element          place    = elementAt(document, tags[below(tags.size())]);
    const std::string_view inserted = elementAt(other, otherTags[below(otherTags.size())]).in(other);
    return replaced(document, place.begin, below(2) == 0 ? place.begin : place.end, inserted);
}

} // namespace ipsecimpl
