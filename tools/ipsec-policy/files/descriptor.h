#ifndef IPSEC_POLICY_DESCRIPTOR_H
#define IPSEC_POLICY_DESCRIPTOR_H

#include "system_call.h"

#include <cerrno>
#include <string>
#include <utility>

#include <unistd.h>

/// An open file, which is closed at the latest when it goes out of scope.
class Descriptor {
  public:
    /// Takes over what open() or its like returned. Throws the Failure in `errno` if that is negative.
    Descriptor(int number, const std::string& fileName)
        : number_(number)
    {
        if (number_ < 0)
            throw systemFailure(fileName, errno);
    }

    Descriptor(Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1))
    {
    }

    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }

    Descriptor(const Descriptor&)            = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor()
    {
        if (number_ >= 0)
            ::close(number_);
    }

    int number() const { return number_; }

    /// Closes the file now, and throws a Failure if that is when writing turns out to have failed.
    void close(const std::string& fileName)
    {
        if (::close(std::exchange(number_, -1)) != 0 && errno != EINTR)
            throw systemFailure(fileName, errno);
    }

  private:
    int number_;
};

#endif
