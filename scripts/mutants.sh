#!/usr/bin/env bash
# Injects known, realistic faults into the code one at a time and checks that the tests catch
# each of them: how much the suite bites, which line counts alone cannot show.
#
#   scripts/mutants.sh [PATTERN]    only the faults whose description matches PATTERN
#
# The faults are in tests/mutants/*.txt, as blocks separated by blank lines:
#   # what goes wrong, as a user or a caller would see it
#   file: Classes/SettingsStore/SettingsTable.cpp
#   perl: s/1\.2f/1.0f/           (applied with perl -0pi -e, so it may span lines)
#   tests: SettingsGetters|DefaultsTool      (a ctest -R expression; they must fail)
# It uses the release build tree and leaves every file as it found it. Takes minutes: a
# developer's tool, not part of CI.
set -euo pipefail
cd "$(dirname "$0")/.."
pattern=${1:-}

scripts/build.sh release >/dev/null
saved=$(mktemp)
current=""
# Copied back with a new time, so that the build sees the file changed again.
restore() { [ -n "$current" ] && cp "$saved" "$current"; current=""; }
trap 'restore; rm -f "$saved"' EXIT

caught=0
missed=()
try() { # description file substitution tests
    local description=$1 file=$2 substitution=$3 tests=$4
    cp "$file" "$saved"
    current=$file
    perl -0pi -e "$substitution" "$file"
    if cmp -s "$file" "$saved"; then
        missed+=("$description: the substitution no longer changes $file")
    elif ! cmake --build build >/dev/null 2>&1; then
        missed+=("$description: does not build")
    elif ctest --test-dir build -R "$tests" -j 2 --timeout 120 >/dev/null 2>&1; then
        missed+=("$description: not caught by $tests")
    else
        caught=$((caught + 1))
        echo "caught: $description"
    fi
    restore
}

for list in tests/mutants/*.txt; do
    description="" file="" substitution="" tests=""
    while IFS= read -r line || [ -n "$line" ]; do
        case "$line" in
            "# "*) description=${line#\# } ;;
            file:*) file=$(echo "${line#file:}" | xargs) ;;
            perl:*) substitution=${line#perl: } ;;
            tests:*) tests=$(echo "${line#tests:}" | xargs) ;;
            "")
                if [ -n "$file" ] && [[ "$description" =~ $pattern ]]; then
                    try "$description" "$file" "$substitution" "$tests"
                fi
                description="" file="" substitution="" tests=""
                ;;
        esac
    done < <(cat "$list"; echo)
done

cmake --build build >/dev/null # back to the code as it is
echo "== mutants: $caught caught, ${#missed[@]} not"
for each in "${missed[@]}"; do echo "not caught: $each"; done
[ "${#missed[@]}" -eq 0 ]
