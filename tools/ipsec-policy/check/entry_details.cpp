#include "entry_details.h"

#include "leaf_words.h"
#include "number_text.h"

#include <ipsecimpl/enums.h>

#include <algorithm>
#include <iterator>

namespace {

const std::size_t LONG_ENTRY = 4096;

/// An SA proposal's protocol, which shares its tag with a selector's number.
bool isProtocolWord(std::string_view tag, std::string_view text)
{
    const auto& words = ipsecimpl::__IPsecProtocolNames__;
    return tag == "protocol" && std::find(std::begin(words), std::end(words), text) != std::end(words);
}

bool isSecret(std::string_view tag, std::string_view text)
{
    return isSecretTag(tag) || (isNumberTag(tag) && !isPrintableNumber(text) && !isProtocolWord(tag, text));
}

void addSecret(std::string_view document, const Leaf& leaf, std::vector<Span>& secrets)
{
    if (leaf.text.length > 0 && isSecret(leaf.tag.name, leaf.text.in(document)))
        secrets.push_back(leaf.text);
}

void addMember(const StartTag& tag, EntryDetails& details)
{
    if (tag.name == "hostSelector" || tag.name == "protocolSelector")
        details.selectors.push_back(tag.offset);
    else if (tag.name == "transform")
        details.transforms.push_back(tag.offset);
    else if (tag.name == "saProposal")
        details.proposals.push_back(tag.offset);
}

template <class Visit>
void visitStartTags(std::string_view document, Span span, const Visit& visit)
{
    Lexer    lexer(document, span.offset);
    StartTag tag;
    while (lexer.nextStartTag(span.end(), tag)) {
        const bool isLeaf = lexer.isLeaf(tag);
        visit(tag, isLeaf ? lexer.rest(tag) : Leaf());
    }
}

} // namespace

EntryDetails detailsOf(std::string_view document, Span entry)
{
    EntryDetails details;
    visitStartTags(document, entry, [&](const StartTag& tag, const Leaf& leaf) {
        addMember(tag, details);
        addSecret(document, leaf, details.secrets);
    });
    return details;
}

const EntryDetails* LongEntries::detailsOf(std::string_view document, const SourceEntry& entry)
{
    if (entry.span.length <= LONG_ENTRY)
        return nullptr;
    const auto [place, isNew] = details_.try_emplace(entry.span.offset);
    if (isNew)
        place->second = ::detailsOf(document, entry.span);
    return &place->second;
}

void addSecretsIn(std::string_view document, Span entry, Span span, std::vector<Span>& secrets)
{
    // What a tag is cannot be told without what comes before it: in an attribute there may be anything.
    const Span begun = spanBetween(entry.offset, std::min(entry.end(), span.end()));
    visitStartTags(document, begun, [&](const StartTag&, const Leaf& leaf) {
        if (leaf.text.end() > span.offset && leaf.text.offset < span.end())
            addSecret(document, leaf, secrets);
    });
}
