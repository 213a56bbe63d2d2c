#!/usr/bin/env bash
# Runs every benchmark program and comparison script against BUILD_DIR.
set -euo pipefail
build=${1:-build-bench}
here=$(cd "$(dirname "$0")" && pwd)
for b in "$build"/bench_*; do
  [ -x "$b" ] || continue
  echo "== $(basename "$b")"; "$b"
done
echo "== hostile-inputs.sh"; "$here/hostile-inputs.sh" "$build" || true
for s in "$here"/*-vs-*.sh; do
  [ -x "$s" ] || continue
  echo "== $(basename "$s")"; "$s" "$build"
done
