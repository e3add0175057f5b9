# 32-bit x86 by Debian's g++-i686-linux-gnu. What it makes runs as it is on an x86_64 kernel, with the loader and the
# libraries of the cross compiler.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)

set(i686_libraries /usr/i686-linux-gnu/lib)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,--dynamic-linker=${i686_libraries}/ld-linux.so.2 -Wl,-rpath,${i686_libraries}")
