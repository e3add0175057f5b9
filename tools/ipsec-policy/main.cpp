/// \file
/// ipsec-policy: the program that operators manage configurations with.
///
/// Results go to standard output, messages to standard error.

#include "build_facts.h"
#include "command_line.h"
#include "commands.h"
#include "complete.h"
#include "failure.h"
#include "files.h"
#include "usage.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <memory>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// A write to a closed pipe or beyond a limit is to fail like any other, and not to kill the program.
void ignoreSignals()
{
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
}

/// Fills the places of standard streams that are closed, lest a file that is opened later take one of them. What fills
/// them can be used in the wrong direction only.
void occupyStandardStreams()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(descriptor, F_GETFD) < 0) // then it is the lowest that is free, which open() takes
            static_cast<void>(open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
}

std::string indented(const std::string& text)
{
    std::string result = "  ";
    for (const char c : text) {
        result += c;
        if (c == '\n')
            result += "  ";
    }
    return result;
}

/// Also shows values that may follow a flag, of which the parser's own formatter knows nothing.
class HelpFormatter : public CLI::Formatter {
  public:
    std::string make_option_name(const CLI::Option* option, bool isPositional) const override
    {
        return mayTakeValue(*option) ? nameOf(*option) : Formatter::make_option_name(option, isPositional);
    }

    std::string make_option_opts(const CLI::Option* option) const override
    {
        return mayTakeValue(*option) ? "[=" + option->get_type_name() + ']' : Formatter::make_option_opts(option);
    }
};

void declareLooks(CLI::App& app)
{
    app.formatter(std::make_shared<HelpFormatter>());
    app.get_formatter()->column_width(24);
    app.get_formatter()->label("Positionals", "Arguments");
    app.get_formatter()->label("SUBCOMMAND", "COMMAND ...");
    app.get_formatter()->label("OPTIONS", "OPTION ...");
}

/// Declares the program's arguments and those of all commands. Once they are read, `chosen` is what is to be done.
void declareArguments(CLI::App& app, std::function<ExitStatus()>& chosen)
{
    declareLooks(app);
    app.get_help_ptr()->disable_flag_override();
    app.set_version_flag("-V,--version", buildFacts, "Print the version and how it was built, and exit")
        ->disable_flag_override();
    app.require_subcommand(1);
    app.footer("'ipsec-policy COMMAND --help', or 'help COMMAND', tells more about a command.\n\n"
               "Exit status: 0 if all is well; 1 for findings or differences, and for a\n"
               "configuration that does not load, or would not once it is written; 2 for wrong\n"
               "usage and for what cannot be read or written.");

    for (const Command* command : allCommands()) {
        CLI::App* arguments = app.add_subcommand(command->name, command->summary + std::string("."));
        arguments->group("Commands");
        arguments->get_help_ptr()->disable_flag_override();
        arguments->footer(command->details + std::string("\n\nExamples:\n") + indented(command->examples));
        arguments->final_callback([&chosen, action = command->declare(*arguments)] { chosen = action; });
    }
}

/// Tells a shell what the last of the words could become, if there is anything to tell.
void complete(const std::vector<std::string>& words)
{
    try {
        CLI::App                    app("", PROGRAM);
        std::function<ExitStatus()> chosen;
        declareArguments(app, chosen);
        writeStandardOutput(completions(app, words));
    } catch (const std::exception&) {
        // Whoever is typing has no use for a message.
    }
}

/// Runs the command that the arguments ask for, and returns how it ended. Throws a Failure, or std::bad_alloc.
ExitStatus run(int argc, const char* const* argv)
{
    if (argc > 1 && std::string_view(argv[1]) == "__complete") {
        complete({argv + 2, argv + argc});
        return ExitStatus::CLEAN;
    }
    CLI::App                    app("Manages IPsec security-policy configurations.", PROGRAM);
    std::function<ExitStatus()> chosen;
    declareArguments(app, chosen);
    refuseMisusedOptions(app, {argv + std::min(argc, 1), argv + argc});
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& asked) { // for help, or for the version
        std::ostringstream answer;
        app.exit(asked, answer, answer);
        writeStandardOutput(answer.str());
        return ExitStatus::CLEAN;
    } catch (const CLI::Error& error) {
        throw argumentsFailure(app, error);
    }
    return chosen();
}

} // namespace

int main(int argc, char** argv)
{
    occupyStandardStreams();
    ignoreSignals();
    try {
        return static_cast<int>(run(argc, argv));
    } catch (const Failure& failure) {
        printMessage(failure.what());
        return static_cast<int>(failure.status);
    } catch (const std::bad_alloc&) {
        printMessage("out of memory");
    } catch (const std::length_error&) {
        printMessage("out of memory"); // more than could ever be there
    } catch (const std::exception& error) {
        printMessage(error.what());
    }
    return static_cast<int>(ExitStatus::TROUBLE);
}
