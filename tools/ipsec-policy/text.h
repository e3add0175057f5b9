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

/// How many columns a printable text takes on a terminal.
std::size_t columnsOf(std::string_view text);

/// Breaks a printable text at blanks, or in a word that is too long, into lines of at most `width` columns (at least
/// 4). There is always one line; further ones are indented by `hanging` more columns than the first.
std::vector<std::string> wrapped(std::string_view text, std::size_t width, std::size_t hanging);

#endif
