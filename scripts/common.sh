# shellcheck shell=bash
# Shared by the scripts: what is told to whom. On a terminal every step and its output show; in a pipe only
# failures and results do.

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

tell() {
    if [ -t 2 ]; then echo "== $*" >&2; fi
}

# The last line of a script that cannot go on.
fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# run LABEL COMMAND...: runs the command; in a pipe its output shows only when it fails.
run() {
    local label=$1 log
    shift
    tell "$label"
    if [ -t 1 ]; then
        "$@" || fail "$label failed."
        return
    fi
    log=$(mktemp)
    if ! "$@" >"$log" 2>&1; then
        cat "$log"
        rm -f "$log"
        fail "$label failed."
    fi
    rm -f "$log"
}

# build PRESET [OPTION...]: configures once, with the options, and builds what changed.
build() {
    local preset=$1
    shift
    if [ ! -f "build/$preset/build.ninja" ]; then
        run "Configuring $preset" cmake --preset "$preset" "$@"
    fi
    run "Building $preset" cmake --build --preset "$preset"
}

# run_tests PRESET: the summary shows in any case, the output of tests only when they fail.
run_tests() {
    # The long tests drive windows and offices and wait more than they compute, so one more than there are processors runs.
    local log=build/$1/tests.log jobs=$(($(nproc) + 1))
    tell "Testing $1"
    if [ -t 1 ]; then
        ctest --preset "$1" --progress -j "$jobs" || fail "tests of the $1 build failed."
        return
    fi
    if ! ctest --preset "$1" -j "$jobs" >"$log" 2>&1; then
        cat "$log"
        # Repeats the failures, since often only the end of a long output is kept.
        grep -E '^\[  FAILED  \]|: Failure$|^(FAIL|ERROR): |^[A-Za-z.]*Error: ' "$log" | tail -30 >&2 || true
        fail "tests of the $1 build failed."
    fi
    grep "tests passed" "$log"
}
