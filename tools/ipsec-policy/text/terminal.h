#ifndef IPSEC_POLICY_TERMINAL_H
#define IPSEC_POLICY_TERMINAL_H

/// \file
/// What results are shown on.

#include <cstddef>
#include <string>
#include <string_view>

/// How many columns standard output has: what COLUMNS says if that is a number from 20 to 10000, else what the
/// terminal says, else (a file, a pipe) 80.
std::size_t outputWidth();

enum class Colour { RED, YELLOW, GREEN, CYAN, BOLD };

/// `text` in a colour, if standard output is a terminal that shows colours and NO_COLOR is not set or empty; else as
/// it is.
std::string coloured(std::string_view text, Colour colour);

/// Appends the same to `line`.
void appendColoured(std::string& line, std::string_view text, Colour colour);

#endif
