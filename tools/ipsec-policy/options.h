#ifndef IPSEC_POLICY_OPTIONS_H
#define IPSEC_POLICY_OPTIONS_H

/// \file
/// Options that several commands have.

#include <cstddef>
#include <string>
#include <vector>

namespace CLI {
class App;
} // namespace CLI

/// Adds `--max-size SIZE` to a command that reads documents; `maxSize` holds the usual limit, and must outlive the
/// parsing of the arguments.
void addMaxSize(CLI::App& arguments, std::size_t& maxSize);

/// An option whose value is one of a few words.
struct Choice {
    const char*              option; ///< with dashes
    const char*              type;   ///< of its value, such as "LEVEL"
    std::vector<std::string> words;
    const char*              help;
};

/// Adds such an option to a command; `value` must outlive the parsing of the arguments.
void addChoice(CLI::App& arguments, Choice choice, std::string& value);

/// Adds an option without a value to a command; `isGiven` must outlive the parsing of the arguments.
void addFlag(CLI::App& arguments, const char* option, bool& isGiven, const char* help);

#endif
