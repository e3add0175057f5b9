# 32-bit x86 by clang, with the libraries of Debian's g++-i686-linux-gnu. Clang's libFuzzer and sanitizers come for it too.

include(${CMAKE_CURRENT_LIST_DIR}/i686.cmake)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET i686-linux-gnu)
