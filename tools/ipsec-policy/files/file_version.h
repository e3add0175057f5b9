#ifndef IPSEC_POLICY_FILE_VERSION_H
#define IPSEC_POLICY_FILE_VERSION_H

#include <tuple>

#include <sys/stat.h>

/// What tells a file from what it was before, or from another one.
class FileVersion {
  public:
    explicit FileVersion(const struct stat& status)
        : status_(status)
    {
    }

    friend bool operator==(const FileVersion& a, const FileVersion& b) { return a.key() == b.key(); }
    friend bool operator!=(const FileVersion& a, const FileVersion& b) { return !(a == b); }

  private:
    std::tuple<dev_t, ino_t, off_t, time_t, long, time_t, long> key() const
    {
        return {status_.st_dev,          status_.st_ino,         status_.st_size,        status_.st_mtim.tv_sec,
                status_.st_mtim.tv_nsec, status_.st_ctim.tv_sec, status_.st_ctim.tv_nsec};
    }

    struct stat status_;
};

#endif
