#include "lexer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

namespace {

constexpr bool endsName(char c)
{
    return c == '>' || c == '/' || c == '=' || c == '\0' || isWhiteSpace(c);
}

/// The same for all characters, as most of a document are tags.
struct NameEnds {
    constexpr NameEnds()
    {
        for (std::size_t c = 0; c < ends.size(); ++c)
            ends[c] = endsName(static_cast<char>(c));
    }

    constexpr bool operator[](char c) const { return ends[static_cast<unsigned char>(c)]; }

    std::array<bool, 256> ends{};
};

constexpr NameEnds NAME_ENDS;

} // namespace

std::size_t Lexer::skipSpace()
{
    while (isWhiteSpace(at(offset_)))
        ++offset_;
    return offset_;
}

bool Lexer::atEndTag()
{
    skipSpace();
    return at(offset_) == '<' && at(offset_ + 1) == '/';
}

StartTag Lexer::startTag()
{
    StartTag tag;
    tag.offset = skipSpace();
    if (at(offset_) != '<')
        fail();
    ++offset_;
    tag.name = name();
    if (at(offset_) != '>') {
        skipSpace();
        if (!endsName(at(offset_)))
            attribute(tag);
        skipSpace();
        tag.isClosed = at(offset_) == '/';
        if (tag.isClosed)
            ++offset_;
        if (at(offset_) != '>')
            fail();
    }
    ++offset_;
    if (!tag.hasAttribute)
        tag.value = {offset_, 0};
    return tag;
}

void Lexer::endTag()
{
    if (!atEndTag())
        fail();
    offset_ += 2;
    name();
    if (at(offset_) != '>')
        fail();
    ++offset_;
}

/// One whose name is known need not be read.
void Lexer::endTag(std::string_view name)
{
    if (!atEndTag() || at(offset_ + 2 + name.size()) != '>')
        fail();
    offset_ += name.size() + 3;
}

Leaf Lexer::rest(const StartTag& tag)
{
    Leaf leaf;
    leaf.tag  = tag;
    leaf.text = tag.value;
    if (!tag.isClosed) {
        if (!tag.hasAttribute) {
            const std::size_t begin = offset_;
            const std::size_t end   = find('<', begin);
            std::size_t       last  = end;
            skipSpace();
            while (last != offset_ && isWhiteSpace(document_[last - 1]))
                --last;
            leaf.text      = spanBetween(offset_, last);
            leaf.isTrimmed = leaf.text.length != end - begin;
            offset_        = end;
        }
        endTag(tag.name);
    }
    leaf.end = offset_;
    return leaf;
}

void Lexer::skipElement()
{
    skipRest(startTag());
}

void Lexer::skipRest(const StartTag& tag)
{
    for (std::size_t depth = tag.isClosed ? 0 : 1; depth > 0;) {
        offset_ = find('<', offset_);
        if (at(offset_ + 1) == '/') {
            if (--depth == 0)
                endTag(tag.name);
            else
                ++offset_; // its name is of no interest
        } else if (!startTag().isClosed) {
            ++depth;
        }
    }
}

bool Lexer::isLeaf(const StartTag& tag)
{
    if (tag.isClosed || tag.hasAttribute)
        return true;
    const std::size_t next = find('<', offset_);
    return at(next + 1) == '/';
}

bool Lexer::skipLeaf(const StartTag& tag)
{
    if (tag.isClosed)
        return true;
    const std::size_t next = find('<', offset_);
    if (!tag.hasAttribute && at(next + 1) != '/')
        return false;
    offset_ = next;
    endTag(tag.name);
    return true;
}

bool Lexer::toNextTag(std::size_t limit)
{
    limit = std::min(limit, document_.size());
    if (offset_ >= limit)
        return false;
    const std::size_t next = document_.substr(offset_, limit - offset_).find('<');
    if (next == std::string_view::npos)
        return false;
    offset_ += next;
    return true;
}

bool Lexer::nextStartTag(std::size_t limit, StartTag& tag)
{
    while (toNextTag(limit)) {
        if (at(offset_ + 1) != '/') {
            tag = startTag();
            return true;
        }
        ++offset_; // an end tag's name is of no interest
    }
    return false;
}

std::size_t Lexer::find(char c, std::size_t from) const
{
    const void* const found =
        from < document_.size() ? std::memchr(document_.data() + from, c, document_.size() - from) : nullptr;
    if (found == nullptr)
        fail();
    return static_cast<std::size_t>(static_cast<const char*>(found) - document_.data());
}

std::string_view Lexer::name()
{
    const char* const begin = document_.data() + offset_;
    const char* const limit = document_.data() + document_.size();
    const char*       end   = begin;
    while (end != limit && !NAME_ENDS[*end])
        ++end;
    const auto size = static_cast<std::size_t>(end - begin);
    offset_ += size;
    return {begin, size};
}

/// Quoted, or up to white space.
void Lexer::attribute(StartTag& tag)
{
    tag.hasAttribute = true;
    name();
    tag.value = {offset_, 0};
    skipSpace();
    tag.attributeIsBare = at(offset_) != '=';
    if (tag.attributeIsBare)
        return;
    ++offset_;
    const std::size_t begin = skipSpace();
    const char        quote = at(begin);
    if (quote == '"' || quote == '\'') {
        const std::size_t end = find(quote, begin + 1);
        tag.value             = spanBetween(begin + 1, end);
        offset_               = end + 1;
    } else {
        while (offset_ < document_.size() && !isWhiteSpace(document_[offset_]))
            ++offset_;
        tag.value = spanBetween(begin, offset_);
    }
}

void Lexer::fail()
{
    throw std::logic_error("the document is not the one that was loaded");
}
