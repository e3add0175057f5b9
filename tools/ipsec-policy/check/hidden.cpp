#include "hidden.h"

#include "leaf_words.h"
#include "load_message.h"
#include "number_text.h"

#include <ipsecimpl/xml.h>

#include <algorithm>

namespace {

std::size_t lengthOf(std::string_view text, const char* characters)
{
    return std::min(text.find_first_not_of(characters), text.size());
}

bool isNameCharacter(char c)
{
    return ipsecimpl::XMLParser::isNameChar(static_cast<unsigned char>(c));
}

/// The length of the start of a tag of the format at the start of `text`, with its name: 0 if it is none.
std::size_t tagLength(std::string_view text)
{
    const std::size_t begin = text.substr(0, 2) == "</" ? 2 : 1;
    std::size_t       end   = begin;
    while (end < text.size() && isNameCharacter(text[end]))
        ++end;
    const bool ends = end == text.size() || text[end] == '>' || text[end] == '/' || isWhiteSpace(text[end]);
    return ends && isWordOfFormat(text.substr(begin, end - begin)) ? end : 0;
}

/// How much may be shown at the start of `text`, before which a tag was begun but not ended if `inTag`.
std::size_t shownLengthInBroken(std::string_view text, bool& inTag)
{
    if (text.front() == '<') {
        const std::size_t length = tagLength(text);
        inTag                    = inTag || length > 0;
        return length;
    }
    const std::size_t end = text.substr(0, 2) == "/>" ? 2 : text.front() == '>' ? 1 : 0;
    if (!inTag || end == 0)
        return lengthOf(text, WHITE_SPACE);
    inTag = false;
    return end;
}

std::string_view withoutSpaceAtEnd(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(WHITE_SPACE) + 1);
}

/// All keys and IVs in an element.
std::vector<Span> keysIn(std::string_view document, Span element)
{
    std::vector<Span> keys;
    StartTag          tag;
    for (Lexer lexer(document, element.offset); lexer.nextStartTag(element.end(), tag);)
        if (isSecretTag(tag.name))
            if (const Leaf leaf = lexer.rest(tag); leaf.text.length > 0)
                keys.push_back(leaf.text);
    return keys;
}

/// Whether something else stands in place of a number.
bool isStrayNumber(const Misreading& misreading, std::string_view document)
{
    const std::string& field = misreading.path.field;
    return misreading.text.length > 0 && isNumberTag(std::string_view(field).substr(field.rfind('/') + 1)) &&
           !isPrintableNumber(misreading.text.in(document));
}

void sortUnique(std::vector<Span>& spans)
{
    std::sort(spans.begin(), spans.end(), [](Span a, Span b) { return a.offset < b.offset; });
    const auto isSame = [](Span a, Span b) { return a.offset == b.offset; };
    spans.erase(std::unique(spans.begin(), spans.end(), isSame), spans.end());
}

/// Whether a leaf has a text, or its attribute one, given what follows the name in its start tag.
bool hasText(std::string_view rest)
{
    const std::string_view ATTRIBUTE = "value";

    rest.remove_prefix(lengthOf(rest, WHITE_SPACE));
    if (rest.substr(0, ATTRIBUTE.size()) == ATTRIBUTE)
        rest.remove_prefix(ATTRIBUTE.size());
    rest.remove_prefix(lengthOf(rest, " \t\n\v\f\r='\"/>"));
    return !rest.empty() && rest.front() != '<';
}

/// Adds a piece, to the last one if that ends where it begins.
void add(std::vector<Span>& hidden, Span piece)
{
    if (!hidden.empty() && hidden.back().end() == piece.offset)
        hidden.back().length += piece.length;
    else
        hidden.push_back(piece);
}

} // namespace

std::vector<Span> strayNumbersOf(const Source& source)
{
    std::vector<Span> strays;
    for (const Misreading& misreading : source.misreadings())
        if (isStrayNumber(misreading, source.document()))
            strays.push_back(misreading.text);
    sortUnique(strays);
    return strays;
}

std::vector<Span> secretsOf(const Source& source)
{
    // All keys are in actions. Elsewhere only numbers can be other than they should, and those are misread.
    std::vector<Span>       secrets = keysIn(source.document(), source.indexOf(Kind::ACTION).collection());
    const std::vector<Span> strays  = strayNumbersOf(source);
    secrets.insert(secrets.end(), strays.begin(), strays.end());
    sortUnique(secrets);
    return secrets;
}

bool holdsKeys(std::string_view document)
{
    for (std::size_t tag = document.find('<'); tag != std::string_view::npos; tag = document.find('<', tag + 1)) {
        const std::string_view rest = document.substr(tag + 1);
        const auto             length =
            static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), isNameCharacter) - rest.begin());
        if (isSecretTag(rest.substr(0, length)) && hasText(rest.substr(length)))
            return true;
    }
    return false;
}

std::vector<Span> hiddenInBroken(std::string_view document, Span piece)
{
    std::vector<Span> hidden;
    bool              inTag = false;
    std::string_view  rest  = document.substr(piece.offset, piece.length);
    for (std::size_t length = 0; !rest.empty(); rest.remove_prefix(length)) {
        length = shownLengthInBroken(rest, inTag);
        if (length == 0) {
            length                   = std::min(rest.find_first_of(inTag ? "<>" : "<", 1), rest.size());
            const std::size_t offset = piece.end() - rest.size();
            add(hidden, {offset, withoutSpaceAtEnd(rest.substr(0, length)).size()});
        }
    }
    return hidden;
}
