ipsecimpl_test(test_properties
  properties/contents.cpp
  properties/random_model.cpp
  properties/round_trip.cpp
  properties/selector_order.cpp
  ${PROJECT_SOURCE_DIR}/bench/generator.cpp)
target_include_directories(test_properties PRIVATE ${PROJECT_SOURCE_DIR}/bench)
