// What commands of ipsec-policy take, against a load of the same document by the library alone:
//
//     program IPSEC_POLICY [policies = 20000 [rounds = 15]]
//
// Every run is a process of its own, as for an operator, and all take turns. A load is timed from the first byte that
// the parser takes from memory to the finished configuration, a command from its start to its end. The least times are
// compared: of what disturbs a process nothing makes it faster.
//
//     program load FILE        one load: prints its milliseconds

#include "generator.h"
#include "report.h"

#include <ipsecimpl/config.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void require(bool holds, const std::string& what)
{
    if (!holds)
        throw std::runtime_error(what);
}

/// The least times of some processes that do the same, in milliseconds.
struct Times {
    double elapsed = std::numeric_limits<double>::max();
    double atWork  = std::numeric_limits<double>::max(); ///< of all threads
};

double milliseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

/// Runs a program whose standard output goes to the file `output`, and takes its times.
void run(const std::vector<std::string>& words, const std::string& output, Times& least)
{
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);

    const auto start  = Clock::now();
    pid_t      child  = 0;
    const int  error  = posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    int        status = 0;
    rusage     usage  = {};
    require(error == 0 && wait4(child, &status, 0, &usage) == child, "cannot run " + words[0]);
    least.elapsed = std::min(least.elapsed, millisecondsSince(start));
    least.atWork  = std::min(least.atWork, milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime));
    posix_spawn_file_actions_destroy(&actions);
    require(WIFEXITED(status) && WEXITSTATUS(status) <= 1, words[0] + ' ' + words[1] + " fails");
}

void load(const char* file)
{
    std::stringstream text;
    text << std::ifstream(file).rdbuf();
    ipsecimpl::XMLParser         parser(text);
    const auto                   start  = Clock::now();
    const ipsecimpl::IPsecConfig config = ipsecimpl::IPsecConfig::importXML(parser);
    std::cout << millisecondsSince(start) << '\n';
}

/// One of the documents and the commands for it.
class Measurement {
  public:
    Measurement(std::string self, std::string program, std::string folder)
        : self_(std::move(self))
        , program_(std::move(program))
        , folder_(std::move(folder))
    {
    }

    /// Adds the document, of which `what` says what is special.
    void add(const std::string& what, const std::string& document,
             const std::vector<std::vector<std::string>>& commands)
    {
        const std::string file = folder_ + "/document" + std::to_string(documents_.size()) + ".xml";
        require(static_cast<bool>(std::ofstream(file) << document << std::flush), "cannot write " + file);
        require(chmod(file.c_str(), 0600) == 0, "cannot protect " + file); // who may read it is none of the findings
        documents_.push_back({what, file, std::numeric_limits<double>::max(), {}});
        for (const std::vector<std::string>& words : commands)
            documents_.back().commands.push_back({words, {}});
    }

    void turn()
    {
        for (Document& document : documents_) {
            Times process;
            run({self_, "load", document.file}, folder_ + "/load", process);
            double milliseconds = 0;
            require(static_cast<bool>(std::ifstream(folder_ + "/load") >> milliseconds), "no time of a load");
            document.load = std::min(document.load, milliseconds);
            for (Command& command : document.commands) {
                std::vector<std::string> words = {program_};
                words.insert(words.end(), command.words.begin(), command.words.end());
                words.push_back(document.file);
                run(words, "/dev/null", command.times);
            }
        }
    }

    void print() const
    {
        for (const Document& document : documents_) {
            std::fprintf(stderr, "load%s: %.1f ms\n", document.what.c_str(), document.load);
            for (const Command& command : document.commands) {
                std::string words;
                for (const std::string& word : command.words)
                    words += (words.empty() ? "" : " ") + word;
                std::fprintf(stderr, "%s%s: %.1f ms, %.1f ms at work\n", words.c_str(), document.what.c_str(),
                             command.times.elapsed, command.times.atWork);
                bench::printGoal("ipsec-policy " + words + document.what + " / load",
                                 command.times.elapsed / document.load, command.words[0] == "check" ? 3 : 2);
            }
        }
    }

  private:
    struct Command {
        std::vector<std::string> words;
        Times                    times;
    };

    struct Document {
        std::string          what;
        std::string          file;
        double               load;
        std::vector<Command> commands;
    };

    std::string           self_;
    std::string           program_;
    std::string           folder_;
    std::vector<Document> documents_;
};

/// A folder that is removed with all that is in it.
class Folder {
  public:
    Folder()
        : name_(std::filesystem::temp_directory_path() / "ipsec-policy-XXXXXX")
    {
        require(mkdtemp(name_.data()) != nullptr, "no folder for the documents");
    }

    Folder(const Folder&)            = delete;
    Folder& operator=(const Folder&) = delete;

    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(name_, ignored);
    }

    const std::string& name() const { return name_; }

  private:
    std::string name_;
};

} // namespace

int main(int argc, char** argv)
try {
    if (argc == 3 && argv[1] == std::string("load")) {
        load(argv[2]);
        return 0;
    }
    if (argc < 2) {
        std::cerr << "usage: program IPSEC_POLICY [policies [rounds]]\n";
        return 2;
    }
    const auto policies = static_cast<unsigned int>(argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 20000);
    const auto rounds   = argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 15;

    const Folder folder;
    Measurement  measurement(argv[0], argv[1], folder.name());
    measurement.add("", bench::makeDocument(policies), {{"check"}, {"check", "--level=error"}, {"show"}});
    measurement.add(" of a tidy document", bench::stored(bench::makeTidyConfig(policies)),
                    {{"check"}, {"check", "--level=warning"}, {"show"}});
    for (unsigned long round = 0; round < rounds; ++round)
        measurement.turn();
    measurement.print();
    return 0;
} catch (const std::exception& e) {
    std::cerr << "program: " << e.what() << '\n';
    return 1;
}
