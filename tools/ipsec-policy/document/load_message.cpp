#include "load_message.h"

#include "load_advice.h"
#include "text.h"

#include <algorithm>
#include <iterator>
#include <utility>

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

/// The name of an element as it can be shown.
std::string shownName(std::string_view name)
{
    return std::string(isWordOfFormat(name) ? name : "");
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

/// Takes the context from the end of a message, and returns its names, the outermost first.
std::vector<std::string> takeContext(std::string_view& message)
{
    const std::string_view FROM = "\nfrom <";

    std::vector<std::string> names;
    for (;;) {
        const std::size_t start = std::min(message.rfind('\n'), message.size());
        if (!startsWith(message.substr(start), FROM) || !endsWith(message, ">"))
            break;
        const std::string_view name = message.substr(start + FROM.size());
        names.push_back(shownName(name.substr(0, name.size() - 1)));
        message.remove_suffix(message.size() - start);
    }
    return names;
}

/// Whether the last that was read is the start of a comment or the like.
bool atDeclaration(const Place& place)
{
    const std::size_t start = place.document.substr(0, place.read).rfind('<');
    return start != std::string_view::npos && start + 2 >= place.read && start + 1 < place.document.size() &&
           (place.document[start + 1] == '!' || place.document[start + 1] == '?');
}

/// How long the byte order mark is with which the document begins.
std::size_t byteOrderMarkLength(std::string_view document)
{
    if (startsWith(document, "\xef\xbb\xbf"))
        return 3;
    return startsWith(document, "\xff\xfe") || startsWith(document, "\xfe\xff") ? 2 : 0;
}

LoadFault faultAt(Span piece, std::string_view document, std::string message, std::string advice)
{
    return {std::move(message), std::move(advice), {}, piece, positionIn(document, piece.offset), {}, {}, false};
}

std::vector<std::string> namesOf(const std::vector<OpenElement>& elements)
{
    std::vector<std::string> names;
    names.reserve(elements.size());
    for (const OpenElement& element : elements)
        names.push_back(shownName(element.name));
    return names;
}

/// What is said of a document with a NUL character: a message ends at the first.
LoadFault faultOfNul(const Place& place, std::size_t nul)
{
    const Span piece   = faultyPiece(place, tagsBefore(place.document, place.read), "");
    LoadFault  fault   = faultAt(piece, place.document,
                                 "the document does not load; why cannot be told, because it holds a NUL character",
                                 "Remove it: the first one is at " + textOf(positionIn(place.document, nul)) + ".");
    fault.openElements = namesOf(tagsBefore(place.document, piece.offset).open);
    return fault;
}

/// What is said of a document that ends too early.
std::string withoutEnd(std::string_view text)
{
    if (endsWith(text, ", found '\xff'") || endsWith(text, ", got '\xff'"))
        text = text.substr(0, text.rfind(','));
    return shownText(text) + " (the document ends here)";
}

} // namespace

bool isWordOfFormat(std::string_view name)
{
    return std::find(std::begin(WORDS), std::end(WORDS), name) != std::end(WORDS);
}

LoadFault loadFault(const std::string& parserMessage, const Place& whole)
{
    const std::size_t contentEnd = whole.document.find_last_not_of(WHITE_SPACE) + 1;
    if (contentEnd == 0)
        return faultAt({}, whole.document, "the document is empty", "Make a configuration with 'ipsec-policy new'.");
    if (const std::size_t length = byteOrderMarkLength(whole.document); length > 0)
        return faultAt({0, length}, whole.document,
                       "the document begins with a byte order mark, which this format does not have",
                       "Store it as UTF-8 without one.");
    const Place place = {whole.document, std::min(whole.read, contentEnd), whole.atEnd};
    if (const std::size_t nul = place.document.substr(0, place.read).find('\0'); nul != std::string_view::npos)
        return faultOfNul(place, nul);

    std::string_view         text     = parserMessage;
    std::vector<std::string> elements = takeContext(text);
    std::string              message  = place.atEnd ? withoutEnd(text) : shownText(text);
    const LoadTrouble        trouble  = troubleAt(place, message);

    LoadFault fault = faultAt(trouble.piece, place.document, message, loadAdvice(trouble));
    if (!place.atEnd && atDeclaration(place))
        fault.message += " (this format has no XML declaration, comments, DOCTYPE or CDATA)";
    if (elements.empty())
        elements = namesOf(trouble.before.open);
    else if (message.find(": wrong tag; ") != std::string::npos)
        elements.pop_back(); // it has only been read
    fault.openElements = std::move(elements);
    fault.hasWrongWord = isAboutWord(trouble);
    if (trouble.first) {
        fault.first         = *trouble.first;
        fault.firstPosition = positionIn(place.document, fault.first.offset);
    }
    return fault;
}

LoadFault loadFaultBehind(std::string_view document, std::size_t offset)
{
    return faultAt({offset, 1}, document, "something follows </ipsec>", "Remove it: a file holds one configuration.");
}

std::string shownElements(const LoadFault& fault)
{
    std::string text;
    for (const std::string& name : fault.openElements)
        text += (text.empty() ? "" : " ") + shownTag(name);
    return text;
}

std::string loadMessage(const LoadFault& fault)
{
    std::string text = textOf(fault.position) + ": " + fault.message + '\n' + fault.advice;
    if (!fault.openElements.empty())
        text += "\nOpen elements: " + shownElements(fault);
    return text;
}
