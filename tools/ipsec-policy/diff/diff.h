#ifndef IPSEC_POLICY_DIFF_H
#define IPSEC_POLICY_DIFF_H

/// \file
/// What differs between two configurations, by object and field, and the ways to tell it.

#include "fields.h"
#include "objects.h"

#include <ipsecimpl/config.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct DiffOptions {
    bool showKeys     = false; ///< tell keys, pre-shared keys and IVs too, not only that they differ
    bool changeCounts = false; ///< compare the actions' change counters too
};

enum class Change { ADDED, REMOVED, CHANGED };

/// A field that one of the two objects lacks, or that holds something else. One side has a value at least.
struct FieldDifference {
    const char*               path;
    bool                      isSecret;
    std::optional<Kind>       refersTo;
    std::optional<FieldValue> before;
    std::optional<FieldValue> after;
};

/// An object that one of the two configurations lacks (then its fields are all there are), or that has changed.
struct ObjectDifference {
    Kind                         kind;
    unsigned int                 id;
    Change                       change;
    std::vector<FieldDifference> fields;
};

struct CollectionDifference {
    std::vector<ObjectDifference>                        objects; ///< in ascending order of their IDs
    std::optional<std::pair<unsigned int, unsigned int>> nextID;  ///< before and after
};

/// All of it. The values stand in the two configurations, which must outlive it.
struct Difference {
    const ipsecimpl::IPsecConfig& before;
    const ipsecimpl::IPsecConfig& after;
    bool                          showKeys;

    std::array<CollectionDifference, ALL_KINDS.size()> collections; ///< one for each of ALL_KINDS

    bool empty() const;
};

/// Objects are the same one if they have the same ID. The time it takes grows with the sizes of the two.
Difference difference(const ipsecimpl::IPsecConfig& before, const ipsecimpl::IPsecConfig& after,
                      const DiffOptions& options);

/// What `id` refers to, such as "2 'Tunnel'", "7 (missing)" or "0 (none)".
std::string textOfReference(const ipsecimpl::IPsecConfig& config, Kind kind, unsigned int id);

/// For people: lines that fit the output's width, in colours where it has them. Empty if nothing differs.
std::string textOf(const Difference& difference);

/// In JSON, as docs/diff.md tells.
std::string jsonOf(const Difference& difference);

/// Edit commands that turn the first configuration into the second, all but the change counters. Empty if nothing
/// differs.
///
/// Where a key is not to be shown, the command asks for it. Throws a Failure for what no command can bring about; it
/// calls the second document `afterName`.
std::string scriptOf(const Difference& difference, const std::string& afterName);

/// The difference for people.
std::string diffText(const ipsecimpl::IPsecConfig& before, const ipsecimpl::IPsecConfig& after,
                     const DiffOptions& options);

#endif
