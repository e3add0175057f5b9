#ifndef IPSEC_POLICY_DOCUMENT_H
#define IPSEC_POLICY_DOCUMENT_H

#include "failure.h"
#include "files.h"
#include "load_message.h"

#include <ipsecimpl/config.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

/// What the help says about every argument that is read with loadDocument().
extern const char DOCUMENT_HELP[];

/// The configuration in the file, or on standard input for "-", of at most `maxSize` bytes (see addMaxSize()).
///
/// Throws a Failure for a file that cannot be read, and a LoadFailure for a document that does not load. One document
/// is expected: what follows it is a LoadFailure too, or it would get lost unnoticed.
///
/// Standard error tells how many values of a small document (up to 256 KiB) were not understood as written.
ipsecimpl::IPsecConfig loadDocument(const std::string& fileName, std::size_t maxSize = USUAL_MAX_SIZE);

/// The configuration in a text that was read from `fileName`, with the same failures but those of reading.
ipsecimpl::IPsecConfig parseDocument(std::string_view text, const std::string& fileName);

/// A document does not load. what() is loadMessage().
class LoadError : public std::runtime_error {
  public:
    explicit LoadError(LoadFault loadFault);

    LoadFault fault;
};

/// The same as a Failure (FINDINGS), whose message begins with the file's name.
class LoadFailure : public Failure {
  public:
    LoadFailure(const std::string& fileName, const LoadError& error);

    LoadFault fault;
};

/// The configuration in a text. Throws a LoadError.
ipsecimpl::IPsecConfig parseDocument(std::string_view text);

/// The document in the written form.
///
/// Nothing is escaped in it, so not every text that was loaded (from a `value` attribute, or a protocol selector
/// without a name) can be written so that it comes back. Throws a Failure that names `fileName` rather than return
/// what would not load as the same configuration.
std::string storeDocument(ipsecimpl::IPsecConfig& config, const std::string& fileName);

#endif
