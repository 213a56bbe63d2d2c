#!/usr/bin/env bash
# Converts the same large GPX file with ortelix and with gpsbabel and prints
# both times, their ratio and both peak resident sizes.
# Usage: bench/gpx-vs-gpsbabel.sh BUILD_DIR [POINTS]
set -euo pipefail
build=${1:-build-bench}
points=${2:-1000000}
here=$(cd "$(dirname "$0")" && pwd)
work=${BENCH_DIR:-$here/out}
mkdir -p "$work"
big=$work/big-$points.gpx
[ -f "$big" ] || python3 "$here/make-big-gpx.py" "$big" "$points"

measure() {  # label, command...: prints "seconds peak_kb"
  local log=$work/time-$1.txt; shift
  /usr/bin/time -v "$@" >/dev/null 2>"$log"
  local wall rss
  wall=$(awk -F': ' '/Elapsed \(wall clock\)/ {print $2}' "$log")
  rss=$(awk -F': ' '/Maximum resident set size/ {print $2}' "$log")
  # h:mm:ss or m:ss.ss -> seconds
  echo "$(echo "$wall" | awk -F: '{s=0; for(i=1;i<=NF;i++) s=s*60+$i; print s}') $rss"
}

read -r ot orss < <(measure ortelix "$build/ortelix" convert "$big" "$work/out-ortelix.gpx")
read -r gt grss < <(measure gpsbabel gpsbabel -t -i gpx -f "$big" -o gpx -F "$work/out-gpsbabel.gpx")
echo "file:      $big ($(du -m "$big" | cut -f1) MB, $points points)"
echo "ortelix:   ${ot} s, peak RSS $((orss / 1024)) MB"
echo "gpsbabel:  ${gt} s, peak RSS $((grss / 1024)) MB"
awk -v o="$ot" -v g="$gt" 'BEGIN { if (o > 0) printf "ratio:     gpsbabel/ortelix = %.1f\n", g / o }'
