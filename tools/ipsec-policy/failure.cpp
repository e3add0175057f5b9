#include "failure.h"

#include "text.h"

#include <system_error>

Failure systemFailure(const std::string& fileName, int error)
{
    const std::string shown = fileName.empty() ? "''" : printable(fileName);
    return Failure(ExitStatus::TROUBLE, shown + ": " + std::generic_category().message(error));
}
