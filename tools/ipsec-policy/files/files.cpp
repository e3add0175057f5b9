#include "files.h"

#include "descriptor.h"
#include "huge_pages.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char STANDARD_OUTPUT[] = "standard output";

const std::size_t BLOCK = std::size_t{64} * 1024;

std::string sizeText(std::size_t bytes)
{
    const struct {
        int         shift;
        const char* unit;
    } units[] = {{30, " GiB"}, {20, " MiB"}, {10, " KiB"}};
    for (const auto& unit : units)
        if (bytes >> unit.shift << unit.shift == bytes)
            return std::to_string(bytes >> unit.shift) + unit.unit;
    return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
}

/// How large a file may be, and what a message says of that.
struct Limit {
    std::size_t bytes;
    std::string remark;
};

Limit documentLimit(std::size_t maxSize)
{
    return {maxSize, "--max-size allows more"};
}

Failure sizeFailure(const std::string& fileName, const Limit& limit)
{
    return fileFailure(fileName, "larger than " + sizeText(limit.bytes) + " (" + limit.remark + ')');
}

/// Makes room for one block more, in steps that double and end at `maxSize`: the last one, while it copies, takes no
/// more than that in all.
void makeRoom(std::string& text, std::size_t maxSize)
{
    int step = 0;
    while (maxSize >> (step + 1) >= text.size() + BLOCK)
        ++step;
    text.reserve(maxSize >> step);
}

std::string contentOf(int descriptor, const std::string& fileName, const Limit& limit)
{
    std::string text;
    struct stat status = {};
    require(retried([&] { return fstat(descriptor, &status); }) == 0, fileName);
    if (S_ISREG(status.st_mode)) {
        if (static_cast<std::uintmax_t>(status.st_size) > limit.bytes)
            throw sizeFailure(fileName, limit);
        text.reserve(static_cast<std::size_t>(status.st_size));
        useHugePages(text);
    }

    char block[BLOCK];
    for (;;) {
        const ssize_t count = retried([&] { return read(descriptor, block, sizeof block); });
        require(count >= 0, fileName);
        if (count == 0)
            return text;
        const auto size = static_cast<std::size_t>(count);
        if (size > limit.bytes - text.size())
            throw sizeFailure(fileName, limit);
        if (text.capacity() - text.size() < size)
            makeRoom(text, limit.bytes);
        text.append(block, size);
    }
}

/// `shown` is what messages call the file.
std::string contentOf(const std::string& fileName, const std::string& shown, const Limit& limit)
{
    if (isStandardStream(fileName))
        return contentOf(STDIN_FILENO, "standard input", limit);

    const Descriptor file(retried([&] { return open(fileName.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY); }), shown);
    return contentOf(file.number(), shown, limit);
}

} // namespace

bool isStandardStream(const std::string& fileName)
{
    return fileName == "-";
}

std::string readFile(const std::string& fileName, std::size_t maxSize)
{
    return contentOf(fileName, fileName, documentLimit(maxSize));
}

std::string readFileBeside(const std::string& fileName, const char* what)
{
    return readFileBeside(fileName, what, fileName);
}

std::string readFileBeside(const std::string& fileName, const char* what, const std::string& shown)
{
    return contentOf(fileName, shown, {USUAL_MAX_SIZE, std::string("the limit for a ") + what});
}

std::string readAll(int descriptor, const std::string& fileName, std::size_t maxSize)
{
    return contentOf(descriptor, fileName, documentLimit(maxSize));
}

bool holds(int descriptor, std::string_view text, const std::string& fileName)
{
    char block[BLOCK];
    for (std::size_t at = 0;;) {
        const ssize_t count = retried([&] { return pread(descriptor, block, sizeof block, static_cast<off_t>(at)); });
        require(count >= 0, fileName);
        const std::string_view read(block, static_cast<std::size_t>(count));
        if (read.empty() || text.substr(at, read.size()) != read)
            return read.empty() && at == text.size();
        at += read.size();
    }
}

void writeAll(int descriptor, std::string_view text, const std::string& fileName)
{
    while (!text.empty()) {
        const ssize_t count = retried([&] { return write(descriptor, text.data(), text.size()); });
        if (count <= 0)
            throw systemFailure(fileName, count < 0 ? errno : ENOSPC); // a device that takes nothing is full
        text.remove_prefix(static_cast<std::size_t>(count));
    }
}

void writeStandardOutput(std::string_view text)
{
    writeAll(STDOUT_FILENO, text, STANDARD_OUTPUT);
    Descriptor(STDOUT_FILENO, STANDARD_OUTPUT).close(STANDARD_OUTPUT);
}

void writeStandardOutput(const Blocks& text)
{
    for (const std::string_view block : text.all())
        writeAll(STDOUT_FILENO, block, STANDARD_OUTPUT);
    writeStandardOutput(std::string_view());
}
