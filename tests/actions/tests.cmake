ipsecimpl_test(test_actions
  actions/builtin_actions.cpp
  actions/ike_phase1_proposal.cpp
  actions/ike_phase1.cpp
  actions/ike_phase2.cpp
  actions/invalid_operation.cpp
  actions/ipsec_action_count.cpp
  actions/ipsec_action_document.cpp
  actions/ipsec_action_refused.cpp
  actions/ipsec_action_rules.cpp
  actions/ipsec_action_value.cpp
  actions/ipsec_proposal.cpp
  actions/mkm.cpp)

# A program of its own: what it checks depends on how often the process has asked for the default proposal.
ipsecimpl_test(test_default_proposal
  actions/ike_phase1_proposal_default.cpp)
