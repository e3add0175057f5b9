#ifndef IPSEC_POLICY_WORD_H
#define IPSEC_POLICY_WORD_H

#include <ipsecimpl/enums.h>

/// The document's word for a value.
template <int Num, auto Names>
const char* word(const ipsecimpl::Enum<Num, Names>& value)
{
    return (*Names)[value.valueGet()];
}

#endif
