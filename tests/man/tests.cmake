# The manual pages: they are what they are said to be made from, and no formatter finds fault with them.

set(man_dir ${PROJECT_SOURCE_DIR}/man)

ipsecimpl_test(test_man man/words.cpp)
target_compile_definitions(test_man PRIVATE MAN_DIR="${man_dir}")

foreach(page ipsec-policy.1 ipsec-policy-config.5 libipsecimpl.3)
  add_test(NAME lint_of_${page} COMMAND man/lint ${man_dir}/${page} WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  set_tests_properties(lint_of_${page} PROPERTIES SKIP_RETURN_CODE 77)
endforeach()

if(IPSECIMPL_BUILD_TOOLS)
  ipsecimpl_runnable(policy_program ipsec-policy)
  add_test(NAME man_page_of_help
    COMMAND man/of_help ${PROJECT_SOURCE_DIR}/scripts/man ${policy_program} ${man_dir}/ipsec-policy.1
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
endif()
