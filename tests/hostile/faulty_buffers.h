#ifndef IPSECIMPL_TESTS_HOSTILE_FAULTY_BUFFERS_H
#define IPSECIMPL_TESTS_HOSTILE_FAULTY_BUFFERS_H

/// \file
/// Stream buffers that fail, pause or take nothing back at a place of one's choice.

#include "support/streams.h"

#include <array>
#include <cstddef>
#include <functional>
#include <ios>
#include <streambuf>
#include <string>
#include <utility>

namespace ipsecimpl {

/// Holds a text ready in two pieces. From behind their boundary nothing can be put back.
class TwoPieceBuffer : public std::streambuf {
  public:
    TwoPieceBuffer(const std::string& text, std::size_t boundary)
        : pieces_{text.substr(0, boundary), text.substr(boundary)}
    {
    }

  protected:
    int_type underflow() override
    {
        while (next_ < pieces_.size()) {
            std::string& piece = pieces_[next_++];
            setg(piece.data(), piece.data(), piece.data() + piece.size());
            if (!piece.empty())
                return traits_type::to_int_type(*gptr());
        }
        return traits_type::eof();
    }

  private:
    std::array<std::string, 2> pieces_;
    std::size_t                next_ = 0;
};

/// A buffer that, where it would say that the text is at its end, calls `fault()` first, which may throw.
template <class Buffer>
class FaultAtEnd : public Buffer {
  public:
    template <class... Arguments>
    explicit FaultAtEnd(std::function<void()> fault, Arguments&&... arguments)
        : Buffer(std::forward<Arguments>(arguments)...)
        , fault_(std::move(fault))
    {
    }

  protected:
    std::streambuf::int_type underflow() override
    {
        const auto c = Buffer::underflow();
        if (c == std::streambuf::traits_type::eof())
            fault_();
        return c;
    }

  private:
    std::function<void()> fault_;
};

/// A ByteBuffer in which one function calls `fault()`, which may throw, when it is called at index `place`.
class FaultAtPlace : public ByteBuffer {
  public:
    FaultAtPlace(std::function<void()> fault, std::string text, std::size_t place)
        : ByteBuffer(std::move(text))
        , fault_(std::move(fault))
        , place_(place)
    {
    }

  protected:
    bool isThere() const { return position() == place_; }

    int_type fail() const
    {
        fault_();
        return traits_type::eof();
    }

  private:
    std::function<void()> fault_;
    std::size_t           place_;
};

/// It shows the byte when it is looked at, and fails to hand it out.
class FaultAtStep : public FaultAtPlace {
  public:
    using FaultAtPlace::FaultAtPlace;

  protected:
    int_type uflow() override { return isThere() ? fail() : ByteBuffer::uflow(); }
};

/// It fails to take the byte before that place back.
class FaultAtPutBack : public FaultAtPlace {
  public:
    using FaultAtPlace::FaultAtPlace;

  protected:
    int_type pbackfail(int_type c) override { return isThere() ? fail() : ByteBuffer::pbackfail(c); }
};

/// A ByteBuffer that says once, in front of the byte at index `place`, that the text is at its end, and then goes on,
/// as a terminal or a file that grows can do.
class PausingBuffer : public ByteBuffer {
  public:
    PausingBuffer(std::string text, std::size_t place)
        : ByteBuffer(std::move(text))
        , place_(place)
    {
    }

  protected:
    int_type underflow() override
    {
        if (position() == place_ && !paused_) {
            paused_ = true;
            return traits_type::eof();
        }
        return ByteBuffer::underflow();
    }

  private:
    std::size_t place_;
    bool        paused_ = false;
};

/// A ByteBuffer that throws BufferFault from everything but looking, stepping and putting back.
class LookAndStepBuffer : public ByteBuffer {
  public:
    using ByteBuffer::ByteBuffer;

  protected:
    std::streamsize xsgetn(char*, std::streamsize) override { throw BufferFault(); }
    std::streamsize xsputn(const char*, std::streamsize) override { throw BufferFault(); }
    std::streamsize showmanyc() override { throw BufferFault(); }
    int_type        overflow(int_type) override { throw BufferFault(); }
    int             sync() override { throw BufferFault(); }
    std::streambuf* setbuf(char*, std::streamsize) override { throw BufferFault(); }
    pos_type        seekpos(pos_type, std::ios_base::openmode) override { throw BufferFault(); }
    pos_type        seekoff(off_type, std::ios_base::seekdir, std::ios_base::openmode) override { throw BufferFault(); }
};

} // namespace ipsecimpl

#endif
