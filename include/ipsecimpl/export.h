#ifndef IPSECIMPL_EXPORT_H
#define IPSECIMPL_EXPORT_H

/// \file
/// The one macro of the headers.

/// Stands at everything that the shared library exports. All else in it is hidden.
#define IPSECIMPL_API __attribute__((visibility("default")))

#endif
