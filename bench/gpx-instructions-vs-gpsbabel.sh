#!/usr/bin/env bash
# The same conversion as gpx-vs-gpsbabel.sh, counted in instructions by
# callgrind on a smaller file: repeatable whatever else the machine does,
# where times on a shared machine drift by a third from run to run.
# Usage: bench/gpx-instructions-vs-gpsbabel.sh BUILD_DIR [POINTS]
set -euo pipefail
build=${1:-build-bench}
points=${2:-100000}
here=$(cd "$(dirname "$0")" && pwd)
work=${BENCH_DIR:-$here/out}
mkdir -p "$work"
file=$work/big-$points.gpx
[ -f "$file" ] || python3 "$here/make-big-gpx.py" "$file" "$points"

count() {  # command...: prints the instructions it ran
  local log=$work/callgrind.out
  valgrind --tool=callgrind --callgrind-out-file="$log" "$@" >/dev/null 2>&1
  callgrind_annotate "$log" | awk '/PROGRAM TOTALS/ { gsub(",", "", $1); print $1 }'
}

o=$(count "$build/ortelix" convert "$file" "$work/instr-ortelix.gpx")
g=$(count gpsbabel -t -i gpx -f "$file" -o gpx -F "$work/instr-gpsbabel.gpx")
echo "file:      $file ($points points)"
echo "ortelix:   $o instructions ($((o / points)) per point)"
echo "gpsbabel:  $g instructions ($((g / points)) per point)"
awk -v o="$o" -v g="$g" 'BEGIN { printf "ratio:     gpsbabel/ortelix = %.1f\n", g / o }'
