# What the tests of packages share. Sourced, with these set: here, scratch, version, compiler, flags, generator.

expected="parse_simple_tag: missing tag; expected <hostGroups>
from <ipsec>
cannot change name of a built-in object
$version"

# check CASE PROGRAM: what the consumer prints
check()
{
    local output
    # shellcheck disable=SC2086
    output=$(${EMULATOR-} "$2")
    [ "$output" = "$expected" ] || {
        printf '%s: expected\n%s\ngot\n%s\n' "$1" "$expected" "$output"
        exit 1
    }
    echo "$1: ok"
}

# configure SOURCE BUILD ARGUMENT...: a project, with the compiler and the flags of the library
configure()
{
    cmake -S "$1" -B "$2" -G "$generator" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" "${@:3}" >/dev/null
}

# compile_by_pkg_config PROGRAM PKG-CONFIG-ARGUMENT...
compile_by_pkg_config()
{
    # shellcheck disable=SC2046,SC2086
    "$compiler" -std=c++17 $flags "$here/consumer/consumer.cpp" -o "$1" $(pkg-config --cflags --libs "${@:2}" ipsecimpl)
}
