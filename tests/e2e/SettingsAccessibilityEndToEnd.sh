#!/usr/bin/env bash
# The page as a screen reader finds it: the accessibility bus of the desktop (at-spi2-core) on a
# private session bus, the real renderer and window, and an independent client (pyatspi) that
# lists every control and row, reads the alpha slider and toggles the switch by its action.
#   SettingsAccessibilityEndToEnd.sh BUILD_DIR SCREENSHOT.png
BUILD_DIR=$1
SCREENSHOT=$2
source "$(dirname "$0")/WindowSession.sh"

before_programs() {
    /usr/libexec/at-spi-bus-launcher --launch-immediately 2>"$work/accessibility.log" &
    accessibility_bus=$!
    # The launcher owns its name on the session bus once it can hand out the bus's address.
    for _ in $(seq 200); do
        dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress \
            >/dev/null 2>&1 && return 0
        sleep 0.05
    done
    fail "the accessibility bus did not start"
}
"$BUILD_DIR/Tools/pomwick-defaults" --root "$root" write BADGE_ALPHA 0.4
start_session QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1

# Debian's own Python, which the pyatspi package installs into.
/usr/bin/python3 "$(dirname "$0")/AccessibilityClient.py" >"$work/client.log" 2>&1 ||
    { cat "$work/client.log" >&2; fail "the accessibility client failed"; }
cat "$work/client.log"
expect_setting ENABLED false "the switch's toggle action did not switch the tweak off"

photograph
echo "settings accessibility end to end: 1 passed, 0 failed"
