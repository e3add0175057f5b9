#ifndef IPSEC_POLICY_OVERVIEW_H
#define IPSEC_POLICY_OVERVIEW_H

/// \file
/// A configuration as tables.

#include "blocks.h"
#include "lines.h"
#include "objects.h"
#include "references.h"
#include "table.h"

#include <ipsecimpl/config.h>

/// A configuration's sections.
class Overview {
  public:
    /// The configuration must outlive the object, unchanged.
    Overview(const ipsecimpl::IPsecConfig& config, bool showKeys)
        : config_(config)
        , showKeys_(showKeys)
    {
    }

    /// Appends what there is of one kind: how many, and a table of them unless there is none.
    void appendSection(Blocks& out, Kind kind);

  private:
    template <class Groups>
    void appendGroups(Blocks& out, Kind kind, const Table::Column& contents, const Groups& groups);
    void appendActions(Blocks& out);
    void appendPolicies(Blocks& out);

    const ipsecimpl::IPsecConfig& config_;
    const bool                    showKeys_;
    Names                         names_; // of what was shown already: to go through the collections again takes long
};

/// Adds a line: the ID and the name of an object that a policy names, or that it is missing.
void describeReference(const Names& names, Kind kind, unsigned int id, Lines& lines);

/// What tells built-in objects from others.
inline constexpr char BUILT_IN[] = "[built-in]";

/// Whether the group's name or description is one of the library's own, as IPsecAction::isBuiltIn() tells of actions.
template <class Group>
bool isBuiltIn(const Group& group)
{
    return group.builtinName > 0 || group.builtinDescr > 0;
}

inline bool isBuiltIn(const ipsecimpl::IPsecAction& action)
{
    return action.isBuiltIn();
}

#endif
