#include "tracer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <map>
#include <sstream>

#include <unistd.h>

namespace {

// Outside of the folder that the program works in.
std::string recordName()
{
    return (std::filesystem::temp_directory_path() / ("ipsec-policy-trace." + std::to_string(getpid()))).string();
}

[[noreturn]] void becomeTracer(const std::vector<std::string>& options, const Traced& traced)
{
    std::vector<std::string> texts = {"strace", "-qq"};
    texts.insert(texts.end(), options.begin(), options.end());
    texts.push_back(traced.program);
    texts.insert(texts.end(), traced.arguments.begin(), traced.arguments.end());
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);

    setenv("ASAN_OPTIONS", "detect_leaks=0", 1); // which cannot be had under strace
    execvp("strace", pointers.data());
    _exit(127);
}

bool concernsMemory(const std::string& name)
{
    const std::array<const char*, 7> calls = {"brk", "mmap", "mmap2", "munmap", "mremap", "madvise", "futex"};
    return std::find(calls.begin(), calls.end(), name) != calls.end();
}

/// Tells the calls by which the sanitizers' run-time library looks whether memory can be read: it opens a pipe, writes
/// from there, and closes both ends. The program itself has no pipes.
class MemoryProbes {
  public:
    bool have(const std::string& name)
    {
        if (name == "pipe" || name == "pipe2")
            openEnds_ = 2;
        else if (openEnds_ == 0)
            return false;
        else if (name == "close")
            --openEnds_;
        return true;
    }

  private:
    int openEnds_ = 0;
};

} // namespace

Outcome trace(const std::vector<std::string>& options, const Traced& traced)
{
    return run({}, traced.input, [&] { becomeTracer(options, traced); });
}

const std::string& whyNoTrace()
{
#ifdef EMULATED
    // Faults would hit the emulator, whose own calls are among those that are seen, and differ from run to run.
    static const std::string reason = "strace traces the emulator here";
#else
    static const std::string reason = [] {
        const Outcome outcome =
            trace({"-o", "/dev/null", "-e", "inject=chroot:error=EIO"}, {PROGRAM_PATH, {"--version"}, ""});
        return outcome.status == 127 ? std::string("strace is not installed")
               : outcome.status != 0 ? "strace cannot trace here: " + outcome.err
                                     : std::string();
    }();
#endif
    return reason;
}

std::vector<SystemCall> systemCallsOf(const Traced& traced, std::vector<std::string> options)
{
    const std::string record = recordName();
    options.insert(options.begin(), {"-o", record});
    trace(options, traced);
    std::istringstream lines(contentOf(record));
    std::filesystem::remove(record);

    std::vector<SystemCall>    calls;
    std::map<std::string, int> numbers;
    MemoryProbes               probes;
    bool                       begun = false;
    for (std::string line; std::getline(lines, line);) {
        const std::string name = line.substr(0, line.find('('));
        if (name == line) // the end of the program, or a signal
            continue;
        const int number = ++numbers[name];
        begun            = begun || line.find("rt_sigaction(SIGXFSZ") == 0;
        if (begun && !concernsMemory(name) && !probes.have(name))
            calls.push_back({name, number, line});
    }
    return calls;
}

Outcome runWithFault(const Traced& traced, const SystemCall& call, const std::string& fault)
{
    return trace({"-o", "/dev/null", "-e", "trace=" + call.name, "-e",
                  "inject=" + call.name + ":" + fault + ":when=" + std::to_string(call.number)},
                 traced);
}
