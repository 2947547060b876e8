#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: first the release build, then the same
# tests built with AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$PWD/tests/lsan.supp:print_suppressions=0}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}

for kind in release sanitize; do
    scripts/build.sh "$kind"
    dir=build; [ "$kind" = sanitize ] && dir=build-sanitize
    echo "== tests ($kind)"
    ctest --test-dir "$dir" --output-on-failure -j 2 --timeout 300
done

# The product as packagers build it and users install it: a plain Release build, installed,
# packaged and run after its build tree is gone.
echo "== install"
scripts/check-install.sh
