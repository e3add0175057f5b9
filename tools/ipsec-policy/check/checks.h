#ifndef IPSEC_POLICY_CHECKS_H
#define IPSEC_POLICY_CHECKS_H

/// \file
/// The checks of a configuration, by subject: each with its rules in a file of its own. And how they report.

#include "findings.h"
#include "model.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class Algorithms;

/// Of a selector's address, though it may be the length that is wrong.
extern const Rule HOST_BITS_SET;

/// \name Checks of one object
/// @{
void checkTexts(const Entry<ipsecimpl::HostGroup>& entry, Findings& findings);
void checkTexts(const Entry<ipsecimpl::ProtocolGroup>& entry, Findings& findings);
void checkTexts(const Entry<ipsecimpl::IPsecAction>& entry, Findings& findings);
void checkCharacters(const Entry<ipsecimpl::HostGroup>& entry, Findings& findings);
void checkCharacters(const Entry<ipsecimpl::ProtocolGroup>& entry, Findings& findings);
void checkCharacters(const Entry<ipsecimpl::IPsecAction>& entry, Findings& findings);
void checkHostSelectors(const Entry<ipsecimpl::HostGroup>& entry, Findings& findings);
void checkProtocolSelectors(const Entry<ipsecimpl::ProtocolGroup>& entry, Findings& findings);
void checkTunnelEndPoint(const Entry<ipsecimpl::IPsecAction>& entry, Findings& findings);
void checkAction(const Entry<ipsecimpl::IPsecAction>& entry, Findings& findings);
void checkProposals(const Entry<ipsecimpl::IPsecAction>& entry, const Algorithms* algorithms, Findings& findings);
void checkRepeatedOffers(const Entry<ipsecimpl::IPsecAction>& entry, Findings& findings);
void checkManualKey(const Entry<ipsecimpl::IPsecAction>& entry, Findings& findings);
void checkStrength(const Entry<ipsecimpl::IPsecAction>& entry, Findings& findings);
/// @}

/// \name Parts of checks, of an object without the rest
/// @{

/// What the field `field` of a policy names; `exists`: there is an object of that kind with the ID.
void checkReference(unsigned int policy, Kind kind, const char* field, unsigned int id, bool exists,
                    Findings& findings);

void checkReservedSPIs(unsigned int action, const ipsecimpl::MKM& key, Findings& findings);
void checkZeroLifetimes(unsigned int action, const ipsecimpl::IKEPhase1& phase1, const ipsecimpl::IKEPhase2& phase2,
                        Findings& findings);
/// @}

/// \name Checks across objects
/// @{
void checkReferences(const Model& model, Findings& findings);
void checkTunnelFamilies(const Model& model, Findings& findings);
void checkSPIs(const Model& model, Findings& findings);
void checkKeyReuse(const Model& model, Findings& findings);
void checkPresharedKeys(const Model& model, Findings& findings);
void checkNames(const Model& model, Findings& findings);
void checkIKEVersion(const Model& model, Findings& findings);
/// @}

/// \name The rules, by file
/// @{
using Rules = std::vector<const Rule*>;

Rules referenceRules();
Rules textRules();
Rules characterRules();
Rules nameRules();
Rules hostSelectorRules();
Rules protocolSelectorRules();
Rules tunnelRules();
Rules actionRules();
Rules proposalRules();
Rules repeatedOfferRules();
Rules manualKeyRules();
Rules spiRules();
Rules keyReuseRules();
Rules presharedKeyRules();
Rules strengthRules();
/// @}

/// A field of an object, from which its path is made only when there is something to report.
struct FieldPath {
    const char* first  = "";
    std::size_t number = 0;  ///< of a list's member, from 1; 0 where there is no list
    const char* last   = ""; ///< below the member
};

/// The path below the object's own, such as "selectors/2/addr1".
std::string textOf(const FieldPath& field);

inline void report(Findings& findings, const Rule& rule, Kind kind, unsigned int id, const FieldPath& field,
                   std::string message)
{
    findings.push_back({&rule, {kind, id, textOf(field)}, std::move(message)});
}

/// The texts one after the other.
std::string joined(std::initializer_list<std::string_view> texts);

/// The text in quotes, fit for a terminal, and cut where it is long: a text may be as long as the document, and be
/// named in every finding.
std::string inQuotes(std::string_view text);

/// An object in a sentence, such as "host group 3 'Head office'", or without a name "host group 3".
std::string named(Kind kind, unsigned int id, std::string_view name);

template <class T>
std::string named(Kind kind, const Entry<T>& entry)
{
    return named(kind, entry.id, nameOf(*entry.object));
}

/// The same at the start of a sentence.
std::string capitalised(std::string text);

#endif
