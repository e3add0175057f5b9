#ifndef IPSECIMPL_TESTS_TOOLS_SARIF_LOG_H
#define IPSECIMPL_TESTS_TOOLS_SARIF_LOG_H

/// \file
/// SARIF 2.1.0 says of every object which members it has and what they hold: reports are held against that.

#include "json.h"

#include <string>

/// The only run of a report. Throws, and says where, unless the report is a SARIF log with one run, in which there is
/// nothing but members of the standard, all that it requires are there, they hold what they must, and they agree with
/// each other.
Json sarifRun(const std::string& report);

/// Throws unless each region of the run's results is a piece of the document.
void requireRegionsIn(const std::string& document, const Json& run);

#endif
