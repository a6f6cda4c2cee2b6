#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: once in a normal build and once under
# AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh

# The tree is formatted as .clang-format says; a file it would change fails the run.
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror

jobs=$(nproc)
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure -j"$jobs"

if [ "${NUMAREL_SKIP_SANITIZERS:-0}" != 1 ]; then
  cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DNUMAREL_SANITIZE=ON \
        -DNUMAREL_BUILD_BENCH=OFF >/dev/null
  cmake --build build-asan -j"$jobs"
  ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 \
    ctest --test-dir build-asan --output-on-failure -j"$jobs"
fi

# The fuzz targets for a few seconds each, so that they keep compiling and finding nothing. Only
# where clang with libFuzzer is installed (scripts/fuzz.sh installs it); skipped otherwise.
if [ "${NUMAREL_SKIP_FUZZ:-0}" != 1 ] && scripts/fuzz.sh --available; then
  scripts/fuzz.sh "${NUMAREL_FUZZ_SECONDS:-5}"
else
  echo "Fuzz smoke run skipped: clang-14 with libFuzzer is not installed (scripts/fuzz.sh installs it)."
fi
