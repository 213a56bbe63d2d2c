#!/usr/bin/env bash
# Writes a large track as a Top50 ASCII overlay (.ovl) and reads it back, with
# ortelix and with gpsbabel (-o ggv_ovl / -i ggv_ovl) on the same data, and
# prints the times, their ratios, the throughput and the peak resident sizes.
#   write = (GPX in, .ovl out) minus (GPX in, nothing out)
#   read  = (.ovl in, nothing out), both programs on ortelix's .ovl
# Usage: bench/ovl-vs-gpsbabel.sh BUILD_DIR [POINTS]
set -euo pipefail
build=${1:-build-bench}
points=${2:-1000000}
here=$(cd "$(dirname "$0")" && pwd)
work=${BENCH_DIR:-$here/out}
mkdir -p "$work"
big=$work/big-$points.gpx
[ -f "$big" ] || python3 "$here/make-big-gpx.py" "$big" "$points"
export ASAN_OPTIONS=detect_leaks=0

measure_tag=ovl
# shellcheck source=bench/measure.sh
source "$here/measure.sh"

nothing=(-x nuketypes,waypoints,tracks,routes -o gpx -F /dev/null)

rm -f "$work/ovl-ortelix.ovl" "$work/ovl-gpsbabel.ovl"
# "Tracks anhängen" keeps the GPX's segments one track, one line symbol.
read -r o_in o_in_rss < <(measure ortelix-gpx "$build/ortelix" info --set Check12=1 "$big")
read -r o_conv o_conv_rss < <(measure ortelix-write "$build/ortelix" convert --set Check12=1 "$big" "$work/ovl-ortelix.ovl")
read -r o_read o_read_rss < <(measure ortelix-read "$build/ortelix" info "$work/ovl-ortelix.ovl")
read -r g_in g_in_rss < <(measure gpsbabel-gpx gpsbabel -t -i gpx -f "$big" "${nothing[@]}")
read -r g_conv g_conv_rss < <(measure gpsbabel-write gpsbabel -t -i gpx -f "$big" -o ggv_ovl -F "$work/ovl-gpsbabel.ovl")
# gpsbabel's overlay reader slows down far faster than the file grows (10,000
# points take it some 9 s, 30,000 more than two minutes): it reads a small
# overlay of ours, and the ratio compares the time per point.
small_points=${GPSBABEL_READ_POINTS:-10000}
small=$work/small-$small_points.gpx
[ -f "$small" ] || python3 "$here/make-big-gpx.py" "$small" "$small_points"
"$build/ortelix" convert --set Check12=1 "$small" "$work/ovl-small.ovl" >/dev/null
read -r g_read g_read_rss < <(measure gpsbabel-read gpsbabel -i ggv_ovl -f "$work/ovl-small.ovl" "${nothing[@]}")

mb=$(du -m "$work/ovl-ortelix.ovl" | cut -f1)
echo "file:      $big ($(du -m "$big" | cut -f1) MB GPX, $points points; .ovl $mb MB)"
echo "points:    ortelix .ovl $(grep -c '^XKoord[0-9]' "$work/ovl-ortelix.ovl"), gpsbabel .ovl $(grep -c '^XKoord[0-9]' "$work/ovl-gpsbabel.ovl")"
awk -v oi="$o_in" -v oc="$o_conv" -v orr="$o_read" -v gi="$g_in" -v gc="$g_conv" -v gr="$g_read" -v mb="$mb" -v np="$points" -v sp="$small_points" 'BEGIN {
  ow = oc - oi; gw = gc - gi; if (ow < 0.001) ow = 0.001; if (orr < 0.001) orr = 0.001
  printf "write:     ortelix %.2f s (%.2f - %.2f, %.0f MB/s), gpsbabel %.2f s (%.2f - %.2f), gpsbabel/ortelix = %.1f\n", ow, oc, oi, mb / ow, gw, gc, gi, gw / ow
  gp = gr / sp; op = orr / np
  printf "read:      ortelix %.2f s (%.0f MB/s, %d points), gpsbabel %.2f s (%d points); per point gpsbabel/ortelix = %.0f\n", orr, mb / orr, np, gr, sp, gp / op
}'
echo "peak RSS:  ortelix write $((o_conv_rss / 1024)) MB, read $((o_read_rss / 1024)) MB; gpsbabel write $((g_conv_rss / 1024)) MB, read $((g_read_rss / 1024)) MB"
