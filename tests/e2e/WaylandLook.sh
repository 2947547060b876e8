#!/usr/bin/env bash
# The settings window native on Wayland (a headless weston) beside X11 (Xvfb), at scale 1 and 2:
# the smoke test, then the page, the font sheet, the notice and a color grid, reached by the
# window's accessibility actions (no input device needed) and photographed by each display server.
# Each Wayland picture must match its X11 twin but for a few pixels; all are kept.
#   WaylandLook.sh BUILD_DIR OUTPUT_FOLDER
BUILD_DIR=$(cd "$1" && pwd)
out=$(mkdir -p "$2" && cd "$2" && pwd)
SCREENSHOT=$out/failure.png
here=$(cd "$(dirname "$0")" && pwd)
source "$here/WindowSession.sh"

export POMWICK_ANIMATION_SCALE=0 QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 PYTHONDONTWRITEBYTECODE=1
export XDG_RUNTIME_DIR=$work/runtime
mkdir -m 700 "$XDG_RUNTIME_DIR" "$work/shots"
# The window's size in points; X11's screen is taller, as the window keeps clear of its bottom.
width=414 height=860
# Pixels that may differ (10 % fuzz: antialiasing), per thousand of the picture.
allowed_per_mille=${POMWICK_WAYLAND_ALLOWED_PER_MILLE:-5}
looks=(page font-sheet notice grid)

stop() {
    kill "${host:-}" "${renderer:-}" "${accessibility_bus:-}" "${DBUS_SESSION_BUS_PID:-}" \
        "${compositor:-}" "${xserver:-}" 2>/dev/null || true
    wait 2>/dev/null || true
    host="" renderer="" accessibility_bus="" DBUS_SESSION_BUS_PID="" compositor="" xserver=""
    unset DBUS_SESSION_BUS_ADDRESS DISPLAY WAYLAND_DISPLAY
}
trap 'stop; cleanup' EXIT

# The desktop shell without its panel, on a magenta ground that no window paints: the window's
# place (which the shell chooses) is what differs from the ground.
start_weston() { # SCALE
    local socket=pomwick-$$-$1
    printf '[core]\nidle-time=0\n[shell]\npanel-position=none\nbackground-color=0xffff00ff\nlocking=false\n' \
        >"$work/weston.ini"
    weston --config="$work/weston.ini" --backend=headless-backend.so --use-pixman --debug \
        --width=$((width * $1)) --height=$(((height + 40) * $1)) --socket="$socket" \
        2>"$work/weston.log" &
    compositor=$!
    wait_until '[ -S "$XDG_RUNTIME_DIR/$socket" ]' "weston did not start"
    export WAYLAND_DISPLAY=$socket
}

# The bus, the accessibility bus, the renderer and the window, on a fresh device root.
start_programs() { # ENVIRONMENT...
    rm -rf "$root" && mkdir "$root"
    eval "$(env -u DISPLAY -u WAYLAND_DISPLAY dbus-launch --sh-syntax)"
    /usr/libexec/at-spi-bus-launcher --launch-immediately 2>"$work/accessibility.log" &
    accessibility_bus=$!
    wait_until 'dbus-send --session --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress \
        >/dev/null 2>&1' "the accessibility bus did not start"
    "$BUILD_DIR/Renderer/pomwick-renderer" --root "$root" 2>"$work/renderer.log" &
    renderer=$!
    wait_until '[ -s "$root/tmp/iconSize.txt" ]' "the renderer reported no icon size"
    env "$@" "$BUILD_DIR/Host/pomwick-settings" --root "$root" 2>"$work/host.log" &
    host=$!
    wait_for_fresh_preview none
}

tour() { # SHOOT_COMMAND PREFIX
    /usr/bin/python3 "$here/LookTour.py" "$1" "$2" >"$work/tour.log" 2>&1 ||
        { cat "$work/tour.log" >&2; fail "the tour of $2 failed"; }
}

for scale in 1 2; do
    w=$((width * scale)) h=$((height * scale))

    start_x_server "${w}x$((h + 40 * scale))"
    start_programs QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$scale
    tour "import -display $DISPLAY -window root -crop ${w}x$h+0+0 +repage {file}" "$out/x11-$scale"
    stop

    start_weston "$scale"
    QT_QPA_PLATFORM=wayland QT_SCALE_FACTOR=$scale "$BUILD_DIR/Host/pomwick-settings" \
        --root "$root" --smoke-test >"$work/smoke.log" 2>&1 ||
        { cat "$work/smoke.log" >&2; fail "the smoke test failed on Wayland at scale $scale"; }
    # Qt draws no frame of its own: X11's window has none either (no window manager there).
    start_programs QT_QPA_PLATFORM=wayland QT_SCALE_FACTOR=$scale QT_WAYLAND_DISABLE_WINDOWDECORATION=1
    tour "cd $work/shots && rm -f wayland-screenshot-*.png && weston-screenshooter &&
          convert wayland-screenshot-*.png -bordercolor magenta -border 1 -trim +repage {file}" \
        "$out/wayland-$scale"
    stop

    for look in "${looks[@]}"; do
        x11=$out/x11-$scale-$look.png wayland=$out/wayland-$scale-$look.png
        size=$(identify -format '%wx%h' "$wayland")
        [ "$size" = "${w}x$h" ] || fail "the Wayland $look at scale $scale is $size, not ${w}x$h"
        differing=$(compare -metric AE -fuzz 10% "$x11" "$wayland" "$out/difference-$scale-$look.png" 2>&1 || true)
        echo "scale $scale, $look: $differing pixels differ"
        [ "$differing" -le $((w * h * allowed_per_mille / 1000)) ] ||
            fail "Wayland's $look at scale $scale differs from X11's in $differing pixels"
    done
done
echo "wayland look: 1 passed, 0 failed"
