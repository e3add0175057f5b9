#include "load_advice.h"

#include "leaf_words.h"
#include "lexer.h"
#include "load_message.h"
#include "misplaced.h"
#include "position.h"
#include "repeated_id.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace {

const char WRITE_MIRRORED[] = "Write MIRRORED or NOTMIRRORED.";
const char CHILDREN_OF_PROTOCOL_SELECTOR[] =
    "A <protocolSelector> has <protocol>, <name>, <dstPort>, <srcPort>, <direction> and <mirrored>.";

/// The end tag of the innermost open element, as it can be shown.
std::string innermostEnd(const LoadTrouble& trouble)
{
    if (trouble.before.open.empty() || !isWordOfFormat(trouble.before.open.back().name))
        return "the end tag of the innermost open element";
    return "</" + std::string(trouble.before.open.back().name) + '>';
}

/// The tag that the message names behind "expected ".
std::string expectedTag(std::string_view message)
{
    const std::size_t begin = message.find("expected <") + std::string_view("expected ").size();
    return std::string(message.substr(begin, message.find('>', begin) + 1 - begin));
}

std::string adviseText(const LoadTrouble& trouble)
{
    return trouble.before.open.empty() ? "A document begins with <ipsec>: remove what stands before it."
                                       : "Only elements can stand here: remove this text.";
}

std::string adviseUnnamed(const LoadTrouble& trouble)
{
    const std::string_view next = trouble.document.substr(trouble.piece.offset + 1, 1);
    return next == "!" || next == "?" ? "Remove it." : "Write the name of the element right behind '<'.";
}

std::string adviseOnlyEndTag(const LoadTrouble& trouble)
{
    return "Only " + innermostEnd(trouble) + " can stand here: remove this text.";
}

std::string adviseMisplaced(const LoadTrouble& trouble)
{
    const std::string_view found = tagNameAt(trouble.document, trouble.piece.offset);
    if (!trouble.before.open.empty())
        if (std::string advice = misplacedAdvice(trouble.document, trouble.before.open.back(), trouble.piece.offset);
            !advice.empty())
            return advice;
    const bool isText = !trouble.before.open.empty() && !trouble.before.open.back().hasChildren;
    return "Only " + innermostEnd(trouble) + " can stand here: " +
           (isText          ? "a text has no '<' in it."
            : found.empty() ? "remove this."
                            : "remove this element.");
}

std::string adviseEndTag(const LoadTrouble& trouble)
{
    return "Write " + innermostEnd(trouble) + " here, without white space.";
}

std::string adviseEndTagMismatch(const LoadTrouble& trouble)
{
    const std::string_view found = tagNameAt(trouble.document, trouble.piece.offset);
    const auto&            open  = trouble.before.open;
    const bool             isOpen =
        std::any_of(open.begin(), open.end(), [found](const OpenElement& element) { return element.name == found; });
    return "Write " + innermostEnd(trouble) + (isOpen ? " before this tag." : " instead of this tag.");
}

std::string adviseMissing(const LoadTrouble& trouble)
{
    return "Write " + expectedTag(trouble.message) + " before this tag: it cannot be left out.";
}

/// Whether one of the elements behind the one at `offset`, in the same parent, has this tag.
bool followsLater(std::string_view document, std::size_t offset, std::string_view tag)
{
    Lexer lexer(document, offset);
    try {
        for (lexer.skipElement(); !lexer.atEndTag(); lexer.skipElement())
            if ('<' + std::string(tagNameAt(document, lexer.offset())) + '>' == tag)
                return true;
    } catch (const std::logic_error&) { // what cannot be told is not said
    }
    return false;
}

std::string adviseWrongTag(const LoadTrouble& trouble)
{
    if (!trouble.before.open.empty())
        if (std::string advice = misplacedAdvice(trouble.document, trouble.before.open.back(), trouble.piece.offset);
            !advice.empty())
            return advice;
    if (trouble.before.open.empty())
        return "A document begins with <ipsec>.";
    const std::string expected = expectedTag(trouble.message);
    if (followsLater(trouble.document, trouble.piece.offset, expected))
        return isWordOfFormat(tagNameAt(trouble.document, trouble.piece.offset))
                   ? "Move " + expected + " before this element: the order is fixed."
                   : "Remove this element.";
    return "Write " + expected + " before this tag, or instead: the order is fixed.";
}

std::string adviseOtherID(const LoadTrouble& trouble)
{
    const std::string where = trouble.first ? "The first entry with it has it at " +
                                                  textOf(positionIn(trouble.document, trouble.first->offset))
                                            : "An entry before this one has it";
    return where + ". Write an ID that no other has.";
}

std::string adviseCollection(const LoadTrouble& trouble)
{
    if (trouble.before.open.empty() || !isWordOfFormat(trouble.before.open.back().name))
        return "Remove this element.";
    const std::string plural(trouble.before.open.back().name);
    const std::string singular = plural == "policies" ? "policy" : plural.substr(0, plural.size() - 1);
    return "Only <" + singular + "Entry> and <next" + singular + "> can stand in <" + plural + ">.";
}

std::string adviseHostSelector(const LoadTrouble& trouble)
{
    return trouble.read.lastName == "mask"
               ? "Write a mask such as 255.255.255.0 with <family> AF_INET, or ffff:: with AF_INET6."
               : "A <length> needs the <family> AF_INET or AF_INET6.";
}

std::string adviseWord(const LoadTrouble& trouble)
{
    const std::vector<std::string> words = wordsIn(trouble.read.lastName);
    if (words.empty())
        return "Write one of the words that the format has for it.";
    std::string advice = "Write one of these in <" + std::string(trouble.read.lastName) + ">:";
    for (const std::string& word : words)
        advice += (&word == &words.front() ? " " : ", ") + word;
    return advice + '.';
}

/// Of a protocol selector.
std::string adviseData(const LoadTrouble& trouble)
{
    const std::string_view name = trouble.read.lastName;
    if (name == "protocol")
        return "Write the number of the protocol in it, or 0 for any.";
    if (name == "name")
        return "Write a name in it: of a selector without one, what is stored does not load again.";
    if (name == "direction")
        return adviseWord(trouble);
    if (name == "mirrored")
        return WRITE_MIRRORED;
    return name == "dstPort" || name == "srcPort" ? "Write the number of the port in it, or remove the element: 0 and "
                                                    "no element are any port."
                                                  : CHILDREN_OF_PROTOCOL_SELECTOR;
}

std::string adviseRequired(const LoadTrouble& trouble)
{
    const std::size_t begin = trouble.message.find('\'') + 1;
    return "Write <" + std::string(trouble.message.substr(begin, trouble.message.find('\'', begin) - begin)) +
           "> before this tag.";
}

struct Advice {
    std::string_view piece; ///< of the message
    std::string_view text;  ///< the advice; empty if it depends on the place
    std::string (*make)(const LoadTrouble& trouble) = nullptr;
};

// The first whose piece is in a message is the one for it.
// clang-format off
const Advice ADVICES[] = {
    {"parse_tag: expected '<'", "", adviseText},
    {"parse_tag: unnamed tag", "", adviseUnnamed},
    {"parse_value: ", "Put the attribute's value in quotes."},
    {"parse_tag_end: ", "End the tag with '>'. The only attribute is value, of elements that hold a text."},
    {"parse_end_tag: expected '<'", "", adviseOnlyEndTag},
    {"parse_end_tag: expected '/'", "", adviseMisplaced},
    {"parse_end_tag: missing tag name", "", adviseEndTag},
    {"parse_end_tag: malformed end tag", "", adviseEndTag},
    {"parse_end_tag: begin/end tags don't match", "", adviseEndTagMismatch},
    {": missing tag; expected <", "", adviseMissing},
    {": wrong tag; expected <", "", adviseWrongTag},
    {": invalid attribute; found ",
     "The only attribute is value. Write that, or the text between a start tag and an end tag."},
    {"duplicate ID", "", adviseOtherID},
    {"unknown tag: ", "", adviseCollection},
    {" missing required data", "It cannot be empty: write what belongs in it."},
    {"invalid ID for ", "Write a whole number from 1 to 2147483647."},
    {"invalid value for next", "Write a whole number from 1 to 2147483647, or 2147483648 where no ID is left."},
    {"bad value in <hostSelector>", "", adviseHostSelector},
    {"bad value", "", adviseWord},
    {"invalid value", "", adviseWord},
    {"invalid attributes or closing tag in <", "Write a start tag without attributes, the text, and an end tag."},
    {"missing data for ", "", adviseData},
    {"unknown attribute: ", CHILDREN_OF_PROTOCOL_SELECTOR},
    {" can only appear once", "Remove one of the two."},
    {"required attribute 'mirrored' must be ", WRITE_MIRRORED},
    {" is required", "", adviseRequired},
    {"nonzero 'srcPort'/'dstProt' requires ",
     "Write the number of the <protocol> that has these ports, or remove them."},
};
// clang-format on

/// The advice for the message; null if there is none.
const Advice* adviceFor(const LoadTrouble& trouble)
{
    const auto* const it = std::find_if(std::begin(ADVICES), std::end(ADVICES), [&trouble](const Advice& advice) {
        return trouble.message.find(advice.piece) != std::string_view::npos;
    });
    return trouble.isAtEnd || it == std::end(ADVICES) ? nullptr : it;
}

} // namespace

LoadTrouble troubleAt(const Place& place, std::string_view message)
{
    TagsBefore          read   = tagsBefore(place.document, place.read);
    const Span          piece  = faultyPiece(place, read, message);
    TagsBefore          before = tagsBefore(place.document, piece.offset);
    std::optional<Span> first;
    if (message == "duplicate ID")
        first = firstWithSameID(place.document, before.open, piece.offset);
    return {place.document, message, place.atEnd, piece, std::move(before), std::move(read), first};
}

std::string loadAdvice(const LoadTrouble& trouble)
{
    if (trouble.isAtEnd)
        return "The document is not complete. Take a whole copy, or add what is missing.";
    const Advice* const advice = adviceFor(trouble);
    if (advice == nullptr)
        return "Compare it with what 'ipsec-policy new' prints.";
    return advice->text.empty() ? advice->make(trouble) : std::string(advice->text);
}

bool isAboutWord(const LoadTrouble& trouble)
{
    const Advice* const advice = adviceFor(trouble);
    return advice != nullptr && advice->make == adviseWord && !wordsIn(trouble.read.lastName).empty();
}
