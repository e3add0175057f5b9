#include "failure.h"

#include "files.h"
#include "text.h"

#include <exception>
#include <initializer_list>
#include <system_error>

#include <unistd.h>

Failure usageFailure(const std::string& command, const std::string& message)
{
    return Failure(ExitStatus::TROUBLE,
                   command + ": " + message + "\nRun 'ipsec-policy " + command + " --help' for more information.");
}

Failure fileFailure(const std::string& fileName, const std::string& message)
{
    const std::string shown = fileName.empty() ? "''" : printable(fileName);
    return Failure(ExitStatus::TROUBLE, shown + ": " + message);
}

Failure systemFailure(const std::string& fileName, int error)
{
    return fileFailure(fileName, std::generic_category().message(error));
}

void printMessage(std::string_view message) noexcept
{
    try {
        for (const std::string_view piece :
             {std::string_view(PROGRAM), std::string_view(": "), message, std::string_view("\n")})
            writeAll(STDERR_FILENO, piece, {});
    } catch (const std::exception&) {
        // There is nowhere left to tell.
    }
}
