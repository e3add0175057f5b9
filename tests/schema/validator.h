#ifndef IPSECIMPL_TESTS_SCHEMA_VALIDATOR_H
#define IPSECIMPL_TESTS_SCHEMA_VALIDATOR_H

/// \file
/// What a validator makes of documents under the schemas.

#include <iosfwd>
#include <string>
#include <vector>

namespace ipsecimpl {

enum class Schema { RelaxNG, XMLSchema };

enum class Verdict { Valid, Invalid, NotXML };

std::ostream& operator<<(std::ostream& out, Verdict verdict);

/// One for each document. The test fails if the validator does not run, or says nothing of a document.
std::vector<Verdict> verdictsOf(Schema schema, const std::vector<std::string>& documents);

Verdict verdictOf(Schema schema, const std::string& document);

} // namespace ipsecimpl

#endif
