#!/usr/bin/env bash
# Runs every fuzz target of BUILD_DIR for SECONDS each and says what each found.
#
# Each target starts from the seeds in git (fuzz/corpus/NAME), the large seeds
# made at fuzz time (fuzz/make-large-seeds.sh, make-ozi-seeds.sh, make-nmea-seeds.sh, into
# BUILD_DIR/seeds) and its working corpora BUILD_DIR/corpus-NAME and
# corpus-NAME-large, which keep what earlier runs found; findings go to
# BUILD_DIR/findings-NAME. A target that crashes, leaks, times out, runs out
# of memory or meets undefined behaviour (the build halts at the first UBSan
# report) does not stop the others. At the end one line per target: runs,
# coverage at the start and at the end, corpus size, findings; the exit code
# is 1 when any target found something, 2 when a target could not run.
#
# Usage: fuzz/run-all.sh [BUILD_DIR] [SECONDS] [TARGET...]
set -uo pipefail
build=${1:-build-fuzz}
seconds=${2:-30}
shift 2 2>/dev/null || shift $#
here=$(cd "$(dirname "$0")" && pwd)
max_len=$((8 * 1024 * 1024))  # the large seeds are a few MB each

seeds=$build/seeds
mkdir -p "$seeds"
for maker in "$here/make-large-seeds.sh" "$here/make-ozi-seeds.sh" "$here/make-nmea-seeds.sh"; do
  if [ -x "$maker" ] && ! "$maker" "$seeds"; then
    echo "run-all: $(basename "$maker") failed; going on without its seeds" >&2
  fi
done

targets=()
if [ $# -gt 0 ]; then
  for t in "$@"; do targets+=("$build/fuzz_$t"); done
else
  for f in "$build"/fuzz_*; do [ -x "$f" ] && targets+=("$f"); done
fi
if [ ${#targets[@]} -eq 0 ]; then
  echo "run-all: no fuzz targets in $build (cmake -DORTELIX_FUZZ=ON, target ortelix_fuzzers)" >&2
  exit 2
fi

# Numbers out of a libFuzzer log: the coverage of the first and of the last
# status line, the runs of the final statistics.
field() {  # LOG KEY first|last
  local line
  if [ "$3" = first ]; then line=$(grep -m1 -E "^#[0-9]+[[:space:]]+(INITED|pulse|NEW|REDUCE|DONE)" "$1")
  else line=$(grep -E "^#[0-9]+[[:space:]]+(INITED|pulse|NEW|REDUCE|DONE|RELOAD)" "$1" | tail -n1); fi
  sed -n "s/.*[[:space:]]$2: \([0-9]*\).*/\1/p" <<<"$line"
}
runs_of() {  # LOG
  local n
  n=$(sed -n 's/^stat::number_of_executed_units: *\([0-9]*\).*/\1/p' "$1" | tail -n1)
  [ -z "$n" ] && n=$(grep -oE "^Done [0-9]+ runs" "$1" | grep -oE "[0-9]+" | tail -n1)
  echo "${n:-0}"
}

# One phase of one target: LOG CORPUS MAX_LEN SECONDS SEED_DIR...; sets rc.
phase() {
  local log=$1 corpus=$2 len=$3 secs=$4; shift 4
  mkdir -p "$corpus"
  "$f" -max_total_time="$secs" -max_len="$len" -timeout=20 -rss_limit_mb=4096 \
       -artifact_prefix="$findings/" -print_final_stats=1 "$corpus" "$@" >"$log" 2>&1
  rc=$?
  tail -n 4 "$log"
}

# Most of the time goes to small inputs, which run thousands of times a
# second; a quarter to the large seeds, at a few runs a second, for the costs
# that only size brings out. Each phase keeps a corpus of its own, so that the
# small one stays small.
large_seconds=$(( seconds / 4 > 0 ? seconds / 4 : 1 ))
small_seconds=$(( seconds - large_seconds > 0 ? seconds - large_seconds : 1 ))
small_len=65536

summary=()
status=0
for f in "${targets[@]}"; do
  name=$(basename "$f"); name=${name#fuzz_}
  if [ ! -x "$f" ]; then
    summary+=("$(printf '%-10s not built' "$name")")
    status=2
    continue
  fi
  findings=$build/findings-$name
  mkdir -p "$findings"
  before=$(find "$findings" -type f | wc -l)
  small_seeds=(); large_seeds=()
  [ -d "$here/corpus/$name" ] && small_seeds+=("$here/corpus/$name")
  [ -d "$seeds/$name" ] && large_seeds+=("$seeds/$name")
  echo "== $name: $small_seconds s small inputs, $large_seconds s with the large seeds"
  phase "$build/fuzz-$name.log" "$build/corpus-$name" "$small_len" "$small_seconds" "${small_seeds[@]}"
  rc_small=$rc
  phase "$build/fuzz-$name-large.log" "$build/corpus-$name-large" "$max_len" "$large_seconds" \
        "$build/corpus-$name" "${small_seeds[@]}" "${large_seeds[@]}"
  rc_large=$rc
  after=$(find "$findings" -type f | wc -l)
  runs=$(( $(runs_of "$build/fuzz-$name.log") + $(runs_of "$build/fuzz-$name-large.log") ))
  cov0=$(field "$build/fuzz-$name.log" cov first)
  cov1=$(field "$build/fuzz-$name.log" cov last)
  cov2=$(field "$build/fuzz-$name-large.log" cov last)
  new=$((after - before))
  kind=$(cat "$build/fuzz-$name.log" "$build/fuzz-$name-large.log" |
         grep -oE "ERROR: (AddressSanitizer|LeakSanitizer|libFuzzer|UndefinedBehaviorSanitizer): [a-zA-Z-]+|runtime error: .{0,60}" |
         head -n1)
  if [ "$rc_small" -ne 0 ] || [ "$rc_large" -ne 0 ] || [ "$new" -gt 0 ]; then
    status=1
    verdict="FOUND: ${kind:-exit $rc_small/$rc_large}; $new new file(s) in $findings"
  else
    verdict="nothing found"
  fi
  summary+=("$(printf '%-10s %10s runs  cov %5s -> %5s (large %5s)  %s' \
    "$name" "$runs" "${cov0:-?}" "${cov1:-?}" "${cov2:-?}" "$verdict")")
done

echo
echo "== summary ($seconds s each, logs in $build/fuzz-*.log)"
printf '%s\n' "${summary[@]}"
exit $status
