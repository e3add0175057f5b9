#ifndef IPSECIMPL_TESTS_FAULTS_TARGETS_H
#define IPSECIMPL_TESTS_FAULTS_TARGETS_H

/// \file
/// What operations are tried on, and how their targets and results are compared.

#include "support/contents.h"
#include "support/streams.h"

#include <istream>
#include <sstream>
#include <string>
#include <type_traits>

namespace ipsecimpl {

/// For operations that need nothing, such as constructors.
struct Nothing {};

inline Nothing nothing()
{
    return {};
}

/// For operations with a second object, often of the same kind, which they may change too.
template <class First, class Second = First>
struct Two {
    First  first;
    Second second;
};

/// For operations that read. After a failure neither parser nor stream is good for anything.
template <class Buffer>
struct SourceOn {
    /// `opens`: the first start tag, up to its name, is read.
    explicit SourceOn(const std::string& text, bool opens = false)
        : buffer(text)
        , in(&buffer)
        , parser(in)
    {
        std::string name;
        if (opens)
            parser.parse_tag(name);
    }

    Buffer       buffer;
    std::istream in;
    XMLParser    parser;
};

/// All that is in the written form is at hand, so that it is taken in one step.
using Source = SourceOn<std::stringbuf>;

/// Nothing is at hand: all goes through the parser's own operations.
using ByteSource = SourceOn<ByteBuffer>;

template <class T>
constexpr bool isSpentByFailure = std::is_same_v<T, Source> || std::is_same_v<T, ByteSource>;

/// Everything that can be told of a target or a result.
template <class T>
std::string shown(const T& value)
{
    if constexpr (std::is_arithmetic_v<T>)
        return std::to_string(value);
    else if constexpr (std::is_convertible_v<T, std::string>)
        return value;
    else if constexpr (std::is_pointer_v<T>)
        return value == nullptr ? "none" : shown(*value);
    else if constexpr (std::is_base_of_v<std::exception, T>)
        return value.what();
    else
        return contentsOf(value);
}

template <int Num, auto Names>
std::string shown(const Enum<Num, Names>& value)
{
    return std::to_string(value.valueGet());
}

template <class First, class Second>
std::string shown(const Two<First, Second>& two)
{
    return shown(two.first) + "and\n" + shown(two.second);
}

inline std::string shown(const Nothing&)
{
    return "";
}

/// The same for all: what operations leave unread is for other tests.
template <class Buffer>
std::string shown(const SourceOn<Buffer>&)
{
    return "";
}

} // namespace ipsecimpl

#endif
