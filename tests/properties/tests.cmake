ipsecimpl_test(test_properties
  properties/random_model.cpp
  properties/round_trip.cpp
  properties/selector_order.cpp
  support/contents.cpp
  ${PROJECT_SOURCE_DIR}/bench/generator.cpp)
target_include_directories(test_properties PRIVATE ${PROJECT_SOURCE_DIR}/bench)
