ipsecimpl_test(test_xml
  xml/number_libc.cpp
  xml/number.cpp
  xml/parse_error.cpp
  xml/tags.cpp
  xml/writing.cpp
  xml/xml_parser_attributes.cpp
  xml/xml_parser_bytes.cpp
  xml/xml_parser_content.cpp
  xml/xml_parser_entities.cpp
  xml/xml_parser_masks.cpp
  xml/xml_parser_names.cpp
  xml/xml_parser_streams.cpp
  xml/xml_parser_tags.cpp
  ${PROJECT_SOURCE_DIR}/src/xml/number.cpp) # internal, so the library does not export it
target_include_directories(test_xml PRIVATE ${PROJECT_SOURCE_DIR}/src)
