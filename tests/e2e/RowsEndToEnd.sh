#!/usr/bin/env bash
# Every editor of the settings page in a real X window: a private X server and session bus, the
# renderer and the settings window. xdotool opens the font sheet, turns the size wheel and taps
# above the sheet; opens the background grid, taps a swatch and goes back; opens the position
# editor, drags the badge and goes back; then opens the three outside links. dbus-monitor counts
# the page's reloads, a recording xdg-open first on PATH the links; then the settings file and a
# screenshot of the preview are checked. Leaves the screenshots beside SCREENSHOT.png.
#   RowsEndToEnd.sh BUILD_DIR SCREENSHOT.png
set -euo pipefail
build=$1
screenshot=$2
shots=${screenshot%.png}
export LC_ALL=C.UTF-8
root=$(mktemp -d)
work=$(mktemp -d)
cleanup() {
    kill "${host:-}" "${renderer:-}" "${monitor:-}" 2>/dev/null || true
    [ -n "${xserver:-}" ] && kill "$xserver" 2>/dev/null || true
    rm -rf "$root" "$work"
}
trap cleanup EXIT

fail() {
    echo "FAIL: $*" >&2
    import -display "$DISPLAY" -window root "$shots-failure.png" 2>/dev/null || true
    echo "host said:" >&2; cat "$work/host.log" >&2 || true
    echo "renderer said:" >&2; cat "$work/renderer.log" >&2 || true
    exit 1
}
setting() { "$build/Tools/pomwick-defaults" --root "$root" read "$1"; }
# Waits up to 10 s for a condition (the machine may be busy with other tests).
wait_until() {
    for _ in $(seq 200); do
        eval "$1" && return 0
        sleep 0.05
    done
    fail "$2"
}
count() { grep -c "member=$1" "$work/monitor.log" || true; }
shoot() { import -display "$DISPLAY" -window root -crop "${WIDTH}x${HEIGHT}+${X}+${Y}" "$1"; }
at() { xdotool mousemove --sync $((X + $1)) $((Y + $2)); }
tap() { at "$1" "$2"; xdotool click 1; }
drag() { # x0 y0 x1 y1: pressed, moved in steps, released
    at "$1" "$2"; xdotool mousedown 1
    for step in 1 2 3 4 5 6; do
        at $(($1 + ($3 - $1) * step / 6)) $(($2 + ($4 - $2) * step / 6)); sleep 0.03
    done
    xdotool mouseup 1
}
# The page's slides and pushes take half a second; give them room before looking.
settle() { sleep 0.8; }

Xvfb -displayfd 3 -screen 0 1024x900x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
xserver=$!
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.05; done
export DISPLAY=":$(cat "$work/display")"
eval "$(dbus-launch --sh-syntax)"
trap 'cleanup; kill "$DBUS_SESSION_BUS_PID" 2>/dev/null || true' EXIT

# The desktop's link handler, recording instead of opening.
mkdir "$work/bin"
printf '#!/bin/sh\necho "$1" >> "%s/opened.log"\n' "$work" > "$work/bin/xdg-open"
chmod +x "$work/bin/xdg-open"
: > "$work/opened.log"

dbus-monitor --session "type='method_call'" > "$work/monitor.log" 2>&1 &
monitor=$!
wait_until '[ -s "$work/monitor.log" ]' "dbus-monitor did not start"
"$build/Renderer/pomwick-renderer" --root "$root" 2>"$work/renderer.log" &
renderer=$!
# The header is sized from the icon size the renderer reports; the rows' places depend on it.
wait_until '[ -s "$root/tmp/iconSize.txt" ]' "the renderer reported no icon size"
PATH="$work/bin:$PATH" "$build/Host/pomwick-settings" --root "$root" 2>"$work/host.log" &
host=$!
window=$(xdotool search --sync --onlyvisible --name '^Settings$' | head -n 1)
[ -n "$window" ] || fail "the settings window did not appear"
eval "$(xdotool getwindowgeometry --shell "$window")"
wait_until '[ -s "$root/tmp/badgeBackground.png" ]' "no first preview"
settle

# A 414 x 860 window: bar 44, header 3 x 60 + 30, section gaps 35, rows 44; the sheet is the last
# 260 points, its size wheel the middle one.
badge_row() { echo $((44 + 210 + 35 + 44 + 35 + $1 * 44 + 22)); }

# The font sheet: turn the size wheel, then tap above the sheet.
tap 200 "$(badge_row 2)"; settle
size_before=$(setting BADGE_FONT_SIZE)
drag 305 760 305 690; settle
shoot "$shots-font-sheet.png"
wait_until '[ "$(setting BADGE_FONT_SIZE)" != "$size_before" ]' "turning the size wheel stored no size"
font_size=$(setting BADGE_FONT_SIZE)
saves=$(count saveBadgeImages); reloads=$(count reloadData)
tap 200 300; settle
wait_until '[ "$(count saveBadgeImages)" -ge $((saves + 5)) ]' "closing the sheet did not reload the table"
[ "$(count reloadData)" = "$reloads" ] || fail "closing the sheet sent reloadData"
[ "$(count saveBadgeImages)" = $((saves + 5)) ] || fail "closing the sheet reloaded more than once"

# The background grid: tap the swatch in row 2, column 3, then go back.
tap 200 "$(badge_row 3)"; settle
shoot "$shots-color-grid.png"
tap 207 $((44 + 2 + 82 + 41)); sleep 0.3
background=$(setting BADGE_BACKGROUND_COLOR)
[ "$background" != "1,1,1,1" ] || fail "tapping a swatch stored no background color"
saves=$(count saveBadgeImages)
tap 40 22; settle
wait_until '[ "$(count reloadData)" = $((reloads + 1)) ]' "leaving the grid sent no reloadData"
wait_until '[ "$(count saveBadgeImages)" -ge $((saves + 5)) ]' "leaving the grid did not reload the table"
reloads=$(count reloadData)

# The position editor: the square is 180 points, centered in the 414 x 816 page; the icon sits in
# its middle and the badge at the icon's top-left corner.
tap 200 "$(badge_row 4)"; settle
drag 185 430 150 400; sleep 0.3
shoot "$shots-position-editor.png"
[ "$(setting BADGE_LOCATION)" = "-0.583333015,-0.5" ] || fail "the drag stored BADGE_LOCATION = $(setting BADGE_LOCATION)"
tap 40 22; settle
wait_until '[ "$(count reloadData)" = $((reloads + 1)) ]' "leaving the editor sent no reloadData"

# The outside links, at the bottom of the table.
at 200 400
for _ in $(seq 15); do xdotool click 5; done; settle
for row in 1 2 3; do tap 200 $((623 + row * 44 - 44 + 44)); sleep 0.3; done
wait_until '[ "$(wc -l < "$work/opened.log")" -ge 3 ]' "the link rows opened $(wc -l < "$work/opened.log") links"
sleep 0.5
[ "$(sort "$work/opened.log" | uniq -u | wc -l)" = 3 ] || fail "links opened: $(cat "$work/opened.log")"
grep -q '^https://' "$work/opened.log" && grep -q '^apt:' "$work/opened.log" || fail "links opened: $(cat "$work/opened.log")"

# The preview: back at the top, the badge in the chosen color up and left of the icon.
for _ in $(seq 15); do xdotool click 4; done; settle
shoot "$screenshot"
# The badge's left half, where the drag left it (35 and 30 points up and left of the icon's
# corner at 177,134), wears the chosen background color.
pixel=$(convert "$screenshot" -format '%[fx:int(255*p{147,116}.r)] %[fx:int(255*p{147,116}.g)] %[fx:int(255*p{147,116}.b)]' info:)
read -r red green blue <<< "$pixel"
awk -v c="$background" -v r="$red" -v g="$green" -v b="$blue" 'BEGIN {
    split(c, want, ","); d = 0
    d += (r - 255 * want[1]) ^ 2; d += (g - 255 * want[2]) ^ 2; d += (b - 255 * want[3]) ^ 2
    exit !(d < 300) }' || fail "the preview shows $pixel where the badge should be, not $background"
echo "font size $font_size, background $background, links: $(tr '\n' ' ' < "$work/opened.log")"
echo "rows end to end: 1 passed, 0 failed"
