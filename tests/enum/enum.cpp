#include "support/xml.h"

#include <ipsecimpl/enums.h>

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace ipsecimpl {
namespace {

/// The template arguments of an enumeration.
template <class E>
struct Table;

template <int Num, auto Names>
struct Table<Enum<Num, Names>> {
    static constexpr int num = Num;
    static const char*   word(int i) { return (*Names)[i]; }
};

template <class E>
class EveryEnum : public testing::Test {
  protected:
    static constexpr int num = Table<E>::num;

    static std::string refusalOfNumber(int v)
    {
        return errorOf<std::invalid_argument>([v] { E{v}; });
    }

    static std::string refusalOfWord(const std::string& word)
    {
        return errorOf<std::invalid_argument>([&word] { E::to_int(word); });
    }
};

using All = testing::Types<SPDAction, IPsecKeyMgr, IPsecProtocol, AHTransform, ESPTransform, IKEAuthType,
                           IKEPhase1Transform, DHGroup, KeyLifetimeUnits, AddressFamily, AddressType, Direction>;
TYPED_TEST_SUITE(EveryEnum, All, );

TYPED_TEST(EveryEnum, HasTheSizeOfAnInt)
{
    EXPECT_EQ(sizeof(TypeParam), sizeof(int));
}

TYPED_TEST(EveryEnum, IsAPlainValue)
{
    EXPECT_TRUE(std::is_trivially_destructible_v<TypeParam>);
    EXPECT_TRUE(std::is_trivially_copyable_v<TypeParam>);
    EXPECT_TRUE(std::is_copy_assignable_v<TypeParam>);
    EXPECT_TRUE(std::is_standard_layout_v<TypeParam>);
    EXPECT_FALSE(std::is_polymorphic_v<TypeParam>);
}

TYPED_TEST(EveryEnum, HasNoDefaultValue)
{
    EXPECT_FALSE(std::is_default_constructible_v<TypeParam>);
}

TYPED_TEST(EveryEnum, IsMadeFromANumberButDoesNotBecomeOneUnasked)
{
    EXPECT_TRUE((std::is_convertible_v<int, TypeParam>));
    EXPECT_FALSE((std::is_convertible_v<TypeParam, int>));
    EXPECT_FALSE((std::is_convertible_v<TypeParam, bool>));
}

TYPED_TEST(EveryEnum, KeepsEveryNumberOfItsRange)
{
    for (int i = 0; i < this->num; ++i)
        EXPECT_EQ(TypeParam(i).valueGet(), i);
}

TYPED_TEST(EveryEnum, RefusesNumbersOutsideItsRange)
{
    EXPECT_EQ(this->refusalOfNumber(-1), "check_range");
    EXPECT_EQ(this->refusalOfNumber(this->num), "check_range");
    EXPECT_EQ(this->refusalOfNumber(std::numeric_limits<int>::min()), "check_range");
    EXPECT_EQ(this->refusalOfNumber(std::numeric_limits<int>::max()), "check_range");
}

TYPED_TEST(EveryEnum, StaysAsItWasWhenARefusedNumberIsAssigned)
{
    TypeParam e(1);
    EXPECT_EQ(errorOf<std::invalid_argument>([&] { e = Table<TypeParam>::num; }), "check_range");
    EXPECT_EQ(e.valueGet(), 1);
}

TYPED_TEST(EveryEnum, CopiesTheNumber)
{
    const TypeParam last(this->num - 1);
    const TypeParam copy(last);
    TypeParam       target(0);
    EXPECT_EQ(&(target = last), &target);
    EXPECT_EQ(copy.valueGet(), this->num - 1);
    EXPECT_EQ(target.valueGet(), this->num - 1);
}

TYPED_TEST(EveryEnum, ComparesByTheNumber)
{
    for (int i = 0; i < this->num; ++i)
        for (int j = 0; j < this->num; ++j) {
            const TypeParam a(i);
            const TypeParam b(j);
            EXPECT_EQ(a == b, i == j) << i << ' ' << j;
            EXPECT_EQ(a != b, i != j) << i << ' ' << j;
            EXPECT_EQ(a < b, i < j) << i << ' ' << j;
        }
}

TYPED_TEST(EveryEnum, HasNoWordTwice)
{
    std::set<std::string> words;
    for (int i = 0; i < this->num; ++i)
        EXPECT_TRUE(words.insert(Table<TypeParam>::word(i)).second) << Table<TypeParam>::word(i);
}

TYPED_TEST(EveryEnum, WritesWordsThatGiveTheSameValueBack)
{
    for (int i = 0; i < this->num; ++i) {
        std::ostringstream out;
        EXPECT_EQ(&(out << TypeParam(i)), &out);
        EXPECT_EQ(out.str(), Table<TypeParam>::word(i));
        EXPECT_EQ(TypeParam::to_int(out.str()), i);
    }
}

TYPED_TEST(EveryEnum, WritesToWideStreams)
{
    for (int i = 0; i < this->num; ++i) {
        const std::string   word = Table<TypeParam>::word(i);
        std::wostringstream out;
        EXPECT_EQ(&(out << TypeParam(i)), &out);
        EXPECT_EQ(out.str(), std::wstring(word.begin(), word.end()));
    }
}

TYPED_TEST(EveryEnum, LooksWordsUpByteForByte)
{
    for (int i = 0; i < this->num; ++i) {
        const std::string word         = Table<TypeParam>::word(i);
        std::string       otherCase    = word;
        otherCase[0]                   = static_cast<char>(otherCase[0] ^ 0x20);
        const std::string notTheWord[] = {otherCase, ' ' + word, word + ' ', word + '\0', '\0' + word, word + word};
        for (const std::string& text : notTheWord)
            EXPECT_EQ(this->refusalOfWord(text), "to_int") << text;
    }
}

TYPED_TEST(EveryEnum, KnowsNeitherTheEmptyWordNorNumbers)
{
    EXPECT_EQ(this->refusalOfWord(""), "to_int");
    EXPECT_EQ(this->refusalOfWord("0"), "to_int");
    EXPECT_EQ(this->refusalOfWord(std::string(1, '\0')), "to_int");
}

/// Traits of their own, as a program may give them to its streams.
struct OwnTraits : std::char_traits<char> {};

TEST(Enum, WritesToStreamsWithOtherTraits)
{
    std::basic_ostringstream<char, OwnTraits> out;
    std::basic_ostream<char, OwnTraits>&      result = out << SPD_TUNNEL;
    EXPECT_EQ(&result, &out);
    EXPECT_EQ(out.str(), "TUNNEL");
}

TEST(Enum, IsUsableInConstantExpressions)
{
    constexpr Direction out(1);
    static_assert(out == Direction(1) && out != Direction(2) && out < Direction(2));
    EXPECT_TRUE(out == PROTO_OUT);
}

/// A table from outside the library.
const char* const colours[] = {"red", "green"};
using Colour                = Enum<2, &colours>;

TEST(Enum, ServesTablesOfTheCaller)
{
    std::ostringstream out;
    out << Colour(Colour::to_int("green"));
    EXPECT_EQ(out.str(), "green");
    EXPECT_EQ(errorOf<std::invalid_argument>([] { Colour{2}; }), "check_range");
    EXPECT_EQ(errorOf<std::invalid_argument>([] { Colour::to_int("blue"); }), "to_int");
}

} // namespace
} // namespace ipsecimpl
