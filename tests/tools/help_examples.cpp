// Runs every example of the help and of the README, in a folder with the files that they name.

#include "program.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <sys/wait.h>

namespace {

std::vector<std::string> examplesOf(const std::string& command)
{
    std::vector<std::string> examples;
    const std::string        help = run({command, "--help"}).out;
    std::istringstream       lines(help.substr(help.find("\nExamples:\n") + 11));
    for (std::string line; std::getline(lines, line);)
        examples.push_back(line.substr(2));
    return examples;
}

void makeProgram(const std::string& name, const std::string& script)
{
    writeFile("bin/" + name, "#!/bin/sh\n" + script);
    chmod(("bin/" + name).c_str(), 0700);
}

void replaceAll(std::string& text, const std::string& old, const std::string& fresh)
{
    for (std::size_t at = text.find(old); at != std::string::npos; at = text.find(old, at + fresh.size()))
        text.replace(at, old.size(), fresh);
}

class InShell : public InFolder {
  protected:
    InShell()
    {
        std::filesystem::create_directory("bin");
        makeProgram("ipsec-policy", "exec '" PROGRAM_PATH "' \"$@\"\n");
        // Other programs look at what they are given, and take all of it.
        makeProgram("dot", "read -r first; cat >/dev/null; case $first in digraph*) ;; *) exit 1 ;; esac\n");
        makeProgram("jq", "read -r first; cat >/dev/null; case $first in {*) ;; *) exit 1 ;; esac\n");
        makeProgram("ssh", "shift; exec \"$@\"\n");
    }

    /// Without a terminal; what is under /etc is looked for here.
    static Outcome shell(std::string script)
    {
        replaceAll(script, "/etc/", "etc/");
        writeFile("script", script);
        const int status = std::system("PATH=$PWD/bin:$PATH setsid -w sh script </dev/null >stdout 2>stderr");
        return {WEXITSTATUS(status), contentOf("stdout"), contentOf("stderr")};
    }
};

/// Whether the exit status is that of diff.
bool endsInDiff(const std::string& line)
{
    const std::size_t last = line.rfind("ipsec-policy ");
    return line.compare(last, 17, "ipsec-policy diff") == 0;
}

class HelpExamples : public InShell, public testing::WithParamInterface<std::string> {
  protected:
    /// The files that the examples name, as if none of these had been run before.
    static void makeFiles()
    {
        const std::string router = contentOf(EXAMPLES_DIR "/configs/home-router.xml");
        const std::string edit   = "set host-group 3 descr=Offices\n";
        std::filesystem::create_directories("etc/ipsec");
        for (const char* const name : {"policy.xml", "old.xml", "new.xml", "etc/ipsec/a.xml"}) {
            writeFile(name, router);
            chmod(name, 0600);
        }
        writeFile("branch.edit", edit);
        writeFile("changes", edit);
        EXPECT_EQ(run({"edit", "new.xml", "branch.edit"}), printed(""));
        writeFile("etc/policy.xml", contentOf("new.xml"));
    }
};

TEST_P(HelpExamples, DoWhatTheyAreFor)
{
    const std::vector<std::string> examples = examplesOf(GetParam());
    EXPECT_GE(examples.size(), 2U);
    for (const std::string& example : examples) {
        makeFiles();
        if (example.rfind("ipsec-policy new -o", 0) == 0)
            std::filesystem::remove("policy.xml"); // which it makes
        const Outcome outcome = shell(example);
        if (example.find("=?") != std::string::npos) {
            EXPECT_EQ(outcome, troubled("-e:1: /dev/tty: No such device or address")) << example;
            continue;
        }
        EXPECT_EQ(outcome.err, "") << example;
        EXPECT_EQ(outcome.status, endsInDiff(example) ? 1 : 0) << example << '\n' << outcome; // the files differ
    }
}

INSTANTIATE_TEST_SUITE_P(Help, HelpExamples,
                         testing::Values("new", "show", "check", "format", "diff", "edit", "graph"));

/// The commands of the README, in their order.
TEST_F(InShell, TheREADMEsQuickUseWorksAsAWhole)
{
    const std::string readme = contentOf(EXAMPLES_DIR "/../README.md");
    const std::size_t begin  = readme.find("```sh\n", readme.find("\n## ipsec-policy\n")) + 6;
    const std::string script = readme.substr(begin, readme.find("```", begin) - begin);

    std::istringstream lines(script);
    std::size_t        count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        const Outcome outcome = shell(line);
        EXPECT_EQ(outcome.err, "") << line;
        EXPECT_EQ(outcome.status, endsInDiff(line) ? 1 : 0) << line << '\n' << outcome;
    }
    EXPECT_EQ(count, 7U);
    EXPECT_EQ(run({"format", "--check", "policy.xml"}), printed(""));
}

} // namespace
