#ifndef IPSEC_POLICY_TABLE_H
#define IPSEC_POLICY_TABLE_H

/// \file
/// Tables for a terminal.

#include "lines.h"
#include "text.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// Rows under headings, in columns that are as wide as their contents if the table's width allows it. Where three or
/// more columns would become too narrow to read, there are none: the cells of a row stand below each other, each behind
/// its heading.
///
/// What does not fit is wrapped, never cut. Marked lines are red where standard output shows colours.
class Table {
  public:
    enum class Kind {
        NUMBER, ///< aligned to the right
        TEXT,
        LONG_WORDS, ///< text whose words are hard to read when they are broken, such as addresses
        PROSE       ///< text that gives way first when the table would become too wide
    };

    struct Column {
        const char* heading;
        Kind        kind;
    };

    Table(std::initializer_list<Column> columns);

    /// Where the lines of the next cell go: cells are filled from the left to the right, rows from top to bottom.
    Lines& lines() { return lines_; }

    /// Ends the cell, which holds the lines since the one before.
    void endCell();

    /// Adds a cell of one line, which may be a number.
    template <class Text>
    void cell(const Text& text)
    {
        lines_ << text;
        lines_.end();
        endCell();
    }

    /// Appends the headings and the rows, in lines of at most `width` columns (at least 20). All rows must be complete.
    void appendTo(Blocks& out, std::size_t width) const;

  private:
    /// What stands in one column on one line of the output.
    struct Piece {
        Piece(std::size_t blanksBefore, std::string_view text, std::size_t columnCount, bool isMarked)
            : begin(text.data())
            , length(text.size())
            , indent(blanksBefore)
            , columns(columnCount)
            , marked(isMarked)
        {
        }

        const char* begin;
        std::size_t length;
        std::size_t indent;
        std::size_t columns; ///< of the text
        bool        marked;
    };

    class LineWriter;

    std::size_t              room(std::size_t width) const;
    bool                     mustStack(std::size_t width) const;
    std::vector<std::size_t> columnWidths(std::size_t width) const;
    void                     appendRows(Blocks& out, std::size_t width) const;
    void                     appendStacked(Blocks& out, std::size_t width) const;
    bool                     isEmpty(std::size_t cell) const;
    void                     layOut(std::size_t cell, std::size_t width, std::vector<WrappedLine>& wrapped,
                                    std::vector<Piece>& pieces) const;

    std::vector<Kind>        kinds_;
    std::vector<std::size_t> widths_; // of the widest lines so far
    Lines                    lines_;
    std::size_t              column_ = 0; // of the next cell
    std::vector<std::size_t> cells_; // how many lines there are up to the end of each; the headings are the first row
};

/// Appends a printable text in lines of at most `width` columns, of which further ones are indented.
void appendWrapped(Blocks& out, std::string_view text, std::size_t width);

#endif
