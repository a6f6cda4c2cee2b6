#!/usr/bin/env bash
# Builds the Debian package numarel_<version>_<arch>.deb in build-package/, then checks what it
# ships with desktop-file-validate, appstreamcli and lintian.
set -euo pipefail
cd "$(dirname "$0")/.."
NUMAREL_PACKAGING=1 scripts/setup.sh

cmake -S . -B build-package -DCMAKE_BUILD_TYPE=Release -DNUMAREL_BUILD_TESTS=OFF \
      -DNUMAREL_BUILD_BENCH=OFF >/dev/null
cmake --build build-package -j"$(nproc)"
(cd build-package && cpack -G DEB >/dev/null)
deb=$(ls build-package/numarel_*.deb)
echo "Built $deb"
scripts/check_package.sh "$deb"
