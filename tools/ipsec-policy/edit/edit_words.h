#ifndef IPSEC_POLICY_EDIT_WORDS_H
#define IPSEC_POLICY_EDIT_WORDS_H

/// \file
/// The words of edit commands, and their quoting. docs/edit.md tells the rules.
///
/// A word is handed around as it was spelt, with its quotes, because they matter to what is made of it: a comma or an
/// equals sign in quotes separates nothing. unquoted() gives what it stands for.
///
/// All of it throws a Failure (TROUBLE) for what breaks the rules. No message quotes anything, as it could be a key.

#include "failure.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What to throw where a command is wrong.
inline Failure commandFailure(const std::string& message)
{
    return Failure(ExitStatus::TROUBLE, message);
}

/// What separates words.
inline constexpr char BLANKS[] = " \t\v\f\r";

/// `text` as one word that unquoted() turns back into it: as it is if it holds nothing but letters, digits and
/// `.` `_` `:` `/` `+` `-` and does not begin with `+` or `-`; else in quotes and fit for a terminal.
std::string quotedWord(std::string_view text);

/// What a word stands for: quotes are taken off, and the escapes in double ones replaced.
std::string unquoted(std::string_view word);

/// Whether the word begins with a quote.
bool isQuoted(std::string_view word);

/// The quote that is begun and not closed in a text, which begins with a word; '\0' if there is none.
char openQuoteIn(std::string_view text);

/// Where the first of `characters` stands outside quotes, at `from` or later; else npos. There must be a beginning of a
/// word or of a piece of one at `from`.
std::size_t findUnquoted(std::string_view text, std::string_view characters, std::size_t from = 0);

/// The line up to a `#` that begins a word.
std::string_view withoutComment(std::string_view line);

std::vector<std::string_view> splitWords(std::string_view text);

/// The members of a list, which commas outside quotes separate, without blanks around them. A blank text is an empty
/// list.
std::vector<std::string_view> splitList(std::string_view text);

/// A word such as `NAME=VALUE`, whose name is not quoted.
struct Assignment {
    std::string_view name;
    std::string_view value; ///< as it was spelt
};

/// Nothing if there is no equals sign outside quotes.
std::optional<Assignment> assignmentIn(std::string_view word);

#endif
