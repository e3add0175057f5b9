# Debian packages, by `cpack -G DEB` in a build that is made for /usr (the preset "debian"); scripts/debs builds and tries
# them. The install components library, development, tools and documentation are one package each.

set(packaging ${CMAKE_CURRENT_LIST_DIR}/debian)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ipsecimpl)
set(CPACK_PACKAGE_VENDOR "The ipsecimpl authors")
set(CPACK_PACKAGE_CONTACT "The ipsecimpl authors <ipsecimpl@ipsecimpl.example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake") # its default: each package has its own
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library development tools documentation)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# Where dpkg-shlibdeps finds the library itself; what it is called there, no package can tell it yet.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR})
if(CMAKE_CROSSCOMPILING)
  execute_process(COMMAND dpkg-architecture -t ${CMAKE_LIBRARY_ARCHITECTURE} -q DEB_HOST_ARCH
    OUTPUT_VARIABLE CPACK_DEBIAN_PACKAGE_ARCHITECTURE OUTPUT_STRIP_TRAILING_WHITESPACE)
  # Where the cross compiler's libraries are, for dpkg-shlibdeps. It finds them in packages of the machine that builds, which
  # finish.cmake replaces by those of the target; of the C++ library they do not know how new it has to be.
  list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS /usr/${CMAKE_LIBRARY_ARCHITECTURE}/lib)
  set(CPACK_IPSECIMPL_CROSS_ARCHITECTURE ${CPACK_DEBIAN_PACKAGE_ARCHITECTURE})
  string(REGEX MATCH "^[0-9]+" CPACK_IPSECIMPL_CROSS_COMPILER ${CMAKE_CXX_COMPILER_VERSION})
endif()

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(${packaging}/changelog.in debian/changelog @ONLY)
execute_process(COMMAND gzip -9nf ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog)

# The reference is part of the documents if doxygen is there to make it.
find_program(DOXYGEN doxygen)
mark_as_advanced(DOXYGEN)
if(DOXYGEN)
  set(reference ${CMAKE_CURRENT_BINARY_DIR}/reference)
  file(GLOB sources CONFIGURE_DEPENDS include/ipsecimpl/* docs/Doxyfile docs/doxygen.sed docs/reference.md
    scripts/reference)
  add_custom_command(OUTPUT ${reference}/html/index.html
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/reference ${reference}
    DEPENDS ${sources} VERBATIM)
  add_custom_target(reference ALL DEPENDS ${reference}/html/index.html)
  install(DIRECTORY ${reference}/html
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/ipsecimpl-doc COMPONENT documentation)
  install(FILES ${packaging}/ipsecimpl-doc.doc-base RENAME ipsecimpl-doc
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc-base COMPONENT documentation)
endif()

# ipsecimpl_package(COMPONENT NAME MULTI_ARCH SECTION DEPENDS SUMMARY TEXT): what a package says of itself
macro(ipsecimpl_package component name multi_arch section depends summary text)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${depends}")
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${text}")
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n${text}")
  set(CPACK_IPSECIMPL_MULTI_ARCH_${name} ${multi_arch})
  install(FILES ${packaging}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endmacro()

set(about "Holds the IPsec security-policy configuration of a network node, keeps
the rules between its settings while they are edited, and reads and writes
it as one XML document.")
ipsecimpl_package(library libipsecimpl1 same libs ""
  "IPsec security policies as an object model and an XML document" "${about}
This package has the shared library.")
ipsecimpl_package(development libipsecimpl-dev same libdevel "libipsecimpl1 (= ${PROJECT_VERSION})"
  "IPsec security policies as an object model (development files)" "${about}
This package has the headers, and what CMake and pkg-config need to find
the library.")
ipsecimpl_package(tools ipsecimpl-tools foreign net "libipsecimpl1 (>= ${PROJECT_VERSION})"
  "program that shows, checks, edits and compares IPsec security policies"
  "The program ipsec-policy shows an IPsec security-policy configuration in
tables, finds what is wrong or weak in it, edits it all or nothing, and
tells what is different in another one. It talks to no kernel and no daemon.")
ipsecimpl_package(documentation ipsecimpl-doc foreign doc ""
  "IPsec security policies as an object model (documents)"
  "The documents of the library libipsecimpl and of the program ipsec-policy,
the reference of all public names, and programs that show how the library
is used.")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SHLIBDEPS OFF)

set(CPACK_IPSECIMPL_STRIP ${CMAKE_STRIP})
set(CPACK_PRE_BUILD_SCRIPTS ${packaging}/stage.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${packaging}/finish.cmake)

include(CPack)
