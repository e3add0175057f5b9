#ifndef IPSEC_POLICY_EDIT_REMARKS_H
#define IPSEC_POLICY_EDIT_REMARKS_H

#include "edited_config.h"
#include "findings.h"

#include <ipsecimpl/config.h>

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct Reference;

/// What edit commands set although `check` would find something in it: the library takes it, so the operator gets it,
/// but is told. Only what a command itself says is looked at; whether it goes together with the rest is for `check` to
/// tell.
class Remarks {
  public:
    /// Whether a command has given the field of that path, such as "descr" or "selectors".
    using IsGiven = std::function<bool(std::string_view path)>;

    /// Looks at what the command in line `line` has given an object.
    /// @{
    void add(std::size_t line, unsigned int id, const ipsecimpl::HostGroup& group, const IsGiven& isGiven);
    void add(std::size_t line, unsigned int id, const ipsecimpl::ProtocolGroup& group, const IsGiven& isGiven);
    void add(std::size_t line, unsigned int id, const ipsecimpl::IPsecAction& action, const IsGiven& isGiven);
    void add(std::size_t line, unsigned int id, const ipsecimpl::Policy& policy, const IsGiven& isGiven);
    /// @}

    /// All of it: lines such as "3: taken as it is: 10.2.0.5 has bits beyond ... [host-bits-set]", in the order of the
    /// commands, fit for a terminal. Of a great many the first ones. Names, and what policies name, are held against
    /// what there is in the end.
    std::vector<std::string> all(const EditedConfig& config) const;

  private:
    void keep(std::size_t line, const Findings& findings, const IsGiven& isGiven);
    void keepName(std::size_t line, Kind kind, const std::string& name, const IsGiven& isGiven);

    using Texts = std::multimap<std::size_t, std::string>; // by line

    void addNames(const EditedConfig& config, Texts& texts) const;
    void addReferences(const EditedConfig& config, Texts& texts) const;

    Texts                                                            texts_;
    std::map<std::pair<Kind, std::string>, std::size_t>              names_;      // which line gave it last
    std::map<std::pair<unsigned int, const Reference*>, std::size_t> references_; // of policies, likewise
};

#endif
