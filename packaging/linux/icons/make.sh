#!/usr/bin/env bash
# Remakes the icons from the drawing and from the window's own icon. 16.png, 22.png and 24.png are
# drawn by hand, because the digits of the drawing could not be read at these sizes.
set -euo pipefail
cd "$(dirname "$0")"
. ../../../tools/packages.sh

install_missing librsvg2-bin imagemagick
for size in 48 64 128 256; do
  rsvg-convert --width $size --height $size zendor-serial-extractor.svg --output $size.png
done
convert ../../../platform/shared/icon/zendor_serial_extractor.xpm -strip PNG32:32.png
