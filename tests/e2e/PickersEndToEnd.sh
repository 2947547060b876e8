#!/usr/bin/env bash
# The two pickers in a real X window: a private X server, the pickers' window, xdotool drags the
# size wheel and taps a swatch. The wheel must come to rest on another size and report it once;
# the swatch must report its color and wear the white selection border; then the keyboard alone
# picks a swatch and turns a wheel. Leaves a screenshot.
#   PickersEndToEnd.sh PICKERS_WINDOW SCREENSHOT.png
program=$1
SCREENSHOT=$2
source "$(dirname "$0")/WindowSession.sh"
# Waits for a line of the pickers' output matching the pattern: PATTERN FAILURE.
wait_for_line() {
    local pattern=$1
    wait_until 'grep -q "$pattern" "$work/pickers.log"' "$2"
}
picks() { grep -c '^changed ' "$work/pickers.log" || true; }

start_x_server 640x600
"$program" >"$work/pickers.log" 2>"$work/pickers-errors.log" &
host=$! # the program under test, stopped at the end like the settings window
window=$(xdotool search --sync --onlyvisible --name '^Pickers$' | head -n 1)
[ -n "$window" ] || fail "the pickers' window did not appear"
eval "$(xdotool getwindowgeometry --shell "$window")"

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

changes=$(picks)
[ "$changes" = 1 ] || fail "one drag reported $changes picks"
grep -q '^changed DejaVuSans 1[68]$' "$work/pickers.log" || fail "the wheel did not rest two or three rows on"
grep -qx 'color 0.650 1.000 0.825' "$work/pickers.log" || fail "the swatch reported another color"
photograph

# The keyboard alone: the tap left the focus in the grid; Right and Space pick the next swatch,
# Shift+Tab goes back to the color wheel and Down turns it one row.
xdotool windowfocus --sync "$window"
xdotool key Right space
wait_for_line '^color 0.650 1.000 1.000$' "Right and Space did not pick the next swatch"
xdotool key shift+Tab Down
wait_until '[ "$(picks)" = 2 ]' "Down on the color wheel reported no pick"

# The tapped swatch (its top-left corner at 80.7, 308) wears a white border 5 points wide.
pixel() {
    convert "$SCREENSHOT" -crop "1x1+$1+$2" \
        -format '%[fx:int(255*r+.5)],%[fx:int(255*g+.5)],%[fx:int(255*b+.5)]' info:
}
border=$(pixel 84 330)
inside=$(pixel 100 330)
[ "$border" = "255,255,255" ] || fail "the swatch's border is $border"
[ "$inside" != "$border" ] || fail "the swatch is white inside its border"
echo "pickers end to end: 1 passed, 0 failed"
