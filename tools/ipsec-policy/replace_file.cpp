#include "descriptor.h"
#include "failure.h"
#include "files.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void require(bool succeeded, const std::string& fileName)
{
    if (!succeeded)
        throw systemFailure(fileName, errno);
}

/// A file whose name goes again, unless it was renamed.
class TemporaryFile {
  public:
    /// Creates it in `folder`, open for writing, for its owner alone.
    TemporaryFile(const std::string& folder, const std::string& fileName)
        : path_(folder + "/.ipsec-policy.XXXXXX")
        , file_(mkostemp(path_.data(), O_CLOEXEC), fileName)
    {
    }

    TemporaryFile(const TemporaryFile&)            = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile()
    {
        if (!renamed_)
            unlink(path_.c_str());
    }

    int descriptor() const { return file_.number(); }

    /// Writes all of the file, so that it lasts, and closes it.
    void write(std::string_view text, const std::string& fileName)
    {
        writeAll(file_.number(), text, fileName);
        require(fsync(file_.number()) == 0, fileName);
        file_.close(fileName);
    }

    /// Gives the file the name `target`, unless there is something of that name.
    void link(const std::string& target, const std::string& fileName)
    {
        require(::link(path_.c_str(), target.c_str()) == 0, fileName);
    }

    /// Gives the file the name `target` in place of what has it.
    void rename(const std::string& target, const std::string& fileName)
    {
        require(::rename(path_.c_str(), target.c_str()) == 0, fileName);
        renamed_ = true;
    }

  private:
    std::string path_;
    Descriptor  file_;
    bool        renamed_ = false;
};

/// The file itself where `fileName` is a symbolic link, else `fileName`.
std::string resolved(const std::string& fileName)
{
    struct stat status = {};
    if (lstat(fileName.c_str(), &status) != 0 || !S_ISLNK(status.st_mode))
        return fileName;

    const std::unique_ptr<char, void (*)(void*)> path(realpath(fileName.c_str(), nullptr), std::free);
    if (path == nullptr && errno == ENOENT)
        throw systemFailure(fileName + ": the file that this link points to", ENOENT);
    require(path != nullptr, fileName);
    return path.get();
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos)
        return ".";
    return path.substr(0, slash + 1); // with the slash, for the root folder's sake
}

/// Makes a new name last. File systems that cannot sync a folder need not.
void syncFolder(const std::string& folder, const std::string& fileName)
{
    const Descriptor open_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), fileName);
    require(fsync(open_.number()) == 0 || errno == EINVAL || errno == ENOTSUP, fileName);
}

void writeDevice(const std::string& fileName, std::string_view text)
{
    Descriptor device(open(fileName.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY), fileName);
    writeAll(device.number(), text, fileName);
    device.close(fileName);
}

} // namespace

void createFile(const std::string& fileName, std::string_view text)
{
    const std::string folder = folderOf(fileName);
    TemporaryFile     temporary(folder, fileName);
    temporary.write(text, fileName);
    temporary.link(fileName, fileName);
    syncFolder(folder, fileName);
}

void replaceFile(const std::string& fileName, std::string_view text)
{
    struct stat old    = {};
    const bool  exists = stat(fileName.c_str(), &old) == 0;
    require(exists || errno == ENOENT, fileName);
    if (exists && !S_ISREG(old.st_mode)) {
        writeDevice(fileName, text);
        return;
    }

    const std::string path   = resolved(fileName);
    const std::string folder = folderOf(path);
    TemporaryFile     temporary(folder, fileName);

    // The owner goes first: changing it takes special bits from the mode, and until then nobody else can read the file.
    struct stat fresh = {};
    require(fstat(temporary.descriptor(), &fresh) == 0, fileName);
    if (exists && (old.st_uid != fresh.st_uid || old.st_gid != fresh.st_gid))
        require(fchown(temporary.descriptor(), old.st_uid, old.st_gid) == 0,
                fileName + ": its owner and group cannot be kept");
    if (exists)
        require(fchmod(temporary.descriptor(), old.st_mode & 07777U) == 0, fileName);

    temporary.write(text, fileName);
    temporary.rename(path, fileName);
    syncFolder(folder, fileName);
}
