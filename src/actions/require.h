#ifndef IPSECIMPL_ACTIONS_REQUIRE_H
#define IPSECIMPL_ACTIONS_REQUIRE_H

namespace ipsecimpl {

/// Throws `Exception(message)` unless what is asked for is allowed.
template <class Exception>
void require(bool allowed, const char* message)
{
    if (!allowed)
        throw Exception(message);
}

} // namespace ipsecimpl

#endif
