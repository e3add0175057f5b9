include(${CMAKE_CURRENT_LIST_DIR}/expect.cmake)

set(config ${configs}/home-router.xml)
set(said "\
action 1 stays 'Discard': cannot change name of a built-in object
action 2 stays 'Bypass': cannot change name of a built-in object
action 5 'Cottage tunnel': forward secrecy turned on
policy 9 added
")

# The document in `file` is the sample with the changes in edit_config.diff, and no others.
function(expect_edited file)
  execute_process(COMMAND diff ${config} ${file} OUTPUT_VARIABLE changes ERROR_VARIABLE error)
  file(READ ${CMAKE_CURRENT_LIST_DIR}/edit_config.diff expected)
  expect_equal("difference to the sample" "${changes}${error}" "${expected}")
endfunction()

expect("to standard output" 0 "${said}" ${config})
file(WRITE stored.xml "${stored}")
expect_edited(stored.xml)

file(REMOVE stored.xml)
expect("to a file" 0 "${said}" ${config} stored.xml)
expect_equal("standard output" "${stored}" "")
expect_edited(stored.xml)

file(WRITE broken.xml "<ipsec>\n<hostGroups>\n</protocolGroups>\n</ipsec>\n")
expect("a document that does not load" 1
  "broken.xml: does not load\n" broken.xml)

file(READ ${config} broken)
string(REPLACE "<presharedKey>" "<presharedKey" broken "${broken}")
file(WRITE broken.xml "${broken}")
expect("a key that is taken for a tag" 1 "broken.xml: does not load\n" broken.xml)

file(READ ${config} full)
string(REPLACE "<id>6</id>" "<id>2147483647</id>" full "${full}")
file(WRITE full.xml "${full}")
expect("a document without room for another host group" 1 "full.xml: no ID left for hostGroup\n" full.xml)
expect_equal("standard output" "${stored}" "")

set(usage "usage: edit_config CONFIG [OUTPUT]\n")
expect("no argument" 2 "${usage}")
expect("too many arguments" 2 "${usage}" ${config} stored.xml again)

expect("the help" 0 "" --help)
expect_equal("standard output" "${stored}" "${usage}")

expect("a missing file" 2 "missing.xml: No such file or directory\n" missing.xml)
if(CXX_FLAGS MATCHES "-stdlib=libc\\+\\+") # its file buffer takes a read error for the end of the file
  expect("a directory" 1 ".: does not load\n" .)
else()
  expect("a directory" 2 ".: cannot be read\n" .)
endif()
# Nothing is said to be done that is not stored.
expect("an output in a missing folder" 2 "missing/stored.xml: No such file or directory\n" ${config} missing/stored.xml)
expect("a full disk" 2 "/dev/full: cannot be written\n" ${config} /dev/full)
