#!/usr/bin/env bash
# Builds Pomwick as a packager does (a plain Release build: no tests, benchmarks or
# warnings-as-errors), installs it into a fresh DESTDIR and twice into a prefix with a space in its
# path, makes the Debian package, deletes the build tree, and checks what was installed: the
# programs run, the desktop files validate, and the bus starts the renderer on the first request
# and again after "Respring" killed it.
set -euo pipefail
cd "$(dirname "$0")/.."

work=$(mktemp -d "${TMPDIR:-/tmp}/pomwick install.XXXXXX")
trap 'rm -rf "$work"' EXIT
tree="$work/build"
prefix="$work/with space/usr"
fail() { echo "check-install: $*" >&2; exit 1; }

launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S . -B "$tree" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
    -DBUILD_TESTING=OFF "${launcher[@]}" >/dev/null
cmake --build "$tree" -j "$(nproc)" >"$work/build.log" 2>&1 || { cat "$work/build.log"; fail "build failed"; }
DESTDIR="$work/destdir" cmake --install "$tree" >/dev/null
cmake --install "$tree" --prefix "$prefix" >/dev/null
cmake --install "$tree" --prefix "$prefix" >/dev/null # over the first
(cd "$tree" && cpack -G DEB >"$work/cpack.log" 2>&1) || { cat "$work/cpack.log"; fail "cpack failed"; }
mv "$tree"/*.deb "$work/"
rm -rf "$tree"

echo "== installed product"
if grep -rlF "$PWD" "$work/destdir" "$prefix"; then
    fail "the files above name the source tree"
fi
# One private library, versioned, that exports our own API and nothing else.
libraries=$(find "$prefix/lib" -name 'libpomwick*.so*' -type f)
[ "$(wc -l <<<"$libraries")" -eq 1 ] || fail "expected one shared library, found: $libraries"
readelf -d "$libraries" | grep -q "SONAME.*libpomwick-platform\.so\.[0-9]" || fail "no versioned SONAME"
foreign=$(nm -D --defined-only -C "$libraries" | awk '{ $1 = $2 = ""; print }' |
    grep -v '^  \(pomwick::\|typeinfo for pomwick::\|typeinfo name for pomwick::\|vtable for pomwick::\|VTT for pomwick::\|non-virtual thunk to pomwick::\|virtual thunk to pomwick::\)' || true)
[ -z "$foreign" ] || fail "the library exports more than its API: $foreign"
echo "check-install: $(nm -D --defined-only "$libraries" | wc -l) symbols exported"

export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$work/runtime"
mkdir -m 700 "$XDG_RUNTIME_DIR"
for installed in "$work/destdir/usr" "$prefix"; do
    root="$work/root $(basename "$(dirname "$installed")")"
    for program in pomwick-settings pomwick-renderer pomwick-defaults; do
        "$installed/bin/$program" --version | grep -q "^$program [0-9]" || fail "$program --version"
    done
    dbus-run-session -- "$installed/bin/pomwick-settings" --root "$root" --smoke-test 2>/dev/null |
        grep -q "smoke test passed" || fail "smoke test of $installed"
    "$installed/bin/pomwick-defaults" --root "$root" read | grep -q "^BADGE_FONT = Verdana 16$" ||
        fail "pomwick-defaults read of $installed"
    # The window speaks the session's language, from the translations built into it.
    LC_ALL= LANG=de_DE.UTF-8 "$installed/bin/pomwick-settings" --help | grep -q "diese Hilfe anzeigen" ||
        fail "pomwick-settings of $installed in German"
    LC_ALL= LANG=C.UTF-8 LANGUAGE=he "$installed/bin/pomwick-settings" --help | grep -q "הצגת הגרסה" ||
        fail "pomwick-settings of $installed in Hebrew"
done

desktop-file-validate "$prefix/share/applications/com.velquor.Pomwick.desktop"
appstreamcli validate --no-net --pedantic "$prefix/share/metainfo/com.velquor.Pomwick.metainfo.xml" \
    >/dev/null || fail "appstreamcli validate"
grep -qx "Exec=\"$prefix/bin/pomwick-renderer\"" \
    "$prefix/share/dbus-1/services/com.velquor.pomwick.service" || fail "service file's Exec"
if command -v systemd-analyze >/dev/null; then
    systemd-analyze verify "$prefix/lib/systemd/user/pomwick-renderer.service" ||
        fail "systemd-analyze verify"
fi

echo "== the Debian package"
deb=$(ls "$work"/*.deb)
depends=$(dpkg-deb -f "$deb" Depends)
for needed in libqt6widgets6 libqt6dbus6 libplist3 libfontconfig1 dbus-daemon fonts-dejavu-core; do
    grep -q "$needed" <<<"$depends" || fail "the package does not depend on $needed: $depends"
done
contents=$(dpkg-deb -c "$deb")
grep -q "usr/share/pomwick/PomwickPreferences.bundle/PomwickPreferences.so" <<<"$contents" ||
    fail "the package lacks the bundle"
service=$(dpkg-deb --fsys-tarfile "$deb" | tar -xO ./usr/share/dbus-1/services/com.velquor.pomwick.service)
grep -qx 'Exec="/usr/bin/pomwick-renderer"' <<<"$service" || fail "the package's service file"
echo "$(basename "$deb"): Depends: $depends"

echo "== the renderer started by the bus"
# The bus starts the renderer with its own environment: the root goes there.
export POMWICK_ROOT="$work/root activation"
scripts/with-service-bus.sh "$prefix/share/dbus-1/services" bash -c '
    set -euo pipefail
    installed=$1 answers=$2
    renderer_pid() {
        gdbus call --session --dest org.freedesktop.DBus --object-path /org/freedesktop/DBus \
            --method org.freedesktop.DBus.GetConnectionUnixProcessID com.velquor.pomwick |
            awk "{ print \$2 + 0 }"
    }
    answered() { grep -c "member=badgeSavedToTmp" "$answers" || true; }
    # Sends "saveBadgeImages" and waits (30 s at most) for a "badgeSavedToTmp" more than before.
    request_and_await_answer() {
        local before
        before=$(answered)
        dbus-send --session --type=method_call --dest=com.velquor.pomwick /com/velquor/pomwick \
            com.velquor.pomwick.saveBadgeImages
        for _ in $(seq 600); do
            [ "$(answered)" -gt "$before" ] && return 0
            sleep 0.05
        done
        return 1
    }
    # The answers go to the screen'"'"'s center, which nobody serves here: a monitor sees them.
    dbus-monitor --session "type=method_call,member=badgeSavedToTmp" >"$answers" 2>/dev/null &
    monitor=$!
    trap "kill $monitor" EXIT
    until grep -q NameLost "$answers"; do sleep 0.05; done

    # No renderer runs: the request starts the installed one, which answers.
    request_and_await_answer
    first=$(renderer_pid)
    [ "$(readlink "/proc/$first/exe")" = "$installed/bin/pomwick-renderer" ]
    # "Respring": the renderer is killed; the next request starts a new one, which answers.
    kill -KILL "$first"
    while [ "$(gdbus call --session --dest org.freedesktop.DBus \
        --object-path /org/freedesktop/DBus --method org.freedesktop.DBus.NameHasOwner \
        com.velquor.pomwick)" = "(true,)" ]; do
        sleep 0.05
    done
    request_and_await_answer
    [ "$(renderer_pid)" != "$first" ]
    # And the window shows its preview from it.
    timeout 60 "$installed/bin/pomwick-settings" --exit-after-first-preview
' check-activation "$prefix" "$work/answers" 2> >(grep -v "fd limit\|XDG_RUNTIME\|ctivat\|onitor" >&2) ||
    fail "the bus did not start the installed renderer, or not again after Respring"
echo "check-install: passed"
