#include "random_key.h"

#include "failure.h"

#include <array>
#include <cerrno>
#include <cstddef>

#include <sys/random.h>

namespace {

const std::size_t LENGTH = 32;

/// As many as six bits can choose from, so that each is as likely as the others.
const char CHARACTERS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
static_assert(sizeof CHARACTERS == 64 + 1);

std::string anyKey()
{
    std::array<unsigned char, LENGTH> bytes = {};
    // So few bytes come at once, or not at all.
    while (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
        if (errno != EINTR)
            throw systemFailure("random numbers", errno);

    std::string key;
    for (const unsigned char byte : bytes)
        key += CHARACTERS[byte % 64];
    return key;
}

bool hasOneOf(const std::string& key, const char* characters)
{
    return key.find_first_of(characters) != std::string::npos;
}

} // namespace

std::string randomKey()
{
    for (;;) {
        std::string key = anyKey(); // nearly always good the first time
        if (hasOneOf(key, "ABCDEFGHIJKLMNOPQRSTUVWXYZ") && hasOneOf(key, "abcdefghijklmnopqrstuvwxyz") &&
            hasOneOf(key, "0123456789"))
            return key;
    }
}
