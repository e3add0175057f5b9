#ifndef IPSEC_POLICY_USAGE_H
#define IPSEC_POLICY_USAGE_H

/// \file
/// What is said about wrong usage.

#include "failure.h"

#include <string>
#include <vector>

namespace CLI {
class App;
class Error;
} // namespace CLI

/// The command of that name. Throws a Failure if there is none.
const CLI::App& commandNamed(const CLI::App& program, const std::string& name);

/// Throws a Failure for a command that there is not, and for an option with a value that takes none, with an empty
/// value, without its value, or given twice. The parser takes some of them for something else: it would look for the
/// value of `--output=` in the next word, and with `--help` it would not look at the rest.
void refuseMisusedOptions(const CLI::App& program, const std::vector<std::string>& words);

/// What to throw where the parser found `error` in the arguments.
Failure argumentsFailure(const CLI::App& program, const CLI::Error& error);

#endif
