# Builds and tests with the presets of CMakePresets.json. Sourced by the other scripts.

# run_preset PRESET WHOLE [CTEST ARGUMENT...]: configures, builds, tests. If WHOLE is ON, each test program runs once
# instead of once for each of its tests.
run_preset()
{
    local preset=$1 whole=$2
    shift 2
    echo "== $preset: building"
    cmake --preset "$preset" -D IPSECIMPL_WHOLE_TESTS="$whole" >/dev/null &&
        cmake --build --preset "$preset" -- --quiet ${build_targets:+"${build_targets[@]}"} &&
        ctest --preset "$preset" --parallel "$(nproc)" --progress --no-tests=error "$@"
}
