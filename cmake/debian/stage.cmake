# What CPack does not do with the files of Debian packages before it puts them in: manual pages are compressed, and programs
# and libraries lose the notes of the compiler.

file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/*.[1-9])
foreach(page ${pages})
  execute_process(COMMAND gzip -9nf ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

file(GLOB_RECURSE binaries ${CPACK_TEMPORARY_DIRECTORY}/*/usr/bin/* ${CPACK_TEMPORARY_DIRECTORY}/*/usr/lib/*.so.*.*)
foreach(binary ${binaries})
  execute_process(COMMAND ${CPACK_IPSECIMPL_STRIP} --remove-section=.comment ${binary} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
