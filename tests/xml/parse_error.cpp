#include <ipsecimpl/xml.h>

#include <gtest/gtest.h>

#include <exception>
#include <sstream>
#include <stack>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace ipsecimpl {
namespace {

/// A stack of `a` at the bottom, `b`, and `c` on top.
std::stack<std::string> threeTags()
{
    std::stack<std::string> tags;
    tags.push("a");
    tags.push("b");
    tags.push("c");
    return tags;
}

TEST(ParseError, KeepsABareMessageUnchanged)
{
    EXPECT_STREQ(ParseError("x").what(), "x");
    EXPECT_STREQ(ParseError("").what(), "");
    EXPECT_STREQ(ParseError("two\nlines\n").what(), "two\nlines\n");
}

TEST(ParseError, AddsNothingForAnEmptyStack)
{
    EXPECT_STREQ(ParseError("x", std::stack<std::string>()).what(), "x");
    EXPECT_EQ(ParseError::where("x", std::stack<std::string>()), "x");
    EXPECT_EQ(ParseError::where("", std::stack<std::string>()), "");
}

TEST(ParseError, ListsTheOpenElementsInnermostFirst)
{
    EXPECT_STREQ(ParseError("x", threeTags()).what(), "x\nfrom <c>\nfrom <b>\nfrom <a>");
    EXPECT_EQ(ParseError::where("x", threeTags()), "x\nfrom <c>\nfrom <b>\nfrom <a>");
}

TEST(ParseError, ListsAnElementOfEmptyName)
{
    EXPECT_EQ(ParseError::where("", std::stack<std::string>({""})), "\nfrom <>");
}

TEST(ParseError, LeavesTheStackAsItIs)
{
    const std::stack<std::string> tags = threeTags();
    ParseError::where("x", tags);
    const ParseError error("x", tags);
    EXPECT_EQ(tags, threeTags());
}

TEST(ParseError, KeepsItsMessageWhenCopiedAndAssigned)
{
    const ParseError error("x", threeTags());
    ParseError       other("other");
    EXPECT_STREQ(ParseError(error).what(), error.what());
    other = error;
    EXPECT_STREQ(other.what(), "x\nfrom <c>\nfrom <b>\nfrom <a>");
}

/// Whether a handler for `Handled` catches the error that the library throws at an empty document.
template <class Handled>
bool isCaughtAs()
{
    std::istringstream in;
    XMLParser          parser(in);
    try {
        parser.parse_simple_tag("a");
    } catch (const Handled&) {
        return true;
    } catch (...) {
        return false;
    }
    ADD_FAILURE() << "nothing was thrown";
    return false;
}

TEST(ParseError, IsCaughtAsItselfAsARuntimeErrorAndAsAnException)
{
    EXPECT_TRUE(isCaughtAs<ParseError>());
    EXPECT_TRUE(isCaughtAs<std::runtime_error>());
    EXPECT_TRUE(isCaughtAs<std::exception>());
}

TEST(ParseError, IsNoLogicError)
{
    EXPECT_FALSE(isCaughtAs<std::logic_error>());
    EXPECT_FALSE(isCaughtAs<std::invalid_argument>());
}

TEST(ParseError, AddsNothingToARuntimeErrorButItsType)
{
    EXPECT_TRUE((std::is_base_of_v<std::runtime_error, ParseError>));
    EXPECT_TRUE(std::has_virtual_destructor_v<ParseError>);
    EXPECT_EQ(sizeof(ParseError), sizeof(std::runtime_error));
}

} // namespace
} // namespace ipsecimpl
