#ifndef IPSECIMPL_TESTS_SUPPORT_STREAMS_H
#define IPSECIMPL_TESTS_SUPPORT_STREAMS_H

/// \file
/// Stream buffers that are lawful but unkind, to put under a `std::istream` or `std::ostream`.

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

namespace ipsecimpl {

/// Hands out a text byte by byte without a get area, so that every look and every step is a virtual call. It takes
/// characters back. A shorter text is the buffer that ends early.
class ByteBuffer : public std::streambuf {
  public:
    explicit ByteBuffer(std::string text)
        : text_(std::move(text))
    {
    }

    /// Number of bytes consumed.
    std::size_t position() const { return position_; }

    /// What is not consumed yet.
    std::string rest() const { return text_.substr(position_); }

  protected:
    int_type underflow() override
    {
        return position_ < text_.size() ? traits_type::to_int_type(text_[position_]) : traits_type::eof();
    }

    int_type uflow() override
    {
        const int_type c = underflow();
        if (!traits_type::eq_int_type(c, traits_type::eof()))
            ++position_;
        return c;
    }

    int_type pbackfail(int_type c) override
    {
        if (position_ == 0)
            return traits_type::eof();
        const int_type before = traits_type::to_int_type(text_[position_ - 1]);
        if (!traits_type::eq_int_type(c, traits_type::eof()) && !traits_type::eq_int_type(c, before))
            return traits_type::eof();
        --position_;
        return before;
    }

  private:
    std::string text_;
    std::size_t position_ = 0;
};

/// Holds one byte of a text ready at a time, so that every put-back leaves the get area. It takes characters back.
class OneByteBuffer : public std::streambuf {
  public:
    explicit OneByteBuffer(std::string text)
        : text_(std::move(text))
    {
    }

  protected:
    int_type underflow() override { return next_ < text_.size() ? show(next_) : traits_type::eof(); }

    int_type pbackfail(int_type c) override
    {
        const std::size_t position = next_ - static_cast<std::size_t>(egptr() - gptr());
        if (position == 0)
            return traits_type::eof();
        const int_type before = traits_type::to_int_type(text_[position - 1]);
        if (!traits_type::eq_int_type(c, traits_type::eof()) && !traits_type::eq_int_type(c, before))
            return traits_type::eof();
        return show(position - 1);
    }

  private:
    int_type show(std::size_t index)
    {
        byte_ = text_[index];
        next_ = index + 1;
        setg(&byte_, &byte_, &byte_ + 1);
        return traits_type::to_int_type(byte_);
    }

    std::string text_;
    std::size_t next_ = 0; // index behind the byte that is held ready
    char        byte_ = 0;
};

/// Holds up to `size` bytes of a text ready at a time, and before them the one that was read last, to be put back.
class ChunkBuffer : public std::streambuf {
  public:
    ChunkBuffer(std::string text, std::size_t size)
        : text_(std::move(text))
        , size_(size)
    {
    }

  protected:
    int_type underflow() override
    {
        const std::size_t begin = end_ == 0 ? 0 : end_ - 1;
        const std::size_t next  = end_;
        if (next == text_.size())
            return traits_type::eof();
        end_  = std::min(next + size_, text_.size());
        held_ = text_.substr(begin, end_ - begin + 3); // elsewhere in memory than before, and more than is shown
        setg(held_.data(), held_.data() + (next - begin), held_.data() + (end_ - begin));
        return traits_type::to_int_type(*gptr());
    }

  private:
    std::string text_;
    std::string held_;
    std::size_t size_;
    std::size_t end_ = 0; // index behind the bytes that are held ready
};

/// A ByteBuffer that takes no character back, like an unbuffered pipe.
class OneWayBuffer : public ByteBuffer {
  public:
    using ByteBuffer::ByteBuffer;

  protected:
    int_type pbackfail(int_type) override { return traits_type::eof(); }
};

/// What ThrowingBuffer throws: no relative of ParseError nearer than `std::runtime_error`.
struct BufferFault : std::runtime_error {
    BufferFault()
        : std::runtime_error("buffer fault")
    {
    }
};

/// A ByteBuffer that throws BufferFault when the byte at index `fault`, or one behind it, is looked at or taken.
class ThrowingBuffer : public ByteBuffer {
  public:
    ThrowingBuffer(std::string text, std::size_t fault)
        : ByteBuffer(std::move(text))
        , fault_(fault)
    {
    }

  protected:
    int_type underflow() override
    {
        if (position() >= fault_)
            throw BufferFault();
        return ByteBuffer::underflow();
    }

  private:
    std::size_t fault_;
};

/// Keeps what is written, cut at the flushes: one piece for each flush. What was not flushed is in no piece.
class FlushRecorder : public std::stringbuf {
  public:
    const std::vector<std::string>& pieces() const { return pieces_; }

  protected:
    int sync() override
    {
        pieces_.push_back(str());
        str("");
        return 0;
    }

  private:
    std::vector<std::string> pieces_;
};

/// Takes `capacity` bytes and refuses all that follows, like a full disk.
class FullSink : public std::streambuf {
  public:
    explicit FullSink(std::size_t capacity)
        : capacity_(capacity)
    {
    }

    const std::string& taken() const { return taken_; }

  protected:
    int_type overflow(int_type c) override
    {
        if (taken_.size() == capacity_)
            return traits_type::eof();
        if (!traits_type::eq_int_type(c, traits_type::eof()))
            taken_ += traits_type::to_char_type(c);
        return traits_type::not_eof(c);
    }

  private:
    std::size_t capacity_;
    std::string taken_;
};

} // namespace ipsecimpl

#endif
