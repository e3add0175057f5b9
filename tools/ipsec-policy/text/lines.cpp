#include "lines.h"

#include <charconv>

namespace {

/// A number in digits.
class Digits {
  public:
    template <class Number>
    Digits(Number number, int base)
        : end_(std::to_chars(digits_, digits_ + sizeof digits_, number, base).ptr)
    {
    }

    std::string_view text() const { return {digits_, static_cast<std::size_t>(end_ - digits_)}; }

  private:
    char        digits_[24];
    const char* end_;
};

} // namespace

Lines& Lines::operator<<(int number)
{
    return add(Digits(number, 10).text());
}

Lines& Lines::operator<<(unsigned long number)
{
    return add(Digits(number, 10).text());
}

Lines& Lines::hex(unsigned long number)
{
    return add(Digits(number, 16).text());
}

void Lines::end(bool marked)
{
    std::string_view line    = lastWithoutBlanks();
    std::size_t      columns = line.size();
    if (!isPlain_) {
        const std::string shown = printable(line);
        columns                 = columnsOf(shown);
        text_.removeLast(line.size());
        text_.append(shown);
        line = text_.last(shown.size());
    }
    keep(line, columns, marked);
}

void Lines::endPrintable()
{
    const std::string_view line = lastWithoutBlanks();
    keep(line, isPlain_ ? line.size() : columnsOf(line), false);
}

std::string_view Lines::lastWithoutBlanks()
{
    std::string_view line = text_.last(length_);
    while (!line.empty() && line.back() == ' ') {
        line.remove_suffix(1);
        text_.removeLast(1);
    }
    return line;
}

void Lines::keep(std::string_view line, std::size_t columns, bool marked)
{
    lines_.emplace_back(line, columns, marked);
    length_  = 0;
    isPlain_ = true;
}
