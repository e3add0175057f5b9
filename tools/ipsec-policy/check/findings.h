#ifndef IPSEC_POLICY_FINDINGS_H
#define IPSEC_POLICY_FINDINGS_H

/// \file
/// What `check` finds.

#include "objects.h"

#include <cstddef>
#include <string>
#include <vector>

enum class Level { ERROR, WARNING, NOTE };

/// What can be found, once and for all: the code is part of the interface and never changes its meaning.
struct Rule {
    const char* code;        ///< lower case with dashes: "dangling-reference"
    Level       level;       ///< of every finding with this code
    const char* summary;     ///< one line for `check --list`, without full stop
    const char* explanation; ///< for `check --explain`: why it matters and what to do, one paragraph in lines
    const char* reference;   ///< such as "RFC 8221 section 4"; empty if no RFC is the reason
};

/// What was found at one place.
struct Finding {
    const Rule* rule;

    /// The object and field; meaningless if `isAboutFile`.
    ObjectPath path;

    /// A sentence (or two) that says what is wrong here and what to do, fit for a terminal, without any key text.
    std::string message;

    bool isAboutFile = false; ///< the file as a whole, not an object

    /// Where in the document it is, once located: so many bytes from its start.
    std::size_t offset    = 0;
    std::size_t length    = 0;
    bool        isLocated = false;
};

using Findings = std::vector<Finding>;

#endif
