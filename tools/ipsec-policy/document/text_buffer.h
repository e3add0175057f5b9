#ifndef IPSEC_POLICY_TEXT_BUFFER_H
#define IPSEC_POLICY_TEXT_BUFFER_H

#include <cstddef>
#include <streambuf>
#include <string_view>

/// A text to read from, without a copy, that knows how much of it is read.
class TextBuffer : public std::streambuf {
  public:
    /// Nothing is ever written to the text: a stream buffer only takes back the character that was there.
    explicit TextBuffer(std::string_view text)
        : begin_(const_cast<char*>(text.data()))
        , end_(begin_ + text.size())
    {
        seek(0);
    }

    void        seek(std::size_t offset) { setg(begin_, begin_ + offset, end_); }
    std::size_t read() const { return static_cast<std::size_t>(gptr() - eback()); }

  private:
    char* begin_;
    char* end_;
};

#endif
