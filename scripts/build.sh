#!/usr/bin/env bash
# Configures and builds one build tree: scripts/build.sh [release|sanitize]
set -euo pipefail
cd "$(dirname "$0")/.."

kind=${1:-release}
case "$kind" in
    release) dir=build; options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo) ;;
    sanitize) dir=build-sanitize; options=(-DCMAKE_BUILD_TYPE=Debug -DPOMWICK_SANITIZE=ON -DPOMWICK_BUILD_BENCH=OFF) ;;
    *) echo "build: unknown kind '$kind' (release or sanitize)" >&2; exit 2 ;;
esac

if [ ! -f "$dir/build.ninja" ]; then
    cmake -S . -B "$dir" -G Ninja "${options[@]}" >/dev/null
fi
cmake --build "$dir" -j "$(nproc)"
