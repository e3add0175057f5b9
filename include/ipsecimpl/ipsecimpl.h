#ifndef IPSECIMPL_IPSECIMPL_H
#define IPSECIMPL_IPSECIMPL_H

/// \file
/// Everything that the library offers.

#include <ipsecimpl/actions.h>
#include <ipsecimpl/config.h>
#include <ipsecimpl/enums.h>
#include <ipsecimpl/export.h>
#include <ipsecimpl/selectors.h>
#include <ipsecimpl/version.h>
#include <ipsecimpl/xml.h>

#endif
