# Every public header compiles alone, and twice in one unit.
set(units)
foreach(header actions config enums export ipsecimpl selectors version xml)
  set(unit ${CMAKE_CURRENT_BINARY_DIR}/header_${header}.cpp)
  file(CONFIGURE OUTPUT ${unit}
    CONTENT "#include <ipsecimpl/${header}.h>\n#include <ipsecimpl/${header}.h>\n")
  list(APPEND units ${unit})
endforeach()
add_library(headers_alone OBJECT ${units})
ipsecimpl_target(headers_alone)
target_link_libraries(headers_alone PRIVATE ipsecimpl::ipsecimpl)
