#!/usr/bin/env bash
# Installs the Debian 12 packages that building, running and testing Pomwick need. Installs only
# what is missing; works as root or through sudo.
set -euo pipefail

packages=(
    build-essential cmake ninja-build pkg-config git clang-format
    qt6-base-dev qt6-base-dev-tools libgl-dev
    qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-translations-l10n
    libplist-dev libpng-dev libfontconfig-dev fontconfig fonts-dejavu-core fonts-liberation2
    libgtest-dev libgmock-dev libbenchmark-dev clang libclang-rt-14-dev
    dbus-daemon dbus-bin dbus-x11 libglib2.0-bin
    xvfb xdotool x11-utils imagemagick
    at-spi2-core python3-pyatspi
    libqt6svg6 locales-all
    libgmime-3.0-dev python3
    desktop-file-utils appstream
    weston qt6-wayland
)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$package")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "install-deps: these packages are missing and neither root nor sudo is available: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

echo "install-deps: installing ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
