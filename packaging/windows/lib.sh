# SPDX-License-Identifier: MIT
# What the build, its stages and the test share: places, versions and a few helpers.
# Sourced, never run.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
project=$(cd "$here/../.." && pwd)
mkdir -p "${TAVREL_WINDOWS_CACHE:=$here/cache}"
cache=$(cd "$TAVREL_WINDOWS_CACHE" && pwd)
jobs=${TAVREL_WINDOWS_JOBS:-$(nproc)}

triple=x86_64-w64-mingw32
toolchain=$here/toolchain.cmake
dist=$here/dist
# Where each stage leaves its result. toolchain.cmake knows the last four by these names.
src=$cache/src
qt=$cache/qt
opencv=$cache/opencv
serialport=$cache/serialport
tool=$cache/tool

export TAVREL_WINDOWS_CACHE=$cache

die() {
    echo "${0##*/}: $*" >&2
    exit 1
}

# A line that the stage wants shown to whoever runs the build; everything else stays in its log.
tell() { echo "::$*"; }

# All a stage depends on besides the stages before it.
stage_inputs() {
    cat "$here/stages/$1.sh"
    case $1 in
    opencv) cat "$toolchain" ;;
    serialport) cat "$toolchain" "$here"/serialport/* ;;
    esac
}

# A shell of its own, so that no stage leaves variables or a folder behind for the next one.
run_stage() {
    bash -euo pipefail -c '. "$1/lib.sh"; cd "$cache"; set -x; . "$2"' stage "$here" "$1"
}

# fresh DIR...: empty folders, so that a repeated stage never builds upon half a result.
fresh() {
    rm -rf -- "$@"
    mkdir -p -- "$@"
}

# cross_cmake SOURCE BUILD [ARG...]: configures SOURCE for Windows.
cross_cmake() {
    local source=$1 build=$2
    shift 2
    cmake -G Ninja -S "$source" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
        -DTAVREL_WINDOWS_CACHE="$cache" -DCMAKE_BUILD_TYPE=Release "$@"
}

# The version stands once, in the project's CMakeLists.txt.
tool_version() { sed -n 's/^project(tavrel VERSION \([0-9.]*\).*/\1/p' "$project/CMakeLists.txt"; }
