#ifndef IPSEC_POLICY_BLOCKS_H
#define IPSEC_POLICY_BLOCKS_H

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

/// A long text that grows at its end. It is kept in blocks that never move: a string would be copied time and again,
/// into memory that the system has to find first.
class Blocks {
  public:
    /// Appends the text. What is before it, `keep` bytes, stays together with it.
    void append(std::string_view text, std::size_t keep = 0) { append(0, text, keep); }

    /// Appends so many blanks, and the text.
    void append(std::size_t blanks, std::string_view text, std::size_t keep = 0)
    {
        const std::size_t size = blanks + text.size();
        if (static_cast<std::size_t>(limit_ - end_) < size)
            start(size, keep);
        if (blanks > 0)
            std::memset(end_, ' ', blanks);
        text.copy(end_ + blanks, text.size());
        end_ += size;
    }

    /// The last `size` bytes, which were kept together.
    std::string_view last(std::size_t size) const { return {end_ - size, size}; }

    /// Takes bytes away from the end, of those that were kept together.
    void removeLast(std::size_t size) { end_ -= size; }

    /// All of the text.
    std::vector<std::string_view> all() const;

  private:
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t             size; // of the last it is in end_
    };

    std::size_t sizeOfLast() const { return static_cast<std::size_t>(end_ - blocks_.back().bytes.get()); }
    void        start(std::size_t size, std::size_t keep);

    std::vector<Block> blocks_;
    char*              end_   = nullptr;
    char*              limit_ = nullptr;
};

#endif
