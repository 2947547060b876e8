# Sourced by the real-window tests: a private X server and session bus, a temporary device root,
# the renderer and the settings window, and helpers to wait for what the programs do.
#   BUILD_DIR and SCREENSHOT must be set; the caller runs `start_session`.
set -euo pipefail
export LC_ALL=C.UTF-8
root=$(mktemp -d)
work=$(mktemp -d)
cleanup() {
    kill "${host:-}" "${renderer:-}" "${accessibility_bus:-}" 2>/dev/null || true
    [ -n "${DBUS_SESSION_BUS_PID:-}" ] && kill "$DBUS_SESSION_BUS_PID" 2>/dev/null || true
    [ -n "${xserver:-}" ] && kill "$xserver" 2>/dev/null || true
    rm -rf "$root" "$work"
}
trap cleanup EXIT

fail() {
    echo "FAIL: $*" >&2
    import -display "$DISPLAY" -window root "${SCREENSHOT%.png}-failure.png" 2>/dev/null || true
    kill -0 "${xserver:-0}" 2>/dev/null || echo "the X server on $DISPLAY has gone:" >&2
    cat "$work/xvfb.log" >&2 || true
    echo "host said:" >&2; cat "$work/host.log" >&2 || true
    echo "renderer said:" >&2; cat "$work/renderer.log" >&2 || true
    exit 1
}
setting() { "$BUILD_DIR/Tools/pomwick-defaults" --root "$root" read "$1"; }
# Waits up to 10 s for a setting to read as expected (the machine may be busy with other tests).
expect_setting() {
    for _ in $(seq 200); do
        [ "$(setting "$1")" = "$2" ] && return 0
        sleep 0.05
    done
    fail "$3 (${1} = '$(setting "$1")', not '$2')"
}

# The X server writes its display number to the pipe once it accepts clients; reading it is the
# wait (and an X server that dies closes the pipe, so the read ends).
start_x_server() {
    mkfifo "$work/displayfd"
    Xvfb -displayfd 3 -screen 0 1024x900x24 -nolisten tcp 3>"$work/displayfd" 2>"$work/xvfb.log" &
    xserver=$!
    local number=""
    read -r -t 60 number <"$work/displayfd" || true
    [ -n "$number" ] || { cat "$work/xvfb.log" >&2; echo "FAIL: Xvfb did not start" >&2; exit 1; }
    export DISPLAY=":$number"
}

background="$root/tmp/badgeBackground.png"
# The renderer swaps a new file in for every preview: its inode, time and size name one version.
# (Times alone would not do: file times tick more coarsely than the clock of `date`.)
preview_stamp() { stat -c '%i %.9Y %s' "$background" 2>/dev/null || echo none; }
# Waits until the renderer has written a preview other than the one stamped: the page has
# rebuilt itself or let go of a slider and asked for a fresh preview.
wait_for_fresh_preview() {
    for _ in $(seq 200); do
        [ "$(preview_stamp)" != "$1" ] && [ -s "$background" ] && return 0
        sleep 0.05
    done
    fail "the page asked for no fresh preview"
}

# Starts everything, with the extra environment given for the settings window, and waits for its
# window and its first preview. A caller's `before_programs`, when defined, runs once the bus is up.
start_session() {
    start_x_server
    # Without the display: dbus-launch then neither needs nor watches the X server.
    eval "$(env -u DISPLAY dbus-launch --sh-syntax)"
    [ -n "${DBUS_SESSION_BUS_PID:-}" ] || fail "no session bus"
    if [ "$(type -t before_programs)" = function ]; then before_programs; fi
    "$BUILD_DIR/Renderer/pomwick-renderer" --root "$root" 2>"$work/renderer.log" &
    renderer=$!
    # The home screen runs before Settings opens: the page sizes its header from the icon size the
    # renderer reports at start, and reads it once.
    for _ in $(seq 200); do
        [ -s "$root/tmp/iconSize.txt" ] && break
        sleep 0.05
    done
    [ -s "$root/tmp/iconSize.txt" ] || fail "the renderer reported no icon size"
    env "$@" "$BUILD_DIR/Host/pomwick-settings" --root "$root" 2>"$work/host.log" &
    host=$!
    window=$(xdotool search --sync --onlyvisible --name '^Settings$' | head -n 1) || true
    [ -n "$window" ] || fail "the settings window did not appear"
    eval "$(xdotool getwindowgeometry --shell "$window")"
    wait_for_fresh_preview none
}

photograph() {
    import -display "$DISPLAY" -window root -crop "${WIDTH}x${HEIGHT}+${X}+${Y}" "$SCREENSHOT"
    [ -s "$SCREENSHOT" ] || fail "no screenshot"
}
