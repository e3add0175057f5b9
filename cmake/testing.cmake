# GoogleTest, and how tests are run.

include(GoogleTest)
if(IPSECIMPL_GTEST_SOURCE)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${IPSECIMPL_GTEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  foreach(target gtest gtest_main gmock gmock_main)
    target_compile_features(${target} PUBLIC cxx_std_17) # as its users, or its matchers of string views are missing
  endforeach()
else()
  find_package(GTest 1.11 REQUIRED)
endif()

# Headers that take longer to compile than most of the tests that include them, precompiled in an object library that uses
# LIBRARIES. More of them would not make it faster: what their functions instantiate is compiled in each unit again. Without
# them (CMAKE_DISABLE_PRECOMPILE_HEADERS=ON, as in the preset "clang") a missing include shows.
function(ipsecimpl_precompiled_headers name)
  set(unit ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${unit} CONTENT "// Nothing but the precompiled headers.\n")
  add_library(${name} OBJECT EXCLUDE_FROM_ALL ${unit})
  ipsecimpl_target(${name})
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gmock)
  target_precompile_headers(${name} PRIVATE
    <gmock/gmock.h> <gtest/gtest.h> <ipsecimpl/ipsecimpl.h>
    <algorithm> <filesystem> <fstream> <functional> <sstream> <string> <vector>)
endfunction()

# A test for each one in the program, which is also its prefix if one is given. Where programs take long to start, the
# whole program is one test, or one for each of the SHARDS of a long one, which can run beside each other.
function(ipsecimpl_discover_tests name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "SHARDS" "")
  if(NOT IPSECIMPL_WHOLE_TESTS AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
    gtest_discover_tests(${name} ${arg_UNPARSED_ARGUMENTS} DISCOVERY_TIMEOUT 60)
  elseif(NOT arg_SHARDS)
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  else()
    math(EXPR last "${arg_SHARDS} - 1")
    foreach(shard RANGE ${last})
      add_test(NAME ${name}_${shard} COMMAND ${name} --gtest_brief=1)
      set_tests_properties(${name}_${shard} PROPERTIES
        ENVIRONMENT "GTEST_TOTAL_SHARDS=${arg_SHARDS};GTEST_SHARD_INDEX=${shard}")
    endforeach()
  endif()
endfunction()

# Where the machine that builds cannot run what it builds, tests run it through CMAKE_CROSSCOMPILING_EMULATOR. A program
# that a script or another program starts is given as a wrapper, whose path is left in `variable`.
function(ipsecimpl_runnable variable target)
  set(path $<TARGET_FILE:${target}>)
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    set(wrapper ${CMAKE_CURRENT_BINARY_DIR}/run_${target})
    list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " emulator)
    get_property(known DIRECTORY PROPERTY ipsecimpl_wrappers)
    if(NOT wrapper IN_LIST known)
      set_property(DIRECTORY APPEND PROPERTY ipsecimpl_wrappers ${wrapper})
      file(GENERATE OUTPUT ${wrapper} CONTENT "#!/bin/sh\nexec ${emulator} ${path} \"$@\"\n"
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    endif()
    set(path ${wrapper})
  endif()
  set(${variable} ${path} PARENT_SCOPE)
endfunction()
