#ifndef IPSECIMPL_BENCH_PEERS_REBUILD_H
#define IPSECIMPL_BENCH_PEERS_REBUILD_H

#include <ipsecimpl/config.h>

namespace bench {

/// The same configuration, made anew through the constructors, setters and add() that each peer uses, but from values
/// that are ready. It tells which part of a peer's time is the building of the configuration: no parser can save it.
ipsecimpl::IPsecConfig rebuild(const ipsecimpl::IPsecConfig& config);

} // namespace bench

#endif
