#ifndef IPSECIMPL_XML_INPUT_H
#define IPSECIMPL_XML_INPUT_H

#include "xml/character.h"

#include <cstddef>
#include <istream>
#include <limits>
#include <streambuf>
#include <string>
#include <string_view>

namespace ipsecimpl {

/// The characters that a stream buffer holds ready, in one piece instead of one call for each.
///
/// The standard keeps them for the buffer's own class; a derived class may name these members, and through such a
/// name they can be called for any buffer.
class GetArea : private std::streambuf {
  public:
    static const char* begin(const std::streambuf& buffer) { return (buffer.*&GetArea::gptr)(); }
    static const char* end(const std::streambuf& buffer) { return (buffer.*&GetArea::egptr)(); }

    /// Consumes what stands before `to`, a place between begin() and end().
    static void consume(std::streambuf& buffer, const char* to)
    {
        const std::ptrdiff_t size = to - begin(buffer);
        if (size <= std::numeric_limits<int>::max())
            (buffer.*&GetArea::gbump)(static_cast<int>(size));
        else
            consumeMuch(buffer, size);
    }

  private:
    static void consumeMuch(std::streambuf& buffer, std::ptrdiff_t size); // gbump() takes no more than an int
};

/// The input of one parser operation: the stream's characters, read past the stream's own functions, which do much for
/// each single one, but with the same outcome for its state.
///
/// What goes wrong reads as the end of input. It shows in the stream's state, and if the stream's exception mask says
/// so, as its exception: meeting the end sets eofbit, looking again or reading there failbit too, and a fault of the
/// buffer badbit.
class Input {
  public:
    static constexpr int end = std::char_traits<char>::eof();

    explicit Input(std::istream& stream)
        : stream_(stream)
        , buffer_(stream.rdbuf())
    {
        if (!stream.good() || stream.tie() != nullptr)
            prepare();
    }

    /// What the buffer holds ready, from the first character on that is not white space. Nothing is consumed.
    std::string_view atHand() const
    {
        if (buffer_ == nullptr)
            return {};
        const char*       from = GetArea::begin(*buffer_);
        const char* const to   = GetArea::end(*buffer_);
        while (from != to && isSpace(toByte(*from)))
            ++from;
        return {from, static_cast<std::size_t>(to - from)};
    }

    /// Consumes what stands before `rest`, a place in atHand() or its end.
    void consume(const char* rest) { GetArea::consume(*buffer_, rest); }

    /// The next character, which stays in the stream, or `end`.
    int peek()
    {
        if (buffer_ != nullptr) {
            const char* const next = GetArea::begin(*buffer_);
            if (next != GetArea::end(*buffer_))
                return toByte(*next);
        }
        return underflow();
    }

    /// The next character, consumed, or `end`.
    int get()
    {
        if (buffer_ != nullptr) {
            const char* const next = GetArea::begin(*buffer_);
            if (next != GetArea::end(*buffer_)) {
                GetArea::consume(*buffer_, next + 1);
                return toByte(*next);
            }
        }
        return uflow();
    }

    /// Puts the character that was read last back. False if the stream cannot take it; it is not good then.
    bool putBack();

    void skipSpace()
    {
        forEach(isSpace, [](const char*, const char*) {});
    }

    /// Consumes and appends to `text` what comes before the first character that is `last(c)`, and returns that, or
    /// `end`. It stays in the stream.
    template <class Predicate>
    int appendUntil(std::string& text, Predicate last)
    {
        return forEach([last](int c) { return !last(c); },
                       [&text](const char* from, const char* to) { text.append(from, to); });
    }

  private:
    /// Consumes characters as long as each is `wanted(c)`, hands them to `take` piece by piece, and returns the first
    /// other one, or `end`.
    template <class Predicate, class Take>
    int forEach(Predicate wanted, Take take);

    void prepare();
    void setBad(); // sets badbit, whatever the exception mask says
    int  underflow();
    int  uflow();

    /// Runs one of the buffer's functions. Whatever it throws makes the stream bad, and is thrown on if the stream's
    /// exception mask asks for that.
    template <class Operation>
    int guarded(Operation operation);

    std::istream&   stream_;
    std::streambuf* buffer_; // null when there is nothing more to read
};

template <class Predicate, class Take>
int Input::forEach(Predicate wanted, Take take)
{
    for (;;) {
        int c = peek();
        if (c == end || !wanted(c))
            return c;
        const char* const from  = GetArea::begin(*buffer_);
        const char* const limit = GetArea::end(*buffer_);
        if (from == limit) { // a buffer that holds nothing ready
            c = get();
            if (c == end)
                return end;
            const char single = std::char_traits<char>::to_char_type(c);
            take(&single, &single + 1);
            continue;
        }
        const char* to = from + 1;
        while (to != limit && wanted(toByte(*to)))
            ++to;
        take(from, to);
        GetArea::consume(*buffer_, to);
    }
}

} // namespace ipsecimpl

#endif
