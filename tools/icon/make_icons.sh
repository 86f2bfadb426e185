#!/bin/sh
# Makes the icon's PNG sizes and the Windows .ico from assets/icon/hopcast.svg.
# Needs Debian's librsvg2-bin and imagemagick; building Hopcast needs neither.
set -eu
cd "$(dirname "$0")/../../assets/icon"
for size in 16 24 32 48 64 128 256 512; do
    rsvg-convert --width=$size --height=$size --output=hopcast-$size.png hopcast.svg
done
# The small sizes become bitmaps and 256 a PNG inside the .ico, as Windows wants them.
convert hopcast-16.png hopcast-24.png hopcast-32.png hopcast-48.png hopcast-64.png hopcast-256.png \
    hopcast.ico
