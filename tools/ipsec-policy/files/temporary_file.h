#ifndef IPSEC_POLICY_TEMPORARY_FILE_H
#define IPSEC_POLICY_TEMPORARY_FILE_H

#include "blocked_signals.h"
#include "descriptor.h"
#include "file_place.h"

#include <string>
#include <string_view>
#include <utility>

/// A new file on its way to its place, for its owner alone. Unless it gets there it is gone in the end, and meanwhile
/// no signal but SIGKILL ends the program. All of it throws a Failure that names the place's file.
class TemporaryFile {
  public:
    /// Creates it beside `place`, which must outlive it, as ".ipsec-policy.PID" or ".ipsec-policy.PID.N".
    explicit TemporaryFile(const FilePlace& place);

    /// Creates it in its place. Fails if something stands there.
    static TemporaryFile inPlace(const FilePlace& place) { return TemporaryFile(place, place.name()); }

    TemporaryFile(const TemporaryFile&)            = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    int descriptor() const { return file_.number(); }

    /// Writes all of the file, so that it lasts, and looks whether it is there.
    void write(std::string_view text);

    /// Takes the place of what stands there.
    void replace();

    /// Takes its place, but fails if something stands there. Returns false if the file system cannot do that in one
    /// step.
    bool takePlace();

    /// Stays where it was created.
    void stay() { isDone_ = true; }

    /// The open file, for whoever wants to hold it longer.
    Descriptor release() { return std::move(file_); }

  private:
    TemporaryFile(const FilePlace& place, const std::string& name);

    BlockedSignals   blocked_; // first, so that it lasts longest
    const FilePlace& place_;
    std::string      name_;
    Descriptor       file_;
    bool             isDone_ = false;
};

#endif
