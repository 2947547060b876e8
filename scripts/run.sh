#!/usr/bin/env bash
# Opens Pomwick's settings window from this source tree: installs what is missing, builds the
# programs and the bundle, and starts the window on a private session bus that starts the
# renderer from the build tree on demand (D-Bus activation: "Respring" kills the renderer, the
# next request starts it again). Needs no systemd. One bus per user and device root: a second
# run for the same root brings the open window forward instead of opening another.
set -euo pipefail
cd "$(dirname "$0")/.."

usage() {
    cat <<USAGE
usage: scripts/run.sh [--list] [--root DIR]
Builds and opens Pomwick's settings window on its page (Ctrl+Q or the window's close button
ends it).
  --list        open on the list of bundles instead of the page
  --root DIR    the device root (else \$POMWICK_ROOT, else ~/.local/state/pomwick/device)
USAGE
}
usage_error() { echo "run.sh: $1 (see 'scripts/run.sh --help')" >&2; exit 2; }

host_options=()
while [ $# -gt 0 ]; do
    case "$1" in
        --list) host_options+=(--list) ;;
        --root) [ -n "${2:-}" ] || usage_error "--root needs a folder"
                POMWICK_ROOT=$(realpath -m -- "$2"); shift ;;
        --root=*) [ -n "${1#--root=}" ] || usage_error "--root needs a folder"
                  POMWICK_ROOT=$(realpath -m -- "${1#--root=}") ;;
        -h|--help) usage; exit 0 ;;
        *) usage_error "unknown option '$1'" ;;
    esac
    shift
done
# The renderer is started by the bus, with the bus's environment: it finds the root there.
POMWICK_ROOT=${POMWICK_ROOT:-${XDG_STATE_HOME:-$HOME/.local/state}/pomwick/device}
export POMWICK_ROOT

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    cat >&2 <<MSG
run.sh: there is no display to open the settings window on (neither DISPLAY nor WAYLAND_DISPLAY
is set). Without a display, the preview can still be made headless:
    scripts/preview.sh out.png
and the settings read and written with build/Tools/pomwick-defaults (see README.md).
MSG
    exit 1
fi

scripts/install-deps.sh
echo "run.sh: building the programs and the bundle (the first build takes a few minutes)"
scripts/build.sh release pomwick-settings pomwick-renderer pomwick-defaults PomwickPreferences

# The private bus of this root, if a run before this one left it running.
state=${XDG_RUNTIME_DIR:-/tmp}/pomwick-run-$(id -u)
mkdir -p -m 700 "$state"
key=$(printf '%s' "$POMWICK_ROOT" | sha256sum | cut -c1-16)
address_file=$state/$key.bus
exec 9>"$state/$key.lock"
flock 9
if address=$(cat "$address_file" 2>/dev/null) &&
    DBUS_SESSION_BUS_ADDRESS=$address dbus-send --session --dest=org.freedesktop.DBus \
        --type=method_call / org.freedesktop.DBus.Peer.Ping 2>/dev/null; then
    exec 9>&-
    DBUS_SESSION_BUS_ADDRESS=$address exec build/Host/pomwick-settings "${host_options[@]}"
fi

# The first run: a new bus, whose address the window's process hands back through a pipe before
# it becomes the window, so that later runs find it.
pipe=$(mktemp -u "$state/address.XXXXXX")
mkfifo -m 600 "$pipe"
trap 'rm -f "$pipe" "$address_file"' EXIT
scripts/with-service-bus.sh build/dist/services sh -c \
    'printf "%s\n" "$DBUS_SESSION_BUS_ADDRESS" >"$0"; exec "$@"' "$pipe" \
    build/Host/pomwick-settings "${host_options[@]}" 9>&- &
window=$!
# Opened for reading and writing, the pipe never blocks its opening, only the read, which gives up
# after a while when the bus could not start.
exec 8<>"$pipe"
if read -r -t 30 address <&8; then
    printf '%s\n' "$address" >"$address_file"
fi
exec 8<&- 9>&-
status=0
wait "$window" || status=$?
exit "$status"
