#ifndef IPSECIMPL_ACTIONS_DEFAULTS_H
#define IPSECIMPL_ACTIONS_DEFAULTS_H

#include <ipsecimpl/actions.h>

namespace ipsecimpl {

// What new actions hold and readers start from.

constexpr unsigned long defaultKeyLifetime = 28800; // seconds: eight hours

inline IKEPhase1Proposal emptyPhase1Proposal()
{
    return {{}, DH_GROUP_NONE, defaultKeyLifetime, KEYLIFETIME_SECS};
}

inline IKEPhase1 emptyPhase1()
{
    return {IKE_AUTH_PSK, "", "", "", emptyPhase1Proposal()};
}

inline IKEPhase2 emptyPhase2()
{
    return {{}, DH_GROUP_NONE, defaultKeyLifetime, KEYLIFETIME_SECS};
}

} // namespace ipsecimpl

#endif
