#!/usr/bin/env bash
# Runs every fuzz target of fuzz/ for SECONDS seconds each (60 unless given), under
# AddressSanitizer and UndefinedBehaviorSanitizer, and prints how many inputs each ran.
#   scripts/fuzz.sh [SECONDS]    installs clang and libFuzzer when missing, builds, runs
#   scripts/fuzz.sh --available  exits 0 when clang with libFuzzer is installed
# Each target starts from its seed corpus in fuzz/corpus/<target> and keeps what it learns in
# build-fuzz/corpus/<target>, so longer runs pick up where the last one stopped. A failing input
# is saved under build-fuzz/artifacts/ and makes the script exit non-zero.
set -euo pipefail
cd "$(dirname "$0")/.."

compiler=clang++-14
available() {
  command -v "$compiler" >/dev/null 2>&1 &&
    echo 'extern "C" int LLVMFuzzerTestOneInput(const unsigned char*, unsigned long) { return 0; }' |
      "$compiler" -x c++ - -fsanitize=fuzzer -o /dev/null >/dev/null 2>&1
}
if [ "${1:-}" = "--available" ]; then available; exit; fi
seconds=${1:-60}

scripts/setup.sh
if ! available; then
  echo "Installing clang-14 and libFuzzer (libclang-rt-14-dev)"
  sudo=""
  [ "$(id -u)" -ne 0 ] && sudo="sudo"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends \
    clang-14 libclang-rt-14-dev
fi

cmake -S . -B build-fuzz -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
      -DNUMAREL_FUZZ=ON -DNUMAREL_BUILD_TESTS=OFF -DNUMAREL_BUILD_BENCH=OFF \
      -DNUMAREL_BUILD_GUI=OFF >/dev/null
cmake --build build-fuzz -j"$(nproc)" --target numarel_fuzzers

mkdir -p build-fuzz/artifacts
failed=()
for seeds in fuzz/corpus/*/; do
  target=$(basename "$seeds")
  corpus=build-fuzz/corpus/$target
  log=build-fuzz/fuzz_$target.log
  mkdir -p "$corpus"
  status=0
  ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
    "build-fuzz/bin/fuzz_$target" -max_total_time="$seconds" -print_final_stats=1 \
      -artifact_prefix=build-fuzz/artifacts/"$target"- "$corpus" "$seeds" >"$log" 2>&1 || status=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  if [ "$status" -eq 0 ]; then
    echo "fuzz_$target: ${runs:-0} inputs in ${seconds} s, nothing found"
  else
    echo "fuzz_$target: FAILED after ${runs:-?} inputs (exit $status); see $log and build-fuzz/artifacts/"
    tail -30 "$log"
    failed+=("$target")
  fi
done
[ ${#failed[@]} -eq 0 ]
