// edited-file FILE BACKUP: replaces FILE by what comes on standard input, for tests that make its system calls fail.

#include "edited_file.h"
#include "failure.h"
#include "files.h"

#include <csignal>

int main(int, char** argv)
{
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        const std::string text = readFile("-", USUAL_MAX_SIZE);
        EditedFile(argv[1], USUAL_MAX_SIZE).replace(text, argv[2]);
        return 0;
    } catch (const Failure& failure) {
        printMessage(failure.what());
        return static_cast<int>(failure.status);
    }
}
