#include "usage.h"

#include "command_line.h"
#include "nearest.h"
#include "text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

bool isProgram(const CLI::App& command)
{
    return command.get_parent() == nullptr;
}

Failure failureOf(const CLI::App& command, const std::string& message)
{
    if (isProgram(command))
        return Failure(ExitStatus::TROUBLE, message + "\nRun 'ipsec-policy --help' for more information.");
    return usageFailure(command.get_name(), message);
}

/// What is wrong with one of the options, or nothing.
const char* misuseOf(const GivenOption& given)
{
    if (takesValue(*given.option) && !given.value)
        return " needs a value";
    if (given.value && !takesValue(*given.option) && !mayTakeValue(*given.option))
        return " takes no value";
    return given.value == "" ? " has an empty value" : nullptr;
}

void refuseMisusedOptions(const CLI::App& command, const Arguments& arguments)
{
    for (auto given = arguments.options.begin(); given != arguments.options.end(); ++given) {
        const CLI::Option& option  = *given->option;
        const auto         isSame  = [&option](const GivenOption& other) { return other.option == &option; };
        const auto         refused = [&](const char* misuse) {
            return failureOf(command, "option '" + nameOf(option) + '\'' + misuse);
        };
        if (const char* const misuse = misuseOf(*given); misuse != nullptr)
            throw refused(misuse);
        if ((takesValue(option) || mayTakeValue(option)) && !isRepeatable(option) &&
            std::any_of(arguments.options.begin(), given, isSame))
            throw refused(" is given more than once");
    }
}

std::vector<std::string> commandsOf(const CLI::App& program)
{
    std::vector<std::string> names;
    for (const CLI::App* command : program.get_subcommands({}))
        names.push_back(command->get_name());
    return names;
}

/// Their long names, without the dashes.
std::vector<std::string> optionsOf(const CLI::App& command)
{
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options())
        names.insert(names.end(), option->get_lnames().begin(), option->get_lnames().end());
    return names;
}

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

std::string unknownCommand(const CLI::App& program, const std::string& word)
{
    const std::vector<std::string> commands = commandsOf(program);
    const std::string              meant    = nearest(word, commands);
    // Where 'edit' was forgotten, what begins with a blank or an equals sign may be a key.
    return "unknown command '" + printable(word.substr(0, word.find_first_of(" \t\n="))) + '\'' +
           (meant.empty() ? ": there are " + joined(commands) : " (did you mean '" + meant + "'?)");
}

std::string unknownOption(const CLI::App& command, const std::string& word)
{
    const std::string option  = word.substr(0, word.find('=')); // its value may be a key
    const std::string message = "unknown option '" + printable(option) + '\'';
    const std::string name    = option.substr(std::min(option.find_first_not_of('-'), option.size()));

    const std::string meant = nearest(name, optionsOf(command));
    if (!meant.empty())
        return message + " (did you mean '--" + meant + "'?)";
    const auto commands = command.get_subcommands({});
    const bool isLate   = std::any_of(commands.begin(), commands.end(),
                                      [&option](const CLI::App* other) { return optionIn(*other, option) != nullptr; });
    return isLate ? message + " (the options of a command stand behind its name)" : message;
}

/// What is said of the first word that means nothing to `command`.
std::string unknownWord(const CLI::App& command, const std::string& word)
{
    if (word.size() > 1 && word.front() == '-')
        return unknownOption(command, word);
    if (isProgram(command))
        return unknownCommand(command, word);
    // What is not in quotes may be a command of `edit` with a key in it.
    return command.get_name() == "edit" ? "unexpected argument (a command with blanks must be in quotes)"
                                        : "unexpected argument '" + printable(word) + '\'';
}

/// What is wrong with the arguments of `command`. As options are looked at before, nothing else is left.
std::string messageOf(const CLI::App& command, const CLI::Error& error)
{
    if (const std::vector<std::string> others = command.remaining(); !others.empty())
        return unknownWord(command, others.front());
    return isProgram(command) ? "a command is required\nUsage: ipsec-policy [OPTION ...] COMMAND ..." : error.what();
}

} // namespace

void refuseMisusedOptions(const CLI::App& program, const std::vector<std::string>& words)
{
    const auto      name   = findCommand(words);
    const Arguments before = readArguments(program, {words.begin(), name});
    refuseMisusedOptions(program, before);
    if (name == words.end())
        return;
    const bool asksForVersion = std::any_of(before.options.begin(), before.options.end(), [&](const auto& given) {
        return given.option == program.get_version_ptr();
    });
    if (asksForVersion)
        throw failureOf(program, "unexpected argument '" + printable(*name) + "' behind '--version'");
    const CLI::App& command = commandNamed(program, *name);
    refuseMisusedOptions(command, readArguments(command, {std::next(name), words.end()}));
}

const CLI::App& commandNamed(const CLI::App& program, const std::string& name)
{
    for (const CLI::App* command : program.get_subcommands({}))
        if (command->get_name() == name)
            return *command;
    throw failureOf(program, unknownCommand(program, name));
}

Failure argumentsFailure(const CLI::App& program, const CLI::Error& error)
{
    const std::vector<CLI::App*> chosen  = program.get_subcommands();
    const CLI::App&              command = chosen.empty() || !program.remaining().empty() ? program : *chosen.front();
    return failureOf(command, messageOf(command, error));
}
