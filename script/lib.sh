# Shared by the scripts beside it: source it, do not run it.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

Fail() {
    printf '%s: %s\n' "$(basename "$0")" "$1" >&2
    exit "${2:-1}"
}

# Prints the script's own heading comment, which is its help.
ShowHelp() {
    sed -n '2,/^$/s/^# \{0,1\}//p' "$0"
}

# The names of all shell scripts, each ended by a zero byte.
Scripts() {
    git -C "$root" ls-files -z script .ci packaging/make-changelog 'packaging/completions/*.bash'
}

# BuildPreset PRESET: configures and builds one of CMakePresets.json into build/PRESET.
BuildPreset() {
    cd "$root" || return
    cmake --preset "$1" --log-level=NOTICE
    cmake --build --preset "$1"
}

# RunTests PRESET [CTEST-OPTIONS...]: every test of a built preset; none at all is a failure too.
RunTests() {
    cd "$root" || return
    ctest --preset "$1" --parallel "$(nproc)" --no-tests=error "${@:2}"
}

# The tests that bound a program's address space. An address sanitizer reserves more of it than any
# bound allows, so that the sanitized build leaves them to the others.
# shellcheck disable=SC2034
NotUnderSanitizers=(
    CliBadFilesTest.ProjectTooLargeForTheMemoryDoesNotStopTheOthers
)
