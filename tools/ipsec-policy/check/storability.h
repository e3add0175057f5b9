#ifndef IPSEC_POLICY_STORABILITY_H
#define IPSEC_POLICY_STORABILITY_H

/// \file
/// What keeps a configuration from being stored over its document.

#include <ipsecimpl/config.h>

#include <string>
#include <string_view>

/// Throws a Failure (FINDINGS) if a value of `document`, which loaded as `config`, was understood as another, or a
/// selector was dropped: to store `config` would make that for good, and nobody could see it any more. The message
/// begins with `fileName` and the place of the first of them.
void refuseMisread(std::string_view document, const ipsecimpl::IPsecConfig& config, const std::string& fileName);

/// How much there is for which refuseMisread() throws, such as "2 values and 1 selector were not understood as
/// written"; empty if there is nothing. That takes about as long as to load the document.
std::string misreadIn(std::string_view document, const ipsecimpl::IPsecConfig& config);

/// Where the first text is that cannot be stored, and why; empty if there is none.
std::string firstUnstorable(const ipsecimpl::IPsecConfig& config);

/// \name The option --force, with which misread values are stored all the same
/// @{
inline constexpr char FORCE_HELP[] =
    "Store values as they were understood, also where\nthe document says something else";
/// @}

#endif
