#ifndef IPSECIMPL_TESTS_SUPPORT_CONTENTS_H
#define IPSECIMPL_TESTS_SUPPORT_CONTENTS_H

/// \file
/// Everything that an object holds, as one text with a line for each field. It owes nothing to what the library writes.

#include <ipsecimpl/ipsecimpl.h>

#include <string>

namespace ipsecimpl {

/// Two objects have the same contents if, and only if, all their fields are equal: a text is given with its length, so
/// that none can look like two fields. Fields that are not in force are in it too, but for those of a built-in action,
/// which does not let them be seen.
///
/// For all classes of the configuration, from selectors up to IPsecConfig.
template <class T>
std::string contentsOf(const T& object);

} // namespace ipsecimpl

#endif
