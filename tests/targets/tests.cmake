# What documents come to must be the same on every target: kept in golden/, and printed by a program to be compared.
set(outcomes
  targets/damage.cpp
  targets/outcome.cpp
  targets/samples.cpp
  ${PROJECT_SOURCE_DIR}/bench/generator.cpp)

ipsecimpl_test(test_targets targets/outcomes_test.cpp support/golden.cpp ${outcomes})
target_include_directories(test_targets PRIVATE ${PROJECT_SOURCE_DIR}/bench)
target_compile_definitions(test_targets PRIVATE
  CORPUS_DIR="${CMAKE_CURRENT_SOURCE_DIR}/corpus"
  GOLDEN_DIR="${CMAKE_CURRENT_SOURCE_DIR}/targets/golden")

add_executable(target_outcomes targets/print_outcomes.cpp ${outcomes})
ipsecimpl_target(target_outcomes)
target_include_directories(target_outcomes PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/bench)
target_link_libraries(target_outcomes PRIVATE ipsecimpl::ipsecimpl)
target_compile_definitions(target_outcomes PRIVATE
  CORPUS_DIR="${CMAKE_CURRENT_SOURCE_DIR}/corpus"
  EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples")
ipsecimpl_runnable(target_outcomes_program target_outcomes)
