ipsecimpl_test(test_xml
  xml/parse_error.cpp
  xml/tags.cpp
  xml/writing.cpp
  xml/writing_lengths.cpp
  xml/xml_parser_attributes.cpp
  xml/xml_parser_bytes.cpp
  xml/xml_parser_content.cpp
  xml/xml_parser_entities.cpp
  xml/xml_parser_masks.cpp
  xml/xml_parser_names.cpp
  xml/xml_parser_states.cpp
  xml/xml_parser_streams.cpp
  xml/xml_parser_tags.cpp)

# A program of its own: what is internal is not exported by the library, so that it is compiled in. Other folders add theirs.
ipsecimpl_test(test_inside
  xml/character.cpp
  xml/number_libc.cpp
  xml/number.cpp
  xml/short_bytes.cpp
  xml/written_form.cpp
  ${PROJECT_SOURCE_DIR}/src/xml/number.cpp)
target_include_directories(test_inside PRIVATE ${PROJECT_SOURCE_DIR}/src)
