# GoogleTest, and how tests are run.

include(GoogleTest)
if(IPSECIMPL_GTEST_SOURCE)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${IPSECIMPL_GTEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
else()
  find_package(GTest 1.11 REQUIRED)
endif()

# A test for each one in the program, which is also its prefix if one is given. An emulator takes long to start: there the
# whole program is one test.
function(ipsecimpl_discover_tests name)
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  else()
    gtest_discover_tests(${name} ${ARGN} DISCOVERY_TIMEOUT 60)
  endif()
endfunction()

# Where the machine that builds cannot run what it builds, tests run it through CMAKE_CROSSCOMPILING_EMULATOR. A program
# that a script or another program starts is given as a wrapper, whose path is left in `variable`.
function(ipsecimpl_runnable variable target)
  set(path $<TARGET_FILE:${target}>)
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    set(wrapper ${CMAKE_CURRENT_BINARY_DIR}/run_${target})
    list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " emulator)
    file(GENERATE OUTPUT ${wrapper} CONTENT "#!/bin/sh\nexec ${emulator} ${path} \"$@\"\n"
      FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    set(path ${wrapper})
  endif()
  set(${variable} ${path} PARENT_SCOPE)
endfunction()
