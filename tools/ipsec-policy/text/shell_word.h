#ifndef IPSEC_POLICY_SHELL_WORD_H
#define IPSEC_POLICY_SHELL_WORD_H

/// \file
/// Words as they are typed into a shell: in quotes, with backslashes, perhaps not yet finished.

#include <optional>
#include <string>
#include <string_view>

struct ShellWord {
    std::string text;             ///< what is meant
    char        openQuote = '\0'; ///< the quote that is still open at the end, if any
};

/// What the shell makes of a word: quotes and backslashes are gone, and "~/" in front is the home folder. Variables
/// and the like stay as they are.
ShellWord readShellWord(std::string_view typed);

/// How `text` is typed, behind `openQuote` if that is one. Nothing where that is not possible in one line, and in the
/// same way for all shells.
std::optional<std::string> typedWord(std::string_view text, char openQuote);

#endif
