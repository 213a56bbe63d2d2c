#!/usr/bin/env bash
# Turns a 4000 x 4000 24-bit map picture (a blurred relief with roads,
# a river and grid lines, ~170,000 colours) into a 256-colour GIF with
# `ortelix image` and with ImageMagick's `convert -colors 256`, and prints
# both times, their ratio and the peak resident sizes. Both GIFs are checked
# by giflib's giftext when it is installed.
# Usage: bench/image-vs-imagemagick.sh BUILD_DIR
set -euo pipefail
build=${1:-build-bench}
here=$(cd "$(dirname "$0")" && pwd)
work=${BENCH_DIR:-$here/out}
mkdir -p "$work"
export ASAN_OPTIONS=detect_leaks=0

measure_tag=image
# shellcheck source=bench/measure.sh
source "$here/measure.sh"

big=$work/map-4000.bmp
if [ ! -f "$big" ]; then
  convert -size 4000x4000 -seed 7 plasma:green-tan -blur 0x14 -depth 7 \
    -stroke '#f0d040' -strokewidth 3 -draw 'line 0,250 3999,900' -draw 'line 1200,0 1600,3999' \
    -stroke '#3c6edc' -strokewidth 5 -draw 'line 0,2000 3999,2600' \
    -stroke black -strokewidth 1 -draw 'line 0,1000 3999,1000' -draw 'line 1000,0 1000,3999' \
    -depth 8 -type TrueColor "BMP3:$big"
fi

rm -f "$work/image-ortelix.gif" "$work/image-magick.gif"
read -r o_time o_rss < <(measure ortelix "$build/ortelix" image "$big" "$work/image-ortelix.gif")
read -r m_time m_rss < <(measure imagemagick convert "$big" -colors 256 "$work/image-magick.gif")

echo "file:      $big ($(identify -format '%wx%h, %k colours' "$big"))"
echo "gif:       ortelix $(du -k "$work/image-ortelix.gif" | cut -f1) KB, ImageMagick $(du -k "$work/image-magick.gif" | cut -f1) KB"
if command -v giftext >/dev/null; then
  for g in "$work/image-ortelix.gif" "$work/image-magick.gif"; do
    giftext "$g" | grep -q "GIF file terminated normally" || echo "giftext cannot read $g"
  done
fi
awk -v ot="$o_time" -v mt="$m_time" -v orss="$o_rss" -v mrss="$m_rss" 'BEGIN {
  printf "time:      ortelix %.2f s, ImageMagick %.2f s, ImageMagick/ortelix = %.1f\n", ot, mt, mt / (ot > 0 ? ot : 0.001)
  printf "peak RSS:  ortelix %.0f MB, ImageMagick %.0f MB\n", orss / 1024, mrss / 1024
}'
