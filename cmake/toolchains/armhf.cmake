# 32-bit ARM with hardware floating point by Debian's g++-arm-linux-gnueabihf; qemu-user runs what it makes.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
# Not a word of what g++ 7 changed in how arguments are passed: nothing here was built by an earlier one.
add_compile_options(-Wno-psabi) # the presets set some of the variables that would take it
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L /usr/arm-linux-gnueabihf)
