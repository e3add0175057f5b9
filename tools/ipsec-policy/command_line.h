#ifndef IPSEC_POLICY_COMMAND_LINE_H
#define IPSEC_POLICY_COMMAND_LINE_H

/// \file
/// The words of a command line by the declarations of the commands, as far as it goes: for what is wrong with it, and
/// for what it could become.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

/// An option as it was given.
struct GivenOption {
    const CLI::Option*         option;
    std::optional<std::string> value; ///< in the same word, or the next one
};

/// The arguments of a command so far.
struct Arguments {
    std::vector<std::string> positionals;
    std::vector<GivenOption> options;                ///< those that the command has
    const CLI::Option*       awaiting     = nullptr; ///< the option whose value is next
    bool                     optionsEnded = false;   ///< by "--"
};

Arguments readArguments(const CLI::App& command, const std::vector<std::string>& words);

/// The first word that is no option: the command's name, if there is one of that name. Options of the program have no
/// values.
std::vector<std::string>::const_iterator findCommand(const std::vector<std::string>& words);

/// The option that a word with a dash is about, with or without a value in the same word; null if there is none.
const CLI::Option* optionIn(const CLI::App& command, std::string_view word);

/// Whether a value must follow the option.
bool takesValue(const CLI::Option& option);

/// Whether a value may follow the option behind an equals sign, although none need.
bool mayTakeValue(const CLI::Option& option);

/// Whether the option may be given more than once.
bool isRepeatable(const CLI::Option& option);

/// What messages call the option: its long name with dashes, if it has one.
std::string nameOf(const CLI::Option& option);

#endif
