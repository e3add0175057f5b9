#include "xml/element.h"
#include "xml/short_bytes.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <locale>
#include <ostream>

namespace ipsecimpl {
namespace {

/// One line of the document, put together so that it takes one insertion instead of one for each piece.
class Line {
  public:
    /// May the stream be given a line in one? Its width would apply to the first piece, and a stream that flushes by
    /// itself does so after each.
    static bool fits(const std::ostream& out, std::size_t size)
    {
        return out.width() == 0 && (out.flags() & std::ios_base::unitbuf) == 0 && size < room;
    }

    Line& operator<<(std::string_view piece)
    {
        copyBytes(text_.data() + size_, piece.data(), piece.size());
        size_ += piece.size();
        return *this;
    }

    Line& operator<<(char piece)
    {
        text_[size_++] = piece;
        return *this;
    }

    /// Inserts the line, ends it, and flushes.
    std::ostream& insertInto(std::ostream& out)
    {
        *this << out.widen('\n');
        return out.write(text_.data(), static_cast<std::streamsize>(size_)).flush();
    }

  private:
    static constexpr std::size_t room = 512;

    std::array<char, room> text_; // not initialised: only what was put in is taken out
    std::size_t            size_ = 0;
};

/// Would the stream write a number in plain decimal digits?
bool writesPlainDigits(const std::ostream& out)
{
    constexpr auto formatting = std::ios_base::basefield | std::ios_base::showpos;
    return (out.flags() & formatting) == std::ios_base::dec && out.getloc() == std::locale::classic();
}

template <class Number>
std::ostream& writeNumber(std::ostream& out, std::string_view name, Number number)
{
    if (!writesPlainDigits(out))
        return out << '<' << name << '>' << number << "</" << name << '>' << std::endl;
    std::array<char, 24> digits;
    const char* const    end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return writeLeaf(out, name, std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

} // namespace

std::ostream& openTag(std::ostream& out, std::string_view name)
{
    if (!Line::fits(out, name.size() + 3))
        return out << '<' << name << '>' << std::endl;
    Line line;
    line << '<' << name << '>';
    return line.insertInto(out);
}

std::ostream& closeTag(std::ostream& out, std::string_view name)
{
    if (!Line::fits(out, name.size() + 4))
        return out << "</" << name << '>' << std::endl;
    Line line;
    line << "</" << name << '>';
    return line.insertInto(out);
}

std::ostream& writeLeaf(std::ostream& out, std::string_view name, std::string_view text)
{
    if (!Line::fits(out, 2 * name.size() + text.size() + 6))
        return out << '<' << name << '>' << text << "</" << name << '>' << std::endl;
    Line line;
    line << '<' << name << '>' << text << "</" << name << '>';
    return line.insertInto(out);
}

std::ostream& writeLeaf(std::ostream& out, std::string_view name, int number)
{
    return writeNumber(out, name, number);
}

std::ostream& writeLeaf(std::ostream& out, std::string_view name, unsigned short number)
{
    return writeNumber(out, name, number);
}

std::ostream& writeLeaf(std::ostream& out, std::string_view name, unsigned int number)
{
    return writeNumber(out, name, number);
}

std::ostream& writeLeaf(std::ostream& out, std::string_view name, unsigned long number)
{
    return writeNumber(out, name, number);
}

} // namespace ipsecimpl
