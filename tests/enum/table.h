#ifndef IPSECIMPL_TESTS_ENUM_TABLE_H
#define IPSECIMPL_TESTS_ENUM_TABLE_H

/// \file
/// What must hold for each enumeration: words, numbers and constants tell the same.

#include <ipsecimpl/enums.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace ipsecimpl {

/// One value of the enumeration E: the word and the constant that stand for it.
template <class E>
struct Row {
    const char* word;
    const E*    constant;
};

/// `rows` are all values of an enumeration, in their order.
template <int Num, auto Names>
void expectTable(const std::vector<Row<Enum<Num, Names>>>& rows)
{
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(Num));
    ASSERT_EQ(rows.size(), std::size(*Names));
    for (int i = 0; i < Num; ++i) {
        const auto& [word, constant] = rows[static_cast<std::size_t>(i)];
        SCOPED_TRACE(word);
        EXPECT_STREQ((*Names)[i], word);
        EXPECT_EQ((Enum<Num, Names>::to_int(word)), i);
        EXPECT_EQ(constant->valueGet(), i);
        EXPECT_TRUE(*constant == (Enum<Num, Names>(i)));
        std::ostringstream out;
        out << *constant;
        EXPECT_EQ(out.str(), word);
    }
}

} // namespace ipsecimpl

#endif
