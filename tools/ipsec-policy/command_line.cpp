#include "command_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace {

bool isLong(std::string_view word)
{
    return word.substr(0, 2) == "--";
}

/// The value in the same word as its option, if there is one.
std::optional<std::string> valueIn(const std::string& word, const CLI::Option& option)
{
    if (!isLong(word)) // what follows a flag's letter are other options
        return takesValue(option) && word.size() > 2 ? std::optional(word.substr(2)) : std::nullopt;
    const std::size_t equals = word.find('=');
    return equals == std::string::npos ? std::nullopt : std::optional(word.substr(equals + 1));
}

} // namespace

Arguments readArguments(const CLI::App& command, const std::vector<std::string>& words)
{
    Arguments arguments;
    for (const std::string& word : words) {
        if (arguments.awaiting != nullptr) {
            arguments.options.back().value = word;
            arguments.awaiting             = nullptr;
        } else if (arguments.optionsEnded || word.size() < 2 || word.front() != '-') {
            arguments.positionals.push_back(word);
        } else if (word == "--") {
            arguments.optionsEnded = true;
        } else if (const CLI::Option* const option = optionIn(command, word); option != nullptr) {
            arguments.options.push_back({option, valueIn(word, *option)});
            if (takesValue(*option) && !arguments.options.back().value)
                arguments.awaiting = option;
        }
    }
    return arguments;
}

std::vector<std::string>::const_iterator findCommand(const std::vector<std::string>& words)
{
    return std::find_if(words.begin(), words.end(),
                        [](const std::string& word) { return word.size() < 2 || word.front() != '-'; });
}

const CLI::Option* optionIn(const CLI::App& command, std::string_view word)
{
    const std::string name(isLong(word) ? word.substr(2, word.find('=') - 2) : word.substr(1, 1));
    for (const CLI::Option* option : command.get_options()) {
        const std::vector<std::string>& names = isLong(word) ? option->get_lnames() : option->get_snames();
        if (std::find(names.begin(), names.end(), name) != names.end())
            return option;
    }
    return nullptr;
}

bool takesValue(const CLI::Option& option)
{
    return option.get_items_expected_max() > 0;
}

bool mayTakeValue(const CLI::Option& option)
{
    return !takesValue(option) && !option.get_disable_flag_override();
}

bool isRepeatable(const CLI::Option& option)
{
    return option.get_items_expected_max() == CLI::detail::expected_max_vector_size;
}

std::string nameOf(const CLI::Option& option)
{
    return option.get_lnames().empty() ? '-' + option.get_snames().front() : "--" + option.get_lnames().front();
}
