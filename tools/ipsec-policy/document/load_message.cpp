#include "load_message.h"

#include "text.h"

#include <algorithm>
#include <iterator>

namespace {

// All that a message may quote: the tags, the words that messages call some of them by, and what tags are made of.
// clang-format off
const std::string_view WORDS[] = {
    "ipsec",
    "hostGroups",     "hostGroupEntry",     "hostGroup",     "nexthostGroup",     "hostSelector",
    "protocolGroups", "protocolGroupEntry", "protocolGroup", "nextprotocolGroup", "protocolSelector",
    "actions",        "actionEntry",        "action",        "nextaction",
    "policies",       "policyEntry",        "policy",        "nextpolicy",
    "id", "name", "builtinName", "descr", "builtinDescr", "selectors",
    "family", "selectorType", "addr1", "addr2", "mask", "length",
    "protocol", "dstPort", "srcPort", "direction", "mirrored", "dstProt",
    "changeCount", "type", "state", "spdAction", "tunnelEndpoint", "keyMgr",
    "ikePhase1", "authType", "auth", "presharedKey", "localCert", "peerTrust",
    "proposal", "ikePhase1Proposal", "dhGroup", "keyLifetime", "keyLifetimeUnits", "transform", "ikePhase2",
    "manualKey", "saProposal", "encryption", "hash",
    "inboundESPSPI", "outboundESPSPI", "inboundAHSPI", "outboundAHSPI",
    "inboundDecrKey", "outboundEncrKey", "outboundEncrIV", "inboundAuthKey", "outboundAuthKey",
    "hostGroupID", "protocolGroupID", "actionID",
    "value", "<", "/", ">",
};
// clang-format on

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

std::string shownTag(std::string_view name)
{
    return isWordOfFormat(name) ? '<' + std::string(name) + '>' : "an unknown element";
}

const char HIDDEN[] = "(not shown)";

/// Takes a tag, or what is in quotes, from the start of a text, and returns it as it can be shown.
std::string takeQuoted(std::string_view& text, bool isValue)
{
    const bool             isTag = text.front() == '<';
    const std::size_t      close = text.find(isTag ? '>' : '\'', 1);
    const std::string_view name  = text.substr(1, close - 1);

    std::size_t end   = std::min(close, text.size() - 1);
    std::string shown = HIDDEN;
    if (isTag)
        shown = shownTag(name);
    else if (!isValue && isWordOfFormat(name))
        shown = text.substr(0, end + 1);
    else if (close != std::string_view::npos)
        end = text.rfind('\''); // there may be quotes in what is quoted
    text.remove_prefix(end + 1);
    return shown;
}

/// The message without its context. Texts of the document stand in it in quotes, as tags, or behind "unknown tag".
std::string shownText(std::string_view text)
{
    const std::string_view UNKNOWN_TAG = "unknown tag: ";
    const std::string_view APOSTROPHE  = "parse_end_tag: begin/end tags don't match";

    if (text == APOSTROPHE)
        return std::string(text);
    if (startsWith(text, UNKNOWN_TAG) && !isWordOfFormat(text.substr(UNKNOWN_TAG.size())))
        return std::string(UNKNOWN_TAG) + HIDDEN;

    std::string result;
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find_first_of("'<"), text.size());
        result += text.substr(0, plain);
        text.remove_prefix(plain);
        if (!text.empty())
            result += takeQuoted(text, endsWith(result, "value ")); // a value may begin with a word and a quote
    }
    return printable(result);
}

/// Takes the context from the end of a message, and returns it as it can be shown.
std::vector<std::string> takeContext(std::string_view& message)
{
    const std::string_view FROM = "\nfrom <";

    std::vector<std::string> tags;
    for (;;) {
        const std::size_t start = std::min(message.rfind('\n'), message.size());
        if (!startsWith(message.substr(start), FROM) || !endsWith(message, ">"))
            return tags;
        const std::string_view name = message.substr(start + FROM.size());
        tags.push_back(shownTag(name.substr(0, name.size() - 1)));
        message.remove_suffix(message.size() - start);
    }
}

/// Whether the last that was read is the start of a comment or the like.
bool atDeclaration(const Place& place)
{
    const std::size_t start = place.document.substr(0, place.read).rfind('<');
    return start != std::string_view::npos && start + 2 >= place.read && start + 1 < place.document.size() &&
           (place.document[start + 1] == '!' || place.document[start + 1] == '?');
}

bool hasByteOrderMark(std::string_view document)
{
    return startsWith(document, "\xef\xbb\xbf") || startsWith(document, "\xff\xfe") || startsWith(document, "\xfe\xff");
}

/// Such as "line 7", counted from 1, for what comes after the first `read` bytes.
std::string lineAfter(std::string_view document, std::size_t read)
{
    const std::string_view before = document.substr(0, read);
    return "line " + std::to_string(1 + std::count(before.begin(), before.end(), '\n'));
}

} // namespace

bool isWordOfFormat(std::string_view name)
{
    return std::find(std::begin(WORDS), std::end(WORDS), name) != std::end(WORDS);
}

LoadFault loadFault(const std::string& parserMessage, const Place& place)
{
    const std::size_t contentEnd = place.document.find_last_not_of(WHITE_SPACE) + 1;
    if (contentEnd == 0)
        return {"the document is empty", {}, false};
    if (hasByteOrderMark(place.document))
        return {"the document begins with a byte order mark, which this format does not have", {}, false};

    LoadFault fault;
    fault.read    = std::min(place.read, contentEnd);
    fault.isAtEnd = place.atEnd;
    if (place.document.substr(0, place.read).find('\0') != std::string_view::npos) {
        fault.message = "the document does not load; why cannot be told, because it holds a NUL character";
        return fault;
    }

    std::string_view text = parserMessage;
    fault.openElements    = takeContext(text);
    std::string hint;
    if (place.atEnd) {
        hint = " (the document ends here)";
        if (endsWith(text, ", found '\xff'") || endsWith(text, ", got '\xff'"))
            text = text.substr(0, text.rfind(','));
    } else if (atDeclaration(place)) {
        hint = " (this format has no XML declaration, comments, DOCTYPE or CDATA)";
    }
    fault.message = shownText(text) + hint;
    return fault;
}

std::string loadMessage(const LoadFault& fault, std::string_view document)
{
    if (!fault.hasPlace)
        return fault.message;
    std::string text = lineAfter(document, fault.read) + ": " + fault.message;
    for (auto element = fault.openElements.rbegin(); element != fault.openElements.rend(); ++element)
        text += "\nfrom " + *element;
    return text;
}
