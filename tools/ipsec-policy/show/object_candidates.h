#ifndef IPSEC_POLICY_OBJECT_CANDIDATES_H
#define IPSEC_POLICY_OBJECT_CANDIDATES_H

#include "objects.h"

#include <string>
#include <vector>

/// What a word on the command line could become.
struct Candidate {
    std::string text;
    std::string description; ///< may be empty
};

/// The words by which the objects of `kind` in a file can be found, see findObject(): all IDs, then the names that are
/// unique. None if the file is not a regular one, too large to be read while somebody waits, or does not load.
std::vector<Candidate> objectCandidates(const std::string& fileName, Kind kind);

#endif
