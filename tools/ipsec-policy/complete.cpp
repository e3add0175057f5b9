#include "complete.h"

#include "check_report.h"
#include "command_line.h"
#include "edit_candidates.h"
#include "object_candidates.h"
#include "objects.h"
#include "rules.h"
#include "shell_word.h"
#include "text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace {

/// The program's own word for "names of files, which the shell knows better".
const char FILES[] = ":files\n";

/// What the arguments that are files are called in the commands' declarations.
const std::string_view FILE_WORDS[] = {"FILE", "OUT", "OLD", "NEW", "SCRIPT", "NAME"};

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

/// Collects the candidates that go on from what is typed.
class Completion {
  public:
    Completion(const CLI::App& program, const ShellWord& last)
        : program_(program)
        , last_(last)
    {
    }

    void complete(const std::vector<std::string>& before);

    const std::string& text() const { return text_; }

  private:
    void add(const Candidate& candidate);
    void addCommands();
    void addOptions(const CLI::App& command);
    void completeArgument(const CLI::App& command, const Arguments& arguments);
    void addValues(const CLI::Option& argument, const CLI::App& command, const Arguments& arguments);
    void addObjects(const CLI::App& command, const Arguments& arguments);

    const CLI::App&  program_;
    const ShellWord& last_;
    std::string      prefix_; // of all candidates: an option whose value stands in the same word
    std::string      text_;
};

void Completion::add(const Candidate& candidate)
{
    const std::string meant = prefix_ + candidate.text;
    if (!startsWith(meant, last_.text))
        return;
    const std::optional<std::string> typed = typedWord(candidate.text, last_.openQuote);
    if (!typed)
        return;
    text_ += prefix_ + *typed;
    if (!candidate.description.empty())
        text_ += '\t' + printable(candidate.description);
    text_ += '\n';
}

void Completion::addCommands()
{
    const auto isShown = [](const CLI::App* command) { return !command->get_group().empty(); };
    for (const CLI::App* command : program_.get_subcommands(isShown))
        add({command->get_name(), command->get_description()});
}

void Completion::addOptions(const CLI::App& command)
{
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_positional() || option->get_group().empty())
            continue;
        std::string description = option->get_description();
        std::replace(description.begin(), description.end(), '\n', ' '); // the help breaks its lines
        for (const std::string& name : option->get_lnames())
            add({"--" + name, description});
        if (option->get_lnames().empty())
            for (const std::string& name : option->get_snames())
                add({'-' + name, description});
    }
}

/// The options that are positional, in their order.
std::vector<const CLI::Option*> positionalsOf(const CLI::App& command)
{
    return command.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

/// What was given for the positional argument of that name; empty if nothing was.
std::string given(std::string_view name, const CLI::App& command, const Arguments& arguments)
{
    const auto positionals = positionalsOf(command);
    for (std::size_t i = 0; i < std::min(positionals.size(), arguments.positionals.size()); ++i)
        if (positionals[i]->get_name(true) == name)
            return arguments.positionals[i];
    return "";
}

void Completion::addObjects(const CLI::App& command, const Arguments& arguments)
{
    const std::string word = given("KIND", command, arguments);
    for (const Kind kind : ALL_KINDS)
        if (word == wordsOf(kind).plural || word == wordsOf(kind).singular)
            for (const Candidate& candidate : objectCandidates(given("FILE", command, arguments), kind))
                add(candidate);
}

void Completion::addValues(const CLI::Option& argument, const CLI::App& command, const Arguments& arguments)
{
    const std::string type = argument.get_type_name();
    const std::string word = argument.get_positional() ? argument.get_name(true) : type;
    if (word == "LEVEL") {
        for (const Level level : {Level::ERROR, Level::WARNING, Level::NOTE})
            add({wordOf(level), ""});
    } else if (word == "CODE") {
        for (const Rule* const rule : allRules())
            add({rule->code, rule->summary});
    } else if (word == "KIND") {
        for (const Kind kind : ALL_KINDS)
            add({wordsOf(kind).plural, ""});
    } else if (word == "TOPIC") {
        addCommands();
    } else if (word == "OBJECT") {
        addObjects(command, arguments);
    } else if (word == "COMMAND") {
        for (const Candidate& candidate :
             editCandidates(std::string_view(last_.text).substr(prefix_.size()), given("FILE", command, arguments)))
            add(candidate);
    } else if (std::find(std::begin(FILE_WORDS), std::end(FILE_WORDS), word) != std::end(FILE_WORDS)) {
        text_ += FILES;
    }
}

void Completion::complete(const std::vector<std::string>& before)
{
    const auto name = findCommand(before);
    if (name == before.end()) {
        addCommands();
        addOptions(program_);
        return;
    }
    const auto hasName = [&name](const CLI::App* command) { return command->get_name() == *name; };
    for (const CLI::App* command : program_.get_subcommands(hasName))
        completeArgument(*command, readArguments(*command, {std::next(name), before.end()}));
}

void Completion::completeArgument(const CLI::App& command, const Arguments& arguments)
{
    if (arguments.awaiting != nullptr)
        return addValues(*arguments.awaiting, command, arguments);

    const std::string& word = last_.text;
    if (!arguments.optionsEnded && !word.empty() && word.front() == '-') {
        const std::size_t        equals = word.find('=');
        const CLI::Option* const option = optionIn(command, word);
        if (equals == std::string::npos)
            return addOptions(command);
        prefix_ = word.substr(0, equals + 1);
        if (option != nullptr && (takesValue(*option) || mayTakeValue(*option)))
            addValues(*option, command, arguments);
        return;
    }
    const auto        positionals = positionalsOf(command);
    const std::size_t next        = arguments.positionals.size();
    if (next < positionals.size())
        addValues(*positionals[next], command, arguments);
    else if (!positionals.empty() && isRepeatable(*positionals.back()))
        addValues(*positionals.back(), command, arguments);
    else if (!arguments.optionsEnded)
        addOptions(command);
}

} // namespace

std::string completions(const CLI::App& program, const std::vector<std::string>& words)
{
    std::vector<std::string> before;
    before.reserve(words.size());
    for (const std::string& word : words)
        before.push_back(readShellWord(word).text);
    if (!before.empty())
        before.pop_back();
    const ShellWord last = readShellWord(words.empty() ? "" : words.back());

    Completion completion(program, last);
    completion.complete(before);
    return completion.text();
}
