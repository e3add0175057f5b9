#include "temporary_file.h"

#include "files.h"

#include <cerrno>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace {

const int ATTEMPTS = 1000;

int create(const FilePlace& place, const std::string& name)
{
    return retried([&] {
        return openat(place.folder(), name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY,
                      0600);
    });
}

/// Creates a file of a name that is free. Programs that were killed have left theirs, maybe with the same number.
int createBeside(const FilePlace& place, std::string& name)
{
    const std::string start = ".ipsec-policy." + std::to_string(getpid());
    int               file  = -1;
    name                    = start;
    for (int attempt = 1; (file = create(place, name)) < 0 && errno == EEXIST && attempt < ATTEMPTS; ++attempt)
        name = start + '.' + std::to_string(attempt);
    return file;
}

/// Whether a call failed because file system or kernel do not have it: some say that it is not permitted.
bool isUnsupported(int error)
{
    return error == EINVAL || error == ENOSYS || error == ENOTSUP || error == EPERM;
}

} // namespace

TemporaryFile::TemporaryFile(const FilePlace& place)
    : place_(place)
    , file_(createBeside(place, name_), place.fileName())
{
}

TemporaryFile::TemporaryFile(const FilePlace& place, const std::string& name)
    : place_(place)
    , name_(name)
    , file_(create(place, name), place.fileName())
{
}

TemporaryFile::~TemporaryFile()
{
    if (!isDone_)
        retried([this] { return unlinkat(place_.folder(), name_.c_str(), 0); });
}

void TemporaryFile::write(std::string_view text)
{
    writeAll(descriptor(), text, place_.fileName());
    require(retried([this] { return fsync(descriptor()); }) == 0, place_.fileName());
    if (!holds(descriptor(), text, place_.fileName()))
        throw fileFailure(place_.fileName(), "the file system does not give back what was written");
}

void TemporaryFile::replace()
{
    const int folder = place_.folder();
    require(retried([&] { return renameat(folder, name_.c_str(), folder, place_.name().c_str()); }) == 0,
            place_.fileName());
    isDone_ = true;
}

bool TemporaryFile::takePlace()
{
    const int         folder = place_.folder();
    const char* const name   = name_.c_str();
    const char* const target = place_.name().c_str();

    isDone_ = retried([&] { return renameat2(folder, name, folder, target, RENAME_NOREPLACE); }) == 0;
    if (isDone_)
        return true;
    require(isUnsupported(errno), place_.fileName());
    const bool linked = retried([&] { return linkat(folder, name, folder, target, 0); }) == 0;
    require(linked || isUnsupported(errno), place_.fileName());
    return linked;
}
