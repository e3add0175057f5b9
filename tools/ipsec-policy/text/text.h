#ifndef IPSEC_POLICY_TEXT_H
#define IPSEC_POLICY_TEXT_H

/// \file
/// Texts of unknown origin on a terminal.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// `text` with escapes for what a terminal would obey instead of show: "\n" and its like, "\x1b" for other control
/// characters and for bytes that are not UTF-8, "\u{202e}" for characters that reorder or hide their neighbours, and
/// "\\" for a backslash, so that no text looks like another.
std::string printable(std::string_view text);

/// How many bytes the first character of a text takes: one if they are not UTF-8, none in an empty text.
std::size_t firstCharacterSize(std::string_view text);

/// Whether the text is nothing but printable ASCII without a backslash: then printable() gives it back as it is, and
/// each of its bytes takes a column. Most texts are, and to know it is much cheaper than to look at each character.
bool isPlain(std::string_view text);

/// A text of the program's own, with its first letter, a to z, as a sentence begins.
std::string sentenceStart(std::string text);

/// Such as "1 file" and "3 files".
std::string counted(std::size_t count, const char* what);

/// How many columns a printable text takes on a terminal.
std::size_t columnsOf(std::string_view text);

/// A line of a text that was broken: that many blanks, and a piece of the text.
struct WrappedLine {
    std::size_t      indent;
    std::string_view text;
};

/// Breaks a printable text at blanks, or in a word that is too long, into lines of at most `width` columns (at least
/// 3), and adds them to `lines`. There is always one line; further ones are indented by `hanging` more columns than the
/// first. No line has blanks at its end.
void wrap(std::string_view text, std::size_t width, std::size_t hanging, std::vector<WrappedLine>& lines);

/// The same lines as texts of their own, with the blanks: for what is not written by the thousand.
std::vector<std::string> wrapped(std::string_view text, std::size_t width, std::size_t hanging);

#endif
