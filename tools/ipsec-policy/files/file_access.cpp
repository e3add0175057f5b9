#include "file_access.h"

#include "descriptor.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

#include <linux/limits.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

const char ACCESS_LIST[] = "system.posix_acl_access";

/// What the kernel makes of the content: kept, it would be wrong, or a right that the new content has not been given.
const std::string_view OF_THE_CONTENT[] = {"security.capability", "security.evm", "security.ima"};

struct stat statusOf(int file, const std::string& fileName)
{
    struct stat status = {};
    require(retried([&] { return fstat(file, &status); }) == 0, fileName);
    return status;
}

bool isUnsupported(int error)
{
    return error == ENOTSUP || error == ENOSYS;
}

std::vector<std::string> attributesOf(int file, const std::string& fileName)
{
    std::string   names(XATTR_LIST_MAX, '\0');
    const ssize_t size = retried([&] { return flistxattr(file, names.data(), names.size()); });
    if (size < 0 && isUnsupported(errno))
        return {};
    require(size >= 0, fileName + ": its attributes cannot be kept");

    std::vector<std::string> result;
    const auto               end = names.begin() + size;
    for (auto start = names.begin(); start != end;) {
        const auto stop = std::find(start, end, '\0');
        result.emplace_back(start, stop);
        start = stop + 1;
    }
    return result;
}

std::optional<std::string> valueOf(int file, const std::string& attribute)
{
    std::string   value(XATTR_SIZE_MAX, '\0');
    const ssize_t size = retried([&] { return fgetxattr(file, attribute.c_str(), value.data(), value.size()); });
    if (size < 0)
        return std::nullopt;
    value.resize(static_cast<std::size_t>(size));
    return value;
}

void keepAttribute(const std::string& attribute, int from, int to, const std::string& fileName)
{
    const std::string                what  = fileName + ": its attribute " + attribute + " cannot be kept";
    const std::optional<std::string> value = valueOf(from, attribute);
    require(value.has_value(), what);
    // Labels that the kernel gave the new file by itself could often not be set.
    if (valueOf(to, attribute) != value)
        require(retried([&] { return fsetxattr(to, attribute.c_str(), value->data(), value->size(), 0); }) == 0, what);
}

/// A list may have come from the folder. As yet the mode makes it void.
void dropAccessList(int file, const std::string& fileName)
{
    const bool dropped = retried([&] { return fremovexattr(file, ACCESS_LIST); }) == 0;
    require(dropped || errno == ENODATA || isUnsupported(errno), fileName + ": its access control list cannot be kept");
}

void keepAttributes(int from, int to, const std::string& fileName)
{
    const std::vector<std::string> attributes = attributesOf(from, fileName);
    if (std::find(attributes.begin(), attributes.end(), ACCESS_LIST) == attributes.end())
        dropAccessList(to, fileName);
    for (const std::string& attribute : attributes)
        if (std::find(std::begin(OF_THE_CONTENT), std::end(OF_THE_CONTENT), attribute) == std::end(OF_THE_CONTENT))
            keepAttribute(attribute, from, to, fileName);
}

void keepOwner(const struct stat& old, int to, const std::string& fileName)
{
    const struct stat fresh = statusOf(to, fileName);
    if (old.st_uid != fresh.st_uid || old.st_gid != fresh.st_gid)
        require(retried([&] { return fchown(to, old.st_uid, old.st_gid); }) == 0,
                fileName + ": its owner and group cannot be kept");
}

void setMode(int file, mode_t mode, const std::string& fileName)
{
    require(retried([&] { return fchmod(file, mode); }) == 0, fileName + ": its mode cannot be kept");
}

} // namespace

// The owner goes first: changing it takes special bits from the mode, and until then nobody else can do anything. The
// mode goes last, because it makes an access control list effective.

void keepAccess(int from, int to, const std::string& fileName)
{
    const struct stat old = statusOf(from, fileName);
    keepOwner(old, to, fileName);
    keepAttributes(from, to, fileName);
    setMode(to, old.st_mode & 07777U, fileName);
}

void keepOwnersAccess(int from, int to, const std::string& fileName)
{
    const struct stat old = statusOf(from, fileName);
    keepOwner(old, to, fileName);
    dropAccessList(to, fileName);
    setMode(to, old.st_mode & 0700U, fileName);
}
