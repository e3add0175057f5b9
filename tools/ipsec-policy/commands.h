#ifndef IPSEC_POLICY_COMMANDS_H
#define IPSEC_POLICY_COMMANDS_H

/// \file
/// The commands of the program. Each stands in a file of its own, which declares its arguments beside what it does
/// with them; a new one is that file, a line here, and a line in the table.

#include "failure.h"

#include <functional>
#include <vector>

namespace CLI {
class App;
}

struct Command {
    const char* name;
    const char* summary;
    const char* details;  ///< for the help: what there is to know beyond the arguments, lines of 80 columns
    const char* examples; ///< for the help, one on a line

    /// Adds the command's arguments to `arguments` and returns what is to be done once these are read. That returns how
    /// the program ends, or throws a Failure.
    std::function<ExitStatus()> (*declare)(CLI::App& arguments);
};

extern const Command NEW_COMMAND;
extern const Command SHOW_COMMAND;
extern const Command CHECK_COMMAND;
extern const Command FORMAT_COMMAND;
extern const Command DIFF_COMMAND;
extern const Command EDIT_COMMAND;
extern const Command GRAPH_COMMAND;
extern const Command HELP_COMMAND;

/// All of them, as the help lists them.
std::vector<const Command*> allCommands();

#endif
