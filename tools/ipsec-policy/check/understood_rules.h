#ifndef IPSEC_POLICY_UNDERSTOOD_RULES_H
#define IPSEC_POLICY_UNDERSTOOD_RULES_H

#include "findings.h"

/// The rules of checkUnderstood().
namespace understood {

extern const Rule NO_NUMBER;
extern const Rule NUMBER_CUT_SHORT;
extern const Rule NEGATIVE_NUMBER;
extern const Rule NUMBER_TOO_LARGE;
extern const Rule NUMBER_TRUNCATED;
extern const Rule OCTAL_NUMBER;
extern const Rule HEXADECIMAL_NUMBER;
extern const Rule NUMBER_SPELLING;
extern const Rule VALUE_CHANGED;
extern const Rule KEY_TRIMMED;
extern const Rule WHITE_SPACE_TRIMMED;
extern const Rule EMPTY_ATTRIBUTE;
extern const Rule ENTITY_KEPT;
extern const Rule DUPLICATE_SELECTOR;
extern const Rule NEXT_ID_RAISED;
extern const Rule NEXT_ID_REPEATED;

/// Whether a finding of the rule says that a number became another one, whatever its level: an octal one may be meant.
bool isOfAnotherNumber(const Rule& rule);

} // namespace understood

#endif
