# Installs Debian packages that are missing, with sudo where that is needed. Sourced by the other scripts:
#
#     need_packages cmake g++ ...

need_packages()
{
    local package missing=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "$0: run this as root, or install: ${missing[*]}" >&2
            return 1
        }
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq update &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -y --no-install-recommends install \
            "${missing[@]}" >/dev/null
}

# What a build of everything needs.
build_packages=(cmake g++ ninja-build libcli11-dev nlohmann-json3-dev)
abi_packages=("${build_packages[@]}" abigail-tools binutils xz-utils)
test_packages=("${abi_packages[@]}" bsdutils clang doxygen fish graphviz groff-base jq libclang-rt-dev libgmock-dev
    libgtest-dev libxml2-utils llvm locales mandoc pkg-config strace zsh)
matrix_packages=("${test_packages[@]}" libc++-dev libc++abi-dev googletest g++-i686-linux-gnu
    g++-arm-linux-gnueabihf g++-powerpc-linux-gnu qemu-user)
debs_packages=("${build_packages[@]}" debootstrap doxygen dpkg-dev lintian)
debs_armhf_packages=(g++-arm-linux-gnueabihf qemu-user)
coverage_packages=("${test_packages[@]}" python3)
mutate_packages=("${coverage_packages[@]}" lld)
valgrind_packages=("${test_packages[@]}" libc6-dbg valgrind)
fuzz_packages=(cmake ninja-build clang libclang-rt-dev)
fuzz32_packages=(g++-i686-linux-gnu)
schema_packages=(jing trang)
reference_packages=(doxygen)
lint_packages=("${build_packages[@]}" clang clang-format clang-tidy cppcheck)
bench_packages=("${build_packages[@]}" binutils g++-arm-linux-gnueabihf libbenchmark-dev libexpat1-dev libpugixml-dev
    libtinyxml2-dev libxml2-dev valgrind)
