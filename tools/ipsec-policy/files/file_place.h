#ifndef IPSEC_POLICY_FILE_PLACE_H
#define IPSEC_POLICY_FILE_PLACE_H

#include "descriptor.h"

#include <string>

#include <sys/stat.h>

/// Where a file has its name, or is to have it. The folder is held open, so that it stays the same one whatever is
/// renamed meanwhile.
class FilePlace {
  public:
    /// Where `fileName` itself stands, be it a file, a symbolic link, or nothing yet.
    explicit FilePlace(const std::string& fileName);

    /// Where the file stands that `fileName` leads to, through symbolic links or not.
    static FilePlace behindLinks(const std::string& fileName);

    /// What messages call the file: the name that the operator gave.
    const std::string& fileName() const { return fileName_; }

    int                folder() const { return folder_.number(); }
    const std::string& name() const { return name_; } ///< in the folder

    /// What stands there, a symbolic link itself included. Returns false for nothing.
    bool find(struct stat& status) const;

    bool isInFolderOf(const FilePlace& other) const;

    /// Makes last what has been done to names in the folder. File systems that cannot do that need not. Where that
    /// fails the message says what it means: `consequence` follows the file's name there.
    void sync(const std::string& consequence) const;

  private:
    FilePlace(const std::string& fileName, const std::string& path);

    std::string fileName_;
    std::string name_;
    Descriptor  folder_;
};

/// The consequence for a file that has its new content already.
inline constexpr char MAY_BE_UNDONE[] = ": it is stored, but a power failure may undo it";

/// What `fileName` leads to, through symbolic links or not. Returns false for nothing.
bool findFile(const std::string& fileName, struct stat& status);

bool isSameFile(const struct stat& a, const struct stat& b);

/// Whether both names lead to the same file.
bool isSameFile(const std::string& a, const std::string& b);

#endif
