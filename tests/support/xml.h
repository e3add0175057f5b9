#ifndef IPSECIMPL_TESTS_SUPPORT_XML_H
#define IPSECIMPL_TESTS_SUPPORT_XML_H

/// \file
/// Short words for what the tests do all day: load an object from a text, store it, see why a call is refused.

#include <ipsecimpl/xml.h>

#include <gtest/gtest.h>

#include <exception>
#include <locale>
#include <sstream>
#include <string>

namespace ipsecimpl {

/// what() of the exception that `call()` throws. The test fails if it throws nothing, or anything but an `Exception`.
///
///     EXPECT_EQ(errorOf([&] { parser.parse_end_tag(); }), "parse_end_tag: missing tag name\nfrom <a>");
///     EXPECT_EQ(errorOf<invalid_operation>([&] { action.nameSet("x"); }), "...");
template <class Exception = ParseError, class Call>
std::string errorOf(Call&& call)
{
    try {
        call();
    } catch (const Exception& error) {
        return error.what();
    } catch (const std::exception& error) {
        ADD_FAILURE() << "another exception: " << error.what();
        return "(another exception)";
    } catch (...) {
        ADD_FAILURE() << "an exception of unknown type";
        return "(another exception)";
    }
    ADD_FAILURE() << "nothing was thrown";
    return "(nothing thrown)";
}

/// The T that `text` holds, by T's own reader.
template <class T>
T read(const std::string& text)
{
    std::istringstream in(text);
    XMLParser          parser(in);
    return T::importXML(parser);
}

/// Why T's reader refuses `text`: what() of the ParseError. The test fails if it does not.
template <class T>
std::string refusalOf(const std::string& text)
{
    return errorOf([&] { read<T>(text); });
}

/// What `object` writes of itself, to a stream in its initial state and in the classic locale.
template <class T>
std::string written(T&& object)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    EXPECT_EQ(&object.exportXML(out), &out) << "exportXML() must return the stream it was given";
    EXPECT_TRUE(out.good());
    return out.str();
}

/// What is written after `text` was read: equal to `text` if that is in the written form and nothing is lost.
template <class T>
std::string rewritten(const std::string& text)
{
    return written(read<T>(text));
}

} // namespace ipsecimpl

#endif
