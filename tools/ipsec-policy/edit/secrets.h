#ifndef IPSEC_POLICY_SECRETS_H
#define IPSEC_POLICY_SECRETS_H

#include <string>
#include <string_view>

/// Where the keys of edit commands come from. No message of it tells anything of a key.
class Secrets {
  public:
    /// Standard input may hold a key unless it holds something else already.
    explicit Secrets(bool inputIsTaken)
        : inputIsTaken_(inputIsTaken)
    {
    }

    /// What `value`, as it was spelt in a command, stands for: the text of a file, what is asked for on the terminal,
    /// or the value itself. `field`, such as "ikePhase1/presharedKey", and `owner`, such as "action 'x'", tell the
    /// operator what to type, and are fit for a terminal.
    ///
    /// Throws a Failure if the file cannot be read or is empty, or there is no terminal.
    std::string read(std::string_view value, const std::string& field, const std::string& owner);

  private:
    std::string fromFile(const std::string& fileName, const std::string& field);

    bool inputIsTaken_;
};

/// Asks on the controlling terminal, which does not show what is typed. The terminal gets its settings back whatever
/// happens, signals included. Throws a Failure if there is no terminal, or its input ends.
std::string promptedSecret(const std::string& prompt);

#endif
