#!/usr/bin/env bash
# Every editor of the settings page in a real X window: a private X server and session bus, the
# renderer and the settings window. xdotool opens the font sheet, turns the size wheel and taps
# above the sheet; opens the background grid, taps a swatch and goes back; opens the position
# editor, drags the badge and goes back; then opens the three outside links. dbus-monitor counts
# the page's reloads, a recording xdg-open first on PATH the links; then the settings file and a
# screenshot of the preview are checked. Leaves the screenshots beside SCREENSHOT.png.
#   RowsEndToEnd.sh BUILD_DIR SCREENSHOT.png
BUILD_DIR=$1
SCREENSHOT=$2
source "$(dirname "$0")/WindowSession.sh"
shots=${SCREENSHOT%.png}

count() { grep -c "member=$1" "$work/monitor.log" || true; }
tap() { at "$1" "$2"; xdotool click 1; }
drag() { # x0 y0 x1 y1: pressed, moved in steps, released
    at "$1" "$2"; xdotool mousedown 1
    for step in 1 2 3 4 5 6; do
        at $(($1 + ($3 - $1) * step / 6)) $(($2 + ($4 - $2) * step / 6)); sleep 0.03
    done
    xdotool mouseup 1
}
# Transitions are jumps here (the modality test runs them at their real length); this leaves the
# window the time to take the input in and paint.
settle() { sleep 0.25; }

# The desktop's link handler, recording instead of opening, and a monitor of the bus's messages.
mkdir "$work/bin"
printf '#!/bin/sh\necho "$1" >> "%s/opened.log"\n' "$work" > "$work/bin/xdg-open"
chmod +x "$work/bin/xdg-open"
: > "$work/opened.log"
before_programs() {
    dbus-monitor --session "type='method_call'" > "$work/monitor.log" 2>&1 &
    monitor=$!
    wait_until '[ -s "$work/monitor.log" ]' "dbus-monitor did not start"
}
start_session PATH="$work/bin:$PATH"
settle

# A 414 x 860 window: bar 44, header 3 x 60 + 30, section gaps 35, rows 44; the sheet is the last
# 260 points, its size wheel the middle one.
badge_row() { echo $((44 + 210 + 35 + 44 + 35 + $1 * 44 + 22)); }

# The font sheet: turn the size wheel, then tap above the sheet.
tap 200 "$(badge_row 2)"; settle
size_before=$(setting BADGE_FONT_SIZE)
drag 305 760 305 690; settle
photograph "$shots-font-sheet.png"
wait_until '[ "$(setting BADGE_FONT_SIZE)" != "$size_before" ]' "turning the size wheel stored no size"
font_size=$(setting BADGE_FONT_SIZE)
saves=$(count saveBadgeImages); reloads=$(count reloadData)
tap 200 300; settle
wait_until '[ "$(count saveBadgeImages)" -ge $((saves + 5)) ]' "closing the sheet did not reload the table"
[ "$(count reloadData)" = "$reloads" ] || fail "closing the sheet sent reloadData"
[ "$(count saveBadgeImages)" = $((saves + 5)) ] || fail "closing the sheet reloaded more than once"

# The background grid: tap the swatch in row 2, column 3, then go back.
tap 200 "$(badge_row 3)"; settle
photograph "$shots-color-grid.png"
tap 207 $((44 + 2 + 82 + 41)); sleep 0.3
chosen=$(setting BADGE_BACKGROUND_COLOR)
[ "$chosen" != "1,1,1,1" ] || fail "tapping a swatch stored no background color"
saves=$(count saveBadgeImages)
tap 40 22; settle
wait_until '[ "$(count reloadData)" = $((reloads + 1)) ]' "leaving the grid sent no reloadData"
wait_until '[ "$(count saveBadgeImages)" -ge $((saves + 5)) ]' "leaving the grid did not reload the table"
reloads=$(count reloadData)

# The position editor: the square is 180 points, centered in the 414 x 816 page; the icon sits in
# its middle and the badge at the icon's top-left corner.
tap 200 "$(badge_row 4)"; settle
drag 185 430 150 400; sleep 0.3
photograph "$shots-position-editor.png"
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
photograph
# The badge's left half, where the drag left it (35 and 30 points up and left of the icon's
# corner at 177,134), wears the chosen background color.
pixel=$(convert "$SCREENSHOT" -format '%[fx:int(255*p{147,116}.r)] %[fx:int(255*p{147,116}.g)] %[fx:int(255*p{147,116}.b)]' info:)
read -r red green blue <<< "$pixel"
awk -v c="$chosen" -v r="$red" -v g="$green" -v b="$blue" 'BEGIN {
    split(c, want, ","); d = 0
    d += (r - 255 * want[1]) ^ 2; d += (g - 255 * want[2]) ^ 2; d += (b - 255 * want[3]) ^ 2
    exit !(d < 300) }' || fail "the preview shows $pixel where the badge should be, not $chosen"
echo "font size $font_size, background $chosen, links: $(tr '\n' ' ' < "$work/opened.log")"
echo "rows end to end: 1 passed, 0 failed"
