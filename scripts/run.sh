#!/usr/bin/env bash
# Installs what is missing, builds, and runs Numarel on the shipped sample lottery: the desktop
# program where there is a display, else the command line printing a report of the sample.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
# Only the programs and what they read beside them: the tests and the benchmark are built by
# scripts/test.sh. The desktop program is a target only where Qt 6 was found.
targets=(numarel-cli numarel_resources)
# (grep reads the whole list: a pipe closed early would fail the build tool under pipefail)
if cmake --build build --target help | grep -E '(^|[.][.][.] )numarel(:|$)' >/dev/null; then
  targets+=(numarel)
fi
cmake --build build -j"$(nproc)" --target "${targets[@]}"

if [ -x build/bin/numarel ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec build/bin/numarel "$@"
fi
echo "No display: printing Sum of Odd-Sum of Even of the sample lottery." >&2
exec build/bin/numarel-cli report frmbjiouhe --data build/bin/data/Synthetic-Demo.txt "$@"
