# The programs in the README and in the manual page of the library compile as printed, and do what is said of them.
if(IPSECIMPL_BUILD_TOOLS)
  ipsecimpl_runnable(policy_program ipsec-policy)

  # ipsecimpl_document_program(NAME TEXT): the program with that text, and its test, the script of that name
  function(ipsecimpl_document_program name text)
    file(CONFIGURE OUTPUT ${name}.cpp CONTENT "${text}" @ONLY)
    add_executable(${name} ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    ipsecimpl_target(${name})
    target_link_libraries(${name} PRIVATE ipsecimpl::ipsecimpl)
    ipsecimpl_runnable(program ${name})
    add_test(NAME ${name} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/docs/${name} ${program} ${policy_program})
  endfunction()

  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/man/libipsecimpl.3)

  file(READ ${PROJECT_SOURCE_DIR}/README.md readme)
  string(REGEX MATCH "```cpp\n([^`]*)```" found "${readme}")
  if(NOT found)
    message(FATAL_ERROR "README.md holds no program")
  endif()
  ipsecimpl_document_program(readme_program "${CMAKE_MATCH_1}")

  file(READ ${PROJECT_SOURCE_DIR}/man/libipsecimpl.3 page)
  string(REGEX MATCH "\n.Sh EXAMPLES.*\n.Bd -literal\n(.*)\n.Ed\n" found "${page}")
  if(NOT found)
    message(FATAL_ERROR "man/libipsecimpl.3 holds no program")
  endif()
  string(REPLACE "\\e" "\\" program "${CMAKE_MATCH_1}\n")
  string(REPLACE "\\-" "-" program "${program}")
  string(REPLACE "\\(aq" "'" program "${program}")
  ipsecimpl_document_program(man_program "${program}")
endif()

# What the documents show is what happens.
if(IPSECIMPL_BUILD_TOOLS AND IPSECIMPL_RELEASE_TESTS)
  set(documents guide.md getting-started.md check.md completion.md diff.md show.md)
  list(TRANSFORM documents PREPEND ${PROJECT_SOURCE_DIR}/docs/)
  add_test(NAME samples_in_documents
    COMMAND docs/samples ${CMAKE_CXX_COMPILER}
      "-I${PROJECT_SOURCE_DIR}/include -I${PROJECT_BINARY_DIR}/include -L${PROJECT_BINARY_DIR} -lipsecimpl"
      ${PROJECT_BINARY_DIR} $<TARGET_FILE_DIR:ipsec-policy>
      ${PROJECT_SOURCE_DIR}/README.md ${documents}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
endif()

# What the headers' comments say: something of every name, and the words of the enumerations and tags.
if(IPSECIMPL_RELEASE_TESTS)
  find_program(DOXYGEN doxygen)
  mark_as_advanced(DOXYGEN)
  if(DOXYGEN)
    add_test(NAME reference_is_complete
      COMMAND ${PROJECT_SOURCE_DIR}/scripts/reference ${CMAKE_CURRENT_BINARY_DIR}/reference)
  else()
    message(STATUS "doxygen is not there: the reference is not tested")
  endif()
  add_test(NAME words_in_comments_are_those_of_the_library
    COMMAND docs/words ${CMAKE_CXX_COMPILER}
      "-I${PROJECT_SOURCE_DIR}/include -I${PROJECT_BINARY_DIR}/include -L${PROJECT_BINARY_DIR} -lipsecimpl"
      ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR}/include/ipsecimpl
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
endif()
