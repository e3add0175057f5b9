# Runs an example program and compares all that it says, and its exit status. PROGRAM is the program; files go to the
# working directory. CXX_FLAGS are those that it was compiled with.

set(configs ${CMAKE_CURRENT_LIST_DIR}/../configs)

function(expect_equal what actual expected)
  if(NOT "${actual}" STREQUAL "${expected}")
    message(SEND_ERROR "${case}: ${what} is\n${actual}\nnot\n${expected}")
  endif()
endfunction()

# Runs PROGRAM with the remaining arguments; if `input` is set, that file is its standard input. Leaves its standard output in
# `stored` for the checks that follow.
function(expect case status errors)
  set(redirection)
  if(input)
    set(redirection INPUT_FILE ${input})
  endif()
  execute_process(COMMAND ${PROGRAM} ${ARGN} ${redirection} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE error)
  expect_equal("exit status" "${result}" "${status}")
  expect_equal("standard error" "${error}" "${errors}")
  set(case "${case}" PARENT_SCOPE)
  set(stored "${output}" PARENT_SCOPE)
endfunction()
