#ifndef IPSECIMPL_FUZZ_INPUT_H
#define IPSECIMPL_FUZZ_INPUT_H

/// \file
/// What the fuzzers share: the bytes they are given, streams on them that cost next to nothing, and how they complain.

#include "support/streams.h"

#include <ipsecimpl/ipsecimpl.h>

#include <cstddef>
#include <cstdint>
#include <istream>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace ipsecimpl {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// Ends the program with `message` and what was compared, so that the fuzzer keeps its input.
[[noreturn]] void fault(std::string_view message, std::string_view expected, std::string_view found);

/// That `found` is what was expected.
inline void require(std::string_view message, std::string_view expected, std::string_view found)
{
    if (found != expected)
        fault(message, expected, found);
}

/// The bytes of a program, taken from the front one by one; 0 when there are none left.
class Program {
  public:
    Program(const std::uint8_t* data, std::size_t size)
        : rest_(textOf(data, size))
    {
    }

    bool empty() const { return rest_.empty(); }

    /// What was not taken.
    std::string_view rest() const { return rest_; }

    unsigned int take();

    /// A number below `limit`.
    unsigned int below(unsigned int limit) { return take() % limit; }

    /// A program of the next `count` bytes, or of all that are left.
    Program part(std::size_t count);

  private:
    explicit Program(std::string_view bytes)
        : rest_(bytes)
    {
    }

    std::string_view rest_;
};

/// Holds a whole document ready, where it stands.
class WholeBuffer : public std::streambuf {
  public:
    explicit WholeBuffer(std::string_view text)
    {
        char* const begin = const_cast<char*>(text.data()); // a get area is not written to
        setg(begin, begin, begin + text.size());
    }

    /// Number of bytes consumed.
    std::size_t position() const { return static_cast<std::size_t>(gptr() - eback()); }
};

/// Puts the one stream that is kept for this on `buffer`: to make a stream costs more than to read from it.
template <int number>
std::istream& streamOn(std::streambuf& buffer)
{
    static std::istream stream(nullptr);
    stream.rdbuf(&buffer);
    return stream;
}

/// What `object` writes.
template <class T>
std::string stored(T& object)
{
    class Sink : public std::streambuf {
      public:
        std::string text;

      protected:
        int_type overflow(int_type c) override
        {
            text += traits_type::to_char_type(c);
            return traits_type::not_eof(c);
        }

        std::streamsize xsputn(const char* from, std::streamsize size) override
        {
            text.append(from, static_cast<std::size_t>(size));
            return size;
        }
    };
    static Sink         sink;
    static std::ostream out(&sink);
    sink.text.clear();
    object.exportXML(out);
    return sink.text;
}

} // namespace ipsecimpl

/// What every fuzzer defines.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

#endif
