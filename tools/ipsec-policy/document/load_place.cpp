#include "load_place.h"

#include "lexer.h"
#include "white_space.h"

#include <ipsecimpl/xml.h>

#include <algorithm>
#include <stdexcept>

namespace {

/// Adds the tag that comes next.
void addTag(TagsBefore& tags, Lexer& lexer, std::string_view document)
{
    const std::size_t offset = lexer.offset();
    if (!lexer.atEndTag()) {
        const StartTag tag = lexer.startTag();
        tags.last          = spanBetween(offset, lexer.offset());
        tags.lastName      = tag.name;
        if (tag.name == "id")
            tags.id = tags.last;
        if (!tags.open.empty())
            tags.open.back().hasChildren = true;
        if (!tag.isClosed)
            tags.open.push_back({tag.name, tags.last});
        return;
    }
    lexer.endTag();
    tags.last     = spanBetween(offset, lexer.offset());
    tags.lastName = tagNameAt(document, offset);
    if (tags.open.empty())
        return;
    const OpenElement& element = tags.open.back();
    if (!element.hasChildren && element.name == tags.lastName)
        tags.last = spanBetween(element.tag.offset, lexer.offset());
    tags.open.pop_back();
}

/// The tag that comes next: the end tag that stands where a start tag should.
Span nextTag(std::string_view document, std::size_t read)
{
    const std::size_t start = std::min(document.find_first_not_of(WHITE_SPACE, read), document.size());
    const std::size_t end   = document.find('>', start);
    return {start, end == std::string_view::npos ? 1 : end + 1 - start};
}

/// Whether the reader refuses a leaf with such a message before it has read the leaf's end tag.
bool isBeforeEndTag(std::string_view message)
{
    const std::string_view NEXT = "next"; // the ID
    return message.find("missing data for ") != std::string_view::npos ||
           message.find("invalid value for next") != std::string_view::npos ||
           (message.substr(0, NEXT.size()) == NEXT && message.find(" missing required data") != std::string_view::npos);
}

/// The whole leaf that begins with this tag, or if it is none, the tag.
Span wholeLeaf(std::string_view document, Span tag)
{
    try {
        return spanBetween(tag.offset, Lexer(document, tag.offset).leaf().end);
    } catch (const std::logic_error&) {
        return tag;
    }
}

} // namespace

TagsBefore tagsBefore(std::string_view document, std::size_t end)
{
    TagsBefore  tags;
    Lexer       lexer(document.substr(0, end));
    std::size_t offset = 0;
    try {
        while (lexer.toNextTag(end)) {
            offset = lexer.offset();
            addTag(tags, lexer, document);
        }
    } catch (const std::logic_error&) { // the tag at which the reader gave up, too
        tags.unfinished = offset;
    }
    return tags;
}

Span wholeTag(std::string_view document, std::size_t offset, std::size_t read)
{
    Lexer lexer(document, offset);
    try {
        if (lexer.atEndTag())
            lexer.endTag();
        else
            lexer.startTag();
        return spanBetween(offset, lexer.offset());
    } catch (const std::logic_error&) { // there is something in it that no tag has
        const std::size_t end = document.find_first_of("<>", std::max(read, offset + 1));
        return spanBetween(offset, end != std::string_view::npos && document[end] == '>' ? end + 1 : read);
    }
}

std::string_view tagNameAt(std::string_view document, std::size_t offset)
{
    std::string_view text = document.substr(std::min(offset, document.size()));
    if (text.substr(0, 1) != "<")
        return {};
    text.remove_prefix(text.substr(0, 2) == "</" ? 2 : 1);
    const auto end = std::find_if_not(text.begin(), text.end(), [](char c) {
        return ipsecimpl::XMLParser::isNameChar(static_cast<unsigned char>(c));
    });
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

Span faultyPiece(const Place& place, const TagsBefore& read, std::string_view message)
{
    if (place.atEnd || place.read == 0)
        return {place.read, 0};
    if (message.find(": missing tag; ") != std::string_view::npos)
        return nextTag(place.document, place.read);
    if (message == "duplicate ID" && read.id.length > 0)
        return read.id;
    if (isBeforeEndTag(message) && !read.open.empty())
        return wholeLeaf(place.document, read.open.back().tag);
    if (read.unfinished != std::string_view::npos)
        return wholeTag(place.document, read.unfinished, place.read);
    return read.last.end() == place.read ? read.last : Span{place.read - 1, 1};
}
