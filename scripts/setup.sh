#!/usr/bin/env bash
# Installs what a fresh Debian 12 machine lacks to build, test and run Numarel.
set -euo pipefail

packages=(cmake g++ make ccache clang-format git pkg-config qt6-base-dev qt6-charts-dev libqt6opengl6-dev
          libgl-dev libgtest-dev libgmock-dev libbenchmark-dev libcli11-dev nlohmann-json3-dev
          libcairo2-dev fonts-liberation2 poppler-utils xvfb xauth)
if [ "${NUMAREL_SCREENSHOTS:-0}" = 1 ]; then packages+=(imagemagick); fi
# Building and checking the Debian package (scripts/package.sh, and the package test).
packages+=(dpkg-dev file lintian appstream desktop-file-utils)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
