# The promise to programs that are linked already.

if(BUILD_SHARED_LIBS)
  add_test(NAME exported_symbols
    COMMAND abi/exported_symbols $<TARGET_FILE:ipsecimpl> abi/exported_symbols.txt ${CMAKE_NM}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
endif()
if(IPSECIMPL_RELEASE_TESTS AND CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_test(NAME binary_interface
    COMMAND abi/compare $<TARGET_FILE:ipsecimpl> abi/x86_64.abi.xz
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
endif()
