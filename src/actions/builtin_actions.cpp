#include <ipsecimpl/actions.h>

namespace ipsecimpl {

IPsecAction& ActionDiscard()
{
    static IPsecAction action(SPD_DISCARD, "Discard", 19, "block unencrypted traffic", 20, KEYMGR_NONE);
    return action;
}

IPsecAction& ActionBypass()
{
    static IPsecAction action(SPD_BYPASS, "Bypass", 17, "allow unencrypted traffic", 18, KEYMGR_NONE);
    return action;
}

} // namespace ipsecimpl
