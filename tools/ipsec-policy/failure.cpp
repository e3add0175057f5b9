#include "failure.h"

#include "text.h"

#include <system_error>

Failure systemFailure(const std::string& fileName, int error)
{
    return Failure(ExitStatus::TROUBLE, printable(fileName) + ": " + std::generic_category().message(error));
}
