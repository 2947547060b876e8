#!/usr/bin/env bash
# Sheets and pages in a person's hands, in the real window, with transitions as jumps. With
# the keyboard alone: the font sheet keeps twelve Tabs (each followed by Left, which would change a
# control of the page) and changes nothing; Escape closes it with the focus back on "Font:", from
# where Tab and Space open the background grid; Escape and Alt+Left leave the grid with the focus
# back on its row. With the mouse: a double click on "Background Color" stores nothing, one on
# "Font:" leaves the sheet open; the mail composer keeps twelve Tabs and changes nothing. A page or
# sheet that jumps in swallows the rest of the double click that opened it; the tests of the
# navigation and the sheet hold a slide in flight to check the input it swallows meanwhile.
#   SettingsModalityEndToEnd.sh BUILD_DIR SCREENSHOT.png
BUILD_DIR=$1
SCREENSHOT=$2
source "$(dirname "$0")/WindowSession.sh"

count() { grep -c "member=$1" "$work/monitor.log" || true; }
key() { xdotool key --delay 40 "$@"; }
# Past the double-click interval (400 ms), within which a page or sheet just in takes no click.
settle() { sleep 0.5; }
tap() { at "$1" "$2"; xdotool click 1; }
double_tap() { at "$1" "$2"; xdotool click --repeat 2 --delay 60 1; }
snapshot() { "$BUILD_DIR/Tools/pomwick-defaults" --root "$root" read; }
unchanged() { [ "$(snapshot)" = "$initial" ] || fail "$1: $(diff <(echo "$initial") <(snapshot))"; }
tabs_inside() { for _ in $(seq 12); do key Tab Left; done; }
# Waits for the table to reload from a closed sheet (five preview requests) or a left page.
reloaded_since() { wait_until "[ \"\$(count $1)\" -gt $2 ]" "$3"; }

# A mail transport, so that Contact Us opens the composer; and a monitor of the bus's messages.
mkdir "$work/bin"
printf '#!/bin/sh\ncat > /dev/null\n' > "$work/bin/sendmail"
chmod +x "$work/bin/sendmail"
before_programs() {
    dbus-monitor --session "type='method_call'" > "$work/monitor.log" 2>&1 &
    monitor=$!
    wait_until '[ -s "$work/monitor.log" ]' "dbus-monitor did not start"
}
start_session PATH="$work/bin:$PATH"
xdotool windowfocus --sync "$window"
settle
initial=$(snapshot)

# The window, "Respring", the switch, "Show", the text, the tip, then "Font:".
key Tab Tab Tab Tab Tab Tab Tab space; settle
tabs_inside
unchanged "a key in the font sheet reached the page"
saves=$(count saveBadgeImages)
key Escape; settle
reloaded_since saveBadgeImages "$saves" "Escape did not close the font sheet"
reloads=$(count reloadData)
key Tab space; settle
key Escape; settle
reloaded_since reloadData "$reloads" "Tab and Space after the sheet did not open the grid, or Escape did not leave it"
reloads=$(count reloadData)
key space; settle
photograph "${SCREENSHOT%.png}-grid.png"
key alt+Left; settle
reloaded_since reloadData "$reloads" "Space after leaving the grid did not open it again, or Alt+Left did not leave it"
unchanged "going in and out by the keyboard changed a setting"

# A 414 x 860 window: bar 44, header 210, section gaps 35, rows 44; the keyboard's focus may have
# scrolled the page, so back to its top first.
badge_row() { echo $((44 + 210 + 35 + 44 + 35 + $1 * 44 + 22)); }
at 200 400
for _ in $(seq 15); do xdotool click 4; done; settle
reloads=$(count reloadData)
double_tap 200 "$(badge_row 3)"; settle
unchanged "the second click of a double click on \"Background Color\" chose a color"
tap 40 22; settle
reloaded_since reloadData "$reloads" "the double click did not open the grid"
saves=$(count saveBadgeImages)
double_tap 200 "$(badge_row 2)"; settle
[ "$(count saveBadgeImages)" = "$saves" ] || fail "a double click on \"Font:\" closed the sheet it opened"
tap 200 300; settle
reloaded_since saveBadgeImages "$saves" "the sheet was not open after the double click"

# The composer, from "Contact Us" at the bottom of the table.
at 200 400
for _ in $(seq 15); do xdotool click 5; done; settle
tap 200 623; settle
photograph "${SCREENSHOT%.png}-composer.png"
tabs_inside
unchanged "a key in the mail composer reached the page"
photograph
echo "settings modality end to end: 1 passed, 0 failed"
