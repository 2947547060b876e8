# Sourced by the real-window tests: a private X server and session bus, a temporary device root,
# the renderer and the settings window, and helpers to wait for what the programs do.
#   BUILD_DIR and SCREENSHOT must be set; the caller runs `start_session`.
set -euo pipefail
export LC_ALL=C.UTF-8
# Transitions are jumps, so that no script waits for one.
export POMWICK_ANIMATION_SCALE=0
root=$(mktemp -d)
work=$(mktemp -d)
cleanup() {
    kill "${host:-}" "${renderer:-}" "${accessibility_bus:-}" "${monitor:-}" 2>/dev/null || true
    [ -n "${DBUS_SESSION_BUS_PID:-}" ] && kill "$DBUS_SESSION_BUS_PID" 2>/dev/null || true
    [ -n "${xserver:-}" ] && kill "$xserver" 2>/dev/null || true
    rm -rf "$root" "$work"
}
trap cleanup EXIT

fail() {
    echo "FAIL: $*" >&2
    import -display "${DISPLAY:-}" -window root "${SCREENSHOT%.png}-failure.png" 2>/dev/null || true
    kill -0 "${xserver:-0}" 2>/dev/null || echo "the X server on ${DISPLAY:-} has gone:" >&2
    for log in "$work"/*.log; do
        [ -s "$log" ] && { echo "$(basename "$log" .log):" >&2; cat "$log" >&2; }
    done
    exit 1
}
setting() { "$BUILD_DIR/Tools/pomwick-defaults" --root "$root" read "$1"; }
# Waits up to 10 s for a condition (the machine may be busy with other tests).
wait_for() {
    for _ in $(seq 200); do
        eval "$1" && return 0
        sleep 0.05
    done
    return 1
}
wait_until() { wait_for "$1" || fail "$2"; } # CONDITION FAILURE
expect_setting() { # KEY VALUE FAILURE
    local key=$1 value=$2
    wait_for '[ "$(setting "$key")" = "$value" ]' || fail "$3 ($key = '$(setting "$key")', not '$value')"
}

# The X server writes its display number to the pipe once it accepts clients; reading it is the
# wait (and an X server that dies closes the pipe, so the read ends). It is given a display that
# no server holds (no lock, no socket): another test taking the same one at the same moment makes
# this server exit at once, and the next free one is tried. With -noreset the server does not
# reset, refusing clients meanwhile, each time its last client leaves.
start_x_server() { # [WIDTHxHEIGHT]
    local candidate=$((100 + RANDOM % 800)) number="" attempt
    for attempt in $(seq 20); do
        while [ -e "/tmp/.X$candidate-lock" ] || [ -e "/tmp/.X11-unix/X$candidate" ]; do
            candidate=$((candidate + 1))
        done
        rm -f "$work/displayfd"
        mkfifo "$work/displayfd"
        Xvfb ":$candidate" -displayfd 3 -noreset -screen 0 "${1:-1024x900}x24" -nolisten tcp \
            3>"$work/displayfd" 2>"$work/xvfb.log" &
        xserver=$!
        number=""
        read -r -t 60 number <"$work/displayfd" || true
        [ "$number" = "$candidate" ] && break
        kill "$xserver" 2>/dev/null || true
        wait "$xserver" 2>/dev/null || true
        xserver="" number=""
        candidate=$((candidate + 1))
    done
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
    local before=$1
    wait_until '[ "$(preview_stamp)" != "$before" ] && [ -s "$background" ]' \
        "the page asked for no fresh preview"
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
    wait_until '[ -s "$root/tmp/iconSize.txt" ]' "the renderer reported no icon size"
    env "$@" "$BUILD_DIR/Host/pomwick-settings" --root "$root" 2>"$work/host.log" &
    host=$!
    window=$(xdotool search --sync --onlyvisible --name '^Settings$' | head -n 1) || true
    [ -n "$window" ] || fail "the settings window did not appear"
    eval "$(xdotool getwindowgeometry --shell "$window")"
    wait_for_fresh_preview none
}

# Moves the pointer to a point of the window: X Y.
at() { xdotool mousemove --sync $((X + $1)) $((Y + $2)); }

# The window as it is now, into SCREENSHOT or the file given.
photograph() {
    local file=${1:-$SCREENSHOT}
    import -display "$DISPLAY" -window root -crop "${WIDTH}x${HEIGHT}+${X}+${Y}" "$file"
    [ -s "$file" ] || fail "no screenshot"
}
