#ifndef IPSEC_POLICY_OPTIONS_H
#define IPSEC_POLICY_OPTIONS_H

/// \file
/// Options that several commands have.

#include <cstddef>

namespace CLI {
class App;
}

/// Adds `--max-size SIZE` to a command that reads documents; `maxSize` holds the usual limit, and must outlive the
/// parsing of the arguments.
void addMaxSize(CLI::App& arguments, std::size_t& maxSize);

#endif
