# Long sweeps, of which an ordinary run makes a part: see scripts/sweeps.
ipsecimpl_test(test_hostile
  hostile/changed_elements.cpp
  hostile/chunked_load.cpp
  hostile/elements.cpp
  hostile/every_byte.cpp
  hostile/failing_load.cpp
  hostile/failing_store.cpp
  hostile/number_fields.cpp
  hostile/small_documents.cpp
  hostile/small_documents_test.cpp
  hostile/truncated_load.cpp
  support/golden.cpp)
target_compile_definitions(test_hostile PRIVATE GOLDEN_DIR="${CMAKE_CURRENT_SOURCE_DIR}/hostile/golden")

# A program of its own, as it replaces operator new.
ipsecimpl_test(test_growth
  hostile/growth_cases.cpp
  hostile/growth_test.cpp
  ${PROJECT_SOURCE_DIR}/bench/memory/counting_heap.cpp)
target_include_directories(test_growth PRIVATE ${PROJECT_SOURCE_DIR}/bench)
