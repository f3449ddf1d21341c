#!/usr/bin/env bash
# Makes the .ico files beside this script from the .svg files: `res/icons/build.sh [FOLDER]` (default: this folder).
#
# NAME.svg gives the 32 and 48 pixel images, NAME-16.svg the small one: at 16 pixels the outlines need a grid of
# their own. All images are stored as 32-bit bitmaps, since the device reads no PNG inside an icon.
# Needs rsvg-convert and ImageMagick; the same versions of both give the same bytes.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
out=${1:-$here}

magick=convert
if command -v convert-im6.q16 >/dev/null; then
    magick=convert-im6.q16
fi

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

for name in error warning information question vantor help; do
    rsvg-convert --width 16 --height 16 "$here/$name-16.svg" --output "$scratch/$name-16.png"
    rsvg-convert --width 32 --height 32 "$here/$name.svg" --output "$scratch/$name-32.png"
    rsvg-convert --width 48 --height 48 "$here/$name.svg" --output "$scratch/$name-48.png"
    "$magick" "$scratch/$name-16.png" "$scratch/$name-32.png" "$scratch/$name-48.png" \
        -strip -type TrueColorAlpha -define icon:format=bmp "$scratch/$name.ico"
    mv "$scratch/$name.ico" "$out/$name.ico"
done
