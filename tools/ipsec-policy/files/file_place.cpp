#include "file_place.h"

#include <cerrno>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// The file itself where `fileName` is a symbolic link, else `fileName`.
std::string resolved(const std::string& fileName)
{
    struct stat status = {};
    const bool  exists = retried([&] { return lstat(fileName.c_str(), &status); }) == 0;
    require(exists || errno == ENOENT, fileName);
    if (!exists || !S_ISLNK(status.st_mode))
        return fileName;

    std::unique_ptr<char, void (*)(void*)> path(nullptr, std::free);
    do
        path.reset(realpath(fileName.c_str(), nullptr));
    while (path == nullptr && errno == EINTR);
    if (path == nullptr && errno == ENOENT)
        throw systemFailure(fileName + ": the file that this link points to", ENOENT);
    require(path != nullptr, fileName);
    return path.get();
}

/// So many characters of `path` name the folder, with the slash.
std::size_t folderLength(const std::string& path)
{
    return path.find_last_of('/') + 1; // npos is -1
}

int openFolder(const std::string& path)
{
    const std::string folder = folderLength(path) == 0 ? "." : path.substr(0, folderLength(path));
    return retried([&] { return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
}

} // namespace

FilePlace::FilePlace(const std::string& fileName)
    : FilePlace(fileName, fileName)
{
}

FilePlace FilePlace::behindLinks(const std::string& fileName)
{
    return FilePlace(fileName, resolved(fileName));
}

FilePlace::FilePlace(const std::string& fileName, const std::string& path)
    : fileName_(fileName)
    , name_(path.substr(folderLength(path)))
    , folder_(openFolder(path), fileName)
{
}

bool FilePlace::find(struct stat& status) const
{
    const bool exists = retried([&] { return fstatat(folder(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW); }) == 0;
    require(exists || errno == ENOENT, fileName_);
    return exists;
}

bool FilePlace::isInFolderOf(const FilePlace& other) const
{
    struct stat ours   = {};
    struct stat theirs = {};
    require(retried([&] { return fstat(folder(), &ours); }) == 0, fileName_);
    require(retried([&] { return fstat(other.folder(), &theirs); }) == 0, other.fileName_);
    return isSameFile(ours, theirs);
}

void FilePlace::sync(const std::string& consequence) const
{
    const bool done = retried([&] { return fsync(folder()); }) == 0;
    require(done || errno == EINVAL || errno == ENOTSUP, fileName_ + consequence);
}

bool findFile(const std::string& fileName, struct stat& status)
{
    const bool exists = retried([&] { return stat(fileName.c_str(), &status); }) == 0;
    require(exists || errno == ENOENT, fileName);
    return exists;
}

bool isSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool isSameFile(const std::string& a, const std::string& b)
{
    struct stat first  = {};
    struct stat second = {};
    return findFile(a, first) && findFile(b, second) && isSameFile(first, second);
}
