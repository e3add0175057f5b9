include(${CMAKE_CURRENT_LIST_DIR}/expect.cmake)

expect("policies with names" 0 "" ${configs}/home-router.xml)
expect_equal("standard output" "${stored}" "\
1: Any, System Services: Bypass (BYPASS)
2: Local Subnet, All: Bypass (BYPASS)
4: Office network, All: Office tunnel (TUNNEL to 198.51.100.10)
5: Cottage, All: Cottage tunnel (TUNNEL to 203.0.113.77)
8: Any, Router administration: Discard (DISCARD)
")

file(READ ${configs}/home-router.xml dangling)
string(REPLACE "<actionID>1</actionID>" "<actionID>77</actionID>" dangling "${dangling}")
string(REPLACE "<hostGroupID>3</hostGroupID>" "<hostGroupID>0</hostGroupID>" dangling "${dangling}")
file(WRITE dangling.xml "${dangling}")
expect("policies of what is missing" 0 "" dangling.xml)
expect_equal("standard output" "${stored}" "\
1: Any, System Services: Bypass (BYPASS)
2: Local Subnet, All: Bypass (BYPASS)
4: (missing 0), All: Office tunnel (TUNNEL to 198.51.100.10)
5: Cottage, All: Cottage tunnel (TUNNEL to 203.0.113.77)
8: Any, Router administration: (missing 77)
")

file(WRITE broken.xml "<ipsec>")
expect("a document that does not load" 1 "broken.xml: does not load\n" broken.xml)
expect("a missing file" 2 "missing.xml: No such file or directory\n" missing.xml)
expect("no argument" 2 "usage: load_and_print CONFIG\n")
