#!/usr/bin/env bash
# TranslationsComplete.sh LUPDATE OPTIONS SOURCES_LIST TS_FILE...: updates copies of the
# translations from the sources as update_translations would, and fails on any text left
# unfinished or vanished.
set -euo pipefail
lupdate=$1 options=$2 sources=$3
shift 3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
for ts in "$@"; do
    copy="$work/$(basename "$ts")"
    cp "$ts" "$copy"
    # shellcheck disable=SC2086 # the options are words
    "$lupdate" $options "@$sources" -ts "$copy" >"$work/log" 2>&1 ||
        { cat "$work/log"; exit 1; }
    problems=$(grep -n -B3 'type="\(unfinished\|vanished\|obsolete\)"' "$copy" || true)
    if [ -n "$problems" ]; then
        echo "$(basename "$ts"): untranslated or obsolete texts:"
        echo "$problems"
        status=1
    fi
    # -no-obsolete drops texts the sources no longer have: the copy must still match the original.
    if ! diff -u "$ts" "$copy" >"$work/diff"; then
        echo "$(basename "$ts") is not what update_translations makes of the sources:"
        cat "$work/diff"
        status=1
    fi
done
[ $status -eq 0 ] && echo "translations complete: $*"
exit $status
