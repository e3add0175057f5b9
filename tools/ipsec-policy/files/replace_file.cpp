#include "descriptor.h"
#include "files.h"
#include "locked_file.h"
#include "temporary_file.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

/// Returns false if the file system cannot do it.
bool createInOneStep(const FilePlace& place, std::string_view text)
{
    TemporaryFile file(place);
    file.write(text);
    return file.takePlace();
}

void createWhereItStands(const FilePlace& place, std::string_view text)
{
    TemporaryFile file = TemporaryFile::inPlace(place);
    file.write(text);
    file.stay();
}

void writeDevice(const std::string& fileName, std::string_view text)
{
    Descriptor device(retried([&] { return open(fileName.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY); }), fileName);
    writeAll(device.number(), text, fileName);
    device.close(fileName);
}

void replaceRegular(const std::string& fileName, std::string_view text)
{
    LockedFile file      = LockedFile::open(fileName);
    const auto successor = file.successor(text);
    file.replaceBy(*successor);
}

void create(const FilePlace& place, std::string_view text)
{
    if (!createInOneStep(place, text))
        createWhereItStands(place, text);
    place.sync(MAY_BE_UNDONE);
}

} // namespace

void createFile(const std::string& fileName, std::string_view text)
{
    create(FilePlace(fileName), text);
}

void replaceFile(const std::string& fileName, std::string_view text)
{
    struct stat old    = {};
    const bool  exists = findFile(fileName, old);
    if (exists && S_ISREG(old.st_mode))
        replaceRegular(fileName, text);
    else if (exists)
        writeDevice(fileName, text);
    else
        create(FilePlace::behindLinks(fileName), text); // which is refused for a link to nowhere
}
