#ifndef IPSECIMPL_TESTS_SCHEMA_DOCUMENTS_H
#define IPSECIMPL_TESTS_SCHEMA_DOCUMENTS_H

/// \file
/// Documents to be held against the schemas.

#include <cstddef>
#include <string>
#include <vector>

namespace ipsecimpl {

/// A document with every element, in the written form.
const std::string& everyElement();

/// Two entries of it, which follow each other.
inline const std::string FIRST_POLICY = "<policyEntry>\n"
                                        "<id>1</id>\n"
                                        "<policy>\n"
                                        "<hostGroupID>1</hostGroupID>\n"
                                        "<protocolGroupID>2</protocolGroupID>\n"
                                        "<actionID>7</actionID>\n"
                                        "</policy>\n"
                                        "</policyEntry>\n";
inline const std::string THIRD_POLICY = "<policyEntry>\n"
                                        "<id>3</id>\n"
                                        "<policy>\n"
                                        "<hostGroupID>7</hostGroupID>\n"
                                        "<protocolGroupID>7</protocolGroupID>\n"
                                        "<actionID>7</actionID>\n"
                                        "</policy>\n"
                                        "</policyEntry>\n";

std::vector<std::string> linesOf(const std::string& document);
std::string              joinedLines(const std::vector<std::string>& lines);

/// The name of the element of which this line holds the start tag, or the whole; empty for an end tag.
std::string elementIn(const std::string& line);

/// Is it a whole leaf?
bool isLeaf(const std::string& line);

/// Whole documents with a selector, or with an action; `mode` begins with its SPD action.
std::string withHostSelector(const std::string& selector);
std::string withProtocolSelector(const std::string& selector);
std::string withAction(const std::string& mode);

/// Does the document load, and is it stored as it is? In what order the selectors stand, and that each stands once, is
/// left aside: no schema could say it.
bool isWrittenForm(const std::string& document);

/// For each document, the schema and the library agree on whether it is in the written form; `written` of them are.
/// What is so is valid under the XML Schema, too.
void expectAgreement(const std::vector<std::string>& documents, std::size_t written);

} // namespace ipsecimpl

#endif
