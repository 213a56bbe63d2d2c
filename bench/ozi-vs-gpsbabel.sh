#!/usr/bin/env bash
# Writes a large track as an OziExplorer .plt and reads it back, with ortelix
# and with gpsbabel (-o ozi / -i ozi) on the same data, and prints the times,
# their ratios and the peak resident sizes.
#   write = (GPX in, .plt out) minus (GPX in, nothing out)
#   read  = (.plt in, nothing out), both programs on ortelix's .plt
# Usage: bench/ozi-vs-gpsbabel.sh BUILD_DIR [POINTS]
set -euo pipefail
build=${1:-build-bench}
points=${2:-1000000}
here=$(cd "$(dirname "$0")" && pwd)
work=${BENCH_DIR:-$here/out}
mkdir -p "$work"
big=$work/big-$points.gpx
[ -f "$big" ] || python3 "$here/make-big-gpx.py" "$big" "$points"
export ASAN_OPTIONS=detect_leaks=0

measure_tag=ozi
# shellcheck source=bench/measure.sh
source "$here/measure.sh"

# gpsbabel reads all and writes nothing when every kind is dropped before the output.
nothing=(-x nuketypes,waypoints,tracks,routes -o gpx -F /dev/null)

rm -f "$work/ozi-ortelix.plt" "$work/ozi-gpsbabel.plt"
# The GPX has a segment every 20,000 points; "Tracks anhängen" keeps them one track, one .plt.
read -r o_in o_in_rss < <(measure ortelix-gpx "$build/ortelix" info --set Check12=1 "$big")
read -r o_conv o_conv_rss < <(measure ortelix-write "$build/ortelix" convert --set Check12=1 "$big" "$work/ozi-ortelix.plt")
read -r o_read o_read_rss < <(measure ortelix-read "$build/ortelix" info "$work/ozi-ortelix.plt")
read -r g_in g_in_rss < <(measure gpsbabel-gpx gpsbabel -t -i gpx -f "$big" "${nothing[@]}")
read -r g_conv g_conv_rss < <(measure gpsbabel-write gpsbabel -t -i gpx -f "$big" -o ozi -F "$work/ozi-gpsbabel.plt")
read -r g_read g_read_rss < <(measure gpsbabel-read gpsbabel -t -i ozi -f "$work/ozi-ortelix.plt" "${nothing[@]}")

echo "file:      $big ($(du -m "$big" | cut -f1) MB GPX, $points points; .plt $(du -m "$work/ozi-ortelix.plt" | cut -f1) MB)"
echo "points:    ortelix .plt $(sed -n 6p "$work/ozi-ortelix.plt" | tr -d '\r'), gpsbabel .plt $(($(wc -l < "$work/ozi-gpsbabel.plt") - 6))"
awk -v oi="$o_in" -v oc="$o_conv" -v orr="$o_read" -v gi="$g_in" -v gc="$g_conv" -v gr="$g_read" 'BEGIN {
  ow = oc - oi; gw = gc - gi; if (ow < 0.001) ow = 0.001
  printf "write:     ortelix %.2f s (%.2f - %.2f), gpsbabel %.2f s (%.2f - %.2f), gpsbabel/ortelix = %.1f\n", ow, oc, oi, gw, gc, gi, gw / ow
  printf "read:      ortelix %.2f s, gpsbabel %.2f s, gpsbabel/ortelix = %.1f\n", orr, gr, gr / (orr > 0 ? orr : 0.001)
}'
echo "peak RSS:  ortelix write $((o_conv_rss / 1024)) MB, read $((o_read_rss / 1024)) MB; gpsbabel write $((g_conv_rss / 1024)) MB, read $((g_read_rss / 1024)) MB"
