#!/usr/bin/env bash
# The notice in every mode, photographed on a private X server.
#   NoticeScreenshots.sh GALLERY_PROGRAM OUTPUT_FOLDER
gallery=$1
SCREENSHOT=$2/notice-gallery.png
source "$(dirname "$0")/WindowSession.sh"
mkdir -p "$2"
start_x_server 1400x900
QT_QPA_PLATFORM=xcb "$gallery" "$SCREENSHOT" 2>"$work/gallery.log" || fail "the gallery failed"
[ -s "$SCREENSHOT" ] || fail "no notice-gallery.png"
