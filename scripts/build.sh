#!/usr/bin/env bash
# Configures and builds one build tree: scripts/build.sh [release|sanitize|fuzz]
# (fuzz: clang, only the libFuzzer programs and what they use)
set -euo pipefail
cd "$(dirname "$0")/.."

kind=${1:-release}
targets=()
case "$kind" in
    release) dir=build; options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo) ;;
    sanitize) dir=build-sanitize; options=(-DCMAKE_BUILD_TYPE=Debug -DPOMWICK_SANITIZE=ON -DPOMWICK_BUILD_BENCH=OFF) ;;
    fuzz) dir=build-fuzz; targets=(--target pomwick-fuzzers)
          options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++
                   -DPOMWICK_FUZZ=ON -DPOMWICK_BUILD_TESTS=OFF -DPOMWICK_BUILD_BENCH=OFF) ;;
    *) echo "build: unknown kind '$kind' (release, sanitize or fuzz)" >&2; exit 2 ;;
esac

if [ ! -f "$dir/build.ninja" ]; then
    cmake -S . -B "$dir" -G Ninja "${options[@]}" >/dev/null
fi
cmake --build "$dir" -j "$(nproc)" "${targets[@]}"
