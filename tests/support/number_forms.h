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
};

inline const std::vector<NumberForm>& numberForms()
{
    using namespace std::string_literals;
    constexpr std::int32_t  LEAST = INT32_MIN, MOST = INT32_MAX;
    constexpr std::uint32_t ALL = UINT32_MAX;

    // clang-format off
    static const std::vector<NumberForm> forms = {
        {"",                        0,           0},
        {"0",                       0,           0},
        {"-0",                      0,           0},
        {"42",                      42,          42},
        {"+7",                      7,           7},
        {"-1",                      -1,          ALL},
        {"-7",                      -7,          4294967289},
        {"0x10",                    16,          16},
        {"0X1f",                    31,          31},
        {"0xAbCdEf",                11259375,    11259375},
        {"+0x10",                   16,          16},
        {"-0x10",                   -16,         4294967280},
        {"010",                     8,           8},
        {"-010",                    -8,          4294967288},
        {"0017",                    15,          15},
        {"08",                      0,           0},
        {"019",                     1,           1},
        {"0x",                      0,           0},
        {"0xg",                     0,           0},
        {"0x-1",                    0,           0},
        {"0x1g",                    1,           1},
        {"0b101",                   0,           0},
        {"0B1",                     0,           0},
        {"0o17",                    0,           0},
        {"abc",                     0,           0},
        {"ff",                      0,           0},
        {"12abc",                   12,          12},
        {"1 2",                     1,           1},
        {"1.9",                     1,           1},
        {"1e3",                     1,           1},
        {"1,000",                   1,           1},
        {"1_000",                   1,           1},
        {"-",                       0,           0},
        {"+",                       0,           0},
        {"--1",                     0,           0},
        {"+-1",                     0,           0},
        {"- 1",                     0,           0},
        {"+ 1",                     0,           0},
        {" \t\n\v\f\r5",            5,           5},
        {" -5 ",                    -5,          4294967291},
        {"&#49;",                   0,           0},
        {"\xC2\xA0" "5",            0,           0},
        {"1\0002"s,                 1,           1},
        {"\0001"s,                  0,           0},
        {"2147483647",              MOST,        2147483647},
        {"2147483648",              MOST,        2147483648},
        {"-2147483647",             -2147483647, 2147483649},
        {"-2147483648",             LEAST,       2147483648},
        {"-2147483649",             LEAST,       2147483647},
        {"4294967295",              MOST,        ALL},
        {"4294967296",              MOST,        ALL},
        {"4294967297",              MOST,        ALL},
        {"-4294967295",             LEAST,       1},
        {"-4294967296",             LEAST,       ALL},
        {"-4294967297",             LEAST,       ALL},
        {"9223372036854775807",     MOST,        ALL},
        {"9223372036854775808",     MOST,        ALL},
        {"-9223372036854775808",    LEAST,       ALL},
        {"-9223372036854775809",    LEAST,       ALL},
        {"18446744073709551615",    MOST,        ALL},
        {"18446744073709551616",    MOST,        ALL},
        {"-18446744073709551615",   LEAST,       ALL},
        {"-18446744073709551616",   LEAST,       ALL},
        {"340282366920938463463374607431768211457", MOST, ALL},
        {"0x7fffffff",              MOST,        2147483647},
        {"0x80000000",              MOST,        2147483648},
        {"-0x80000000",             LEAST,       2147483648},
        {"0xffffffff",              MOST,        ALL},
        {"0x100000000",             MOST,        ALL},
        {"-0xffffffff",             LEAST,       1},
        {"017777777777",            MOST,        2147483647},
        {"037777777777",            MOST,        ALL},
        {"040000000000",            MOST,        ALL},
        {"00000000000000000000000000000012", 10, 10},
        {"99999999999999999999x",   MOST,        ALL},
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
