#ifndef IPSECIMPL_TESTS_TOOLS_COMPLETED_H
#define IPSECIMPL_TESTS_TOOLS_COMPLETED_H

/// \file
/// What the program tells a shell.

#include "program.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

/// The lines that the program prints for these words.
inline std::vector<std::string> completed(const std::vector<std::string>& words)
{
    std::vector<std::string> arguments = {"__complete"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");

    std::vector<std::string> lines;
    std::istringstream       text(outcome.out);
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

/// The words alone, without their descriptions.
inline std::vector<std::string> wordsFor(const std::vector<std::string>& words)
{
    std::vector<std::string> lines = completed(words);
    for (std::string& line : lines)
        line.erase(std::min(line.find('\t'), line.size()));
    return lines;
}

/// A folder with a file "policy.xml", with names of all sorts.
class Complete : public InFolder {
  protected:
    Complete()
    {
        const auto named = [](unsigned int id, const std::string& name) {
            return entry("hostGroup", id, group("hostGroup", name, "", ""));
        };
        writeFile("policy.xml", document(named(1, "Head office") + named(2, "twice") + named(3, "twice") +
                                             named(4, "") + named(5, "10") + named(6, "R&D 'lab'") + named(7, "a\nb") +
                                             named(8, "--help") + named(12, "name=x") + named(13, "plain"),
                                         entry("protocolGroup", 4, group("protocolGroup", "Web", "", "")),
                                         entry("action", 3, action("Pass", "", "<spdAction>BYPASS</spdAction>")),
                                         entry("policy", 1, policy(1, 4, 3)) + entry("policy", 11, policy(9, 4, 3))));
    }
};

#endif
