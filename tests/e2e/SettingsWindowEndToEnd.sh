#!/usr/bin/env bash
# The real programs in a real X window: xdotool clicks the switch, drags the alpha slider, types a
# badge text and presses Return, takes it back with Ctrl+Z and makes it again with Ctrl+Shift+Z;
# then the settings file is checked and the window photographed.
#   SettingsWindowEndToEnd.sh BUILD_DIR SCREENSHOT.png
BUILD_DIR=$1
SCREENSHOT=$2
source "$(dirname "$0")/WindowSession.sh"
start_session

# The desktop finds the window's entry (StartupWMClass), shows its icon, and cannot shrink it
# below the size where the bar clips.
identity=$(xprop -id "$window" WM_CLASS _NET_WM_ICON WM_NORMAL_HINTS)
grep -q '^WM_CLASS(STRING) = "pomwick-settings"' <<<"$identity" || fail "WM_CLASS: $identity"
grep -qx 'StartupWMClass=pomwick-settings' "$(dirname "$0")/../../dist/com.velquor.Pomwick.desktop" ||
    fail "the desktop entry does not name the window's class"
grep -q 'Icon (' <<<"$identity" || fail "the window has no icon"
grep -q 'program specified minimum size: [1-9]' <<<"$identity" || fail "no minimum size"

at() { xdotool mousemove --sync $((X + $1)) $((Y + $2)); }
# Rows of a 414-point-wide window: bar 44, header 3 x 60 + 30, section gaps 35, rows 44.
enabled_row=$((44 + 210 + 35 + 22))
text_row=$((44 + 210 + 35 + 44 + 35 + 44 + 22))
alpha_row=$((44 + 210 + 35 + 44 + 35 + 7 * 44 + 22))

clicked=$(preview_stamp); at 368 "$enabled_row"; xdotool click 1
expect_setting ENABLED false "the switch did not switch the tweak off"
wait_for_fresh_preview "$clicked"
# The pointer is still on the switch (moving it where it is would wait for a motion that never
# comes).
clicked=$(preview_stamp); xdotool click 1
expect_setting ENABLED true "the switch did not switch the tweak on"
wait_for_fresh_preview "$clicked"

# A drag: the X server delivers the motions in order, so none needs a pause.
at 390 "$alpha_row"; xdotool mousedown 1
for x in 370 340 310 280 260; do at "$x" "$alpha_row"; done
released=$(preview_stamp); xdotool mouseup 1
wait_for_fresh_preview "$released"
alpha=$(setting BADGE_ALPHA)
awk -v a="$alpha" 'BEGIN { exit !(a > 0.3 && a < 0.9) }' || fail "dragging the slider stored BADGE_ALPHA = $alpha"

at 250 "$text_row"; xdotool click 1
xdotool type --delay 40 '  Hi@ '
returned=$(preview_stamp); xdotool key Return
expect_setting BADGE_TEXT_FIELD_TEXT "Hi@" "Return did not store the trimmed text"
wait_for_fresh_preview "$returned"

# The keyboard takes the text back and gives it again, wherever the focus is in the window.
undone=$(preview_stamp); xdotool key ctrl+z
expect_setting BADGE_TEXT_FIELD_TEXT "" "Ctrl+Z did not take the text back"
wait_for_fresh_preview "$undone"
xdotool key ctrl+shift+z
expect_setting BADGE_TEXT_FIELD_TEXT "Hi@" "Ctrl+Shift+Z did not make the text again"

photograph
echo "settings window end to end: 1 passed, 0 failed"
