#include "commands.h"

std::vector<const Command*> allCommands()
{
    return {
        &NEW_COMMAND,  &SHOW_COMMAND, &CHECK_COMMAND, &FORMAT_COMMAND,
        &DIFF_COMMAND, &EDIT_COMMAND, &GRAPH_COMMAND, &HELP_COMMAND,
    };
}
