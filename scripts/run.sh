#!/usr/bin/env bash
# Sets up and starts the whole product: installs what is missing, builds, and opens the settings
# window on a private session bus that starts the renderer on demand from the build tree (D-Bus
# activation: "Respring" kills the renderer, the next request starts it again). Needs no systemd.
#   scripts/run.sh [--root DIR]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
scripts/build.sh release >/dev/null

if [ "${1:-}" = "--root" ] && [ -n "${2:-}" ]; then
    # The renderer is started by the bus, with the bus's environment: it finds the root there.
    POMWICK_ROOT=$(realpath -m "$2")
    export POMWICK_ROOT
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

exec scripts/with-service-bus.sh build/dist/services build/Host/pomwick-settings
