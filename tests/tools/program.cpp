#include "program.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <regex>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

int programMain(int argc, char** argv); // the program's own main()

#ifdef SANITIZED
/// What is freed is kept for a while, to find uses of it: only so much that a copy of the process, one of thousands, is
/// soon made.
extern "C" const char* __asan_default_options();
const char*            __asan_default_options()
{
    return "quarantine_size_mb=4";
}
#endif

namespace {

void require(bool succeeded, const char* what)
{
    if (!succeeded)
        throw std::system_error(errno, std::generic_category(), what);
}

/// A file without a name, for what the program prints.
class Capture {
  public:
    Capture()
        : file_(std::tmpfile())
    {
        require(file_ != nullptr, "tmpfile");
    }

    Capture(const Capture&)            = delete;
    Capture& operator=(const Capture&) = delete;
    ~Capture() { std::fclose(file_); }

    int descriptor() const { return fileno(file_); }

    std::string text() const
    {
        std::string            text;
        std::array<char, 4096> block = {};
        std::rewind(file_);
        while (const std::size_t size = std::fread(block.data(), 1, block.size(), file_))
            text.append(block.data(), size);
        return text;
    }

  private:
    std::FILE* file_;
};

/// Gives `input` to the pipe. The program may well stop reading before its end.
void feed(int descriptor, const std::string& input)
{
    std::signal(SIGPIPE, SIG_IGN);
    for (std::size_t done = 0; done < input.size();) {
        const ssize_t count = write(descriptor, input.data() + done, input.size() - done);
        if (count < 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    close(descriptor);
}

/// What main() gets.
class Arguments {
  public:
    explicit Arguments(const std::vector<std::string>& arguments)
        : texts_{"ipsec-policy"}
    {
        texts_.insert(texts_.end(), arguments.begin(), arguments.end());
        for (std::string& text : texts_)
            pointers_.push_back(text.data());
        pointers_.push_back(nullptr);
    }

    int    count() const { return static_cast<int>(texts_.size()); }
    char** values() { return pointers_.data(); }

  private:
    std::vector<std::string> texts_;
    std::vector<char*>       pointers_;
};

/// Keeps standard output, which the program closes, and puts it back in the end.
class SavedOutput {
  public:
    SavedOutput()
        : kept_(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0))
    {
        require(kept_ >= 0, "fcntl");
    }

    SavedOutput(const SavedOutput&)            = delete;
    SavedOutput& operator=(const SavedOutput&) = delete;

    ~SavedOutput()
    {
        if (dup2(kept_, STDOUT_FILENO) < 0)
            std::abort(); // or what the next run prints would not be seen
        close(kept_);
    }

  private:
    int kept_;
};

/// Ends a new process with the status that `program` returns. An exception must not bring it back among the tests.
[[noreturn]] void endWith(const std::function<int()>& program)
{
    try {
        _exit(program());
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    } catch (...) {
        std::cerr << "an exception\n";
    }
    _exit(127);
}

/// What becomes of a new process that does as `program` and ends with the status which that returns.
Outcome runProcess(const std::string& input, const std::function<int()>& program)
{
    const Capture      out;
    const Capture      err;
    std::array<int, 2> pipe = {};
    require(::pipe2(pipe.data(), O_CLOEXEC) == 0, "pipe2");

    const pid_t child = fork();
    require(child >= 0, "fork");
    if (child == 0) {
        close(pipe[1]); // or the input would have no end
        dup2(pipe[0], STDIN_FILENO);
        dup2(out.descriptor(), STDOUT_FILENO);
        dup2(err.descriptor(), STDERR_FILENO);
        std::signal(SIGPIPE, SIG_DFL);
        for (const char* const name : {"COLUMNS", "NO_COLOR"}) // the tests are not about whoever runs them
            unsetenv(name);
        endWith(program);
    }
    close(pipe[0]);
    feed(pipe[1], input);

    int status = 0;
    require(waitpid(child, &status, 0) == child, "waitpid");
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), out.text(), err.text()};
}

} // namespace

bool operator==(const Outcome& a, const Outcome& b)
{
    return a.status == b.status && a.out == b.out && a.err == b.err;
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome)
{
    return out << "status " << outcome.status << "\n--- standard output:\n"
               << outcome.out << "--- standard error:\n"
               << outcome.err << "---";
}

Outcome run(const std::vector<std::string>& arguments, const std::string& input, const std::function<void()>& prepare)
{
    return runProcess(input, [&] {
        prepare();
        execv(PROGRAM_PATH, Arguments(arguments).values());
        return 127;
    });
}

Outcome runCopy(const std::vector<std::string>& arguments, const std::string& input,
                const std::function<void()>& prepare)
{
    return runProcess(input, [&] {
        prepare();
        Arguments given(arguments);
        return programMain(given.count(), given.values());
    });
}

Outcome runCopies(const std::function<int(const Copy& program)>& runs)
{
    return runProcess("", [&] { return runs({}); });
}

int Copy::operator()(const std::vector<std::string>& arguments, const std::string& input) const
{
    std::array<int, 2> pipe = {};
    require(::pipe2(pipe.data(), O_CLOEXEC) == 0, "pipe2");
    require(fcntl(pipe[1], F_SETFL, O_NONBLOCK) == 0, "fcntl"); // or what does not go into it would be waited for
    require(write(pipe[1], input.data(), input.size()) == static_cast<ssize_t>(input.size()), "write");
    close(pipe[1]);
    require(dup2(pipe[0], STDIN_FILENO) >= 0, "dup2");
    close(pipe[0]);
    const SavedOutput saved;
    Arguments         given(arguments);
    return programMain(given.count(), given.values());
}

int Copy::silently(const std::vector<std::string>& arguments, const std::string& input) const
{
    const SavedOutput saved;
    const int         nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    require(nowhere >= 0, "open");
    require(dup2(nowhere, STDOUT_FILENO) >= 0, "dup2");
    close(nowhere);
    return (*this)(arguments, input);
}

InFolder::InFolder()
    : folder_((std::filesystem::temp_directory_path() / "ipsec-policy-test.XXXXXX").string())
    , before_(std::filesystem::current_path().string())
{
    require(mkdtemp(folder_.data()) != nullptr, "mkdtemp");
    std::filesystem::current_path(folder_);
}

InFolder::~InFolder()
{
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(folder_, ignored);
}

std::vector<std::string> InFolder::fileNames()
{
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator("."))
        names.push_back(file.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string contentOf(const std::string& fileName)
{
    std::ifstream     in(fileName, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(in), {}};
    if (!in || std::filesystem::is_directory(fileName))
        throw std::runtime_error("cannot read " + fileName);
    return content;
}

void writeFile(const std::string& fileName, const std::string& content)
{
    std::ofstream out(fileName, std::ios::binary);
    out << content << std::flush;
    if (!out)
        throw std::runtime_error("cannot write " + fileName);
}

mode_t modeOf(const std::string& fileName)
{
    struct stat status = {};
    require(stat(fileName.c_str(), &status) == 0, "stat");
    return status.st_mode & 07777U;
}

void limitFileSize()
{
    const rlimit limit = {100, 100};
    require(setrlimit(RLIMIT_FSIZE, &limit) == 0, "setrlimit");
}

std::string document(const std::string& hostGroups, const std::string& protocolGroups, const std::string& actions,
                     const std::string& policies)
{
    return "<ipsec><hostGroups>" + hostGroups + "</hostGroups><protocolGroups>" + protocolGroups +
           "</protocolGroups><actions>" + actions + "</actions><policies>" + policies + "</policies></ipsec>\n";
}

std::string entry(const std::string& tag, unsigned int id, const std::string& element)
{
    return "<" + tag + "Entry><id>" + std::to_string(id) + "</id>" + element + "</" + tag + "Entry>";
}

std::string group(const std::string& tag, const std::string& name, const std::string& descr,
                  const std::string& selectors)
{
    return "<" + tag + "><name>" + name + "</name><builtinName>0</builtinName><descr>" + descr +
           "</descr><builtinDescr>0</builtinDescr><selectors>" + selectors + "</selectors></" + tag + ">";
}

std::string action(const std::string& name, const std::string& descr, const std::string& mode)
{
    return "<action><changeCount>0</changeCount><name>" + name + "</name><builtinName>0</builtinName><descr>" + descr +
           "</descr><builtinDescr>0</builtinDescr><type>0</type><state>0</state>" + mode + "</action>";
}

std::string withoutKey(const std::string& document)
{
    return std::regex_replace(document, std::regex("<presharedKey>[A-Za-z0-9_-]+<"), "<presharedKey>KEY<");
}

std::string policy(unsigned int hostGroup, unsigned int protocolGroup, unsigned int action)
{
    return "<policy><hostGroupID>" + std::to_string(hostGroup) + "</hostGroupID><protocolGroupID>" +
           std::to_string(protocolGroup) + "</protocolGroupID><actionID>" + std::to_string(action) +
           "</actionID></policy>";
}
