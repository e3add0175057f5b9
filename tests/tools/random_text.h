#ifndef IPSECIMPL_TESTS_TOOLS_RANDOM_TEXT_H
#define IPSECIMPL_TESTS_TOOLS_RANDOM_TEXT_H

/// \file
/// Texts as nobody would write them, which documents can hold all the same.

#include <cstddef>
#include <iterator>
#include <random>
#include <string>

/// From 0 to `last`. The distributions of the standard library differ from one to the other.
inline unsigned int randomNumber(std::mt19937& random, unsigned int last)
{
    return static_cast<unsigned int>(random() % (last + 1U));
}

/// Bytes of all kinds, and pieces of what texts usually look like.
inline std::string randomText(std::mt19937& random)
{
    static const char* const PIECES[] = {"10.0.0.1", "::1", "/", "-",     "any", "\"", "\\",   "\\x41", "#",
                                         " ",        "=",   ",", "named", "in",  "\n", "\xc3", "ü",     "\u202e"};
    std::string              text;
    for (unsigned int left = randomNumber(random, 6); left > 0; --left) {
        const unsigned int kind = randomNumber(random, 3);
        if (kind == 0)
            text += static_cast<char>(randomNumber(random, 255));
        else if (kind == 1)
            text += static_cast<char>(' ' + static_cast<int>(randomNumber(random, 94)));
        else
            text += PIECES[randomNumber(random, static_cast<unsigned int>(std::size(PIECES)) - 1)];
    }
    return text;
}

#endif
