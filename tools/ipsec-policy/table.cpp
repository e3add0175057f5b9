#include "table.h"

#include "text.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace {

const std::size_t GAP         = 2;  // between columns
const std::size_t HANGING     = 2;  // shows which lines go on with the one before
const std::size_t LEAST_PROSE = 20; // prose that is narrower is worse than narrow columns beside it

Table::Cell wrappedCell(const Table::Cell& cell, std::size_t width, std::size_t hanging)
{
    Table::Cell result;
    for (const std::string& line : cell) {
        std::vector<std::string> lines = wrapped(line, width, hanging);
        std::move(lines.begin(), lines.end(), std::back_inserter(result));
    }
    return result;
}

} // namespace

Table::Table(std::vector<Column> columns)
    : columns_(std::move(columns))
{
    for (const Column& column : columns_)
        widths_.push_back(columnsOf(column.heading));
}

void Table::add(std::vector<Cell> row)
{
    for (std::size_t i = 0; i < columns_.size(); ++i)
        for (std::string& line : row[i]) {
            line       = printable(line);
            widths_[i] = std::max(widths_[i], columnsOf(line));
        }
    rows_.push_back(std::move(row));
}

std::vector<std::size_t> Table::columnWidths(std::size_t width) const
{
    const std::size_t        room   = width - GAP * (columns_.size() - 1);
    std::vector<std::size_t> widths = widths_;
    for (std::size_t& w : widths)
        w = std::min(w, room);

    for (std::size_t sum = std::accumulate(widths.begin(), widths.end(), std::size_t{0}); sum > room; --sum) {
        std::size_t widest = 0;
        std::size_t prose  = columns_.size();
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (widths[i] > widths[widest])
                widest = i;
            if (columns_[i].kind == Kind::PROSE && widths[i] > LEAST_PROSE)
                prose = i;
        }
        --widths[prose < columns_.size() ? prose : widest];
    }
    return widths;
}

std::string Table::text(std::size_t width) const
{
    const std::vector<std::size_t> widths = columnWidths(width);

    std::string result;
    const auto  appendRow = [&](const std::vector<Cell>& row) {
        std::vector<Cell> cells;
        std::size_t       height = 1;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            cells.push_back(wrappedCell(row[i], widths[i], columns_[i].kind == Kind::PROSE ? 0 : HANGING));
            height = std::max(height, cells[i].size());
        }
        for (std::size_t l = 0; l < height; ++l) {
            std::string line;
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                const std::string text  = l < cells[i].size() ? cells[i][l] : "";
                const std::string blank = std::string(widths[i] - columnsOf(text), ' ');
                line += columns_[i].kind == Kind::NUMBER ? blank + text : text + blank;
                line.append(GAP, ' ');
            }
            line.erase(line.find_last_not_of(' ') + 1);
            result += line + '\n';
        }
    };

    std::vector<Cell> headings;
    for (const Column& column : columns_)
        headings.push_back({column.heading});
    appendRow(headings);
    for (const std::vector<Cell>& row : rows_)
        appendRow(row);
    return result;
}
