include(${CMAKE_CURRENT_LIST_DIR}/expect.cmake)

expect("a document that loads" 0 "" ${configs}/server-farm.xml)
expect_equal("standard output" "${stored}" "${configs}/server-farm.xml: loads\n")

# expect_report(CASE FROM TO REPORT): of the sample with FROM replaced by TO
function(expect_report case from to report)
  file(READ ${configs}/home-router.xml text)
  string(REPLACE "${from}" "${to}" text "${text}")
  file(WRITE damaged.xml "${text}")
  expect("${case}" 1 "damaged.xml:${report}\n" damaged.xml)
endfunction()

expect_report("a wrong tag" "<hostGroups>" "<hostGroup>" "\
2:10: parse_simple_tag: wrong tag; expected <hostGroups>, found <hostGroup>
from <hostGroup>
from <ipsec>")
expect_report("a wrong end tag" "</hostGroups>" "</protocolGroups>" "79:17: parse_end_tag: begin/end tags don't match
from <hostGroups>
from <ipsec>")
expect_report("a wrong word" "<spdAction>DISCARD" "<spdAction>DROP" "182:27: bad value 'DROP' for <spdAction> in <action>")
expect_report("a file that ends early" "</ipsec>" "" "313:0: parse_end_tag: expected '<', got '\\xff'\nfrom <ipsec>")

expect("a missing file" 2 "missing.xml: No such file or directory\n" missing.xml)
if(CXX_FLAGS MATCHES "-stdlib=libc\\+\\+") # its file buffer takes a read error for the end of the file
  expect("a directory" 1 ".:1:0: parse_tag: expected '<', found '\\xff'\n" .)
else()
  expect("a directory" 2 ".: cannot be read\n" .)
endif()
expect("no argument" 2 "usage: report_error CONFIG\n")
