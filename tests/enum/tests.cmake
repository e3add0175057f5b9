# The first unit is the first to be initialised, ahead of the library where that is an archive.
ipsecimpl_test(test_enum
  enum/initialised_first.cpp
  enum/enum.cpp
  enum/action_enums.cpp
  enum/host_enums.cpp
  enum/protocol_enums.cpp)

target_sources(test_inside PRIVATE
  enum/read_enum.cpp
  ${PROJECT_SOURCE_DIR}/src/enum/read_enum.cpp
  ${PROJECT_SOURCE_DIR}/src/xml/element.cpp
  ${PROJECT_SOURCE_DIR}/src/xml/input.cpp)
