#ifndef IPSEC_POLICY_SYSTEM_CALL_H
#define IPSEC_POLICY_SYSTEM_CALL_H

#include "failure.h"

#include <cerrno>
#include <string>

/// The result of a system call, which is called again as long as a signal interrupts it. Not for close(): Linux has
/// closed the file then, and its number may already be another file's.
template <class Call>
auto retried(const Call& call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// Throws the Failure in `errno` unless the call succeeded.
inline void require(bool succeeded, const std::string& fileName)
{
    if (!succeeded)
        throw systemFailure(fileName, errno);
}

#endif
