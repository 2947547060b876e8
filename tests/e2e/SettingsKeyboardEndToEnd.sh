#!/usr/bin/env bash
# The page driven by the keyboard alone, in the real window with the real renderer: Tab to the
# switch, Space off and on, the left arrow to "Hide" and the right one back to "Show", typing a
# badge text,
# the arrow keys on the alpha slider, Return in the text field; the settings file follows.
#   SettingsKeyboardEndToEnd.sh BUILD_DIR SCREENSHOT.png
BUILD_DIR=$1
SCREENSHOT=$2
source "$(dirname "$0")/WindowSession.sh"
start_session
# Keys go to the window with the input focus.
xdotool windowfocus --sync "$window"
key() { xdotool key --delay 30 "$@"; }

# Presses a key that stores a setting and refreshes the preview: KEY NAME VALUE FAILURE.
press() {
    local before; before=$(preview_stamp)
    key "$1"
    expect_setting "$2" "$3" "$4"
    wait_for_fresh_preview "$before"
}

# The window holds the focus itself at first; then the back button, "Respring", the switch. The
# rebuilt row gives the focus back to its switch.
key Tab Tab Tab
press space ENABLED false "Space on the switch did not switch the tweak off"
press space ENABLED true "Space on the switch did not switch the tweak on"

# Tab lands on the selected segment, "Show"; the arrows choose.
key Tab
press Left BADGE_VISIBLE false "the left arrow did not choose \"Hide\""
press Right BADGE_VISIBLE true "the right arrow did not choose \"Show\""

key Tab
xdotool type --delay 40 '  Hi@ '
expect_setting BADGE_TEXT_FIELD_TEXT "  Hi@ " "typing did not store the text as typed"

# The info button, four rows, the border width slider, the alpha slider.
key Tab Tab Tab Tab Tab Tab Tab
key Left Left
# 0.97 as a 32-bit float, as the tool prints it.
press Left BADGE_ALPHA 0.970000029 "three steps left did not store the alpha 0.97"

# Back to the text field; Return stores the text trimmed.
key shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab
press Return BADGE_TEXT_FIELD_TEXT "Hi@" "Return did not store the trimmed text"

photograph
echo "settings keyboard end to end: 1 passed, 0 failed"
