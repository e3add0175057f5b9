#ifndef IPSEC_POLICY_EDIT_CANDIDATES_H
#define IPSEC_POLICY_EDIT_CANDIDATES_H

#include "object_candidates.h"

#include <string>
#include <string_view>
#include <vector>

/// What an edit command (docs/edit.md) could become, of which `typed` is the beginning: all of it, with its last word
/// completed. IDs and names are those in the file, see objectCandidates(). Nothing else of the file is told.
std::vector<Candidate> editCandidates(std::string_view typed, const std::string& fileName);

#endif
