#include "repeated_id.h"

#include "lexer.h"
#include "number_text.h"

#include <stdexcept>

std::optional<Span> firstWithSameID(std::string_view document, const std::vector<OpenElement>& open, std::size_t offset)
{
    if (open.size() < 2)
        return std::nullopt;
    const OpenElement& entry      = open.back();
    const OpenElement& collection = open[open.size() - 2];
    try {
        const unsigned int id = readID(Lexer(document, offset).leaf().text.in(document));
        Lexer              lexer(document, collection.tag.end());
        while (lexer.skipSpace() < entry.tag.offset) {
            const StartTag tag = lexer.startTag();
            if (tag.name == entry.name) {
                const StartTag idTag = lexer.startTag();
                const Span     span  = spanBetween(idTag.offset, lexer.offset());
                if (readID(lexer.rest(idTag).text.in(document)) == id)
                    return span;
            }
            lexer.skipRest(tag);
        }
    } catch (const std::logic_error&) { // nothing that loaded so far is like that
    }
    return std::nullopt;
}
