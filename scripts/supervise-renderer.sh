#!/usr/bin/env bash
# Keeps the renderer (the home-screen side) running: "Respring" kills it, and it comes back here.
# Ends, and ends the renderer, when it is terminated itself.
set -uo pipefail
cd "$(dirname "$0")/.."

renderer=""
stop() {
    [ -n "$renderer" ] && kill -TERM "$renderer" 2>/dev/null && wait "$renderer" 2>/dev/null
    exit 0
}
trap stop TERM INT HUP

while true; do
    build/Renderer/pomwick-renderer "$@" &
    renderer=$!
    wait "$renderer" 2>/dev/null
    status=$?
    # A renderer that cannot start at all (no bus, name taken) would only fail again.
    if [ "$status" -ne 0 ] && [ "$status" -lt 128 ]; then
        echo "supervise-renderer: the renderer exited with status $status; not restarting" >&2
        exit "$status"
    fi
    sleep 0.2
done
