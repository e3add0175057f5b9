include(${CMAKE_CURRENT_LIST_DIR}/expect.cmake)

set(networks 10.1.0.0/16 10.2.0.0/16)

file(WRITE key "s3cret Key 42\n")
set(input key)
expect("a tunnel" 0 "" 192.0.2.7 ${networks})
file(WRITE built.xml "${stored}")
execute_process(COMMAND diff ${CMAKE_CURRENT_LIST_DIR}/build_config.xml built.xml OUTPUT_VARIABLE changes ERROR_VARIABLE error)
expect_equal("difference to the expected document" "${changes}${error}" "")

foreach(network "10.2.0.0" "10.2.0.0/" "10.2.0.0/33" "10.2.0.0/-1" "10.2.0.0/8x" "10.2.0.0/08" "10.2.0/16" "2001:db8::/32")
  expect("no network" 2 "build_config: '${network}' is no IPv4 network such as 192.0.2.0/24\n" 192.0.2.7 10.1.0.0/16 ${network})
  expect_equal("standard output" "${stored}" "")
endforeach()

file(WRITE nothing "")
set(input nothing)
expect("no key" 2 "build_config: no pre-shared key on standard input\n" 192.0.2.7 ${networks})
expect("too few arguments" 2 "usage: build_config PEER LOCAL_NET REMOTE_NET < PRESHARED_KEY\n" 192.0.2.7)
