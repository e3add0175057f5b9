#include "number_text.h"

#include "hex_digit.h"
#include "lexer.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>

namespace {

const std::size_t LONGEST_NUMBER = 12; // octal: 037777777777

bool isDigit(char c)
{
    return hexDigit(c) < 10;
}

bool hasHexPrefix(std::string_view digits)
{
    return digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X') && hexDigit(digits[2]) < 16;
}

/// A text in one base.
struct Reading {
    std::int64_t value   = 0;     // far beyond 32 bits it stays what it is
    bool         isWhole = false; // nothing follows
};

Reading readIn(unsigned int base, std::string_view digits, bool isNegative)
{
    const std::int64_t enough = std::int64_t(1) << 40;
    Reading            reading;
    std::size_t        at = 0;
    for (; at < digits.size() && hexDigit(digits[at]) < base; ++at)
        if (reading.value < enough)
            reading.value = reading.value * base + hexDigit(digits[at]);
    reading.isWhole = at == digits.size();
    if (isNegative)
        reading.value = -reading.value;
    return reading;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

bool takeSign(std::string_view& text)
{
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    return isNegative;
}

/// How a number that is beyond its field became `stored`.
NumberForm formOfTooLarge(std::int64_t value, std::int64_t stored)
{
    if (value < 0 && stored >= 0)
        return NumberForm::NEGATIVE;
    if (stored >= 0 && stored <= 0xFFFF && value > 0xFFFF)
        return NumberForm::TRUNCATED;
    if ((stored == INT32_MAX || stored == UINT32_MAX) && value > stored)
        return NumberForm::TOO_LARGE;
    if (stored == INT32_MIN && value < stored)
        return NumberForm::TOO_LARGE;
    return NumberForm::UNKNOWN;
}

} // namespace

NumberForm formOf(std::string_view text, std::string_view stored, bool isDecimal)
{
    std::string_view digits     = trimmed(text);
    const bool       isNegative = takeSign(digits);
    if (digits.empty() || !isDigit(digits.front()))
        return NumberForm::NONE;

    std::int64_t number = 0;
    std::from_chars(stored.data(), stored.data() + stored.size(), number);

    const bool hasZero = digits.front() == '0' && digits.size() > 1;
    if (!isDecimal && hasHexPrefix(digits)) {
        const Reading hex = readIn(16, digits.substr(2), isNegative);
        if (hex.value != number)
            return formOfTooLarge(hex.value, number);
        return hex.isWhole ? NumberForm::HEXADECIMAL : NumberForm::CUT_SHORT;
    }
    const Reading decimal = readIn(10, digits, isNegative);
    if (decimal.value == number && decimal.isWhole)
        return NumberForm::SPELLING;
    const Reading reading = hasZero && !isDecimal ? readIn(8, digits, isNegative) : decimal;
    if (reading.value != number)
        return formOfTooLarge(reading.value, number);
    return reading.isWhole ? NumberForm::OCTAL : NumberForm::CUT_SHORT;
}

unsigned int readID(std::string_view text)
{
    std::string_view digits = trimmed(text);
    takeSign(digits);
    return static_cast<unsigned int>(std::min<std::int64_t>(readIn(10, digits, false).value, INT32_MAX));
}

unsigned int readUnsigned(std::string_view text)
{
    std::string_view   digits     = trimmed(text);
    const bool         isNegative = takeSign(digits);
    const bool         isHex      = hasHexPrefix(digits);
    const unsigned int base       = isHex ? 16 : digits.substr(0, 1) == "0" ? 8 : 10;
    const std::int64_t number     = readIn(base, isHex ? digits.substr(2) : digits, false).value;
    if (number > UINT32_MAX)
        return UINT32_MAX;
    const auto value = static_cast<unsigned int>(number);
    return isNegative ? 0U - value : value;
}

bool isPrintableNumber(std::string_view text)
{
    if (text.size() > LONGEST_NUMBER)
        return false;
    takeSign(text);
    const bool isHex = hasHexPrefix(text);
    if (isHex)
        text.remove_prefix(2);
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [isHex](char c) { return hexDigit(c) < (isHex ? 16 : 10); });
}
