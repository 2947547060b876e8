#!/usr/bin/env bash
# Draws the preview without a display: starts the renderer on a private session bus, asks it for
# a fresh badge background and writes the composed preview to the given PNG.
#   scripts/preview.sh OUT.png [--root DIR]
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -lt 1 ]; then
    echo "usage: scripts/preview.sh OUT.png [--root DIR]" >&2
    exit 2
fi
out=$(realpath -m "$1")
shift

if [ -z "${POMWICK_PREVIEW_BUS:-}" ]; then
    scripts/install-deps.sh
    scripts/build.sh release >/dev/null
    POMWICK_PREVIEW_BUS=1 exec dbus-run-session -- "$0" "$out" "$@"
fi

build/Renderer/pomwick-renderer "$@" &
renderer=$!
trap 'kill "$renderer" 2>/dev/null; wait "$renderer" 2>/dev/null || true' EXIT
build/Tools/pomwick-defaults "$@" preview "$out"
