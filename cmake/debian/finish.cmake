# What CPack does not know of Debian packages: the field Multi-Arch, and that a library's package triggers ldconfig and runs
# no scripts for that. The packages that it made are taken apart and put together again.

foreach(package ${CPACK_PACKAGE_FILES})
  get_filename_component(file ${package} NAME)
  string(REGEX REPLACE "_.*" "" name ${file})
  set(tree ${package}.tree)
  file(REMOVE_RECURSE ${tree})
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
  file(READ ${tree}/DEBIAN/control control)
  string(STRIP "${control}" control)
  file(WRITE ${tree}/DEBIAN/control "${control}\nMulti-Arch: ${CPACK_IPSECIMPL_MULTI_ARCH_${name}}\n")
  if(EXISTS ${tree}/DEBIAN/shlibs)
    file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
    file(WRITE ${tree}/DEBIAN/triggers "activate-noawait ldconfig\n")
  endif()
  execute_process(COMMAND dpkg-deb --root-owner-group -Zxz --build ${tree} ${package}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${tree})
endforeach()
