#include "options.h"

#include "failure.h"
#include "files.h"
#include "text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

/// The power of two that a suffix stands for; negative if it is none.
int shiftOf(std::string_view suffix)
{
    return suffix.empty() ? 0 : suffix == "K" ? 10 : suffix == "M" ? 20 : suffix == "G" ? 30 : -1;
}

Failure sizeFailure(const CLI::App& command, const std::string& text, const char* reason)
{
    return usageFailure(command.get_name(), "wrong use of option '--max-size': '" + printable(text) + "' " + reason);
}

std::size_t parseSize(const CLI::App& command, const std::string& text)
{
    const char* const end    = text.data() + text.size();
    std::size_t       size   = 0;
    const auto        digits = std::from_chars(text.data(), end, size);
    const int         shift  = shiftOf(std::string_view(digits.ptr, static_cast<std::size_t>(end - digits.ptr)));
    if (digits.ptr == text.data() || shift < 0)
        throw sizeFailure(command, text, "is not a size: a number of bytes, or with K, M or G behind it, such as 64M");

    const std::size_t most = std::numeric_limits<std::size_t>::max();
    if (digits.ec != std::errc() || size > most >> shift)
        throw sizeFailure(command, text, "is more than this program can address");
    if (size == 0)
        throw sizeFailure(command, text, "leaves nothing to read");
    return size << shift;
}

} // namespace

void addMaxSize(CLI::App& arguments, std::size_t& maxSize)
{
    arguments
        .add_option_function<std::string>(
            "--max-size", [&arguments, &maxSize](const std::string& text) { maxSize = parseSize(arguments, text); },
            "Refuse larger files; bytes, or with K, M, G (64M)")
        ->type_name("SIZE");
}

void addChoice(CLI::App& arguments, Choice choice, std::string& value)
{
    const char* const option = choice.option;
    const char* const type   = choice.type;
    const char* const help   = choice.help;

    const auto choose = [&arguments, &value, choice = std::move(choice)](const std::string& text) {
        if (std::find(choice.words.begin(), choice.words.end(), text) == choice.words.end())
            throw usageFailure(arguments.get_name(), std::string("wrong use of option '") + choice.option + "': '" +
                                                         printable(text) + "' is none of " +
                                                         CLI::detail::join(choice.words, ", "));
        value = text;
    };
    arguments.add_option_function<std::string>(option, choose, help)->type_name(type);
}

void addFlag(CLI::App& arguments, const char* option, bool& isGiven, const char* help)
{
    arguments.add_flag(option, isGiven, help)->disable_flag_override();
}
