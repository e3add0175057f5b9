#ifndef IPSECIMPL_TESTS_TOOLS_TRACER_H
#define IPSECIMPL_TESTS_TOOLS_TRACER_H

/// \file
/// Programs whose system calls are recorded, and made to fail, by strace.

#include "program.h"

#include <string>
#include <vector>

/// A system call of a run.
struct SystemCall {
    std::string name;   ///< "openat"
    int         number; ///< among the calls of that name, from 1
    std::string shown;  ///< with arguments and result, for messages
};

/// A program with its arguments and its standard input.
struct Traced {
    std::string              program;
    std::vector<std::string> arguments;
    std::string              input;
};

/// Why no program can be traced here; empty if one can.
const std::string& whyNoTrace();

/// The calls that a run makes once it has come to main(), which begins by ignoring SIGXFSZ. Those that only concern
/// memory are left out, and those of the sanitizers. `options` are further ones for strace.
std::vector<SystemCall> systemCallsOf(const Traced& traced, std::vector<std::string> options = {});

/// Runs it with a fault in that call, as strace writes it: "error=EIO", "signal=SIGKILL", "retval=1".
Outcome runWithFault(const Traced& traced, const SystemCall& call, const std::string& fault);

/// Runs it under strace with these options.
Outcome trace(const std::vector<std::string>& options, const Traced& traced);

#endif
