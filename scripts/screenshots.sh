#!/usr/bin/env bash
# Photographs the desktop program's windows under a virtual display (Xvfb) with ImageMagick's
# `import`: the welcome window, the main window with a group menu open, reports, a Print preview,
# the Scoreboard and the drawings editor, on the shipped sample lottery. The pictures go to
# docs/screenshots/.
set -euo pipefail
cd "$(dirname "$0")/.."
NUMAREL_SCREENSHOTS=1 scripts/setup.sh

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc)" --target numarel numarel_screenshot_tour

out="$PWD/docs/screenshots"
mkdir -p "$out"
# A program folder of its own, as shipped, so the pictures show the sample lottery whatever the
# build folder's selection is.
program=$(mktemp -d)
cp -r resources/. "$program/"

display=:$((90 + RANDOM % 100))
Xvfb "$display" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
xvfb_pid=$!
trap 'kill "$xvfb_pid" 2>/dev/null || true; rm -rf "$program"' EXIT
for _ in $(seq 50); do
  xdpyinfo -display "$display" >/dev/null 2>&1 && break
  [ -e "/tmp/.X11-unix/X${display#:}" ] && break
  sleep 0.1
done
sleep 0.5

mkdir -m 700 "$program/.runtime"
DISPLAY="$display" XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$program/.runtime}" \
  build/bin/numarel_screenshot_tour "$out" "$program"
echo "Screenshots in $out"
