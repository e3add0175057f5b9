#ifndef IPSEC_POLICY_DOCUMENT_H
#define IPSEC_POLICY_DOCUMENT_H

#include <ipsecimpl/config.h>

#include <string>

/// What the help says about every argument that is read with loadDocument().
extern const char DOCUMENT_HELP[];

/// The configuration in the file, or on standard input for "-".
///
/// Throws a Failure for a file that cannot be read and for a document that does not load; its message is as
/// loadMessage() tells. One document is expected: what follows it is a Failure too, or it would get lost unnoticed.
ipsecimpl::IPsecConfig loadDocument(const std::string& fileName);

/// The document in the written form.
///
/// Nothing is escaped in it, so not every text that was loaded (from a `value` attribute, or a protocol selector
/// without a name) can be written so that it comes back. Throws a Failure that names `fileName` rather than return
/// what would not load as the same configuration.
std::string storeDocument(ipsecimpl::IPsecConfig& config, const std::string& fileName);

#endif
