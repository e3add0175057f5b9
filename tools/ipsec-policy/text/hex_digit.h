#ifndef IPSEC_POLICY_HEX_DIGIT_H
#define IPSEC_POLICY_HEX_DIGIT_H

/// The value of a hexadecimal digit; 16 for any other character.
constexpr unsigned int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return static_cast<unsigned int>(c - '0');
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? static_cast<unsigned int>(lower - 'a') + 10 : 16;
}

#endif
