#include "blocks.h"

#include <algorithm>
#include <utility>

namespace {

// Small texts are to take little memory, large ones few blocks.
const std::size_t LEAST = 1024;
const std::size_t MOST  = std::size_t{256} * 1024;

} // namespace

std::vector<std::string_view> Blocks::all() const
{
    std::vector<std::string_view> texts;
    for (const Block& block : blocks_)
        texts.emplace_back(block.bytes.get(), &block == &blocks_.back() ? sizeOfLast() : block.size);
    return texts;
}

void Blocks::start(std::size_t size, std::size_t keep)
{
    // What is kept together may itself be long, and growing.
    const std::size_t room = std::max(blocks_.empty() ? LEAST : MOST, size + 2 * keep);
    blocks_.reserve(blocks_.size() + 1);
    std::unique_ptr<char[]> bytes(new char[room]);
    if (keep > 0)
        std::memcpy(bytes.get(), end_ - keep, keep);
    if (!blocks_.empty())
        blocks_.back().size = sizeOfLast() - keep;
    end_   = bytes.get() + keep;
    limit_ = bytes.get() + room;
    blocks_.push_back({std::move(bytes), 0});
}
