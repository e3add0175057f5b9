#ifndef IPSECIMPL_TESTS_TOOLS_UNDERSTOOD_FINDINGS_H
#define IPSECIMPL_TESTS_TOOLS_UNDERSTOOD_FINDINGS_H

#include "loaded_document.h"
#include "program.h"

#include <string>
#include <vector>

/// What checkUnderstood() finds, as "code path [what is there]: message".
std::vector<std::string> misreadingsIn(const LoadedDocument& loaded);
std::vector<std::string> misreadingsIn(const std::string& text);

/// A document with one policy. `hostGroupID` is the whole element.
std::string withPolicy(const std::string& hostGroupID);

std::string hostGroupID(const std::string& text);

/// A document with one protocol group, and what may be in it. `ports` are whole elements.
std::string withProtocolSelectors(const std::string& selectors);
std::string protocolSelector(const std::string& protocol, const std::string& ports, const std::string& name = "n");

#endif
