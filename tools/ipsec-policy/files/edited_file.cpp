#include "edited_file.h"

#include "file_access.h"
#include "file_version.h"
#include "files.h"
#include "locked_file.h"

#include <optional>

#include <sys/stat.h>

namespace {

std::unique_ptr<LockedFile> openLocked(const std::string& fileName)
{
    if (isStandardStream(fileName))
        throw Failure(ExitStatus::TROUBLE, "standard input: it is not a file that could be replaced");
    return std::make_unique<LockedFile>(LockedFile::open(fileName));
}

FileVersion versionOf(int file, const std::string& fileName)
{
    struct stat status = {};
    require(retried([&] { return fstat(file, &status); }) == 0, fileName);
    return FileVersion(status);
}

/// The old content under a name of its own.
///
/// It is a copy: a second link to the old file would change with it where programs have it open, or have other links
/// to it, and not every file system has links.
class Backup {
  public:
    /// Writes it, yet without the name.
    Backup(const LockedFile& file, std::string_view content, const BackupName& name)
        : file_(file)
        , mayReplace_(name.isUsual)
        , place_(name.text)
        , copy_((refuseOthers(), place_))
    {
        // Others may get at the folder who could not get at the file's.
        if (place_.isInFolderOf(file.place()))
            keepAccess(file.descriptor(), copy_.descriptor(), name.text);
        else
            keepOwnersAccess(file.descriptor(), copy_.descriptor(), name.text);
        copy_.write(content);
    }

    void finish()
    {
        if (mayReplace_) {
            copy_.replace();
        } else if (!copy_.takePlace()) {
            refuseOthers(); // the file system can do no better than look and then replace
            copy_.replace();
        }
        place_.sync(": the backup may not last");
    }

  private:
    /// Only an earlier backup is replaced: no file of another name than backups have, and what is not a file of its own
    /// by no means, such as the file itself, links, folders and devices.
    void refuseOthers() const
    {
        struct stat there = {};
        struct stat ours  = {};
        if (!place_.find(there))
            return;
        if (!S_ISREG(there.st_mode))
            throw fileFailure(place_.fileName(), "is not a regular file, and so not replaced by the backup");
        if (file_.place().find(ours) && isSameFile(there, ours))
            throw fileFailure(place_.fileName(), "is the file itself, and so cannot be its backup");
        if (!mayReplace_)
            throw fileFailure(place_.fileName(), "exists already, and is not replaced by the backup");
    }

    const LockedFile& file_;
    bool              mayReplace_;
    FilePlace         place_;
    TemporaryFile     copy_;
};

} // namespace

BackupName usualBackup(const std::string& fileName)
{
    return {fileName + '~', true};
}

BackupName backupNamed(const std::string& name)
{
    return {name, false};
}

EditedFile::EditedFile(const std::string& fileName, std::size_t maxSize)
    : name_(fileName)
    , file_(openLocked(fileName))
    , version_(std::make_unique<FileVersion>(versionOf(file_->descriptor(), fileName)))
    , text_(readAll(file_->descriptor(), fileName, maxSize))
{
    if (versionOf(file_->descriptor(), fileName) != *version_)
        throw fileFailure(fileName, "was changed by another program while it was read");
}

EditedFile::~EditedFile() = default;

void EditedFile::replace(std::string_view text, const std::optional<BackupName>& backup)
{
    const auto            successor = file_->successor(text);
    std::optional<Backup> kept;
    if (backup)
        kept.emplace(*file_, text_, *backup);
    refuseChanged();
    if (kept.has_value())
        kept->finish();
    file_->replaceBy(*successor);
}

/// Compares the content too: clocks tick slowly, and a program may set a file's times back.
void EditedFile::refuseChanged() const
{
    struct stat named = {};
    if (!file_->place().find(named) || FileVersion(named) != *version_ || !holds(file_->descriptor(), text_, name_))
        throw fileFailure(name_, "was changed by another program since it was read");
}
