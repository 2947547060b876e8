#!/usr/bin/env bash
# The real programs in a real X window: a private X server and session bus, the renderer and the
# settings window; xdotool clicks the switch, drags the alpha slider, types a badge text and
# presses Return; then the settings file is checked and the window photographed.
#   SettingsWindowEndToEnd.sh BUILD_DIR SCREENSHOT.png
set -euo pipefail
build=$1
screenshot=$2
export LC_ALL=C.UTF-8
root=$(mktemp -d)
work=$(mktemp -d)
cleanup() {
    kill "${host:-}" "${renderer:-}" 2>/dev/null || true
    [ -n "${xserver:-}" ] && kill "$xserver" 2>/dev/null || true
    rm -rf "$root" "$work"
}
trap cleanup EXIT

fail() {
    echo "FAIL: $*" >&2
    import -display "$DISPLAY" -window root "${screenshot%.png}-failure.png" 2>/dev/null || true
    echo "window: $(xdotool getwindowgeometry "${window:-0}" 2>&1 | tr '\n' ' ')" >&2
    echo "host said:" >&2; cat "$work/host.log" >&2 || true
    echo "renderer said:" >&2; cat "$work/renderer.log" >&2 || true
    exit 1
}
setting() { "$build/Tools/pomwick-defaults" --root "$root" read "$1"; }
# Waits up to 10 s for a setting to read as expected (the machine may be busy with other tests).
expect_setting() {
    for _ in $(seq 200); do
        [ "$(setting "$1")" = "$2" ] && return 0
        sleep 0.05
    done
    fail "$3 (${1} = '$(setting "$1")', not '$2')"
}

Xvfb -displayfd 3 -screen 0 1024x900x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
xserver=$!
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.05; done
export DISPLAY=":$(cat "$work/display")"
eval "$(dbus-launch --sh-syntax)"
trap 'cleanup; kill "$DBUS_SESSION_BUS_PID" 2>/dev/null || true' EXIT

"$build/Renderer/pomwick-renderer" --root "$root" 2>"$work/renderer.log" &
renderer=$!
# The page sizes its header from the icon size the renderer reports: wait for it, or every row
# sits 180 points higher than the clicks below expect.
for _ in $(seq 200); do [ -s "$root/tmp/iconSize.txt" ] && break; sleep 0.05; done
"$build/Host/pomwick-settings" --root "$root" 2>"$work/host.log" &
host=$!
window=$(xdotool search --sync --onlyvisible --name '^Settings$' | head -n 1)
[ -n "$window" ] || fail "the settings window did not appear"
eval "$(xdotool getwindowgeometry --shell "$window")"
# Waits until the renderer has answered a request made after the given moment: the page has
# rebuilt itself and asked for a fresh preview.
background="$root/tmp/badgeBackground.png"
wait_for_preview_after() {
    for _ in $(seq 200); do
        if [ -s "$background" ] &&
            awk -v written="$(stat -c %.9Y "$background")" -v asked="$1" 'BEGIN { exit !(written > asked) }'; then
            sleep 0.3
            return 0
        fi
        sleep 0.05
    done
    fail "the page asked for no fresh preview"
}
now() { date +%s.%N; }
wait_for_preview_after 0
at() { xdotool mousemove --sync $((X + $1)) $((Y + $2)); }

# Rows of a 414-point-wide window: bar 44, header 3 x 60 + 30, section gaps 35, rows 44.
enabled_row=$((44 + 210 + 35 + 22))
text_row=$((44 + 210 + 35 + 44 + 35 + 44 + 22))
alpha_row=$((44 + 210 + 35 + 44 + 35 + 7 * 44 + 22))

clicked=$(now); at 368 "$enabled_row"; xdotool click 1
expect_setting ENABLED false "the switch did not switch the tweak off"
wait_for_preview_after "$clicked"
clicked=$(now); at 368 "$enabled_row"; xdotool click 1
expect_setting ENABLED true "the switch did not switch the tweak on"
wait_for_preview_after "$clicked"

at 390 "$alpha_row"; xdotool mousedown 1
for x in 370 340 310 280 260; do at "$x" "$alpha_row"; sleep 0.05; done
xdotool mouseup 1; sleep 0.4
alpha=$(setting BADGE_ALPHA)
awk -v a="$alpha" 'BEGIN { exit !(a > 0.3 && a < 0.9) }' || fail "dragging the slider stored BADGE_ALPHA = $alpha"

at 250 "$text_row"; xdotool click 1; sleep 0.6
xdotool type --delay 40 '  Hi@ '
xdotool key Return
expect_setting BADGE_TEXT_FIELD_TEXT "Hi@" "Return did not store the trimmed text"
sleep 1

import -display "$DISPLAY" -window root -crop "${WIDTH}x${HEIGHT}+${X}+${Y}" "$screenshot"
[ -s "$screenshot" ] || fail "no screenshot"
echo "settings window end to end: 1 passed, 0 failed"
