#!/usr/bin/env bash
# Writes a large NMEA log seed (a few MB, many days) into DIR/nmea, made at
# fuzz time rather than kept in git.
# Usage: fuzz/make-nmea-seeds.sh DIR
set -euo pipefail
dir=${1:?usage: make-nmea-seeds.sh DIR}/nmea
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$dir"
[ -s "$dir/large-log.nmea" ] || python3 "$here/../bench/make-big-nmea.py" "$dir/large-log.nmea" 20000
