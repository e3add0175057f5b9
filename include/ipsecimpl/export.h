#ifndef IPSECIMPL_EXPORT_H
#define IPSECIMPL_EXPORT_H

/// \file
/// The mark of everything that the shared library exports. All else in it is hidden.

#define IPSECIMPL_API __attribute__((visibility("default")))

#endif
