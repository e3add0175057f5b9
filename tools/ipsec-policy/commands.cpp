#include "commands.h"

std::vector<const Command*> allCommands()
{
    return {
        &NEW_COMMAND,
        &SHOW_COMMAND,
        &FORMAT_COMMAND,
    };
}
