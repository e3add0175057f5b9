#ifndef IPSEC_POLICY_FIELDS_H
#define IPSEC_POLICY_FIELDS_H

/// \file
/// Objects as flat lists of fields: what a document carries of them, in the document's order.

#include "objects.h"

#include <ipsecimpl/config.h>

#include <list>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// One of the format's own words, such as "TUNNEL".
struct Word {
    const char* text;
};

/// What a field holds. Texts and lists stay where they are in the object, which must outlive the value.
using FieldValue = std::variant<std::string_view, // a text
                                Word, long long, const std::list<ipsecimpl::IKEPhase1Transform>*,
                                const std::list<ipsecimpl::IPsecProposal>*, const std::set<ipsecimpl::HostSelector>*,
                                const std::set<ipsecimpl::ProtocolSelector>*>;

struct Field {
    const char* path; ///< tags below the object's own, such as "ikePhase1/proposal/dhGroup"; a list is one field
    FieldValue  value;
    bool        isSecret         = false;        ///< a key, a pre-shared key or an IV
    std::optional<Kind> refersTo = std::nullopt; ///< the number is the ID of an object of that kind
};

/// \name The fields that are in force
/// An action's mode, its authentication type and its SA proposal decide which these are, as in the document.
/// @{
std::vector<Field> fieldsOf(const ipsecimpl::HostGroup& group);
std::vector<Field> fieldsOf(const ipsecimpl::ProtocolGroup& group);
std::vector<Field> fieldsOf(const ipsecimpl::IPsecAction& action);
std::vector<Field> fieldsOf(const ipsecimpl::Policy& policy);
/// @}

/// Documents that hold these values in one place are the same there. Selectors are equal with their names alone.
bool isSame(const FieldValue& a, const FieldValue& b);

/// And the fields are the same one.
bool isSame(const Field& a, const Field& b);

/// Such as "ESP, encryption 12, hash 5".
std::string textOf(const ipsecimpl::IPsecProposal& proposal);

/// The selectors of `value` that `other` has not, as edit commands spell them; all of them without `other`. Both must
/// hold selectors of the same kind.
std::vector<std::string> selectorsOnlyIn(const FieldValue& value, const std::optional<FieldValue>& other);

bool holdsSelectors(const FieldValue& value);

#endif
