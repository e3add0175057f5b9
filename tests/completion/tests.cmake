# The completion scripts in the shells that they are for, at a terminal.
if(IPSECIMPL_BUILD_TOOLS)
  ipsecimpl_runnable(policy_program ipsec-policy)
  foreach(shell bash fish zsh)
    add_test(NAME completion_in_${shell}
      COMMAND completion/run ${shell} ${policy_program} ${PROJECT_SOURCE_DIR}/tools/completion
      WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    set_tests_properties(completion_in_${shell} PROPERTIES SKIP_RETURN_CODE 77)
  endforeach()
endif()
