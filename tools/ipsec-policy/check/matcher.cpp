#include "matcher.h"

#include <charconv>
#include <stdexcept>
#include <utility>

namespace {

const std::string_view SELECTORS_START = "<selectors>\n";
const std::string_view SELECTORS_END   = "</selectors>\n";

[[noreturn]] void fail()
{
    throw std::logic_error("the configuration is not what the document loads as");
}

void require(bool holds)
{
    if (!holds)
        fail();
}

} // namespace

Matcher::Matcher(std::string_view document, std::size_t offset, Kind kind, Misreadings& misreadings)
    : document_(document)
    , kind_(kind)
    , tags_(kind)
    , entryStart_('<' + tags_.entry + ">\n")
    , entryEnd_("</" + tags_.entry + ">\n")
    , begin_(offset)
    , misreadings_(misreadings)
    , walker_(document)
    , offset_(offset)
{
    expect(document_.substr(offset_));
}

std::size_t Matcher::matchSelectors(unsigned int, std::size_t)
{
    fail(); // only groups have them
}

EntryIndex Matcher::takeIndex()
{
    require(isLookedUp_ && entries_ == index_.size());
    return std::move(index_);
}

void Matcher::line(std::string_view line)
{
    match(line);
    expect(document_.substr(offset_));
}

void Matcher::match(std::string_view line)
{
    switch (state_) {
    case State::OBJECT:
        matchInEntry(line);
        break;
    case State::SELECTORS:
        matchInSelectors(line);
        break;
    case State::SKIPPED_SELECTORS:
        if (line == SELECTORS_END)
            state_ = State::OBJECT;
        break;
    case State::COLLECTION:
        matchInCollection(line);
        break;
    case State::ENTRY_ID:
        matchEntryID(line);
        break;
    }
}

void Matcher::matchEntryID(std::string_view line)
{
    const std::string_view id = StoredLine(line).text;
    std::from_chars(id.data(), id.data() + id.size(), entry_.id);
    state_ = State::OBJECT;
    if (matches(line))
        return;
    if (!isLookedUp_) { // it may be another entry
        lookUpEntries();
        goToEntry();
    }
    matchTokens(line);
}

/// Does the document go on with this line, tag for tag and byte for byte? Then it is behind it.
inline bool Matcher::matches(std::string_view line)
{
    if (line.data() != document_.data() + offset_)
        return matchesIndented(line);
    lineOffset_ = offset_;
    offset_ += line.size();
    return true;
}

bool Matcher::matchesIndented(std::string_view line)
{
    const std::size_t start = Lexer(document_, offset_).skipSpace();
    line.remove_suffix(1);
    if (document_.compare(start, line.size(), line) != 0)
        return false;
    lineOffset_ = start;
    offset_     = start + line.size();
    if (offset_ < document_.size() && document_[offset_] == '\n')
        ++offset_; // so that the next line has a chance to match as it is
    return true;
}

void Matcher::matchInCollection(std::string_view line)
{
    const bool matched = !isLookedUp_ && matches(line);
    if (!matched && !isLookedUp_)
        lookUpEntries();

    if (line == entryStart_) {
        ++entries_;
        entry_.span.offset = lineOffset_;
        if (!matched)
            goToEntry();
        isWalked_ = false;
        state_    = State::ENTRY_ID;
        return;
    }

    const StoredLine stored(line);
    if (stored.type == StoredLine::Type::LEAF) {
        nextID_ = stored.text;
        if (matched)
            index_.add({0, spanBetween(lineOffset_, offset_)});
    } else if (stored.type == StoredLine::Type::END_TAG) {
        if (matched) {
            index_.finish(spanBetween(Lexer(document_, begin_).skipSpace(), lineOffset_ + line.size() - 1));
            isLookedUp_ = true;
        } else {
            matchNextIDs();
        }
    }
}

void Matcher::lookUpEntries()
{
    index_      = EntryIndex(document_, begin_, tags_);
    isLookedUp_ = true;
}

/// Goes to the entry that was stored last, behind its start tag.
void Matcher::goToEntry()
{
    require(entries_ <= index_.size());
    entry_.span.offset = index_[entries_ - 1].span.offset;
    Lexer lexer(document_, entry_.span.offset);
    lexer.startTag();
    offset_ = lexer.offset();
}

void Matcher::matchInEntry(std::string_view line)
{
    if (line == SELECTORS_START)
        beginSelectors(line);
    else if (!matches(line))
        matchTokens(line);
    if (line == entryEnd_)
        endEntry();
}

void Matcher::endEntry()
{
    state_ = State::COLLECTION;
    if (!isLookedUp_) {
        entry_.span = spanBetween(entry_.span.offset, lineOffset_ + entryEnd_.size() - 1);
        index_.add(entry_);
    }
}

void Matcher::beginSelectors(std::string_view line)
{
    state_     = State::SELECTORS;
    selectors_ = offset_;
    if (matches(line))
        return;
    Lexer          lexer(document_, offset_);
    const StartTag tag = lexer.startTag();
    require(tag.name == "selectors");
    offset_ = lexer.offset();
    if (tag.isClosed)
        state_ = State::SKIPPED_SELECTORS;
}

void Matcher::matchInSelectors(std::string_view line)
{
    const bool isEnd = line == SELECTORS_END;
    if (matches(line)) {
        if (isEnd)
            state_ = State::OBJECT;
        return;
    }
    offset_ = matchSelectors(entry_.id, selectors_);
    state_  = isEnd ? State::OBJECT : State::SKIPPED_SELECTORS;
}

void Matcher::matchTokens(std::string_view line)
{
    const StoredLine stored(line);
    require(stored.type != StoredLine::Type::END_TAG); // which has no other form

    Lexer          lexer(document_, offset_);
    const StartTag tag = lexer.startTag();
    require(tag.name == stored.name);
    if (stored.type == StoredLine::Type::LEAF)
        matchLeaf(lexer.rest(tag), stored.text);
    offset_ = lexer.offset();
}

void Matcher::matchLeaf(const Leaf& leaf, std::string_view stored)
{
    const auto how = misreadOf(document_, leaf, stored);
    if (!how)
        return;
    if (!isWalked_)
        walker_.enter(entry_.span.offset);
    isWalked_ = true;
    misreadings_.push_back(misreadingOf(leaf, *how, {kind_, entry_.id, walker_.to(leaf.tag.offset)}, stored));
}

void Matcher::matchNextIDs()
{
    const ObjectPath path    = {kind_, 0, tags_.next};
    bool             isFirst = true;
    for (const SourceEntry& child : index_.children()) {
        if (child.id != 0)
            continue;
        const Leaf leaf = Lexer(document_, child.span.offset).leaf();
        if (const auto how = misreadOf(document_, leaf, nextID_))
            misreadings_.push_back(
                misreadingOf(leaf, how == Misread::OTHERWISE ? Misread::NEXT_ID : *how, path, nextID_));
        if (!isFirst)
            misreadings_.push_back(misreadingOf(leaf, Misread::REPEATED_NEXT_ID, path, nextID_));
        isFirst = false;
    }
}
