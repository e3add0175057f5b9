# The program in the README compiles as printed, and does what is said of it.
if(IPSECIMPL_BUILD_TOOLS)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/README.md)
  file(READ ${PROJECT_SOURCE_DIR}/README.md readme)
  string(REGEX MATCH "```cpp\n([^`]*)```" found "${readme}")
  if(NOT found)
    message(FATAL_ERROR "README.md holds no program")
  endif()
  file(CONFIGURE OUTPUT readme_program.cpp CONTENT "${CMAKE_MATCH_1}" @ONLY)

  add_executable(readme_program ${CMAKE_CURRENT_BINARY_DIR}/readme_program.cpp)
  ipsecimpl_target(readme_program)
  target_link_libraries(readme_program PRIVATE ipsecimpl::ipsecimpl)
  ipsecimpl_runnable(program readme_program)
  ipsecimpl_runnable(policy_program ipsec-policy)
  add_test(NAME readme_program
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/docs/readme_program ${program} ${policy_program})
endif()
