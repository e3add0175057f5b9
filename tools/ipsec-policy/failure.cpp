#include "failure.h"

#include "system_call.h"
#include "text.h"

#include <cstddef>
#include <iterator>
#include <system_error>

#include <sys/uio.h>
#include <unistd.h>

namespace {

/// Takes `size` bytes from the start of the pieces, and returns where what is left of them begins.
iovec* withoutFirst(iovec* piece, const iovec* end, std::size_t size)
{
    for (; piece != end && size >= piece->iov_len; ++piece)
        size -= piece->iov_len;
    if (piece != end) {
        piece->iov_base = static_cast<char*>(piece->iov_base) + size;
        piece->iov_len -= size;
    }
    return piece;
}

} // namespace

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
    // All in one call: what programs that run at the same time write into one pipe or log must not mix.
    const auto piece    = [](std::string_view text) { return iovec{const_cast<char*>(text.data()), text.size()}; };
    iovec      pieces[] = {piece(PROGRAM), piece(": "), piece(message), piece("\n")};
    for (iovec* rest = std::begin(pieces); rest != std::end(pieces);) {
        const auto    count   = static_cast<int>(std::end(pieces) - rest);
        const ssize_t written = retried([&] { return writev(STDERR_FILENO, rest, count); });
        if (written <= 0)
            return; // there is nowhere left to tell
        rest = withoutFirst(rest, std::end(pieces), static_cast<std::size_t>(written));
    }
}
