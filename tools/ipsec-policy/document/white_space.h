#ifndef IPSEC_POLICY_WHITE_SPACE_H
#define IPSEC_POLICY_WHITE_SPACE_H

/// What the parser skips between elements.
inline constexpr char WHITE_SPACE[] = " \t\n\v\f\r";

constexpr bool isWhiteSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

#endif
