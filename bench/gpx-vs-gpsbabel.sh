#!/usr/bin/env bash
# Converts the same large GPX file with ortelix and with gpsbabel and prints
# both times, their ratio and both peak resident sizes. The machine's speed
# drifts, so the two programs take turns, RUNS times each, and the medians
# are compared: wall-clock and CPU (user + system) time. Outputs go to a
# memory file system where there is one, and the disk is synced before each
# run, so that neither program pays for the other's write-back.
# Usage: bench/gpx-vs-gpsbabel.sh BUILD_DIR [POINTS] [RUNS]
set -euo pipefail
build=${1:-build-bench}
points=${2:-1000000}
runs=${3:-3}
here=$(cd "$(dirname "$0")" && pwd)
work=${BENCH_DIR:-$here/out}
mkdir -p "$work"
big=$work/big-$points.gpx
[ -f "$big" ] || python3 "$here/make-big-gpx.py" "$big" "$points"

out=$work
[ -d /dev/shm ] && out=$(mktemp -d /dev/shm/ortelix-bench.XXXXXX)
trap '[ "$out" != "$work" ] && rm -rf "$out"' EXIT

run() {  # label, command...: appends "wall cpu peak_kb" to $work/times-LABEL
  local label=$1; shift
  sync
  /usr/bin/time -f "%e %U %S %M" -o "$work/last-time" "$@" >/dev/null 2>&1
  awk '{ printf "%s %.2f %s\n", $1, $2 + $3, $4 }' "$work/last-time" >>"$work/times-$label"
}
median() {  # file, column
  sort -n -k"$2" "$1" | awk -v c="$2" '{ v[NR] = $c } END { print v[int((NR + 1) / 2)] }'
}
range() {  # file, column: "min-max"
  sort -n -k"$2" "$1" | awk -v c="$2" '{ v[NR] = $c } END { print v[1] "-" v[NR] }'
}

rm -f "$work/times-ortelix" "$work/times-gpsbabel"
for _ in $(seq "$runs"); do
  run ortelix "$build/ortelix" convert "$big" "$out/out-ortelix.gpx"
  run gpsbabel gpsbabel -t -i gpx -f "$big" -o gpx -F "$out/out-gpsbabel.gpx"
done
ow=$(median "$work/times-ortelix" 1); oc=$(median "$work/times-ortelix" 2); orss=$(median "$work/times-ortelix" 3)
gw=$(median "$work/times-gpsbabel" 1); gc=$(median "$work/times-gpsbabel" 2); grss=$(median "$work/times-gpsbabel" 3)
echo "file:      $big ($(du -m "$big" | cut -f1) MB, $points points), median of $runs runs each"
echo "ortelix:   ${ow} s wall ($(range "$work/times-ortelix" 1)), ${oc} s CPU ($(range "$work/times-ortelix" 2)), peak RSS $((orss / 1024)) MB"
echo "gpsbabel:  ${gw} s wall ($(range "$work/times-gpsbabel" 1)), ${gc} s CPU ($(range "$work/times-gpsbabel" 2)), peak RSS $((grss / 1024)) MB"
awk -v ow="$ow" -v oc="$oc" -v gw="$gw" -v gc="$gc" \
  'BEGIN { printf "ratio:     gpsbabel/ortelix = %.1f (wall), %.1f (CPU)\n", gw / ow, gc / oc }'
