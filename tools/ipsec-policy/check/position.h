#ifndef IPSEC_POLICY_POSITION_H
#define IPSEC_POLICY_POSITION_H

#include <cstddef>
#include <string>
#include <string_view>

/// A place in a document as people count: both from 1, a column is a character of UTF-8, be it a tab or a byte that is
/// no UTF-8.
struct Position {
    std::size_t line   = 1;
    std::size_t column = 1;
};

/// How many characters a text has.
std::size_t charactersIn(std::string_view text);

/// Tells positions in a document in ascending order. All of them together cost one pass over the document.
class PositionCounter {
  public:
    explicit PositionCounter(std::string_view document)
        : document_(document)
    {
    }

    /// Of the character that begins at the byte `offset`, which is not before the one that was asked for last.
    Position at(std::size_t offset);

  private:
    std::string_view document_;
    std::size_t      offset_ = 0;
    Position         position_;
};

/// Of the character that begins at the byte `offset`.
Position positionIn(std::string_view document, std::size_t offset);

/// Such as "3:14".
std::string textOf(const Position& position);

#endif
