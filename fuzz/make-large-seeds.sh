#!/usr/bin/env bash
# Writes large GPX seeds (a few MB each) into DIR/gpx: a plain track of many
# points, and the inputs shaped to cost a careless reader (bench/make-hostile-gpx.py)
# at a size that still lets the fuzzer run them often. They are made here at
# fuzz time rather than kept in git. Give the fuzzer -max_len of at least 8 MB.
# Usage: fuzz/make-large-seeds.sh DIR
set -euo pipefail
dir=${1:?usage: make-large-seeds.sh DIR}/gpx
here=$(cd "$(dirname "$0")" && pwd)
bench=$here/../bench
mkdir -p "$dir"
seed() {  # name, generator and its arguments: writes DIR/gpx/NAME once
  local out=$dir/$1; shift
  [ -s "$out" ] || "$@"
}
seed large-track.gpx          python3 "$bench/make-big-gpx.py" "$dir/large-track.gpx" 20000
seed large-ampersands.gpx     python3 "$bench/make-hostile-gpx.py" "$dir/large-ampersands.gpx" ampersands 1000000
seed large-unclosed-ele.gpx   python3 "$bench/make-hostile-gpx.py" "$dir/large-unclosed-ele.gpx" unclosed-ele 40000
seed large-distinct-days.gpx  python3 "$bench/make-hostile-gpx.py" "$dir/large-distinct-days.gpx" distinct-days 40000
seed large-mixed.gpx          python3 "$bench/make-hostile-gpx.py" "$dir/large-mixed.gpx" mixed
