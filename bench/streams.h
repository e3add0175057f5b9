#ifndef IPSECIMPL_BENCH_STREAMS_H
#define IPSECIMPL_BENCH_STREAMS_H

#include <cstddef>
#include <streambuf>
#include <string>

namespace bench {

/// Hands out one character at a time and holds nothing ready, as a decrypting or decompressing buffer might.
class SingleCharacters : public std::streambuf {
  public:
    /// `text` must outlive the buffer.
    explicit SingleCharacters(const std::string& text)
        : text_(text)
    {
    }

  protected:
    int_type underflow() override
    {
        return next_ == text_.size() ? traits_type::eof() : traits_type::to_int_type(text_[next_]);
    }

    int_type uflow() override
    {
        const int_type c = underflow();
        if (c != traits_type::eof())
            ++next_;
        return c;
    }

    int_type pbackfail(int_type /*c*/) override
    {
        return next_ == 0 ? traits_type::eof() : traits_type::to_int_type(text_[--next_]);
    }

  private:
    const std::string& text_;
    std::size_t        next_ = 0;
};

/// Takes everything and keeps nothing: what is measured with it is the work of writing alone.
class Nowhere : public std::streambuf {
  protected:
    int_type        overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char* /*text*/, std::streamsize count) override { return count; }
};

/// A buffer of one size that is filled again and again, as that of a file is, but goes nowhere.
class Recycled : public std::streambuf {
  public:
    Recycled() { empty(); }

    std::size_t written() const { return before_ + static_cast<std::size_t>(pptr() - pbase()); }

  protected:
    int_type overflow(int_type c) override
    {
        before_ = written();
        empty();
        if (!traits_type::eq_int_type(c, traits_type::eof()))
            sputc(traits_type::to_char_type(c));
        return traits_type::not_eof(c);
    }

  private:
    void empty() { setp(buffer_, buffer_ + sizeof buffer_); }

    char        buffer_[64 * 1024];
    std::size_t before_ = 0;
};

} // namespace bench

#endif
