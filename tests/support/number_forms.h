#ifndef IPSECIMPL_TESTS_SUPPORT_NUMBER_FORMS_H
#define IPSECIMPL_TESTS_SUPPORT_NUMBER_FORMS_H

/// \file
/// The forms in which a document may hold a number, and the 32-bit values that they stand for on every host.

#include "support/documents.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ipsecimpl {

struct NumberForm {
    std::string   text;
    std::int32_t  signedValue;
    std::uint32_t unsignedValue;
    std::int32_t  decimalValue; ///< signed, where the field is always decimal
};

inline const std::vector<NumberForm>& numberForms()
{
    using namespace std::string_literals;
    constexpr std::int32_t  LEAST = INT32_MIN, MOST = INT32_MAX;
    constexpr std::uint32_t ALL = UINT32_MAX;

    // clang-format off
    static const std::vector<NumberForm> forms = {
        {"",                                            0,           0,          0},
        {"0",                                           0,           0,          0},
        {"-0",                                          0,           0,          0},
        {"42",                                          42,          42,         42},
        {"+7",                                          7,           7,          7},
        {"-1",                                          -1,          ALL,        -1},
        {"-7",                                          -7,          4294967289, -7},
        {"0x10",                                        16,          16,         0},
        {"0X1f",                                        31,          31,         0},
        {"0xAbCdEf",                                    11259375,    11259375,   0},
        {"+0x10",                                       16,          16,         0},
        {"-0x10",                                       -16,         4294967280, 0},
        {"010",                                         8,           8,          10},
        {"-010",                                        -8,          4294967288, -10},
        {"0017",                                        15,          15,         17},
        {"08",                                          0,           0,          8},
        {"019",                                         1,           1,          19},
        {"0x",                                          0,           0,          0},
        {"0xg",                                         0,           0,          0},
        {"0x-1",                                        0,           0,          0},
        {"0x1g",                                        1,           1,          0},
        {"0b101",                                       0,           0,          0},
        {"0B1",                                         0,           0,          0},
        {"0o17",                                        0,           0,          0},
        {"abc",                                         0,           0,          0},
        {"ff",                                          0,           0,          0},
        {"12abc",                                       12,          12,         12},
        {"1 2",                                         1,           1,          1},
        {"1.9",                                         1,           1,          1},
        {"1e3",                                         1,           1,          1},
        {"1,000",                                       1,           1,          1},
        {"1_000",                                       1,           1,          1},
        {"-",                                           0,           0,          0},
        {"+",                                           0,           0,          0},
        {"--1",                                         0,           0,          0},
        {"+-1",                                         0,           0,          0},
        {"- 1",                                         0,           0,          0},
        {"+ 1",                                         0,           0,          0},
        {" \t\n\v\f\r5",                                5,           5,          5},
        {" -5 ",                                        -5,          4294967291, -5},
        {"&#49;",                                       0,           0,          0},
        {"\xC2\xA0" "5",                                0,           0,          0},
        {"1\0002"s,                                     1,           1,          1},
        {"\0001"s,                                      0,           0,          0},
        {"2147483647",                                  MOST,        2147483647, MOST},
        {"2147483648",                                  MOST,        2147483648, MOST},
        {"-2147483647",                                 -2147483647, 2147483649, -2147483647},
        {"-2147483648",                                 LEAST,       2147483648, LEAST},
        {"-2147483649",                                 LEAST,       2147483647, LEAST},
        {"4294967295",                                  MOST,        ALL,        MOST},
        {"4294967296",                                  MOST,        ALL,        MOST},
        {"4294967297",                                  MOST,        ALL,        MOST},
        {"-4294967295",                                 LEAST,       1,          LEAST},
        {"-4294967296",                                 LEAST,       ALL,        LEAST},
        {"-4294967297",                                 LEAST,       ALL,        LEAST},
        {"9223372036854775807",                         MOST,        ALL,        MOST},
        {"9223372036854775808",                         MOST,        ALL,        MOST},
        {"-9223372036854775808",                        LEAST,       ALL,        LEAST},
        {"-9223372036854775809",                        LEAST,       ALL,        LEAST},
        {"18446744073709551615",                        MOST,        ALL,        MOST},
        {"18446744073709551616",                        MOST,        ALL,        MOST},
        {"-18446744073709551615",                       LEAST,       ALL,        LEAST},
        {"-18446744073709551616",                       LEAST,       ALL,        LEAST},
        {"340282366920938463463374607431768211457",     MOST,        ALL,        MOST},
        {"0x7fffffff",                                  MOST,        2147483647, 0},
        {"0x80000000",                                  MOST,        2147483648, 0},
        {"-0x80000000",                                 LEAST,       2147483648, 0},
        {"0xffffffff",                                  MOST,        ALL,        0},
        {"0x100000000",                                 MOST,        ALL,        0},
        {"-0xffffffff",                                 LEAST,       1,          0},
        {"017777777777",                                MOST,        2147483647, MOST},
        {"037777777777",                                MOST,        ALL,        MOST},
        {"040000000000",                                MOST,        ALL,        MOST},
        {"00000000000000000000000000000012",            10,          10,         12},
        {"99999999999999999999x",                       MOST,        ALL,        MOST},
        {"1",                                           1,           1,          1},
        {"-0x1",                                        -1,          ALL,        0},
        {"+08",                                         0,           0,          8},
        {"-08",                                         0,           0,          -8},
        {"08.5",                                        0,           0,          8},
        {"00x10",                                       0,           0,          0},
        {"0b",                                          0,           0,          0},
        {"0b2",                                         0,           0,          0},
        {"0b11111111111111111111111111111111",          0,           0,          0},
        {"- 08",                                        0,           0,          0},
        {"+2147483647",                                 MOST,        2147483647, MOST},
        {"+2147483648",                                 MOST,        2147483648, MOST},
        {"-020000000000",                               LEAST,       2147483648, LEAST},
        {"020000000000",                                MOST,        2147483648, MOST},
        {"\t-2147483649",                               LEAST,       2147483647, LEAST},
        {" +4294967296",                                MOST,        ALL,        MOST},
        {"0x7fffffffffffffff",                          MOST,        ALL,        0},
        {"0xffffffffffffffff",                          MOST,        ALL,        0},
        {"0x10000000000000000",                         MOST,        ALL,        0},
        {"-0x8000000000000000",                         LEAST,       ALL,        0},
        {"1234567890123456789012345678901234567890",    MOST,        ALL,        MOST},
        {"-1234567890123456789012345678901234567890",   LEAST,       ALL,        LEAST},
        {"0000000000000000000000000000000000000001",    1,           1,          1},
        {"0x0000000000000000000000000000000000001",     1,           1,          0},
    };
    // clang-format on
    return forms;
}

enum class Sign { Signed, Unsigned };

/// The leaf `tag` is read in every form of a number, as element or attribute, and then written in decimal.
template <class T>
void expectNumberForms(const std::string& document, const std::string& tag, Sign sign)
{
    const std::string line = leafIn(document, tag);
    for (const NumberForm& form : numberForms()) {
        const std::string value =
            sign == Sign::Signed ? std::to_string(form.signedValue) : std::to_string(form.unsignedValue);
        const std::string expected = withText(document, tag, value);
        EXPECT_EQ(rewritten<T>(withText(document, tag, form.text)), expected) << "for: " << form.text;
        EXPECT_EQ(rewritten<T>(changed(document, line, "<" + tag + " value=\"" + form.text + "\"/>")), expected)
            << "for the attribute: " << form.text;
    }
    EXPECT_EQ(rewritten<T>(changed(document, line, "<" + tag + "/>")), withText(document, tag, "0"));
}

} // namespace ipsecimpl

#endif
