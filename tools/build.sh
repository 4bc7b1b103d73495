# Sourced by ./run, ./test and tools/same-bytes: the build by presets, with Ninja where it is there.

# Configure PRESET [cmake options]: quiet when all is well; a build folder made by another generator keeps it.
Configure() {
    local preset=$1 generator=()
    shift
    if [ ! -f "build/$preset/CMakeCache.txt" ] && command -v ninja >/dev/null; then generator=(-G Ninja); fi
    Quietly "build/$preset.configure.log" cmake --preset "$preset" "${generator[@]}" "$@"
}

# Build PRESET [targets]
Build() {
    local preset=$1
    shift
    echo "Building $preset"
    cmake --build "build/$preset" -j "$(nproc)" ${1:+--target "$@"}
}

# Quietly LOG COMMAND...: the output goes to the log, and to the terminal only after a failure.
Quietly() {
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    "$@" >"$log" 2>&1 || { cat "$log" >&2; return 1; }
}
