include(${CMAKE_CURRENT_LIST_DIR}/expect.cmake)

# The file, and what stands beside it: nothing is left of what was not stored.
function(expect_stored text)
  file(READ folder/stored.xml stored)
  expect_equal("file" "${stored}" "${text}")
  file(GLOB names RELATIVE ${CMAKE_CURRENT_BINARY_DIR}/folder folder/*)
  expect_equal("folder" "${names}" "stored.xml")
endfunction()

file(READ ${configs}/home-router.xml config)
file(REMOVE_RECURSE folder)
file(MAKE_DIRECTORY folder)
expect("a new file" 0 "" ${configs}/home-router.xml folder/stored.xml)
expect_stored("${config}")

file(WRITE folder/stored.xml "old")
expect("in place of another" 0 "" ${configs}/home-router.xml folder/stored.xml)
expect_stored("${config}")

file(WRITE folder/stored.xml "old")
file(WRITE broken.xml "<ipsec>")
expect("a document that does not load" 1 "broken.xml: does not load, or would not once it is stored\n" broken.xml folder/stored.xml)
expect_stored("old")

# In an attribute there may be what would be a tag in the document that is stored.
string(REPLACE "<name>Any</name>" "<name value=\"a <b\"/>" unstorable "${config}")
file(WRITE unstorable.xml "${unstorable}")
expect("a name that cannot be stored" 1 "unstorable.xml: does not load, or would not once it is stored\n"
  unstorable.xml folder/stored.xml)
expect_stored("old")

expect("a missing folder" 2 "missing/stored.xml: No such file or directory\n" ${configs}/home-router.xml missing/stored.xml)
expect("a folder in the file's place" 2 "folder: Is a directory\n" ${configs}/home-router.xml folder)
expect("a missing file" 2 "missing.xml: No such file or directory\n" missing.xml folder/stored.xml)
expect("too few arguments" 2 "usage: store_safely CONFIG OUTPUT\n")
expect_stored("old")
