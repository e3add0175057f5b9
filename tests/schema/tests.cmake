# The schemas, held against the reader and the writer. xmllint validates; what trang would make is compared where it is.
find_program(XMLLINT xmllint)
mark_as_advanced(XMLLINT)
if(XMLLINT)
  ipsecimpl_test(test_schema
    schema/conditions.cpp
    schema/documents.cpp
    schema/format_page.cpp
    schema/random_models.cpp
    schema/refused_by_both.cpp
    schema/rules_test.cpp
    schema/taken_by_reader.cpp
    schema/taken_by_schema.cpp
    schema/validator.cpp
    schema/values.cpp
    properties/random_model.cpp
    ${PROJECT_SOURCE_DIR}/bench/generator.cpp)
  target_include_directories(test_schema PRIVATE ${PROJECT_SOURCE_DIR}/bench)
  target_compile_definitions(test_schema PRIVATE
    XMLLINT="${XMLLINT}"
    SCHEMA_DIR="${PROJECT_SOURCE_DIR}/schema"
    DOCS_DIR="${PROJECT_SOURCE_DIR}/docs"
    CORPUS_DIR="${CMAKE_CURRENT_SOURCE_DIR}/corpus")

  if(TARGET ipsec-policy)
    ipsecimpl_runnable(policy_program ipsec-policy)
    add_test(NAME formatted_documents_are_valid
      COMMAND schema/formatted_documents ${policy_program} ${XMLLINT} ${PROJECT_SOURCE_DIR}
      WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  endif()
else()
  message(STATUS "xmllint is not there: the schemas are not tested")
endif()

find_program(TRANG trang)
find_program(JING jing)
mark_as_advanced(TRANG JING)
if(TRANG AND JING)
  add_test(NAME schemas_are_made_from_their_source COMMAND ${PROJECT_SOURCE_DIR}/scripts/schema --check)
endif()
