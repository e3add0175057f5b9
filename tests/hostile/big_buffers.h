#ifndef IPSECIMPL_TESTS_HOSTILE_BIG_BUFFERS_H
#define IPSECIMPL_TESTS_HOSTILE_BIG_BUFFERS_H

/// \file
/// Documents of any size that take next to no memory themselves.

#include <cstddef>
#include <cstdint>
#include <streambuf>
#include <string>
#include <vector>

namespace ipsecimpl {

/// A text that stands in a document many times, one behind the other.
struct Repeated {
    std::string   text;
    std::uint64_t times;
};

/// Makes a document while it is read, 64 kB at a time.
class GeneratedBuffer : public std::streambuf {
  public:
    explicit GeneratedBuffer(std::vector<Repeated> parts);

    /// Number of bytes that were made.
    std::uint64_t made() const { return made_; }

  protected:
    int_type underflow() override;

  private:
    std::vector<Repeated> parts_;
    std::size_t           part_  = 0; // which is to be written next,
    std::size_t           place_ = 0; // and from where on
    std::string           held_;      // the byte before what is held ready comes first
    std::uint64_t         made_ = 0;
};

/// A part of the address space in which nothing is yet.
class AddressSpace {
  public:
    /// Throws std::runtime_error if there is no room.
    explicit AddressSpace(std::uint64_t size);
    ~AddressSpace();

    AddressSpace(const AddressSpace&)            = delete;
    AddressSpace& operator=(const AddressSpace&) = delete;

    char* begin() const { return begin_; }
    char* end() const { return begin_ + size_; }

  private:
    std::size_t size_;
    char*       begin_;
};

/// Holds a document ready in one piece: a beginning, 2 MB of one character many times over, and an end. The piece has
/// `size` bytes at least. What its address space shows many times is in memory once.
class OnePieceBuffer : public std::streambuf {
  public:
    /// Throws std::runtime_error if there is no room in the address space.
    OnePieceBuffer(const std::string& begin, char filling, std::uint64_t size, const std::string& end);

  private:
    AddressSpace space_;
};

/// A configuration of about `bytes` bytes of which next to nothing is kept: equal selectors, next IDs, white space.
std::vector<Repeated> bigConfig(std::uint64_t bytes);

/// What bigConfig() loads as, in the written form.
std::string bigConfigWritten();

/// About `bytes` bytes of elements that no configuration has: with attributes, texts, and others in them.
std::vector<Repeated> bigElements(std::uint64_t bytes);

} // namespace ipsecimpl

#endif
