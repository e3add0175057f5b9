#include "commands.h"
#include "files.h"
#include "usage.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace {

/// The help of the command of that name, of the program without one.
std::string helpOf(const CLI::App& program, const std::string& name)
{
    if (!name.empty())
        return commandNamed(program, name).help(PROGRAM);
    // Like this the text is that of the program: its own function gives that of the command that was given.
    return program.get_formatter()->make_help(&program, PROGRAM, CLI::AppFormatMode::Normal);
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto name = std::make_shared<std::string>();
    arguments.add_option("TOPIC", *name, "The command; without it, of all there is")->type_name("");
    return [name, &program = *arguments.get_parent()] {
        writeStandardOutput(helpOf(program, *name));
        return ExitStatus::CLEAN;
    };
}

} // namespace

const Command HELP_COMMAND = {
    "help",
    "Tell how a command is used, as its --help does",
    "The same as 'ipsec-policy --help' and 'ipsec-policy TOPIC --help'.",
    "ipsec-policy help edit | less\n"
    "ipsec-policy help",
    declare,
};
