#ifndef IPSEC_POLICY_EDIT_COMMANDS_H
#define IPSEC_POLICY_EDIT_COMMANDS_H

#include "command_words.h"
#include "edit_remarks.h"
#include "edited_config.h"
#include "secrets.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Carries out edit commands (docs/edit.md).
class Editor {
  public:
    /// `cascade`: what is removed takes the policies that use it along. What is referred to must outlive the editor.
    Editor(EditedConfig& config, Secrets& secrets, bool cascade)
        : config_(config)
        , secrets_(secrets)
        , cascade_(cascade)
    {
    }

    /// Carries out the command in the next line; an empty line and a comment are none. Throws a Failure, or what the
    /// library refuses; the configuration is then of no use any more.
    void execute(std::string_view line);

    /// What was done beyond what the commands say, in lines that are fit for a terminal.
    const std::string& report() const { return report_; }

    /// What a command has set that `check` would find something in, in lines that begin with the number of the
    /// command's line and are fit for a terminal.
    std::vector<std::string> remarks() const { return remarks_.all(config_); }

  private:
    void add(CommandWords& words);
    void addBuiltIn(CommandWords& words);
    void replace(CommandWords& words);
    void set(CommandWords& words);
    void setNextID(Kind kind, CommandWords& words);
    void remove(CommandWords& words);
    void removeUsers(const std::string& sentence, const std::vector<unsigned int>& users);
    void changeSelectors(CommandWords& words, bool isAdded);

    unsigned int      takeObject(Kind kind, CommandWords& words) const;
    ipsecimpl::Policy takePolicy(CommandWords& words) const;

    template <class Object>
    void remark(unsigned int id, const Object& object, const GivenFields& fields, bool isNamed);

    EditedConfig& config_;
    Secrets&      secrets_;
    bool          cascade_;
    std::size_t   line_ = 0; // of the command, counted from 1
    std::string   report_;
    Remarks       remarks_;
};

#endif
