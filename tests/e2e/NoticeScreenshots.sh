#!/usr/bin/env bash
# The notice in every mode, photographed on a private X server.
#   NoticeScreenshots.sh GALLERY_PROGRAM OUTPUT_FOLDER
set -euo pipefail
gallery=$1
out=$2
export LC_ALL=C.UTF-8
work=$(mktemp -d)
cleanup() {
    [ -n "${xserver:-}" ] && kill "$xserver" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

mkdir -p "$out"
Xvfb -displayfd 3 -screen 0 1400x900x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
xserver=$!
for _ in $(seq 200); do [ -s "$work/display" ] && break; sleep 0.05; done
[ -s "$work/display" ] || { echo "FAIL: Xvfb did not start" >&2; exit 1; }
export DISPLAY=":$(cat "$work/display")"
QT_QPA_PLATFORM=xcb "$gallery" "$out/notice-gallery.png"
[ -s "$out/notice-gallery.png" ] || { echo "FAIL: no notice-gallery.png" >&2; exit 1; }
