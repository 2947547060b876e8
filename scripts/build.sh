#!/usr/bin/env bash
# Configures and builds one developer build tree: scripts/build.sh [release|sanitize|fuzz] [TARGET...]
# (fuzz: clang, only the libFuzzer programs and what they use; TARGETs: only those). Warnings are errors here, and in
# CI, which calls it; a plain cmake build (a packager's) only shows them.
set -euo pipefail
cd "$(dirname "$0")/.."

kind=${1:-release}
shift || true
targets=()
[ $# -gt 0 ] && targets=(--target "$@")
case "$kind" in
    release) dir=build; options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_COMPILE_WARNING_AS_ERROR=ON -DPOMWICK_BUILD_BENCH=ON) ;;
    sanitize) dir=build-sanitize; options=(-DCMAKE_BUILD_TYPE=Debug -DCMAKE_COMPILE_WARNING_AS_ERROR=ON -DPOMWICK_SANITIZE=ON) ;;
    fuzz) dir=build-fuzz; targets=(--target pomwick-fuzzers)
          options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_COMPILE_WARNING_AS_ERROR=ON -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++
                   -DPOMWICK_FUZZ=ON -DBUILD_TESTING=OFF) ;;
    *) echo "build: unknown kind '$kind' (release, sanitize or fuzz)" >&2; exit 2 ;;
esac

# Rebuilds of an unchanged file come from ccache where it is installed.
if command -v ccache >/dev/null; then
    options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
fi
if [ ! -f "$dir/build.ninja" ]; then
    cmake -S . -B "$dir" -G Ninja "${options[@]}" >/dev/null
else
    cmake -S . -B "$dir" "${options[@]}" >/dev/null # a tree made before keeps up with the options
fi
cmake --build "$dir" -j "$(nproc)" "${targets[@]}"
