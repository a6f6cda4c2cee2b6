#!/usr/bin/env bash
# Installs what is missing, builds, and runs Numarel on the shipped sample lottery: the desktop
# program where there is a display, else the command line printing a report of the sample.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc)"

if [ -x build/bin/numarel ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec build/bin/numarel "$@"
fi
echo "No display: printing Sum of Odd-Sum of Even of the sample lottery." >&2
exec build/bin/numarel-cli report frmbjiouhe --data build/bin/data/Synthetic-Demo.txt "$@"
