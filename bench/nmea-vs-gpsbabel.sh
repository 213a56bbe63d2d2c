#!/usr/bin/env bash
# NMEA logs, ortelix against gpsbabel on the same large log (one RMC and one
# GGA a second, a new date every day):
#   convert  log -> GPX, both programs
#   read     the log alone: ortelix info, gpsbabel reading into nothing; MB/s
#   write    GPX -> log minus GPX -> nothing, on the GPX that ortelix wrote
# The two programs take turns, RUNS times each; medians of wall-clock time
# and peak resident size. ortelix keeps a point for each RMC and each GGA
# (two per second), gpsbabel joins the two of one second into one: the
# point counts are printed beside the times.
# Usage: bench/nmea-vs-gpsbabel.sh BUILD_DIR [FIXES] [RUNS]
set -euo pipefail
build=${1:-build-bench}
fixes=${2:-1000000}
runs=${3:-3}
here=$(cd "$(dirname "$0")" && pwd)
work=${BENCH_DIR:-$here/out}
mkdir -p "$work"
big=$work/big-$fixes.nmea
[ -f "$big" ] || python3 "$here/make-big-nmea.py" "$big" "$fixes"
export ASAN_OPTIONS=detect_leaks=0

out=$work
[ -d /dev/shm ] && out=$(mktemp -d /dev/shm/ortelix-bench.XXXXXX)
trap '[ "$out" != "$work" ] && rm -rf "$out"' EXIT

run() {  # label, command...: appends "wall peak_kb" to $work/nmea-times-LABEL
  local label=$1; shift
  sync
  /usr/bin/time -f "%e %M" -o "$work/last-time" "$@" >/dev/null 2>&1
  cat "$work/last-time" >>"$work/nmea-times-$label"
}
median() {  # label, column
  sort -n -k"$2" "$work/nmea-times-$1" | awk -v c="$2" '{ v[NR] = $c } END { print v[int((NR + 1) / 2)] }'
}
# gpsbabel reads all and writes nothing when every kind is dropped before the output.
nothing=(-x nuketypes,waypoints,tracks,routes -o gpx -F /dev/null)

rm -f "$work"/nmea-times-*
# The dates of the log are all taken (--dates all, the command line's default).
"$build/ortelix" convert --set Check21=0 "$big" "$out/from-log.gpx" >/dev/null 2>&1
for _ in $(seq "$runs"); do
  run o-convert "$build/ortelix" convert --set Check21=0 "$big" "$out/o.gpx"
  run g-convert gpsbabel -i nmea -f "$big" -o gpx -F "$out/g.gpx"
  run o-read "$build/ortelix" info --set Check21=0 "$big"
  run g-read gpsbabel -i nmea -f "$big" "${nothing[@]}"
  run o-gpx "$build/ortelix" info "$out/from-log.gpx"
  run o-write "$build/ortelix" convert "$out/from-log.gpx" "$out/o.nmea"
  run g-gpx gpsbabel -t -i gpx -f "$out/from-log.gpx" "${nothing[@]}"
  run g-write gpsbabel -t -i gpx -f "$out/from-log.gpx" -o nmea -F "$out/g.nmea"
done

mb=$(du -m "$big" | cut -f1)
echo "log:       $big ($mb MB, $fixes fixes), median of $runs runs each"
echo "points:    ortelix $(grep -c '<trkpt ' "$out/o.gpx"), gpsbabel $(grep -c '<trkpt ' "$out/g.gpx")"
awk -v mb="$mb" \
    -v oc="$(median o-convert 1)" -v gc="$(median g-convert 1)" \
    -v orr="$(median o-read 1)" -v gr="$(median g-read 1)" \
    -v og="$(median o-gpx 1)" -v ow="$(median o-write 1)" -v gg="$(median g-gpx 1)" -v gw="$(median g-write 1)" '
function f(x) { return x > 0.01 ? x : 0.01 }
BEGIN {
  printf "convert:   ortelix %.2f s, gpsbabel %.2f s, gpsbabel/ortelix = %.1f\n", oc, gc, gc / f(oc)
  printf "read:      ortelix %.2f s (%.0f MB/s), gpsbabel %.2f s (%.0f MB/s), gpsbabel/ortelix = %.1f\n", orr, mb / f(orr), gr, mb / f(gr), gr / f(orr)
  printf "write:     ortelix %.2f s (%.2f - %.2f), gpsbabel %.2f s (%.2f - %.2f), gpsbabel/ortelix = %.1f\n", ow - og, ow, og, gw - gg, gw, gg, (gw - gg) / f(ow - og)
}'
echo "peak RSS:  convert ortelix $(( $(median o-convert 2) / 1024 )) MB, gpsbabel $(( $(median g-convert 2) / 1024 )) MB;" \
     "read ortelix $(( $(median o-read 2) / 1024 )) MB, gpsbabel $(( $(median g-read 2) / 1024 )) MB;" \
     "write ortelix $(( $(median o-write 2) / 1024 )) MB, gpsbabel $(( $(median g-write 2) / 1024 )) MB"
