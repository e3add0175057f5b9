# A program of its own, as it replaces operator new.
ipsecimpl_test(test_faults
  faults/action_operations.cpp
  faults/config_operations.cpp
  faults/enum_operations.cpp
  faults/every_operation.cpp
  faults/failing_new.cpp
  faults/failing_new_test.cpp
  faults/first_calls.cpp
  faults/group_operations.cpp
  faults/keying_operations.cpp
  faults/objects.cpp
  faults/proportion.cpp
  faults/public_operations.cpp
  faults/public_operations_test.cpp
  faults/samples.cpp
  faults/selector_operations.cpp
  faults/xml_operations.cpp
  support/contents.cpp)
target_compile_definitions(test_faults PRIVATE HEADERS_DIR="${PROJECT_SOURCE_DIR}/include")
