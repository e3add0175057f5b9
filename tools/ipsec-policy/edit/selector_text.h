#ifndef IPSEC_POLICY_SELECTOR_TEXT_H
#define IPSEC_POLICY_SELECTOR_TEXT_H

/// \file
/// Selectors as people write them, in words of edit commands (edit_words.h). docs/edit.md tells how.

#include <ipsecimpl/selectors.h>

#include <string>
#include <string_view>

/// \name Writing
/// Such as "10.2.0.0/16" or "tcp/443 out mirrored". What a document can hold has a text, also where it makes no sense
/// (`AF_INET SINGLE addr1="file server"`), and reading that text gives the same selector. The text is fit for a
/// terminal.
/// @{
std::string textOf(const ipsecimpl::HostSelector& selector);
std::string textOf(const ipsecimpl::ProtocolSelector& selector);
/// @}

/// \name Reading
/// Throws a Failure (TROUBLE) that says what is wrong with the text; what the library's constructors throw passes.
/// @{
ipsecimpl::HostSelector     readHostSelector(std::string_view text);
ipsecimpl::ProtocolSelector readProtocolSelector(std::string_view text);

/// Throws for a member of a list that is a number or a range alone and stands right behind a selector with a port: the
/// number would be a protocol, but hardly anybody means one.
void refuseListedPort(const ipsecimpl::ProtocolSelector& before, std::string_view text);
/// @}

#endif
