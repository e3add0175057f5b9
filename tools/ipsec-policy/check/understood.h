#ifndef IPSEC_POLICY_UNDERSTOOD_H
#define IPSEC_POLICY_UNDERSTOOD_H

/// \file
/// What a document says against what was understood.

#include "findings.h"
#include "source.h"

#include <vector>

/// What checkUnderstood() finds.
const std::vector<const Rule*>& understoodRules();

/// Appends a finding, with its place, for every value that the library took for something else than the document says.
///
/// Nothing is said of what a document may leave out (a next ID, a port, a protocol selector's name), nor of the order
/// of entries and selectors. No message has more of a text in it than a printable number.
void checkUnderstood(const Source& source, Findings& findings);

#endif
