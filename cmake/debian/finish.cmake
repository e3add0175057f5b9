# What CPack does not know of Debian packages: the field Multi-Arch, that a library's package triggers ldconfig and runs no
# scripts for that, and what a cross-built package depends on.
# The packages that it made are taken apart and put together again.

foreach(package ${CPACK_PACKAGE_FILES})
  get_filename_component(file ${package} NAME)
  string(REGEX REPLACE "_.*" "" name ${file})
  set(tree ${package}.tree)
  file(REMOVE_RECURSE ${tree})
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
  file(READ ${tree}/DEBIAN/control control)
  string(STRIP "${control}" control)
  set(architecture ${CPACK_IPSECIMPL_CROSS_ARCHITECTURE})
  if(architecture)
    string(REGEX REPLACE "(-${architecture}-cross|:${architecture})" "" control "${control}")
    string(REGEX REPLACE "(libstdc\\+\\+6)(,|\n)" "\\1 (>= ${CPACK_IPSECIMPL_CROSS_COMPILER})\\2" control "${control}")
  endif()
  file(WRITE ${tree}/DEBIAN/control "${control}\nMulti-Arch: ${CPACK_IPSECIMPL_MULTI_ARCH_${name}}\n")
  if(EXISTS ${tree}/DEBIAN/shlibs)
    file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
    file(WRITE ${tree}/DEBIAN/triggers "activate-noawait ldconfig\n")
  endif()
  execute_process(COMMAND dpkg-deb --root-owner-group -Zxz --build ${tree} ${package}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${tree})
endforeach()
