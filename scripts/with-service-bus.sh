#!/usr/bin/env bash
# Runs a command on a private session bus that starts services from the given folder on demand,
# the way a desktop session's bus does (no systemd needed), and ends those services with it:
#   scripts/with-service-bus.sh SERVICE_FOLDER COMMAND [ARGUMENTS...]
set -euo pipefail

bus_call() {
    gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
        --method "org.freedesktop.DBus.$1" "${@:2}"
}
# The names a listing answer holds, one a line: "(['a', ':1.2'],)" gives a and :1.2.
names() { tr -d "()[],'" | tr ' ' '\n' | grep -v '^$'; }

# Inside the bus: run the command, then stop what the bus started for it (the services outlive
# the bus otherwise, connected to nothing).
if [ "${1:-}" = "--inside" ]; then
    shift
    status=0
    "$@" || status=$?
    activatable=$(bus_call ListActivatableNames | names | grep -vxF org.freedesktop.DBus)
    for name in $(bus_call ListNames | names); do
        grep -qxF "$name" <<<"$activatable" || continue
        pid=$(bus_call GetConnectionUnixProcessID "$name" | awk '{ print $2 + 0 }')
        [ "$pid" -gt 0 ] && kill -TERM "$pid" 2>/dev/null || true
    done
    exit "$status"
fi

services=$(realpath "$1")
shift
config=$(mktemp "${TMPDIR:-/tmp}/pomwick-bus.XXXXXX.conf")
trap 'rm -f "$config"' EXIT
# Only < and & need escaping in the folder's name.
services_xml=$(printf '%s' "$services" | sed -e 's/&/\&amp;/g' -e 's/</\&lt;/g')
cat >"$config" <<CONF
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=${TMPDIR:-/tmp}</listen>
  <servicedir>$services_xml</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
CONF
dbus-run-session --config-file="$config" -- "$0" --inside "$@"
