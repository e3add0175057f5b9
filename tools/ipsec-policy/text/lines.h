#ifndef IPSEC_POLICY_LINES_H
#define IPSEC_POLICY_LINES_H

/// \file
/// Lines of text that are fit for a terminal.

#include "blocks.h"
#include "text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Lines of text, which are made printable as they end.
class Lines {
  public:
    /// Adds to the line that has not ended: a text from anywhere.
    Lines& operator<<(std::string_view text)
    {
        isPlain_ = isPlain_ && isPlain(text);
        return add(text);
    }

    /// The program's own words are known to be plain.
    template <std::size_t N>
    Lines& operator<<(const char (&literal)[N])
    {
        return add(std::string_view(literal, N - 1));
    }

    Lines& operator<<(char c) { return add(std::string_view(&c, 1)); } ///< one of the program's own too
    Lines& operator<<(int number);
    Lines& operator<<(unsigned long number);
    Lines& operator<<(unsigned int number) { return *this << static_cast<unsigned long>(number); }
    Lines& hex(unsigned long number); ///< without "0x" in front

    /// Ends the line, without the blanks at its end. A marked one is to catch the eye.
    void end(bool marked = false);

    /// The same of a line whose texts are fit for a terminal already: nothing in them is escaped once more.
    void endPrintable();

    std::size_t count() const { return lines_.size(); }

    std::string_view text(std::size_t line) const { return {lines_[line].begin, lines_[line].length}; }

    std::size_t columns(std::size_t line) const { return lines_[line].columns; }
    bool        marked(std::size_t line) const { return lines_[line].marked != 0; }

  private:
    struct Line {
        Line(std::string_view text, std::size_t columnCount, bool isMarked)
            : begin(text.data())
            , length(static_cast<unsigned int>(text.size()))
            , columns(static_cast<unsigned int>(columnCount) & 0x7FFFFFFFU)
            , marked(isMarked ? 1 : 0)
        {
        }

        const char*  begin;
        unsigned int length;
        unsigned int columns : 31;
        unsigned int marked : 1;
    };

    Lines& add(std::string_view text)
    {
        text_.append(text, length_);
        length_ += text.size();
        return *this;
    }

    std::string_view lastWithoutBlanks();
    void             keep(std::string_view line, std::size_t columns, bool marked);

    Blocks            text_;
    std::vector<Line> lines_;
    std::size_t       length_  = 0; // of the line that has not ended
    bool              isPlain_ = true;
};

#endif
