#include "position.h"

#include "text.h"

namespace {

std::size_t lineEndsIn(std::string_view text)
{
    // Counted in a byte, of which a processor adds many at once; it holds no more than that many.
    const std::size_t BLOCK = 240;

    std::size_t count = 0;
    while (!text.empty()) {
        const std::string_view block = text.substr(0, BLOCK);
        unsigned char          ends  = 0;
        for (const char c : block)
            ends = static_cast<unsigned char>(ends + (c == '\n' ? 1 : 0));
        count += ends;
        text.remove_prefix(block.size());
    }
    return count;
}

} // namespace

std::size_t charactersIn(std::string_view text)
{
    if (isPlain(text)) // as nearly all is
        return text.size();
    std::size_t count = 0;
    while (!text.empty()) {
        const bool isSingle = static_cast<unsigned char>(text.front()) < 0x80;
        text.remove_prefix(isSingle ? 1 : firstCharacterSize(text));
        ++count;
    }
    return count;
}

Position PositionCounter::at(std::size_t offset)
{
    std::string_view passed = document_.substr(offset_, offset - offset_);
    if (const std::size_t ends = lineEndsIn(passed); ends > 0) {
        passed.remove_prefix(passed.rfind('\n') + 1);
        position_.line += ends;
        position_.column = 1;
    }
    position_.column += charactersIn(passed);
    offset_ = offset;
    return position_;
}

Position positionIn(std::string_view document, std::size_t offset)
{
    return PositionCounter(document).at(offset);
}

std::string textOf(const Position& position)
{
    return std::to_string(position.line) + ':' + std::to_string(position.column);
}
