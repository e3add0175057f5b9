#ifndef IPSEC_POLICY_OBJECT_COMMANDS_H
#define IPSEC_POLICY_OBJECT_COMMANDS_H

/// \file
/// Edit commands (docs/edit.md) for a group or an action.

#include "diff.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

/// How commands call an object, such as "host-group 3": by its ID, as its name need not tell it from others.
std::string referenceTo(Kind kind, unsigned int id);

/// Writes commands, a line each.
class ObjectCommands {
  public:
    explicit ObjectCommands(bool showKeys)
        : showKeys_(showKeys)
    {
    }

    /// The commands that make an object with these fields.
    std::string adding(Kind kind, unsigned int id, const std::vector<Field>& fields);

    /// The commands that give an action these fields whatever it is, also where it refuses changes.
    std::string replacing(unsigned int id, const std::vector<Field>& fields);

    /// The commands that change an object's fields.
    std::string changing(const ObjectDifference& object);

    /// How many keys the commands so far ask for, because they are not to be shown.
    std::size_t asked() const { return asked_; }

  private:
    std::string assignment(const Field& field);
    std::string addingBuiltIn(Kind kind, unsigned int id, const char* word, const std::vector<Field>& fields);
    std::string topAssignments(const std::vector<Field>& fields, std::initializer_list<const char*> always);
    std::string settingTheRest(const std::string& reference, const std::vector<Field>& fields);

    bool        showKeys_;
    std::size_t asked_ = 0;
};

#endif
