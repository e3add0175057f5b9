#ifndef IPSEC_POLICY_STORE_LINES_H
#define IPSEC_POLICY_STORE_LINES_H

/// \file
/// What the library stores, line by line, while it stores it.

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string_view>
#include <vector>

/// Takes what the library writes and hands it on in lines. A line ends where the library flushes, which it does after
/// each: in a text there may be line ends, too.
class StoreLines : public std::streambuf {
  public:
    StoreLines();

    /// Stores `part`, whatever has an exportXML(). Throws what line() throws.
    template <class Part>
    void store(const Part& part)
    {
        part.exportXML(out_);
    }

  protected:
    /// Takes one line: `<tag>`, `</tag>` or `<tag>text</tag>`, and a newline.
    virtual void line(std::string_view line) = 0;

    /// Where the next line may stand already: if it begins so, it is taken from there instead of being copied.
    void expect(std::string_view text) { expected_ = text; }

    std::streamsize xsputn(const char* text, std::streamsize size) final;
    int_type        overflow(int_type c) final;
    int             sync() final;

  private:
    void append(const char* text, std::size_t size);

    std::string_view  expected_;
    std::size_t       matched_ = 0; // size of the line, as long as expected_ begins with it
    std::size_t       size_    = 0; // the same where it does not; then it is in line_
    std::vector<char> line_;        // grows to the longest line
    std::ostream      out_;
};

/// The parts of a line.
struct StoredLine {
    explicit StoredLine(std::string_view line);

    enum class Type { START_TAG, END_TAG, LEAF };

    Type             type;
    std::string_view name;
    std::string_view text; ///< of a leaf
};

#endif
