#ifndef IPSEC_POLICY_TYPED_COMMAND_H
#define IPSEC_POLICY_TYPED_COMMAND_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// An edit command as far as it is typed. Its words are pieces of the text, as they are spelt.
struct TypedCommand {
    std::vector<std::string_view> before; ///< the words that are complete
    std::string_view              last;   ///< the one that goes on, perhaps empty; perhaps its quote is open
};

TypedCommand readTypedCommand(std::string_view text);

/// `name` as it goes on from `typed`, the beginning of a word that may end in an open quote; nothing if it does not.
/// Throws a Failure where `typed` breaks the rules of words.
std::optional<std::string> continuedWord(std::string_view typed, const std::string& name);

#endif
