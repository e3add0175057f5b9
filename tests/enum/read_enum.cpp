// How a word is looked up in a table of names.

#include "enum/read_enum.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string_view>

namespace ipsecimpl {
namespace {

using namespace std::string_view_literals;

constexpr const char* names[] = {"IN", "OUT", "INOUT", "", "IN\0OUT"};
constexpr NameTable   table{names, 5};

TEST(NameTable, GivesTheNumberOfTheWholeName)
{
    EXPECT_EQ(numberOf("IN", table), 0);
    EXPECT_EQ(numberOf("OUT", table), 1);
    EXPECT_EQ(numberOf("INOUT", table), 2);
    EXPECT_EQ(numberOf("", table), 3);
}

TEST(NameTable, RefusesAnyOtherWord)
{
    for (const std::string_view word : {"I"sv, "INO"sv, "INOUTS"sv, "in"sv, " IN"sv, "IN "sv, "\x01"sv, "IN\x01"sv}) {
        try {
            const int number = numberOf(word, table);
            ADD_FAILURE() << word << " is taken for number " << number;
        } catch (const std::invalid_argument& error) {
            EXPECT_EQ(error.what(), "to_int"sv) << word;
        }
    }
}

// A name ends at its NUL, whatever is in memory behind it.
TEST(NameTable, RefusesAWordWithANul)
{
    EXPECT_THROW(numberOf("IN\0OUT"sv, table), std::invalid_argument);
    EXPECT_THROW(numberOf("IN\0"sv, table), std::invalid_argument);
    EXPECT_THROW(numberOf("\0"sv, table), std::invalid_argument);
}

} // namespace
} // namespace ipsecimpl
