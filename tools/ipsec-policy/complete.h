#ifndef IPSEC_POLICY_COMPLETE_H
#define IPSEC_POLICY_COMPLETE_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

/// What the last of `words` could become: the words behind the program's name, as they are typed so far. One candidate
/// a line, as docs/completion.md tells. What cannot be read has no candidates; nothing is thrown for it.
std::string completions(const CLI::App& program, const std::vector<std::string>& words);

#endif
