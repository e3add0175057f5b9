# Long sweeps, of which an ordinary run makes a part: see scripts/sweeps.
ipsecimpl_test(test_hostile
  hostile/changed_elements.cpp
  hostile/chunked_load.cpp
  hostile/depth.cpp
  hostile/elements.cpp
  hostile/every_byte.cpp
  hostile/failing_load.cpp
  hostile/failing_store.cpp
  hostile/global_locale.cpp
  hostile/growth_cases.cpp
  hostile/limits.cpp
  hostile/number_fields.cpp
  hostile/small_documents.cpp
  hostile/small_documents_test.cpp
  hostile/stream_settings.cpp
  hostile/truncated_load.cpp
  support/golden.cpp)

# A locale in Latin-1 that groups digits, where the machine has what it is made of.
set(locales ${CMAKE_CURRENT_BINARY_DIR}/locales)
find_program(LOCALEDEF localedef)
if(LOCALEDEF AND NOT EXISTS ${locales}/de_DE.ISO-8859-1)
  file(MAKE_DIRECTORY ${locales})
  execute_process(COMMAND ${LOCALEDEF} -i de_DE -f ISO-8859-1 ${locales}/de_DE.ISO-8859-1 OUTPUT_QUIET ERROR_QUIET)
endif()
target_compile_definitions(test_hostile PRIVATE
  GOLDEN_DIR="${CMAKE_CURRENT_SOURCE_DIR}/hostile/golden"
  LOCALES_DIR="${locales}")

# A program of its own, as it replaces operator new.
ipsecimpl_test(test_growth
  hostile/big_buffers.cpp
  hostile/big_document_test.cpp
  hostile/growth_cases.cpp
  hostile/growth_operations.cpp
  hostile/growth_test.cpp
  ${PROJECT_SOURCE_DIR}/bench/memory/counting_heap.cpp)
target_include_directories(test_growth PRIVATE ${PROJECT_SOURCE_DIR}/bench)

# Programs of scripts/big-document and scripts/growth.
function(ipsecimpl_hostile_program name)
  add_executable(${name} EXCLUDE_FROM_ALL ${ARGN})
  ipsecimpl_target(${name})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ipsecimpl::ipsecimpl)
endfunction()
ipsecimpl_hostile_program(hostile_big_document
  hostile/big_document.cpp hostile/big_buffers.cpp hostile/growth_cases.cpp)
ipsecimpl_hostile_program(hostile_growth
  hostile/growth.cpp hostile/growth_cases.cpp hostile/growth_operations.cpp)
