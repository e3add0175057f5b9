#ifndef IPSEC_POLICY_EDITED_FILE_H
#define IPSEC_POLICY_EDITED_FILE_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class FileVersion;
class LockedFile;

/// Where a file's old content is kept.
struct BackupName {
    std::string text;
    bool        isUsual; ///< then an earlier backup of that name is replaced
};

BackupName usualBackup(const std::string& fileName);
BackupName backupNamed(const std::string& name);

/// A document's file that is to be replaced by what becomes of it.
///
/// From the beginning to its end it holds a lock, so that no second ipsec-policy edits the file meanwhile. All of it
/// throws a Failure that names the file. What is promised about storing stands in docs/storing.md.
class EditedFile {
  public:
    /// Locks and reads the file, of at most `maxSize` bytes. It must be a regular file, or a link to one; "-" is
    /// refused.
    EditedFile(const std::string& fileName, std::size_t maxSize);

    EditedFile(const EditedFile&)            = delete;
    EditedFile& operator=(const EditedFile&) = delete;
    ~EditedFile();

    const std::string& name() const { return name_; }

    /// What was in the file, byte for byte.
    const std::string& text() const { return text_; }

    /// Puts `text` into the file, whole or not at all, with the file's mode, owner and attributes; symbolic links are
    /// followed. The old content is kept as `backup`, if there is one, for nobody who could not read it before.
    /// Refuses to replace what has that name already, unless it is a regular file and the name is the usual one, and
    /// when the file is not any more what was read. To be called once at most.
    void replace(std::string_view text, const std::optional<BackupName>& backup = std::nullopt);

  private:
    void refuseChanged() const;

    std::string                  name_;
    std::unique_ptr<LockedFile>  file_;
    std::unique_ptr<FileVersion> version_;
    std::string                  text_;
};

#endif
