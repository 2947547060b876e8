#!/usr/bin/env bash
# Installs what is missing, checks the formatting, builds, and runs every test: first the release
# build, then the same tests built with AddressSanitizer and UndefinedBehaviorSanitizer, then
# every fuzzer for POMWICK_FUZZ_SECONDS (60) each.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
echo "== format"
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror

for kind in release sanitize; do
    scripts/build.sh "$kind"
    dir=build; [ "$kind" = sanitize ] && dir=build-sanitize
    echo "== tests ($kind)"
    ctest --test-dir "$dir" --output-on-failure -j 2 --timeout 300
    if [ "$kind" = release ]; then scripts/wayland.sh; fi
done

scripts/build.sh fuzz
cmake -S . -B build-fuzz -DPOMWICK_FUZZ_SECONDS="${POMWICK_FUZZ_SECONDS:-60}" >/dev/null
echo "== fuzzers (${POMWICK_FUZZ_SECONDS:-60} s each)"
ctest --test-dir build-fuzz --output-on-failure -j 2 -L fuzz

# The product as packagers build it and users install it: a plain Release build, installed,
# packaged and run after its build tree is gone.
echo "== install"
scripts/check-install.sh

# How big the tests are beside the code: lines of C++ that are neither blank nor comments.
count_lines() {
    find "$@" \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 cat | awk '
        /^[[:space:]]*\/\*/ { comment = 1 }
        comment { if ($0 ~ /\*\//) comment = 0; next }
        /^[[:space:]]*$/ || /^[[:space:]]*\/\// { next }
        { lines++ }
        END { print lines + 0 }'
}
test_lines=$(count_lines tests)
code_lines=$(count_lines Classes Host Renderer Tools)
echo "== size: tests $test_lines lines, code $code_lines lines ($((100 * test_lines / code_lines)) %)"
