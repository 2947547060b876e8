#!/usr/bin/env bash
# The settings window native on Wayland, under a headless weston, beside X11 at scale 1 and 2;
# runs on the release build (scripts/build.sh release first). The pictures stay in build/wayland.
set -euo pipefail
cd "$(dirname "$0")/.."
echo "== wayland"
time tests/e2e/WaylandLook.sh build build/wayland
