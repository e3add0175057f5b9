#ifndef IPSEC_POLICY_DIFF_LINES_H
#define IPSEC_POLICY_DIFF_LINES_H

#include "diff.h"
#include "terminal.h"

#include <cstddef>
#include <string>
#include <utility>

/// The lines of a difference for people, none of which is wider than the output. Texts must be printable.
class DiffLines {
  public:
    void addHeading(Change change, const std::string& text);

    /// A field that stays, to tell which object it is.
    void addContext(const std::string& path, const std::string& value);

    /// A field of which there is one value to tell.
    void addLone(Change change, const std::string& path, const std::string& value);

    /// A field with both values, in one line or under each other.
    void addChanged(const std::string& path, const std::string& before, const std::string& after);

    std::string take() { return std::move(text_); }

    static constexpr char ARROW[] = " -> ";

  private:
    void addWrapped(const std::string& text, Colour colour);

    std::size_t width_ = outputWidth();
    std::string text_;
};

#endif
