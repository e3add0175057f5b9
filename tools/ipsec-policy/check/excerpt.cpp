#include "excerpt.h"

#include "text.h"

#include <algorithm>

namespace {

const char HIDDEN[]  = "***";
const char CLIPPED[] = "...";
const char TAB[]     = "    ";

const std::size_t CLIPPED_COLUMNS = 2 * (sizeof CLIPPED - 1);

// Few characters take more bytes for each column that they fill.
const std::size_t BYTES_PER_COLUMN = 4;

/// Whether a character does not begin here, in UTF-8.
bool isContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// How many characters a text begins with that are shown as they stand, in a column each: nearly all are.
std::size_t plainLength(std::string_view text)
{
    const auto isPlain = [](char c) { return c >= ' ' && c <= '~' && c != '\\'; };
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isPlain) - text.begin());
}

/// The first of the pieces that ends behind `offset`.
auto firstBehind(const std::vector<Span>& hidden, std::size_t offset)
{
    const auto endsBehind = [](std::size_t place, Span piece) { return place < piece.end(); };
    return std::upper_bound(hidden.begin(), hidden.end(), offset, endsBehind);
}

/// A character of the line, or a hidden piece of it.
struct Cell {
    std::size_t end;     ///< in the document
    std::size_t textEnd; ///< in the text that is shown
    std::size_t columns;
};

/// A part of a line as it is shown.
class Cells {
  public:
    Cells(std::string_view document, Span span, const std::vector<Span>& hidden);

    std::size_t size() const { return cells_.size(); }

    const Cell& operator[](std::size_t number) const { return cells_[number]; }

    /// The cell in which the byte is, or the number of cells if it is behind them.
    std::size_t numberOf(std::size_t offset) const;

    /// \name Those from `first` to `last`, which is not one of them
    /// @{
    std::size_t      columns(std::size_t first, std::size_t last) const;
    std::string_view text(std::size_t first, std::size_t last) const;
    /// @}

  private:
    void add(std::string_view shown, std::size_t columns, std::size_t end);
    void addPlain(std::string_view text, std::size_t& at);

    std::string       text_;
    std::vector<Cell> cells_;
};

Cells::Cells(std::string_view document, Span span, const std::vector<Span>& hidden)
{
    auto piece = firstBehind(hidden, span.offset);
    text_.reserve(span.length);
    cells_.reserve(span.length);
    for (std::size_t at = span.offset; at < span.end();) {
        if (piece != hidden.end() && at >= piece->offset) {
            at = std::min((piece++)->end(), span.end());
            add(HIDDEN, sizeof HIDDEN - 1, at);
        } else {
            const std::size_t end = piece != hidden.end() ? std::min(piece->offset, span.end()) : span.end();
            addPlain(spanBetween(at, end).in(document), at);
        }
    }
}

void Cells::add(std::string_view shown, std::size_t columns, std::size_t end)
{
    text_ += shown;
    cells_.push_back({end, text_.size(), columns});
}

/// Adds what is shown of `text` and moves `at`, its place, behind it.
void Cells::addPlain(std::string_view text, std::size_t& at)
{
    while (!text.empty()) {
        std::size_t size = plainLength(text);
        for (std::size_t i = 1; i <= size; ++i)
            cells_.push_back({at + i, text_.size() + i, 1});
        text_ += text.substr(0, size);
        if (size == 0) {
            size                    = firstCharacterSize(text);
            const std::string shown = text.front() == '\t' ? TAB : printable(text.substr(0, size));
            add(shown, columnsOf(shown), at + size);
        }
        at += size;
        text.remove_prefix(size);
    }
}

std::size_t Cells::numberOf(std::size_t offset) const
{
    const auto isBefore = [](std::size_t place, const Cell& cell) { return place < cell.end; };
    return static_cast<std::size_t>(std::upper_bound(cells_.begin(), cells_.end(), offset, isBefore) - cells_.begin());
}

std::size_t Cells::columns(std::size_t first, std::size_t last) const
{
    std::size_t columns = 0;
    for (std::size_t i = first; i < last; ++i)
        columns += cells_[i].columns;
    return columns;
}

std::string_view Cells::text(std::size_t first, std::size_t last) const
{
    const std::size_t begin = first == 0 ? 0 : cells_[first - 1].textEnd;
    return std::string_view(text_).substr(begin, last == first ? 0 : cells_[last - 1].textEnd - begin);
}

/// The cells that are shown: those from `first` to `last`, which is not one of them.
struct Window {
    std::size_t first;
    std::size_t last;
};

/// As many cells around the one at `centre` as fit into `width`: what is before it gets half of that at most, unless
/// there is less behind.
Window windowAround(const Cells& cells, std::size_t centre, std::size_t width)
{
    Window      window = {centre, centre};
    std::size_t used   = 0;

    const auto growLeft = [&](std::size_t limit) {
        while (window.first > 0 && used + cells[window.first - 1].columns <= limit)
            used += cells[--window.first].columns;
    };
    growLeft(width / 2);
    while (window.last < cells.size() && used + cells[window.last].columns <= width)
        used += cells[window.last++].columns;
    growLeft(width);
    return window;
}

/// Whether the line goes on before the span, or behind it.
bool isClippedBefore(std::string_view document, Span span)
{
    return span.offset > 0 && document[span.offset - 1] != '\n';
}

bool isClippedBehind(std::string_view document, Span span)
{
    const std::string_view rest = document.substr(span.end(), 2);
    return !rest.empty() && rest.front() != '\n' && rest != "\r\n";
}

bool holdsAny(const std::vector<Span>& hidden, Span span)
{
    const auto piece = firstBehind(hidden, span.offset);
    return piece != hidden.end() && piece->offset < span.end();
}

/// Of a line that is shown as it stands, a column for each byte: nearly all are.
void takePlain(Excerpt& excerpt, std::string_view line, std::size_t begin, std::size_t length)
{
    excerpt.line = line;
    begin        = std::min(begin, line.size());
    excerpt.marks.assign(begin, ' ');
    excerpt.marks += '^';
    excerpt.marks.append(std::max<std::size_t>(std::min(length, line.size() - begin), 1) - 1, '~');
}

} // namespace

Span excerptSpan(std::string_view document, Span what, std::size_t width)
{
    const std::size_t reach = width * BYTES_PER_COLUMN;

    std::size_t            begin     = what.offset - std::min(what.offset, reach);
    const std::string_view before    = document.substr(begin, what.offset - begin);
    const std::size_t      lineBegin = before.rfind('\n');
    if (lineBegin != std::string_view::npos)
        begin += lineBegin + 1;
    else if (begin > 0)
        while (begin < what.offset && isContinuation(document[begin]))
            ++begin;

    const std::string_view behind  = document.substr(what.offset, reach);
    const std::size_t      lineEnd = behind.find('\n');
    std::size_t            end     = what.offset + std::min(lineEnd, behind.size());
    if (lineEnd == std::string_view::npos)
        while (end > what.offset && end < document.size() && isContinuation(document[end]))
            --end;
    else if (end > begin && document[end - 1] == '\r')
        --end;
    return {begin, end - begin};
}

void takeExcerpt(Excerpt& excerpt, std::string_view document, Span span, Span what, const std::vector<Span>& hidden,
                 std::size_t width)
{
    const bool isPart = isClippedBefore(document, span) || isClippedBehind(document, span);
    if (!isPart && span.length <= width && isPlain(span.in(document)) && !holdsAny(hidden, span))
        return takePlain(excerpt, span.in(document), what.offset - span.offset, what.length);

    const Cells       cells(document, span, hidden);
    const std::size_t centre = cells.numberOf(what.offset);

    Window window = {0, cells.size()};
    if (isPart || cells.columns(0, cells.size()) > width)
        window = windowAround(cells, centre, width - CLIPPED_COLUMNS);

    excerpt.line = window.first > 0 || isClippedBefore(document, span) ? CLIPPED : "";
    excerpt.marks.assign(excerpt.line.size() + cells.columns(window.first, centre), ' ');
    excerpt.line += cells.text(window.first, window.last);
    if (window.last < cells.size() || isClippedBehind(document, span))
        excerpt.line += CLIPPED;

    std::size_t last = centre;
    while (last < window.last && (last == centre || cells[last - 1].end < what.end()))
        ++last;
    excerpt.marks += '^';
    excerpt.marks.append(std::max<std::size_t>(cells.columns(centre, last), 1) - 1, '~');
}
