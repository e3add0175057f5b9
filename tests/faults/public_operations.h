#ifndef IPSECIMPL_TESTS_FAULTS_PUBLIC_OPERATIONS_H
#define IPSECIMPL_TESTS_FAULTS_PUBLIC_OPERATIONS_H

#include <string>
#include <vector>

namespace ipsecimpl {

/// The functions that the header `text` declares for its users, in its order: those outside classes, and the public
/// ones of classes, with the class before them. As they stand there, but without what precedes the name, without
/// default arguments' definitions, and in one line:
///
///     HostGroupAny()
///     Policy::Policy(unsigned int hostGroupID, unsigned int protocolGroupID, unsigned int actionID)
///     Policy::exportXML(std::ostream& out) const
///
/// It knows the C++ that our headers are written in, not all of it.
std::vector<std::string> publicOperations(const std::string& text);

} // namespace ipsecimpl

#endif
