ipsecimpl_test(test_fuzz fuzz/dictionary.cpp fuzz/document_mutator.cpp fuzz/elements.cpp fuzz/texts.cpp)
target_link_libraries(test_fuzz PRIVATE fuzz_support)
target_compile_definitions(test_fuzz PRIVATE DICTIONARY="${PROJECT_SOURCE_DIR}/fuzz/ipsec.dict")
