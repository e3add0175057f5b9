#ifndef IPSEC_POLICY_TABLE_H
#define IPSEC_POLICY_TABLE_H

/// \file
/// Tables for a terminal.

#include <cstddef>
#include <string>
#include <vector>

/// Rows under headings, in columns that are as wide as their contents if the table's width allows it.
///
/// What does not fit is wrapped, never cut. Texts may come from anywhere: what is added is made printable.
class Table {
  public:
    enum class Kind {
        NUMBER, ///< aligned to the right
        TEXT,
        PROSE ///< text that gives way first when the table would become too wide
    };

    struct Column {
        std::string heading;
        Kind        kind;
    };

    /// The lines of a cell.
    using Cell = std::vector<std::string>;

    explicit Table(std::vector<Column> columns);

    /// Adds a row, with one cell for each column.
    void add(std::vector<Cell> row);

    /// The headings and the rows, in lines of at most `width` columns.
    std::string text(std::size_t width) const;

  private:
    std::vector<std::size_t> columnWidths(std::size_t width) const;

    std::vector<Column>            columns_;
    std::vector<std::size_t>       widths_; // of the widest lines so far
    std::vector<std::vector<Cell>> rows_;
};

#endif
