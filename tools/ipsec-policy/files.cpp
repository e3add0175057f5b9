#include "files.h"

#include "descriptor.h"

#include <cerrno>
#include <cstddef>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char STANDARD_OUTPUT[] = "standard output";

std::string readAll(int descriptor, const std::string& fileName)
{
    std::string text;
    struct stat status = {};
    if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
        text.reserve(static_cast<std::size_t>(status.st_size) + 1);

    char block[64 * 1024];
    for (;;) {
        const ssize_t count = read(descriptor, block, sizeof block);
        if (count > 0)
            text.append(block, static_cast<std::size_t>(count));
        else if (count == 0)
            return text;
        else if (errno != EINTR)
            throw systemFailure(fileName, errno);
    }
}

} // namespace

bool isStandardStream(const std::string& fileName)
{
    return fileName == "-";
}

std::string readFile(const std::string& fileName)
{
    if (isStandardStream(fileName))
        return readAll(STDIN_FILENO, "standard input");

    const Descriptor file(open(fileName.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY), fileName);
    return readAll(file.number(), fileName);
}

void writeAll(int descriptor, std::string_view text, const std::string& fileName)
{
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count >= 0)
            text.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw systemFailure(fileName, errno);
    }
}

void writeStandardOutput(std::string_view text)
{
    writeAll(STDOUT_FILENO, text, STANDARD_OUTPUT);
    Descriptor(STDOUT_FILENO, STANDARD_OUTPUT).close(STANDARD_OUTPUT);
}
