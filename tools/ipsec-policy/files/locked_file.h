#ifndef IPSEC_POLICY_LOCKED_FILE_H
#define IPSEC_POLICY_LOCKED_FILE_H

#include "descriptor.h"
#include "file_place.h"
#include "temporary_file.h"

#include <memory>
#include <string>
#include <string_view>

/// A regular file that no other ipsec-policy replaces as long as this is there.
///
/// The lock is the kernel's, on the open file: it goes when the program ends, however that happens. Because it is the
/// file's and not its name's, it is asked for again if the name has become another file's meanwhile.
class LockedFile {
  public:
    /// Follows symbolic links. Fails at once if another ipsec-policy has the file.
    static LockedFile open(const std::string& fileName);

    int              descriptor() const { return file_.number(); }
    const FilePlace& place() const { return place_; }

    /// A file to come in its place, with its access and with `text` in it. It must not outlive this.
    std::unique_ptr<TemporaryFile> successor(std::string_view text) const;

    /// Puts it there, and holds the lock on it from then on.
    void replaceBy(TemporaryFile& successor);

  private:
    LockedFile(FilePlace place, Descriptor file);

    /// Whether the file still stands in its place.
    bool isNamed() const;

    FilePlace  place_;
    Descriptor file_;
};

#endif
