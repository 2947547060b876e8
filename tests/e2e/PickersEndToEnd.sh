#!/usr/bin/env bash
# The two pickers in a real X window: a private X server, the pickers' window, xdotool drags the
# size wheel and taps a swatch. The wheel must come to rest on another size and report it once;
# the swatch must report its color and wear the white selection border; then the keyboard alone
# picks a swatch and turns a wheel. Leaves a screenshot.
#   PickersEndToEnd.sh PICKERS_WINDOW SCREENSHOT.png
set -euo pipefail
program=$1
screenshot=$2
export LC_ALL=C.UTF-8
work=$(mktemp -d)
cleanup() {
    kill "${pickers:-}" 2>/dev/null || true
    [ -n "${xserver:-}" ] && kill "$xserver" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

fail() {
    echo "FAIL: $*" >&2
    import -display "$DISPLAY" -window root "${screenshot%.png}-failure.png" 2>/dev/null || true
    echo "the pickers said:" >&2; cat "$work/out" >&2 || true
    exit 1
}
# Waits up to 10 s (the machine may be busy) for a line matching the pattern.
wait_for_line() {
    for _ in $(seq 200); do
        grep -q "$1" "$work/out" && return 0
        sleep 0.05
    done
    fail "$2"
}

Xvfb -displayfd 3 -screen 0 640x600x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
xserver=$!
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.05; done
export DISPLAY=":$(cat "$work/display")"

"$program" >"$work/out" 2>"$work/err" &
pickers=$!
window=$(xdotool search --sync --onlyvisible --name '^Pickers$' | head -n 1)
[ -n "$window" ] || fail "the pickers' window did not appear"
eval "$(xdotool getwindowgeometry --shell "$window")"
at() { xdotool mousemove --sync $((X + $1)) $((Y + $2)); }

# The font picker is 320 x 216 with its wheels centered: font 10..168, size 173..239, color
# 244..310; rows are 30 high around the middle at 108. The size wheel starts at 14.
at 206 108; xdotool mousedown 1
for y in 100 90 80 70 60 50 48; do at 206 "$y"; sleep 0.03; done
# Held still before the release, so that the wheel settles without a flick.
sleep 0.3
xdotool mouseup 1
wait_for_line '^changed ' "dragging the size wheel reported no pick"

# The grid sits 12 below the picker: four 78-point swatches a row, 80 points apart down.
at 120 $((228 + 80 + 39)); xdotool click 1
wait_for_line '^color ' "tapping a swatch reported no color"

changes=$(grep -c '^changed ' "$work/out")
[ "$changes" = 1 ] || fail "one drag reported $changes picks"
grep -q '^changed DejaVuSans 1[68]$' "$work/out" || fail "the wheel did not rest two or three rows on"
grep -qx 'color 0.650 1.000 0.825' "$work/out" || fail "the swatch reported another color"
import -display "$DISPLAY" -window root -crop "${WIDTH}x${HEIGHT}+${X}+${Y}" "$screenshot"

# The keyboard alone: the tap left the focus in the grid; Right and Space pick the next swatch,
# Shift+Tab goes back to the color wheel and Down turns it one row.
xdotool windowfocus --sync "$window"
xdotool key Right space
wait_for_line '^color 0.650 1.000 1.000$' "Right and Space did not pick the next swatch"
xdotool key shift+Tab Down
for _ in $(seq 200); do [ "$(grep -c '^changed ' "$work/out")" = 2 ] && break; sleep 0.05; done
[ "$(grep -c '^changed ' "$work/out")" = 2 ] || fail "Down on the color wheel reported no pick"

[ -s "$screenshot" ] || fail "no screenshot"
# The tapped swatch (its top-left corner at 80.7, 308) wears a white border 5 points wide.
pixel() {
    convert "$screenshot" -crop "1x1+$1+$2" \
        -format '%[fx:int(255*r+.5)],%[fx:int(255*g+.5)],%[fx:int(255*b+.5)]' info:
}
border=$(pixel 84 330)
inside=$(pixel 100 330)
[ "$border" = "255,255,255" ] || fail "the swatch's border is $border"
[ "$inside" != "$border" ] || fail "the swatch is white inside its border"
echo "pickers end to end: 1 passed, 0 failed"
