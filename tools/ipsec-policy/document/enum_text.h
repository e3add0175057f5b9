#ifndef IPSEC_POLICY_ENUM_TEXT_H
#define IPSEC_POLICY_ENUM_TEXT_H

/// \file
/// The words of enumerations, both ways.

#include "failure.h"
#include "text.h"

#include <ipsecimpl/enums.h>

#include <string>
#include <vector>

template <int Num, auto Names>
const char* wordOf(const ipsecimpl::Enum<Num, Names>& value)
{
    return (*Names)[value.valueGet()];
}

template <class E>
struct EnumReader;

template <int Num, auto Names>
struct EnumReader<ipsecimpl::Enum<Num, Names>> {
    static ipsecimpl::Enum<Num, Names> read(const std::string& text, const std::string& what, const std::string& shown)
    {
        std::string words;
        for (int i = 0; i < Num; ++i) {
            if (text == (*Names)[i])
                return i;
            words += (i == 0 ? "" : ", ") + std::string((*Names)[i]);
        }
        throw Failure(ExitStatus::TROUBLE, shown + " is no " + what + " (" + words + ')');
    }

    static std::vector<std::string> words() { return {*Names, *Names + Num}; }
};

/// All words of the enumeration, in its order.
template <class E>
std::vector<std::string> wordsOf()
{
    return EnumReader<E>::words();
}

/// The value called `text`. Throws a Failure that calls it `what` and tells all words, such as "'G5' is no dhGroup
/// (NONE, G1, G2, G14)".
template <class E>
E readEnum(const std::string& text, const std::string& what)
{
    return EnumReader<E>::read(text, what, '\'' + printable(text) + '\'');
}

/// The same of a text that may not be told: the message has `shown` for it.
template <class E>
E readEnum(const std::string& text, const std::string& what, const std::string& shown)
{
    return EnumReader<E>::read(text, what, shown);
}

#endif
