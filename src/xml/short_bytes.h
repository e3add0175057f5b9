#ifndef IPSECIMPL_XML_SHORT_BYTES_H
#define IPSECIMPL_XML_SHORT_BYTES_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ipsecimpl {

// std::memcmp() and std::memcpy() for names and values, which are short: up to 16 bytes as two words that may overlap,
// without a call.

template <class Word>
bool sameWord(const char* a, const char* b)
{
    Word x;
    Word y;
    std::memcpy(&x, a, sizeof x);
    std::memcpy(&y, b, sizeof y);
    return x == y;
}

inline bool sameBytes(const char* a, const char* b, std::size_t size)
{
    if (size > 16)
        return std::memcmp(a, b, size) == 0;
    if (size >= 8)
        return sameWord<std::uint64_t>(a, b) && sameWord<std::uint64_t>(a + size - 8, b + size - 8);
    if (size >= 4)
        return sameWord<std::uint32_t>(a, b) && sameWord<std::uint32_t>(a + size - 4, b + size - 4);
    for (std::size_t i = 0; i < size; ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

template <class Word>
void copyWord(char* to, const char* from)
{
    Word word;
    std::memcpy(&word, from, sizeof word);
    std::memcpy(to, &word, sizeof word);
}

/// The two must not overlap.
inline void copyBytes(char* to, const char* from, std::size_t size)
{
    if (size > 16) {
        std::memcpy(to, from, size);
    } else if (size >= 8) {
        copyWord<std::uint64_t>(to, from);
        copyWord<std::uint64_t>(to + size - 8, from + size - 8);
    } else if (size >= 4) {
        copyWord<std::uint32_t>(to, from);
        copyWord<std::uint32_t>(to + size - 4, from + size - 4);
    } else {
        for (std::size_t i = 0; i < size; ++i)
            to[i] = from[i];
    }
}

} // namespace ipsecimpl

#endif
