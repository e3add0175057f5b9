// edited-file FILE BACKUP: replaces FILE by what comes on standard input, for tests that make its system calls fail.

#include "edited_file.h"
#include "failure.h"
#include "files.h"

#include <csignal>

int main(int, char** argv)
{
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        const std::string text   = readFile("-", USUAL_MAX_SIZE);
        const std::string file   = argv[1];
        const std::string backup = argv[2];
        EditedFile(file, USUAL_MAX_SIZE).replace(text, BackupName{backup, backup == usualBackup(file).text});
        return 0;
    } catch (const Failure& failure) {
        printMessage(failure.what());
        return static_cast<int>(failure.status);
    }
}
