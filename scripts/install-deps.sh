#!/usr/bin/env bash
# Installs what Ortelix needs to build, test and benchmark, and nothing that is
# already there. Safe to run again: apt-get runs only when a package is missing.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config clang libclang-rt-14-dev
  qt6-base-dev qt6-base-dev-tools qt6-serialport-dev qt6-charts-dev libqt6opengl6-dev
  libgl-dev libxtst-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  gpsbabel proj-bin proj-data gdal-bin gpsd gpsd-clients socat
  libimage-exiftool-perl giflib-tools mdbtools-dev xvfb time
  libxml2-utils qt6-translations-l10n linux-perf
  imagemagick python3-pil
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

[ ${#missing[@]} -eq 0 ] && exit 0

echo "install-deps: installing ${missing[*]}"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q
"${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
