#include "locked_file.h"

#include "failure.h"
#include "file_access.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

const int ATTEMPTS = 10;

/// Opened for reading only, so that nobody who watches the file takes its closing for a change.
Descriptor openRegular(const FilePlace& place)
{
    const int  flags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NOFOLLOW | O_NONBLOCK; // a pipe would block
    Descriptor file(retried([&] { return openat(place.folder(), place.name().c_str(), flags); }), place.fileName());

    struct stat status = {};
    require(retried([&] { return fstat(file.number(), &status); }) == 0, place.fileName());
    if (S_ISDIR(status.st_mode))
        throw systemFailure(place.fileName(), EISDIR);
    if (!S_ISREG(status.st_mode))
        throw fileFailure(place.fileName(), "is not a regular file");
    return file;
}

void lock(int file, const std::string& fileName)
{
    if (retried([&] { return flock(file, LOCK_EX | LOCK_NB); }) == 0)
        return;
    if (errno == EWOULDBLOCK)
        throw fileFailure(fileName, "is being edited by another ipsec-policy");
    throw systemFailure(fileName + ": cannot be locked", errno);
}

} // namespace

LockedFile::LockedFile(FilePlace place, Descriptor file)
    : place_(std::move(place))
    , file_(std::move(file))
{
    lock(descriptor(), place_.fileName());
}

LockedFile LockedFile::open(const std::string& fileName)
{
    for (int attempt = 0; attempt < ATTEMPTS; ++attempt) {
        FilePlace  place  = FilePlace::behindLinks(fileName);
        Descriptor opened = openRegular(place);
        LockedFile file(std::move(place), std::move(opened));
        if (file.isNamed())
            return file;
    }
    throw fileFailure(fileName, "another program keeps replacing it");
}

bool LockedFile::isNamed() const
{
    struct stat named  = {};
    struct stat opened = {};
    require(retried([&] { return fstat(descriptor(), &opened); }) == 0, place_.fileName());
    return place_.find(named) && isSameFile(named, opened);
}

std::unique_ptr<TemporaryFile> LockedFile::successor(std::string_view text) const
{
    auto file = std::make_unique<TemporaryFile>(place_);
    lock(file->descriptor(), place_.fileName());
    keepAccess(descriptor(), file->descriptor(), place_.fileName());
    file->write(text);
    return file;
}

void LockedFile::replaceBy(TemporaryFile& successor)
{
    successor.replace();
    file_ = successor.release();
    place_.sync(MAY_BE_UNDONE);
}
