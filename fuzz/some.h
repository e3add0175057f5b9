#ifndef IPSECIMPL_FUZZ_SOME_H
#define IPSECIMPL_FUZZ_SOME_H

/// \file
/// Values that a program chooses.

#include "input.h"

#include <ipsecimpl/config.h>

#include <string>

namespace ipsecimpl {

template <class E>
E someWord(Program& program, int count)
{
    return E(static_cast<int>(program.below(static_cast<unsigned int>(count))));
}

/// A text that a document can carry.
const std::string& someText(Program& program);

/// A number that marks something as built-in, or not.
int someBuiltinNumber(Program& program);

MKM               someManualKey(Program& program);
IKEPhase1Proposal somePhase1Proposal(Program& program);
IKEPhase2         somePhase2(Program& program);
HostGroup         someHostGroup(Program& program);
ProtocolGroup     someProtocolGroup(Program& program);
Policy            somePolicy(Program& program);

} // namespace ipsecimpl

#endif
