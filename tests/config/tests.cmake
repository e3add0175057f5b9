ipsecimpl_test(test_config config/policy.cpp config/indexed_collection.cpp config/ipsec_config.cpp config/samples.cpp
  config/written_form.cpp)
