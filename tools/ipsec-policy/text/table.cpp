#include "table.h"

#include "terminal.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

const std::size_t GAP        = 2;  // between columns
const std::size_t HANGING    = 2;  // shows which lines go on with the one before
const std::size_t GOOD_PROSE = 20; // prose that is narrower is worse than narrow columns beside it

/// How wide a column must be at least if not all of it fits. Any word of a heading does.
std::size_t leastWidth(Table::Kind kind)
{
    return kind == Table::Kind::LONG_WORDS ? 24 : 16;
}

} // namespace

/// Puts pieces and blanks into lines, but no blanks at a line's end.
class Table::LineWriter {
  public:
    explicit LineWriter(Blocks& out)
        : out_(out)
    {
    }

    void blanks(std::size_t count) { blanks_ += count; }

    void piece(const Piece& piece, std::size_t width, bool toTheRight)
    {
        const std::size_t used = piece.indent + piece.columns;
        const std::size_t rest = width - std::min(width, used); // a wide character may take more than there is
        blanks(piece.indent + (toTheRight ? rest : 0));
        const std::string_view shown(piece.begin, piece.length);
        if (piece.marked)
            text(coloured(shown, Colour::RED));
        else if (!shown.empty())
            text(shown);
        blanks(toTheRight ? 0 : rest);
    }

    void end()
    {
        out_.append("\n");
        blanks_ = 0;
    }

  private:
    void text(std::string_view text)
    {
        out_.append(blanks_, text);
        blanks_ = 0;
    }

    Blocks&     out_;
    std::size_t blanks_ = 0; // that precede the next text, if there is one
};

Table::Table(std::initializer_list<Column> columns)
    : widths_(columns.size())
{
    for (const Column& column : columns)
        kinds_.push_back(column.kind);
    for (const Column& column : columns)
        cell(column.heading);
}

void Table::endCell()
{
    std::size_t& width = widths_[column_];
    for (std::size_t line = cells_.empty() ? 0 : cells_.back(); line < lines_.count(); ++line)
        width = std::max(width, lines_.columns(line));
    cells_.push_back(lines_.count());
    column_ = column_ + 1 == kinds_.size() ? 0 : column_ + 1;
}

std::size_t Table::room(std::size_t width) const
{
    return width - GAP * (kinds_.size() - 1);
}

bool Table::mustStack(std::size_t width) const
{
    std::size_t needed = 0;
    for (std::size_t i = 0; i < kinds_.size(); ++i)
        needed += std::min(widths_[i], leastWidth(kinds_[i]));
    return kinds_.size() > 2 && needed > room(width);
}

std::vector<std::size_t> Table::columnWidths(std::size_t width) const
{
    const std::size_t        most   = room(width);
    const std::size_t        least  = std::max(leastWidth(Kind::PROSE), std::min(GOOD_PROSE, width / 4));
    std::vector<std::size_t> widths = widths_;
    for (std::size_t& w : widths)
        w = std::min(w, most);

    for (std::size_t sum = std::accumulate(widths.begin(), widths.end(), std::size_t{0}); sum > most; --sum) {
        // How much more a column has than it needs at least; between equal ones, how wide it is.
        const auto excess = [&](std::size_t i) {
            const std::size_t needed = leastWidth(kinds_[i]);
            return std::make_pair(widths[i] - std::min(widths[i], needed), widths[i]);
        };
        std::size_t widest = 0;
        std::size_t prose  = kinds_.size();
        for (std::size_t i = 0; i < kinds_.size(); ++i) {
            if (excess(i) > excess(widest))
                widest = i;
            if (kinds_[i] == Kind::PROSE && widths[i] > least)
                prose = i;
        }
        --widths[prose < kinds_.size() ? prose : widest];
    }
    return widths;
}

void Table::layOut(std::size_t cell, std::size_t width, std::vector<WrappedLine>& wrapped,
                   std::vector<Piece>& pieces) const
{
    const std::size_t hanging = kinds_[cell % kinds_.size()] == Kind::PROSE ? 0 : HANGING;
    pieces.clear();
    for (std::size_t line = cell == 0 ? 0 : cells_[cell - 1]; line < cells_[cell]; ++line) {
        const std::string_view text = lines_.text(line);
        if (lines_.columns(line) <= width) {
            pieces.emplace_back(0, text, lines_.columns(line), lines_.marked(line));
            continue;
        }
        wrapped.clear();
        wrap(text, width, hanging, wrapped);
        for (const WrappedLine& piece : wrapped)
            pieces.emplace_back(piece.indent, piece.text, columnsOf(piece.text), lines_.marked(line));
    }
}

void Table::appendTo(Blocks& out, std::size_t width) const
{
    if (mustStack(width))
        appendStacked(out, width);
    else
        appendRows(out, width);
}

void Table::appendRows(Blocks& out, std::size_t width) const
{
    const std::vector<std::size_t> widths = columnWidths(width);
    LineWriter                     writer(out);

    std::vector<WrappedLine>        wrapped; // kept for its memory
    std::vector<std::vector<Piece>> row(kinds_.size());
    for (std::size_t first = 0; first < cells_.size(); first += row.size()) {
        std::size_t height = 0;
        for (std::size_t i = 0; i < row.size(); ++i) {
            layOut(first + i, widths[i], wrapped, row[i]);
            height = std::max(height, row[i].size());
        }
        for (std::size_t line = 0; line < height; ++line) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                if (line < row[i].size())
                    writer.piece(row[i][line], widths[i], kinds_[i] == Kind::NUMBER);
                else
                    writer.blanks(widths[i]);
                writer.blanks(GAP);
            }
            writer.end();
        }
    }
}

bool Table::isEmpty(std::size_t cell) const
{
    const std::size_t first = cells_[cell - 1];
    return cells_[cell] == first + 1 && lines_.text(first).empty();
}

void Table::appendStacked(Blocks& out, std::size_t width) const
{
    std::size_t margin = 0; // of the cells, behind the headings
    for (std::size_t i = 0; i < kinds_.size(); ++i)
        margin = std::max(margin, lines_.columns(i) + GAP);
    const bool isBelow = width < margin + GOOD_PROSE; // then each heading has a line of its own
    if (isBelow)
        margin = HANGING;

    LineWriter               writer(out);
    std::vector<WrappedLine> wrapped; // kept for its memory
    std::vector<Piece>       pieces;
    for (std::size_t cell = kinds_.size(); cell < cells_.size(); ++cell) {
        const std::size_t column = cell % kinds_.size();
        if (column == 0 && cell > kinds_.size())
            writer.end();
        if (isEmpty(cell))
            continue;
        writer.piece({0, lines_.text(column), lines_.columns(column), false}, margin, false);
        if (isBelow)
            writer.end();
        layOut(cell, width - margin, wrapped, pieces);
        for (std::size_t line = 0; line < pieces.size(); ++line) {
            if (line > 0 || isBelow)
                writer.blanks(margin);
            writer.piece(pieces[line], width - margin, false);
            writer.end();
        }
    }
}

void appendWrapped(Blocks& out, std::string_view text, std::size_t width)
{
    for (const std::string& line : wrapped(text, width, HANGING))
        out.append(line + '\n');
}
