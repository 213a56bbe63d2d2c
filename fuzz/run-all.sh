#!/usr/bin/env bash
# Runs every fuzz target of BUILD_DIR for SECONDS each, from its seed corpus.
set -euo pipefail
build=${1:-build-fuzz}
seconds=${2:-30}
here=$(cd "$(dirname "$0")" && pwd)
for f in "$build"/fuzz_*; do
  [ -x "$f" ] || continue
  name=$(basename "$f"); name=${name#fuzz_}
  corpus=$build/corpus-$name
  mkdir -p "$corpus"
  seeds=()
  [ -d "$here/corpus/$name" ] && seeds=("$here/corpus/$name")
  echo "== $name"
  "$f" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 "$corpus" "${seeds[@]}" 2>&1 | tail -n 3
done
