#!/usr/bin/env bash
# Sets up and starts the whole product: installs what is missing, builds, makes sure there is a
# session bus, starts the renderer under its supervisor and opens the settings window.
#   scripts/run.sh [--root DIR]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/build.sh release >/dev/null

root_args=()
if [ "${1:-}" = "--root" ] && [ -n "${2:-}" ]; then
    root_args=(--root "$2")
fi

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    cat >&2 <<MSG
pomwick: there is no display to open the settings window on (neither DISPLAY nor WAYLAND_DISPLAY
is set). Without a display, the preview can still be made headless:
    scripts/preview.sh out.png
and the settings read and written with build/Tools/pomwick-defaults (see README.md).
MSG
    exit 1
fi

# The renderer and the window talk over the session bus; start a private one when there is none.
if [ -z "${DBUS_SESSION_BUS_ADDRESS:-}" ]; then
    exec dbus-run-session -- "$0" "$@"
fi

scripts/supervise-renderer.sh "${root_args[@]}" &
supervisor=$!
trap 'kill "$supervisor" 2>/dev/null; wait "$supervisor" 2>/dev/null || true' EXIT

build/Host/pomwick-settings "${root_args[@]}"
