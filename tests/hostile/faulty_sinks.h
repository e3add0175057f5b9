#ifndef IPSECIMPL_TESTS_HOSTILE_FAULTY_SINKS_H
#define IPSECIMPL_TESTS_HOSTILE_FAULTY_SINKS_H

/// \file
/// Stream buffers to store into that fail at a byte or a flush of one's choice.

#include "support/streams.h"

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <streambuf>
#include <string>

namespace ipsecimpl {

/// How a sink fails when it has taken all that it can.
enum class Fault { Refuses, Throws };

/// Takes `capacity` bytes, one by one or in pieces as they come.
class LimitedSink : public std::streambuf {
  public:
    LimitedSink(std::size_t capacity, Fault fault, bool inPieces)
        : capacity_(capacity)
        , fault_(fault)
        , inPieces_(inPieces)
    {
    }

    const std::string& taken() const { return taken_; }

  protected:
    int_type overflow(int_type c) override
    {
        if (taken_.size() == capacity_)
            return refuse(traits_type::eof());
        taken_ += traits_type::to_char_type(c);
        return traits_type::not_eof(c);
    }

    std::streamsize xsputn(const char* text, std::streamsize size) override
    {
        if (!inPieces_)
            return std::streambuf::xsputn(text, size);
        const std::size_t room = std::min(static_cast<std::size_t>(size), capacity_ - taken_.size());
        taken_.append(text, room);
        return static_cast<std::streamsize>(room) == size ? size : refuse(static_cast<std::streamsize>(room));
    }

  private:
    template <class Result>
    Result refuse(Result result)
    {
        if (fault_ == Fault::Throws)
            throw BufferFault();
        return result;
    }

    std::size_t capacity_;
    Fault       fault_;
    bool        inPieces_;
    std::string taken_;
};

/// Takes everything, and fails at the flush number `last`, counted from 0, and at all that follow.
class UnflushableSink : public std::stringbuf {
  public:
    UnflushableSink(std::size_t last, Fault fault)
        : flushes_(last)
        , fault_(fault)
    {
    }

  protected:
    int sync() override
    {
        if (flushes_ != 0)
            return --flushes_, 0;
        if (fault_ == Fault::Throws)
            throw BufferFault();
        return -1;
    }

  private:
    std::size_t flushes_;
    Fault       fault_;
};

/// Holds up to `room` bytes until it is flushed or full, as a file's buffer does, which ends wherever it ends.
///
/// Of these bytes it passes on `capacity` in all, then it fails once. What it holds is lost then, and from there on it
/// passes everything on: whatever is written to it after the failure shows.
class RoomySink : public std::streambuf {
  public:
    explicit RoomySink(std::size_t room, std::size_t capacity = std::string::npos, Fault fault = Fault::Refuses)
        : room_(room, '\0')
        , capacity_(capacity)
        , fault_(fault)
    {
        empty();
    }

    /// What was passed on.
    const std::string& taken() const { return taken_; }

  protected:
    int_type overflow(int_type c) override
    {
        if (!passOn())
            return traits_type::eof();
        if (!traits_type::eq_int_type(c, traits_type::eof()))
            sputc(traits_type::to_char_type(c));
        return traits_type::not_eof(c);
    }

    int sync() override { return passOn() ? 0 : -1; }

  private:
    bool passOn()
    {
        const auto held = static_cast<std::size_t>(pptr() - pbase());
        const auto fits = std::min(held, capacity_);
        taken_.append(pbase(), fits);
        empty();
        if (fits == held) {
            capacity_ -= held;
            return true;
        }
        capacity_ = std::string::npos;
        if (fault_ == Fault::Throws)
            throw BufferFault();
        return false;
    }

    void empty() { setp(room_.data(), room_.data() + room_.size()); }

    std::string room_;
    std::size_t capacity_; // what it can still pass on
    Fault       fault_;
    std::string taken_;
};

} // namespace ipsecimpl

#endif
