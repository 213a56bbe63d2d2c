#!/usr/bin/env bash
# Reads the GPX inputs that are shaped to cost a careless reader (see
# make-hostile-gpx.py) with `ortelix info` and prints each one's wall time
# and peak resident size. Each must read in well under a second; a read over
# LIMIT seconds is marked and makes the script exit 1.
# Usage: bench/hostile-inputs.sh BUILD_DIR [LIMIT]
set -euo pipefail
build=${1:-build-bench}
limit=${2:-1}
here=$(cd "$(dirname "$0")" && pwd)
work=${BENCH_DIR:-$here/out}
mkdir -p "$work"

slow=0
for shape in ampersands unclosed-ele distinct-days; do
  file=$work/hostile-$shape.gpx
  [ -f "$file" ] || python3 "$here/make-hostile-gpx.py" "$file" "$shape"
  status=0
  /usr/bin/time -f "%e %M" -o "$work/last-time" "$build/ortelix" info "$file" >"$work/hostile-$shape.txt" 2>&1 || status=$?
  read -r wall rss < <(tail -n 1 "$work/last-time")  # time puts a line about a failed command first
  verdict=$(awk -v w="$wall" -v l="$limit" 'BEGIN { print (w < l) ? "ok" : "SLOW" }')
  [ "$status" -eq 0 ] || verdict="FAILED (exit $status, see $work/hostile-$shape.txt)"
  [ "$verdict" = ok ] || slow=1
  printf '%-14s %5s MB  %6s s  peak RSS %4s MB  %s\n' "$shape" "$(du -m "$file" | cut -f1)" "$wall" "$((rss / 1024))" "$verdict"
done
exit "$slow"
