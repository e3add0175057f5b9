#ifndef IPSEC_POLICY_NUMBER_TEXT_H
#define IPSEC_POLICY_NUMBER_TEXT_H

/// \file
/// Texts that should be numbers.

#include <string_view>

/// What made a number of a text that is not what the number is written as, the worst first.
enum class NumberForm {
    NONE,        ///< no number: read as 0
    CUT_SHORT,   ///< something follows the number
    NEGATIVE,    ///< wrapped around
    TOO_LARGE,   ///< for 32 bits: the greatest, or the smallest, number instead
    TRUNCATED,   ///< to 16 bits
    OCTAL,       ///< by a leading 0
    HEXADECIMAL, ///< by a leading 0x
    SPELLING,    ///< the same number in other characters
    UNKNOWN      ///< none of this explains it
};

/// How `text` came to be the number `stored`, in plain decimal digits, given that some numbers are read as decimal and
/// some in the base that their first characters tell.
NumberForm formOf(std::string_view text, std::string_view stored, bool isDecimal);

/// What the library reads as an ID in the text of one, or of a next ID, in a document that loads.
unsigned int readID(std::string_view text);

/// What the library reads as another number that is never negative, such as that of an algorithm.
unsigned int readUnsigned(std::string_view text);

/// Whether a text may be shown: a number in decimal, octal or hexadecimal digits, not longer than any that fits 32
/// bits. Anything else in place of a number could be a key that went astray.
bool isPrintableNumber(std::string_view text);

#endif
