#include "xml/number.h"

#include "xml/character.h"

#include <limits>

namespace ipsecimpl {
namespace {

constexpr std::uint32_t unsignedMax = std::numeric_limits<std::uint32_t>::max();

struct Number {
    bool          negative  = false;
    bool          overflow  = false; // the magnitude does not fit 32 bits
    std::uint32_t magnitude = 0;
    std::size_t   used      = 0; // 0: there are no digits
};

/// The digit's value, or 36 for any other character.
unsigned int digitValue(char c)
{
    if (c >= '0' && c <= '9')
        return static_cast<unsigned int>(c - '0');
    if (c >= 'a' && c <= 'z')
        return static_cast<unsigned int>(c - 'a' + 10);
    if (c >= 'A' && c <= 'Z')
        return static_cast<unsigned int>(c - 'A' + 10);
    return 36;
}

/// Is the text what numbers nearly always are: one to nine decimal digits, no 0 before others? Then `value` is it.
bool isPlainDecimal(std::string_view text, std::uint32_t& value)
{
    if (text.empty() || text.size() > 9 || (text[0] == '0' && text.size() > 1))
        return false;
    value = 0;
    for (const char c : text) {
        if (!isDigit(toByte(c)))
            return false;
        value = value * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return true;
}

Number parseNumber(std::string_view text, int base)
{
    Number            number;
    std::size_t       at          = 0;
    const auto        digitAt     = [text](std::size_t i) { return i < text.size() ? digitValue(text[i]) : 36; };
    const std::size_t afterPrefix = 2;

    while (at < text.size() && isSpace(toByte(text[at])))
        ++at;
    if (at < text.size() && (text[at] == '-' || text[at] == '+'))
        number.negative = text[at++] == '-';

    const bool zero   = digitAt(at) == 0;
    const bool prefix = zero && at + 1 < text.size() && (text[at + 1] == 'x' || text[at + 1] == 'X') &&
                        digitAt(at + afterPrefix) < 16;
    if ((base == 0 || base == 16) && prefix) {
        at += afterPrefix;
        base = 16;
    } else if (base == 0) {
        base = zero ? 8 : 10;
    }

    const unsigned int radix = static_cast<unsigned int>(base);
    for (unsigned int digit = digitAt(at); digit < radix; digit = digitAt(at)) {
        if (number.magnitude > (unsignedMax - digit) / radix)
            number.overflow = true;
        else
            number.magnitude = number.magnitude * radix + digit;
        number.used = ++at;
    }
    return number;
}

} // namespace

std::int32_t strtol32(std::string_view text, int base, std::size_t* used)
{
    if (std::uint32_t value = 0; !used && (base == 0 || base == 10) && isPlainDecimal(text, value))
        return static_cast<std::int32_t>(value);

    constexpr std::uint32_t max    = std::numeric_limits<std::int32_t>::max();
    const Number            number = parseNumber(text, base);
    if (used)
        *used = number.used;

    const bool fits = !number.overflow && number.magnitude <= max;
    if (number.negative)
        return fits ? -static_cast<std::int32_t>(number.magnitude) : std::numeric_limits<std::int32_t>::min();
    return fits ? static_cast<std::int32_t>(number.magnitude) : std::numeric_limits<std::int32_t>::max();
}

std::uint32_t strtoul32(std::string_view text, int base, std::size_t* used)
{
    if (std::uint32_t value = 0; !used && (base == 0 || base == 10) && isPlainDecimal(text, value))
        return value;

    const Number number = parseNumber(text, base);
    if (used)
        *used = number.used;

    if (number.overflow)
        return unsignedMax;
    return number.negative ? 0 - number.magnitude : number.magnitude;
}

} // namespace ipsecimpl
