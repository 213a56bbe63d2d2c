#!/usr/bin/env bash
# Writes the small EXIF seeds of fuzz/corpus/exif: the tiny JPEG of the tests
# with some tags (DateTime, a rational, a short, an undefined value, the EXIF
# and interoperability directories) and DateTime alone, written by exiftool
# in both byte orders.
# Usage: fuzz/make-exif-seeds.sh [DIR]   (default fuzz/corpus/exif)
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
dir=${1:-$here/corpus/exif}
mkdir -p "$dir"
tags=(-Make=Canon -Model='A80' -Orientation#=6 -XResolution=180 -ModifyDate='2006:02:16 16:23:10'
      -ExposureTime=0.004 -FNumber=2.8 -ISO=100 -ExifVersion=0220 -DateTimeOriginal='2006:02:16 16:20:00'
      -ComponentsConfiguration#='1 2 3 0' -BrightnessValue=-1.25 -UserComment='Urlaub' -FileSource#=3
      -InteropIndex=R98 -InteropVersion=0100)
for order in II MM; do
  out=$dir/tags-$order.jpg
  cp "$here/../tests/data/tiny.jpg" "$out"
  exiftool -q -overwrite_original -ExifByteOrder=$order "${tags[@]}" "$out"
  small=$dir/datetime-$order.jpg
  cp "$here/../tests/data/tiny.jpg" "$small"
  exiftool -q -overwrite_original -ExifByteOrder=$order -ModifyDate='2024:05:01 12:00:00' "$small"
done
